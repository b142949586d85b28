// SPDX-License-Identifier: MIT
#pragma once

#include "FileSystem.h"
#include "TextFiles.h"

#include <map>
#include <string>
#include <string_view>

namespace desktop {

/// Text files with POSIX calls. Lines are buffered and written in large blocks. After a failed write the file
/// accepts no further lines, so that it has no gap.
class PosixTextFiles final : public platform::TextFiles
{
public:
    platform::FileHandle OpenForOutput(const std::string& sPath) override;
    bool PrintLine(platform::FileHandle hFile, std::string_view sLine) override;
    bool CloseOutput(platform::FileHandle hFile) override;

private:
    struct tOutput {
        std::string sHeldBack;
        bool bFailed = false;
    };

    static void WriteOut(platform::FileHandle hFile, tOutput& output);

    std::map<platform::FileHandle, tOutput> m_outputs;
};

} // namespace desktop
