// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <dirent.h>
#include <memory>
#include <sys/types.h>

namespace desktop {

/// Reads the entries of folders, one folder after the other, without "." and "..".
class FolderReader
{
public:
    FolderReader();

    /// Starts to read the open folder `hFolder`, which the caller keeps open.
    void Start(int hFolder);

    /// The next entry, valid until the next call; null at the end, or if reading fails. Its name field,
    /// including NULs, is as long as NameField says.
    const dirent64* Next();

    static std::size_t NameField(const dirent64& entry)
    {
        return entry.d_reclen - offsetof(dirent64, d_name);
    }

private:
    std::unique_ptr<char[]> m_entries; ///< buffer for the entries returned by the kernel
    int m_hFolder = -1;
    ssize_t m_nRead = 0; ///< bytes in the buffer
    ssize_t m_nNext = 0; ///< where the next entry is
};

/// The type of an entry of the open folder `hFolder`, one of the DT_ constants.
unsigned char TypeOf(int hFolder, const dirent64& entry);

} // namespace desktop
