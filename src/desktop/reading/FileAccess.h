// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "FileSystem.h"

#include <cstddef>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace desktop {

/// How files and folders are opened: without following a link, without blocking on a FIFO, and not inherited
/// by programs started later.
inline constexpr int kOpenFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Opens file `sPath`, however long its path is; sets errno on failure. If another process holds a lease on
/// the file, waits up to a second for its release.
Descriptor OpenFile(const std::string& sPath);

/// The same for a missing file, which is created empty, but not through a link.
Descriptor CreateFile(const std::string& sPath);

/// The length of an open file in bytes, or -1 if it is not a regular file.
off_t LengthOf(int hFile);

/// Reads up to `nBytes` bytes from the start of an open file into `pBuffer`. Fails for anything but a regular
/// file, without consuming any of its data.
platform::tReadResult ReadBytes(int hFile, void* pBuffer, std::size_t nBytes);

} // namespace desktop
