// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"

#include <string>
#include <string_view>

namespace platform {

/// The text files that the program writes. Failures are results, which the caller may drop.
class TextFiles
{
public:
    virtual ~TextFiles() = default;

    /// Makes a new text file of that path, or empties the one that is there (the one that a link leads to).
    /// INVALID_HANDLE_VALUE if that fails. Owned by the caller until CloseOutput.
    virtual FileHandle OpenForOutput(const std::string& sPath) = 0;

    /// Writes a line with CR LF behind it. False if not all of it could be written; what could be stays.
    virtual bool PrintLine(FileHandle hFile, std::string_view sLine) = 0;

    /// Writes what is still held back and closes the file. False if not all could be written.
    virtual bool CloseOutput(FileHandle hFile) = 0;
};

} // namespace platform
