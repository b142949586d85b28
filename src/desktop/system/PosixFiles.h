#pragma once

#include "Descriptor.h"
#include "FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

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
    bool AnnounceRead(const std::string& sPath, std::int64_t nBytes) override;
    void SearchEnded() override;

private:
    int Open(const std::string& sPath, int nFlags);
    void ListOpenFolder(int hFolder, platform::FolderListing& listing);

    /// The folder of the path last opened. From its second use in a row it is kept open: to find a name in it
    /// is then a fifth of the work of opening a small file less.
    struct tKeptFolder {
        std::string sPath; ///< with a separator at the end
        Descriptor folder;
    };
    tKeptFolder m_keptFolder;
    std::optional<bool> m_bMountedTwice; ///< some file system is; not looked up yet
    unsigned m_nReadsSinceWait = 0;
    std::unique_ptr<char[]> m_entries; ///< where the kernel writes the entries of a folder
};

} // namespace desktop
