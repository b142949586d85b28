// SPDX-License-Identifier: MIT
#pragma once

#include "SearchReading.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// An open file. Owned by the caller of CreateFileA until CloseHandle.
using FileHandle = int;
inline constexpr FileHandle INVALID_HANDLE_VALUE = -1;

/// Result of ReadFile.
struct tReadResult {
    bool bRead = false;     ///< false: the read failed, the other fields are meaningless
    std::size_t nBytes = 0; ///< bytes read; fewer than requested only at the end of the file
};

/// Access to files and folders. Paths are exact bytes. No operation follows a link in the last component of
/// its path. Failures are return values: nothing here throws or shows a message.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    /// True if `sPath` currently exists. A link counts, whatever it points to.
    virtual bool PathFound(const std::string& sPath) = 0;

    /// The folder at `sPath` with all links resolved and no trailing separator (except for the root). Empty
    /// if there is no such folder or it cannot be opened.
    virtual std::optional<std::string> CanonicalFolder(const std::string& sPath) = 0;

    /// Opens file `sPath` for reading. A missing file is created empty if its folder exists. Returns
    /// INVALID_HANDLE_VALUE on failure. Anything but a regular file is refused here or on reading.
    virtual FileHandle CreateFileA(const std::string& sPath) = 0;

    /// The length of an open file in bytes, or -1 if it is not a regular file.
    virtual std::int64_t FileLength(FileHandle hFile) = 0;

    /// Reads up to `nBytes` bytes from the start of the file into `pBuffer`. Fails for anything but a regular
    /// file, without consuming any of its data.
    virtual tReadResult ReadFile(FileHandle hFile, void* pBuffer, std::size_t nBytes) = 0;

    virtual void CloseHandle(FileHandle hFile) = 0;

    /// Starts the reading for a search of these folders.
    virtual std::unique_ptr<SearchReading> BeginReading(const tSearchedFolders& searched) = 0;
};

} // namespace platform
