// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>
#include <vector>

namespace desktop {

class TrashFolder;

/// A note that is made before its file goes to the trash.
struct tPendingNote {
    std::string sName; ///< of the file in the trash
    std::string sText;
};

/// Notes that have no file yet, on record in the trash for as long as that is so: should this run die, a
/// later one removes them.
class TrashJournal
{
public:
    /// Puts them on record. `trash` must outlive it.
    TrashJournal(const TrashFolder& trash, const std::vector<tPendingNote>& notes);
    TrashJournal(const TrashJournal&) = delete;
    TrashJournal& operator=(const TrashJournal&) = delete;
    ~TrashJournal();

    /// The system's error number if that failed, otherwise 0.
    [[nodiscard]] int Error() const { return m_nError; }

    /// Leaves them on record, for a later run to remove.
    void Keep() { m_sName.clear(); }

    /// An open file of the trash's volume, by which it can be synced.
    [[nodiscard]] int Get() const { return m_file.Get(); }

    /// Removes the notes without a file that runs which are dead have left.
    static void ClearOldOnes(const TrashFolder& trash);

private:
    const TrashFolder& m_trash;
    std::string m_sName;
    Descriptor m_file;
    int m_nError = 0;
};

/// Writes all of `sText` to an open file. 0, or the system's error number.
int WriteAll(int h, const std::string& sText);

} // namespace desktop
