// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "FileSystem.h"

#include <cstddef>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace desktop {

/// How files and folders are opened: no link is followed, no writer of a FIFO waited for, and nothing is
/// passed on to a program started later.
inline constexpr int kOpenFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// The folder that holds `sPath`, without a separator at its end but for the root's: it may be one byte
/// longer then.
std::string FolderOf(const std::string& sPath);

/// Opens file `sPath`, whatever the length of its path; errno tells why not. Somebody who has a lease on the
/// file is given a second to let go of it.
Descriptor OpenFile(const std::string& sPath);

/// The same for a file that has gone: it is created empty, but through no link.
Descriptor CreateFile(const std::string& sPath);

/// The length in bytes of an open file, or -1 if it is no regular file.
off_t LengthOf(int hFile);

/// Reads the first `nBytes` bytes of an open file into `pBuffer`, as many as there are. Fails for what is no
/// regular file, without taking anything from it.
platform::tReadResult ReadBytes(int hFile, void* pBuffer, std::size_t nBytes);

} // namespace desktop
