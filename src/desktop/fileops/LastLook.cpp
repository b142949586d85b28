// SPDX-License-Identifier: MIT
#include "LastLook.h"

#include "Reasons.h"

#include <fcntl.h>

namespace desktop {
namespace {

tEnding NotRead(int nError)
{
    return tEnding::Spared(Reason(nError, Step::Read) + " So its contents could not be compared.");
}

bool IsSameFile(const tFileIdentity& one, const tFileIdentity& other)
{
    return one.nDevice == other.nDevice && one.nInode == other.nInode;
}

} // namespace

tEnding LastLook::Before(const std::string& sPath, const tFileIdentity& expected,
                         const std::vector<tStayingCopy>& copies, const ProgressCall& goOn)
{
    const FolderEntry entry(sPath);
    Descriptor file;
    tEnding ending = tEnding::Spared("No copy of it stays.");
    for (const tStayingCopy& copy : copies) {
        const bool bItself = IsSameFile(copy.identity, expected);
        ending = Hold(copy, bItself ? O_PATH : O_RDONLY | O_NONBLOCK);
        if (!ending.IsDone()) {
            continue;
        }
        if (bItself) {
            return {};
        }
        if (!file.IsOpen()) {
            int nError = 0;
            file = entry.Open(O_RDONLY | O_NONBLOCK, nError);
            if (nError != 0) {
                return NotRead(nError);
            }
        }
        ending = CompareWith(file.Get(), goOn);
        if (ending.IsDone()) {
            return IsStill(LookAt(file.Get()), expected);
        }
        if (ending.kind == tEnding::Kind::Cancelled) {
            return ending;
        }
    }
    m_held.reset();
    return ending;
}

/// Opens a copy, which must still be as it was seen.
tEnding LastLook::Hold(const tStayingCopy& copy, int nFlags)
{
    int nError = 0;
    m_held = tHeld{copy, FolderEntry(copy.sPath).Open(nFlags, nError)};
    return nError == 0 ? After() : CopyNotRead(nError);
}

tEnding LastLook::CopyNotRead(int nError) const
{
    return tEnding::Spared("Its contents could not be compared with those of " + m_held->copy.sPath +
                           ", which was to stay. " + Reason(nError, Step::Read));
}

tEnding LastLook::CompareWith(int hFile, const ProgressCall& goOn)
{
    switch (m_comparison.Compare(hFile, m_held->file.Get(), goOn)) {
    case ContentComparison::Result::Same:
        // It was not written to while it was read.
        return After();
    case ContentComparison::Result::Different:
        return tEnding::Spared("Its contents differ from those of " + m_held->copy.sPath +
                               ", which was to stay.");
    case ContentComparison::Result::FirstNotRead:
        return NotRead(m_comparison.Error());
    case ContentComparison::Result::SecondNotRead:
        return CopyNotRead(m_comparison.Error());
    case ContentComparison::Result::Cancelled:
        break;
    }
    return {tEnding::Kind::Cancelled, {}};
}

tEnding LastLook::After()
{
    const bool bStays = IsStill(LookAt(m_held->file.Get()), m_held->copy.identity).IsDone() &&
                        IsStill(FolderEntry(m_held->copy.sPath).Look(), m_held->copy.identity).IsDone();
    return bStays ? tEnding()
                  : tEnding::Spared(m_held->copy.sPath +
                                    ", which was to stay, has gone or changed in the meantime.");
}

} // namespace desktop
