// SPDX-License-Identifier: MIT
#include "TrashFolder.h"

#include "Leftovers.h"
#include "Paths.h"
#include "Retried.h"
#include "TrashJournal.h"
#include "TrashNote.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace desktop {

TrashFolder::TrashFolder(FolderPtr pRoot, std::string sTop)
    : m_pRoot(std::move(pRoot)), m_pFiles(Folder("files")), m_pInfo(Folder("info")), m_sTop(std::move(sTop))
{
    if (m_nError == 0) {
        // Where renaming without replacing is not supported, a terminated run may have left files in an
        // intermediate state.
        std::vector<tNotDone> left;
        ClearLeftovers(*m_pFiles, left, [this](const std::string& sName) {
            // Files that the user has deleted have to stay, whatever their names.
            return LookAt(m_pInfo->Get(), NoteName(sName)).nError != ENOENT;
        });
        TrashJournal::ClearOldOnes(*this);
    }
}

FolderPtr TrashFolder::Folder(const char* pName)
{
    const bool bMade = Retried([&] { return mkdirat(m_pRoot->Get(), pName, S_IRWXU); }) == 0;
    const int nError = bMade || errno == EEXIST ? 0 : errno;
    m_bNew = m_bNew || bMade;
    auto pFolder = std::make_shared<HeldFolder>(m_pRoot->Path() + '/' + pName);
    const int nFailed = nError != 0 ? nError : pFolder->Error();
    m_nError = m_nError != 0 ? m_nError : nFailed;
    return pFolder;
}

bool TrashFolder::IsWhereItWas() const
{
    return m_pFiles->IsWhereItWas() && m_pInfo->IsWhereItWas();
}

std::string TrashFolder::NoteFor(const std::string& sPath) const
{
    if (m_sTop.empty() || !platform::IsIn(sPath, m_sTop)) {
        return TrashNote(sPath);
    }
    return TrashNote(std::string_view(sPath).substr(m_sTop == "/" ? 1 : m_sTop.size() + 1));
}

std::string TrashFolder::FreeName(const std::string& sName)
{
    // Truncated names may become equal, and are then counted together.
    std::size_t& nTries = m_tries[NameInTrash(sName, 1)];
    const auto isTaken = [&](const FolderPtr& pFolder, const std::string& sTaken) {
        return LookAt(pFolder->Get(), sTaken).nError != ENOENT;
    };
    constexpr std::size_t kMostTries = 10'000'000; // in case every name seems to be taken
    std::string sFree;
    do {
        sFree = NameInTrash(sName, ++nTries);
    } while ((isTaken(m_pInfo, NoteName(sFree)) || isTaken(m_pFiles, sFree)) && nTries < kMostTries);
    return sFree;
}

bool TrashFolder::RemoveNote(const std::string& sNameInTrash) const
{
    return Retried([&] { return unlinkat(m_pInfo->Get(), NoteName(sNameInTrash).c_str(), 0); }) == 0 ||
           errno == ENOENT;
}

} // namespace desktop
