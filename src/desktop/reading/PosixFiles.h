// SPDX-License-Identifier: MIT
#pragma once

#include "FileAccess.h"
#include "FileSystem.h"
#include "SearchReading.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

namespace desktop {

/// Access to the files and folders of a Linux machine.
class PosixFiles final : public platform::FileSystem
{
public:
    bool PathFound(const std::string& sPath) override;
    std::optional<std::string> CanonicalFolder(const std::string& sPath) override;
    platform::FileHandle CreateFileA(const std::string& sPath) override
    {
        return CreateFile(sPath).Release();
    }
    std::int64_t FileLength(platform::FileHandle hFile) override { return LengthOf(hFile); }
    platform::tReadResult ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes) override
    {
        return ReadBytes(hFile, pBuffer, nBytes);
    }
    void CloseHandle(platform::FileHandle hFile) override { close(hFile); }
    std::unique_ptr<platform::SearchReading>
    BeginReading(const platform::tSearchedFolders& searched) override;
};

} // namespace desktop
