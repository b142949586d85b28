#pragma once

#include "FileSystem.h"

#include <cstddef>
#include <memory>

namespace desktop {

/// The file systems of a Linux machine.
class PosixFiles final : public platform::FileSystem
{
public:
    PosixFiles();

    bool ListFolder(const std::string& sPath, platform::FolderListing& listing) override;
    bool PathFound(const std::string& sPath) override;
    std::optional<std::string> CanonicalFolder(const std::string& sPath) override;
    platform::FileHandle CreateFileA(const std::string& sPath) override;
    std::int64_t FileLength(platform::FileHandle hFile) override;
    platform::tReadResult ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes) override;
    void CloseHandle(platform::FileHandle hFile) override;
    void AnnounceRead(const std::string& sPath) override;

private:
    bool ListOpenFolder(int hFolder, platform::FolderListing& listing);

    std::unique_ptr<char[]> m_entries; ///< where the kernel writes the entries of a folder
};

} // namespace desktop
