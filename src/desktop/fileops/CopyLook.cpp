// SPDX-License-Identifier: MIT
#include "CopyLook.h"

#include "Reasons.h"

#include <cerrno>
#include <fcntl.h>
#include <utility>

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

void CopyLook::Begin(const HeldFile& file, std::vector<tStayingCopy> copies, ProgressCall goOn)
{
    m_pFile = &file;
    m_copies = std::move(copies);
    m_goOn = std::move(goOn);
    Release();
}

tEnding CopyLook::Before(int /*hFile*/)
{
    Descriptor open;
    tEnding ending;
    for (const tStayingCopy& copy : m_copies) {
        const bool bItself = IsSameFile(copy.identity, m_pFile->Expected());
        ending = Hold(copy, bItself ? O_PATH : O_RDONLY | O_NONBLOCK);
        if (!ending.IsDone()) {
            continue;
        }
        if (bItself) {
            return ending;
        }
        if (!open.IsOpen()) {
            int nError = 0;
            open = m_pFile->Entry().Open(O_RDONLY | O_NONBLOCK, nError);
            if (nError != 0) {
                return NotRead(nError);
            }
        }
        ending = CompareWith(open.Get());
        if (ending.IsDone()) {
            return IsStill(LookAt(open.Get()), m_pFile->Expected());
        }
        if (ending.kind == tEnding::Kind::Cancelled) {
            return ending;
        }
    }
    return ending;
}

/// Opens a copy, which must be unchanged since it was seen.
tEnding CopyLook::Hold(const tStayingCopy& copy, int nFlags)
{
    FolderEntry entry(m_folders.Of(copy.sPath), NameOf(copy.sPath));
    int nError = 0;
    Descriptor file = entry.Open(nFlags, nError);
    Release();
    m_held.emplace(tHeld{copy.sPath, HeldFile(std::move(entry), copy.identity), std::move(file)});
    return nError == 0 || nError == ENOENT ? StillThere() : CopyNotRead(nError);
}

tEnding CopyLook::CopyNotRead(int nError) const
{
    return tEnding::Spared("Its contents could not be compared with those of " + m_held->sPath +
                           ", which was to stay. " + Reason(nError, Step::Read));
}

tEnding CopyLook::CompareWith(int hFile)
{
    // There is no lease on another user's copy, but its time of change cannot be set back.
    m_held->before = LookAt(m_held->file.Get()).status;
    // The lease detects writes during the comparison, and until the file has gone.
    m_lease.emplace(m_held->file.Get());
    switch (m_comparison.Compare(hFile, m_held->file.Get(), m_goOn)) {
    case ContentComparison::Result::Same:
        return m_lease->IsOpenForWriting()
                   ? tEnding::Spared(m_held->sPath + ", which was to stay, is being written to.")
                   : StillThere();
    case ContentComparison::Result::Different:
        return tEnding::Spared("Its contents differ from those of " + m_held->sPath + ", which was to stay.");
    case ContentComparison::Result::FirstNotRead:
        return NotRead(m_comparison.Error());
    case ContentComparison::Result::SecondNotRead:
        return CopyNotRead(m_comparison.Error());
    case ContentComparison::Result::Cancelled:
        break;
    }
    return {tEnding::Kind::Cancelled, {}};
}

tEnding CopyLook::After()
{
    const tEnding ending = m_held ? StillThere() : tEnding();
    Release();
    return ending;
}

/// Done if the copy is where it was and unchanged.
tEnding CopyLook::StillThere() const
{
    const bool bStays = IsStill(LookAt(m_held->file.Get()), m_held->place.Expected()).IsDone() &&
                        m_held->place.IsStillThere().IsDone() &&
                        !(m_held->before && IsTouched(m_held->file.Get(), *m_held->before));
    return bStays
               ? tEnding()
               : tEnding::Spared(m_held->sPath + ", which was to stay, has gone or changed in the meantime.");
}

void CopyLook::Release()
{
    m_lease.reset();
    m_held.reset();
}

} // namespace desktop
