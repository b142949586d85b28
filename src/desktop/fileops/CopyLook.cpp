// SPDX-License-Identifier: MIT
#include "CopyLook.h"

#include "Paths.h"
#include "Reasons.h"
#include "Retried.h"
#include "SourceRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
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
        if (!m_open.IsOpen()) {
            int nError = 0;
            m_open = m_pFile->Entry().Open(O_RDONLY | O_NONBLOCK, nError);
            if (nError != 0) {
                return NotRead(nError);
            }
            m_goes.emplace(m_open.Get());
        }
        ending = Compare();
        if (ending.IsDone()) {
            return IsTouched(m_goes->h, m_goes->before) ? tEnding::Spared(kChanged)
                                                        : IsStill(LookAt(m_goes->h), m_pFile->Expected());
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
    FolderEntry entry(m_folders.Of(copy.sPath), platform::NameIn(copy.sPath));
    int nError = 0;
    Descriptor file = entry.Open(nFlags, nError);
    m_copy.reset();
    m_held.emplace(tHeld{copy.sPath, HeldFile(std::move(entry), copy.identity), std::move(file)});
    return nError == 0 || nError == ENOENT ? StillThere() : CopyNotRead(nError);
}

tEnding CopyLook::CopyNotRead(int nError) const
{
    return tEnding::Spared("Its contents could not be compared with those of " + m_held->sPath +
                           ", which was to stay. " + Reason(nError, Step::Read));
}

tEnding CopyLook::Compare()
{
    m_copy.emplace(m_held->file.Get());
    const auto isWritten = [&] {
        return m_goes->lease.IsOpenForWriting() || m_copy->lease.IsOpenForWriting();
    };
    // A writer has to wait for as long as there is a lease.
    const auto goOn = [&](std::int64_t cyOfFile) { return !isWritten() && m_goOn(cyOfFile); };
    const auto result = m_comparison.Compare(m_open.Get(), m_held->file.Get(), goOn);
    switch (result) {
    case ContentComparison::Result::Same:
    case ContentComparison::Result::Cancelled:
        if (isWritten()) {
            return tEnding::Spared(m_goes->lease.IsOpenForWriting()
                                       ? kOpenForWriting
                                       : m_held->sPath + ", which was to stay, is being written to.");
        }
        return result == ContentComparison::Result::Same ? StillThere()
                                                         : tEnding{tEnding::Kind::Cancelled, {}};
    case ContentComparison::Result::Different:
        return tEnding::Spared("Its contents differ from those of " + m_held->sPath + ", which was to stay.");
    case ContentComparison::Result::FirstNotRead:
        return NotRead(m_comparison.Error());
    case ContentComparison::Result::SecondNotRead:
        break;
    }
    return CopyNotRead(m_comparison.Error());
}

tEnding CopyLook::After()
{
    const bool bFound = !m_held || IsFoundAgain();
    tEnding ending = m_held ? StillThere() : tEnding();
    if (ending.IsDone() && m_goes && m_goes->lease.IsOpenForWriting()) {
        ending = tEnding::Spared(kOpenForWriting);
    }
    if (ending.IsDone() && !bFound) {
        ending = tEnding::Spared(m_held->sPath + ", which was to stay, is this file on another route.");
    }
    Release();
    return ending;
}

/// Done if the copy is where it was and unchanged.
tEnding CopyLook::StillThere() const
{
    const bool bStays = IsStill(LookAt(m_held->file.Get()), m_held->place.Expected()).IsDone() &&
                        !(m_copy && IsTouched(m_copy->h, m_copy->before)) &&
                        m_held->place.IsStillThere().IsDone();
    return bStays
               ? tEnding()
               : tEnding::Spared(m_held->sPath + ", which was to stay, has gone or changed in the meantime.");
}

/// False if the copy was only another route to the file that has gone. A file system such as FUSE or a
/// network may invent a number for each name, show a link as a file, and answer a look from its memory, but
/// not a read.
bool CopyLook::IsFoundAgain() const
{
    const tFileIdentity& expected = m_held->place.Expected();
    int nError = 0;
    const Descriptor again = m_held->place.Entry().Open(O_RDONLY | O_NONBLOCK, nError);
    if (nError == EACCES || nError == EPERM) {
        return true; // it is there; only another name of the file, which needs no comparison, is unreadable
    }
    char first = 0;
    return again.IsOpen() && IsStill(LookAt(again.Get()), expected).IsDone() &&
           (expected.cySize == 0 || Retried([&] { return pread(again.Get(), &first, 1, 0); }) == 1);
}

void CopyLook::Release()
{
    m_copy.reset();
    m_goes.reset();
    m_open = {};
    m_held.reset();
}

} // namespace desktop
