// SPDX-License-Identifier: MIT
#include "TrashJournal.h"

#include "HiddenName.h"
#include "Leftovers.h"
#include "Retried.h"
#include "TrashFolder.h"
#include "TrashNote.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr std::size_t kLongestText = 16 << 20;

/// The content of a regular file, up to a length that none of ours has.
std::string TextOf(int h)
{
    std::string sText;
    constexpr std::size_t kPart = 64 << 10;
    std::string sPart(kPart, '\0');
    ssize_t nRead = 1;
    while (nRead > 0 && sText.size() < kLongestText) {
        nRead = Retried([&] { return read(h, sPart.data(), sPart.size()); });
        sText.append(sPart, 0, nRead > 0 ? static_cast<std::size_t>(nRead) : 0);
    }
    return sText;
}

/// True if a note contains `sText`, or a part of it as left by a terminated run or a power failure.
bool IsOfText(int h, const std::string& sText)
{
    const std::string sFound = TextOf(h);
    return sText.starts_with(sFound) ||
           (sFound.size() <= sText.size() &&
            std::all_of(sFound.begin(), sFound.end(), [](char c) { return c == 0; }));
}

/// Removes a note without a file. False if it may still exist.
bool RemoveIfWithoutFile(const TrashFolder& trash, const tPendingNote& note)
{
    const tLook file = LookAt(trash.Files()->Get(), note.sName);
    if (file.nError != ENOENT) {
        return file.nError == 0;
    }
    const Descriptor open = Inherited(trash.Info().Get(), NoteName(note.sName));
    if (!open.IsOpen()) {
        return LookAt(trash.Info().Get(), NoteName(note.sName)).nError == ENOENT;
    }
    return !IsOfText(open.Get(), note.sText) || trash.RemoveNote(note.sName);
}

/// Removes a text terminated by a NUL from the front of `sText`; false if there is none.
bool Take(std::string_view& sText, std::string& sTaken)
{
    const std::size_t nEnd = sText.find('\0');
    if (nEnd == std::string_view::npos) {
        return false;
    }
    sTaken = sText.substr(0, nEnd);
    sText.remove_prefix(nEnd + 1);
    return true;
}

} // namespace

int WriteAll(int h, const std::string& sText)
{
    for (std::size_t n = 0; n < sText.size();) {
        const ssize_t nWritten = Retried([&] { return write(h, sText.data() + n, sText.size() - n); });
        if (nWritten <= 0) {
            return nWritten < 0 ? errno : ENOSPC;
        }
        n += static_cast<std::size_t>(nWritten);
    }
    return 0;
}

TrashJournal::TrashJournal(const TrashFolder& trash, const std::vector<tPendingNote>& notes) : m_trash(trash)
{
    m_file = MakeLocked(trash.Root().Get(), HiddenKind::Journal, m_sName);
    if (!m_file.IsOpen()) {
        m_nError = errno;
        return;
    }
    std::string sText;
    for (const tPendingNote& note : notes) {
        sText.append(note.sName).append(1, '\0').append(note.sText).append(1, '\0');
    }
    m_nError = WriteAll(m_file.Get(), sText);
    // The record must be on disk before the first note.
    if (m_nError == 0 && Retried([&] { return fsync(m_file.Get()); }) != 0) {
        m_nError = errno;
    }
}

TrashJournal::~TrashJournal()
{
    if (!m_sName.empty()) {
        Retried([&] { return unlinkat(m_trash.Root().Get(), m_sName.c_str(), 0); });
    }
}

void TrashJournal::ClearOldOnes(const TrashFolder& trash)
{
    const auto isJournal = [](std::string_view sName) { return IsHiddenName(sName, HiddenKind::Journal); };
    for (const std::string& sName : NamesIn(trash.Root().Get(), isJournal)) {
        const Descriptor file = Inherited(trash.Root().Get(), sName);
        if (!file.IsOpen()) {
            continue;
        }
        const std::string sText = TextOf(file.Get());
        std::string_view sRest = sText;
        tPendingNote note;
        bool bAll = true;
        while (Take(sRest, note.sName) && Take(sRest, note.sText)) {
            bAll = RemoveIfWithoutFile(trash, note) && bAll;
        }
        if (bAll) {
            Retried([&] { return unlinkat(trash.Root().Get(), sName.c_str(), 0); });
        }
    }
}

} // namespace desktop
