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

/// Files that go to the same trash together: a single sync brings the notes of all of them to disk before the
/// first one goes.
class TrashBatch
{
public:
    /// The result of trying to move a file to the trash.
    struct tResult {
        enum class Next {
            Ended,      ///< finished, see `ending`
            OtherName,  ///< its name in the trash has been taken meanwhile
            Later,      ///< not tried yet
            OtherVolume ///< this trash is on another volume
        };

        tEnding ending;
        Next next = Next::Ended;
    };

    /// `trash` and the files must outlive this object.
    TrashBatch(TrashFolder& trash, std::vector<const HeldFile*> files);

    /// Writes the notes. A file whose note could not be written has a result afterwards.
    void MakeNotes();

    /// The result for file `n` if there already is one; empty if the file can go.
    [[nodiscard]] const std::optional<tResult>& Result(std::size_t n) const { return m_results[n]; }

    /// Moves file `n` to the trash, if possible and if `pLastLook`, which may be null, has no objection.
    tResult Go(std::size_t n, LastLook* pLastLook);

    /// Syncs the names of the files in the trash to disk. Otherwise a file system may lose them in a power
    /// failure but not the removal of the record of their notes. Returns 0 or the error number.
    [[nodiscard]] int SyncFiles() const;

    /// The name of file `n` in the trash.
    [[nodiscard]] const std::string& NameOf(std::size_t n) const { return m_notes[n].sName; }

    /// Removes the note of file `n`, which stays.
    void Drop(std::size_t n);

private:
    tResult MakeNote(std::size_t n, bool bSync);
    int Sync(bool bAll);
    [[nodiscard]] bool HasNote(std::size_t n) const;

    TrashFolder& m_trash;
    std::vector<const HeldFile*> m_files;
    std::vector<tPendingNote> m_notes;
    std::vector<tLook> m_made; ///< identities of the note files
    std::vector<std::optional<tResult>> m_results;
    std::optional<TrashJournal> m_journal;
};

} // namespace desktop
