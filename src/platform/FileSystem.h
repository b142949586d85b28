// SPDX-License-Identifier: MIT
#pragma once

#include "SearchReading.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// What separates the folders of a path.
inline constexpr char kSeparator = '/';

/// An open file; owned by whoever called CreateFileA until CloseHandle.
using FileHandle = int;
inline constexpr FileHandle INVALID_HANDLE_VALUE = -1;

/// What one ReadFile came to.
struct tReadResult {
    bool bRead = false;     ///< false: the read failed, and the other fields mean nothing
    std::size_t nBytes = 0; ///< bytes delivered; fewer than asked for only at the end of the file
};

/// The files and folders of the machine. Paths are exact bytes. No operation
/// follows a link in the last component of its path. Failures are results;
/// nothing here throws, and nothing here tells the user.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    /// True if `sPath` names something that exists at this moment (a link counts, whatever it points to).
    virtual bool PathFound(const std::string& sPath) = 0;

    /// The folder that `sPath` leads to with all links resolved and without a trailing separator (but for
    /// the root). Empty if there is no such folder or it cannot be opened.
    virtual std::optional<std::string> CanonicalFolder(const std::string& sPath) = 0;

    /// Opens file `sPath` for reading; one that is missing is created empty, in a folder that exists.
    /// INVALID_HANDLE_VALUE if that fails. What is no regular file is refused here or when it is read.
    virtual FileHandle CreateFileA(const std::string& sPath) = 0;

    /// The length in bytes of an open file, or -1 if it is no regular file.
    virtual std::int64_t FileLength(FileHandle hFile) = 0;

    /// Reads the first `nBytes` bytes of the file into `pBuffer`, as many as there are. Fails for what is no
    /// regular file, without taking anything from it.
    virtual tReadResult ReadFile(FileHandle hFile, void* pBuffer, std::size_t nBytes) = 0;

    virtual void CloseHandle(FileHandle hFile) = 0;

    /// Begins what a search over these folders reads.
    virtual std::unique_ptr<SearchReading> BeginReading(const tSearchedFolders& searched) = 0;
};

} // namespace platform
