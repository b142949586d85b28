// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"

#include <string>
#include <string_view>

namespace platform {

/// Writes text files. Failures are return values, which the caller may ignore.
class TextFiles
{
public:
    virtual ~TextFiles() = default;

    /// Creates a text file, or truncates an existing one (for a link, its target). Returns
    /// INVALID_HANDLE_VALUE on failure. Owned by the caller until CloseOutput.
    virtual FileHandle OpenForOutput(const std::string& sPath) = 0;

    /// Writes a line and CR LF. False if it could not be written completely; a partial line stays in the
    /// file.
    virtual bool PrintLine(FileHandle hFile, std::string_view sLine) = 0;

    /// Flushes and closes the file. False if not everything could be written.
    virtual bool CloseOutput(FileHandle hFile) = 0;
};

} // namespace platform
