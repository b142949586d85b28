// SPDX-License-Identifier: MIT
#include "TrashBatch.h"

#include "HeldFolder.h"
#include "Retried.h"
#include "TrashNote.h"

#include <chrono>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

/// Up to this number of files, a sync of each note costs less than one of the whole volume, which may have
/// much other data to write.
constexpr std::size_t kFew = 8;

/// On a slow volume the rest is left for another batch, so that none takes long.
constexpr std::chrono::milliseconds kLongest{300};

TrashBatch::tResult NotDone(int nError)
{
    return {tEnding::NotDone(Reason(nError, Step::Note)), TrashBatch::tResult::Next::Ended};
}

} // namespace

TrashBatch::TrashBatch(TrashFolder& trash, std::vector<const HeldFile*> files)
    : m_trash(trash), m_files(std::move(files)), m_made(m_files.size(), tLook{ENOENT, {}}),
      m_results(m_files.size())
{
    for (const HeldFile* pFile : m_files) {
        m_notes.push_back(
            {trash.FreeName(pFile->Entry().Name().sName), trash.NoteFor(pFile->Entry().Path())});
    }
}

void TrashBatch::MakeNotes()
{
    m_journal.emplace(m_trash, m_notes);
    int nError = m_journal->Error();
    const bool bAll = m_files.size() > kFew || m_trash.IsNew();
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t n = 0; n < m_files.size() && nError == 0; ++n) {
        if (n > 0 && std::chrono::steady_clock::now() - start > kLongest) {
            m_results[n] = tResult{{}, tResult::Next::Later};
            continue;
        }
        tResult result = MakeNote(n, !bAll);
        if (result.next != tResult::Next::Ended || !result.ending.IsDone()) {
            m_results[n] = std::move(result);
        }
    }
    nError = nError == 0 ? Sync(bAll) : nError;
    for (std::size_t n = 0; n < m_files.size() && nError != 0; ++n) {
        if (!m_results[n]) {
            m_results[n] = NotDone(nError);
            Drop(n);
        }
    }
}

TrashBatch::tResult TrashBatch::MakeNote(std::size_t n, bool bSync)
{
    constexpr int nFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const std::string sName = NoteName(m_notes[n].sName);
    Descriptor note(
        Retried([&] { return openat(m_trash.Info().Get(), sName.c_str(), nFlags, S_IRUSR | S_IWUSR); }));
    if (!note.IsOpen()) {
        return errno == EEXIST ? tResult{{}, tResult::Next::OtherName} : NotDone(errno);
    }
    int nError = WriteAll(note.Get(), m_notes[n].sText);
    if (nError == 0 && bSync && Retried([&] { return fsync(note.Get()); }) != 0) {
        nError = errno;
    }
    m_made[n] = LookAt(note.Get());
    nError = nError == 0 ? m_made[n].nError : nError;
    // Some file systems report write errors only on close.
    if (close(note.Release()) != 0 && nError == 0) {
        nError = errno;
    }
    if (nError != 0) {
        Drop(n);
        return NotDone(nError);
    }
    return {};
}

/// Syncs the notes to disk, one by one or, with `bAll`, the whole volume. Returns 0 or the error number.
int TrashBatch::Sync(bool bAll)
{
    if (bAll) {
        const int nError = syncfs(m_journal->Get()) == 0 ? 0 : errno;
        if (nError == 0) {
            m_trash.IsOnDisk();
        }
        return nError;
    }
    return SyncFolder(m_trash.Info(), m_journal->Get());
}

int TrashBatch::SyncFiles() const
{
    return SyncFolder(*m_trash.Files(), m_journal->Get());
}

/// True if the note exists and has the right content.
bool TrashBatch::HasNote(std::size_t n) const
{
    constexpr int nFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Descriptor note(
        Retried([&] { return openat(m_trash.Info().Get(), NoteName(m_notes[n].sName).c_str(), nFlags); }));
    std::string sFound(m_notes[n].sText.size() + 1, '\0');
    const ssize_t nRead =
        note.IsOpen() ? Retried([&] { return read(note.Get(), sFound.data(), sFound.size()); }) : 0;
    sFound.resize(nRead > 0 ? static_cast<std::size_t>(nRead) : 0);
    return sFound == m_notes[n].sText && m_trash.Info().IsWhereItWas();
}

TrashBatch::tResult TrashBatch::Go(std::size_t n, LastLook* pLastLook)
{
    if (m_results[n]) {
        return *m_results[n];
    }
    const tNewPlace place{FolderEntry(m_trash.Files(), m_notes[n].sName),
                          "The trash is no longer where it was.", " It is in the trash.", Step::Trash};
    const HeldFile& file = *m_files[n];
    tRelocation gone{pLastLook != nullptr ? pLastLook->Before(file.Get()) : tEnding()};
    if (gone.ending.IsDone()) {
        gone = Relocate(file, place);
        const tEnding after = gone.ending.IsDone() && pLastLook != nullptr ? pLastLook->After() : tEnding();
        if (!after.IsDone()) {
            gone = GoBack(file, place, after.sReason);
            gone.ending.bSpared = after.bSpared && gone.bBack;
        } else if (gone.ending.IsDone() && !HasNote(n)) {
            gone = GoBack(file, place, "The trash has lost the note of where it came from.");
        }
    }
    if (!gone.ending.IsDone() && gone.bBack) {
        Drop(n);
    }
    const auto next = gone.nError == EEXIST  ? tResult::Next::OtherName
                      : gone.nError == EXDEV ? tResult::Next::OtherVolume
                                             : tResult::Next::Ended;
    return {std::move(gone.ending), next};
}

void TrashBatch::Drop(std::size_t n)
{
    const tLook note = LookAt(m_trash.Info().Get(), NoteName(m_notes[n].sName));
    if (note.nError == ENOENT || !m_journal) {
        return;
    }
    const bool bOurs = note.IsSameFileAs(m_made[n]);
    const bool bUnknown = note.nError != 0 || m_made[n].nError != 0;
    if (bOurs ? !m_trash.RemoveNote(m_notes[n].sName) : bUnknown) {
        m_journal->Keep();
    }
}

} // namespace desktop
