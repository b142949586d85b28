// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FileIdentity.h"
#include "HeldFile.h"
#include "LastLook.h"
#include "TrashFolder.h"
#include "TrashJournal.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace desktop {

/// Files that go to one trash together: one sync brings the notes of all of them to the disk before the first
/// goes.
class TrashBatch
{
public:
    /// How a file's try to get into the trash came out.
    struct tResult {
        enum class Next {
            Ended,      ///< as `ending` says
            OtherName,  ///< its name there has been taken meanwhile
            Later,      ///< it has not been its turn
            OtherVolume ///< this trash is on another volume
        };

        tEnding ending;
        Next next = Next::Ended;
    };

    /// `trash` and the files must outlive it.
    TrashBatch(TrashFolder& trash, std::vector<const HeldFile*> files);

    /// Makes the notes. Each file whose note could not be made has a result.
    void MakeNotes();

    /// What became of the `n`th file already; nothing if it can go.
    [[nodiscard]] const std::optional<tResult>& Result(std::size_t n) const { return m_results[n]; }

    /// The `n`th file goes, if it can and `pLastLook`, which may be null, has nothing against it.
    tResult Go(std::size_t n, LastLook* pLastLook);

    /// The name that the `n`th file has in the trash.
    [[nodiscard]] const std::string& NameOf(std::size_t n) const { return m_notes[n].sName; }

    /// Removes the note of the `n`th file, which stays.
    void Drop(std::size_t n);

private:
    tResult MakeNote(std::size_t n, bool bSync);
    int Sync(bool bAll);
    [[nodiscard]] bool HasNote(std::size_t n) const;

    TrashFolder& m_trash;
    std::vector<const HeldFile*> m_files;
    std::vector<tPendingNote> m_notes;
    std::vector<tLook> m_made; ///< which files the notes are
    std::vector<std::optional<tResult>> m_results;
    std::optional<TrashJournal> m_journal;
};

} // namespace desktop
