// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>
#include <vector>

namespace desktop {

class TrashFolder;

/// A note that is written before its file goes to the trash.
struct tPendingNote {
    std::string sName; ///< of the file in the trash
    std::string sText;
};

/// A record, kept in the trash, of notes that have no file yet: if this run is terminated, a later one
/// removes them.
class TrashJournal
{
public:
    /// Writes the record. `trash` must outlive this object.
    TrashJournal(const TrashFolder& trash, const std::vector<tPendingNote>& notes);
    TrashJournal(const TrashJournal&) = delete;
    TrashJournal& operator=(const TrashJournal&) = delete;
    ~TrashJournal();

    /// The error number on failure, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }

    /// Keeps the record, so that a later run removes the notes.
    void Keep() { m_sName.clear(); }

    /// An open file on the trash's volume, by which the volume can be synced.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Removes notes without a file that terminated runs have left.
    static void ClearOldOnes(const TrashFolder& trash);

private:
    const TrashFolder& m_trash;
    std::string m_sName;
    Descriptor m_file;
    int m_nError = 0;
};

/// Writes all of `sText` to an open file. Returns 0 or the error number.
int WriteAll(int h, const std::string& sText);

} // namespace desktop
