// SPDX-License-Identifier: MIT
#include "HeldFile.h"

#include "Renaming.h"

#include <fcntl.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr const char* kFolderMoved = "Its folder is no longer where it was.";

bool MayChange(int hFolder)
{
    return faccessat(hFolder, ".", W_OK | X_OK, AT_EACCESS) == 0;
}

/// What is wrong with the file that a rename has put at the new name; empty if nothing.
std::string WhatIsWrong(const HeldFile& file, const tNewPlace& place)
{
    const tLook arrived = place.to.Look();
    const tFileIdentity& expected = file.Expected();
    if (arrived.nError != 0) {
        return "It has been taken away from there in that moment.";
    }
    const tFileIdentity found = arrived.Identity();
    if (found.nDevice != expected.nDevice || found.nInode != expected.nInode) {
        return "Something else took its place in that moment.";
    }
    const tEnding ending = IsStill(arrived, expected);
    return !ending.IsDone()                        ? ending.sReason
           : !file.Entry().Folder().IsWhereItWas() ? kFolderMoved
           : !place.to.Folder().IsWhereItWas()     ? place.pGone
                                                   : "";
}

} // namespace

tEnding HeldFile::Hold()
{
    int nError = 0;
    m_file = m_entry.Open(O_PATH, nError);
    if (nError != 0) {
        return tEnding::NotDone(Reason(nError, m_entry.Folder().Error() != 0 ? Step::Enter : Step::Read));
    }
    return IsStill(LookAt(m_file.Get()), m_expected);
}

tEnding HeldFile::IsStillThere() const
{
    tEnding ending = IsStill(m_entry.Look(), m_expected);
    return ending.IsDone() && !m_entry.Folder().IsWhereItWas() ? tEnding::NotDone(kFolderMoved) : ending;
}

tRelocation Relocate(const HeldFile& file, const tNewPlace& place)
{
    tEnding ending = file.IsStillThere();
    if (!ending.IsDone()) {
        return {ending};
    }
    const tName& from = file.Entry().Name();
    const tName& to = place.to.Name();
    const int nError = RenameWithoutReplacing(from, to);
    if (nError == 0) {
        const std::string sWrong = WhatIsWrong(file, place);
        return sWrong.empty() ? tRelocation() : GoBack(file, place, sWrong);
    }
    // Finds out which of the two folders has gone or is not writable.
    if (nError == ENOENT && file.IsStillThere().IsDone()) {
        return {tEnding::NotDone(place.pGone), true, nError};
    }
    const bool bRemove =
        nError == EPERM ? MayChange(to.hFolder) : nError == EACCES && !MayChange(from.hFolder);
    const bool bThere =
        place.to.Look().IsSameFileAs(LookAt(file.Get())) && file.Entry().Look().nError == ENOENT;
    return {
        tEnding::NotDone(Reason(nError, bRemove ? Step::Remove : place.step) + (bThere ? place.pLies : "")),
        !bThere, nError};
}

tRelocation GoBack(const HeldFile& file, const tNewPlace& place, const std::string& sWhy)
{
    const int nError = RenameWithoutReplacing(place.to.Name(), file.Entry().Name());
    const bool bThere = nError != 0 && place.to.Look().nError != ENOENT;
    return {tEnding::NotDone(sWhy + (nError == 0 ? " It has been put back."
                                     : bThere    ? place.pLies
                                                 : "")),
            !bThere};
}

} // namespace desktop
