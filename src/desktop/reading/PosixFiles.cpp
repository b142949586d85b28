// SPDX-License-Identifier: MIT
#include "PosixFiles.h"

#include "CanonicalPath.h"
#include "FileAccess.h"
#include "Retried.h"
#include "SearchWorkers.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop {

bool PosixFiles::PathFound(const std::string& sPath)
{
    struct stat status{};
    if (lstat(sPath.c_str(), &status) == 0) {
        return true;
    }
    if (errno != ENAMETOOLONG) {
        return false;
    }
    const Descriptor folder(
        Retried([&] { return open(platform::FolderOf(sPath).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
    const char* pName = sPath.c_str() + sPath.rfind(platform::kSeparator) + 1;
    return folder.IsOpen() && fstatat(folder.Get(), pName, &status, AT_SYMLINK_NOFOLLOW) == 0;
}

std::optional<std::string> PosixFiles::CanonicalFolder(const std::string& sPath)
{
    std::string sCanonical = CanonicalPath(sPath);
    const Descriptor folder(Retried([&] { return open(sCanonical.c_str(), kOpenFlags | O_DIRECTORY); }));
    return folder.IsOpen() ? std::optional(std::move(sCanonical)) : std::nullopt;
}

platform::FileHandle PosixFiles::CreateFileA(const std::string& sPath)
{
    return CreateFile(sPath).Release();
}

std::int64_t PosixFiles::FileLength(platform::FileHandle hFile)
{
    return LengthOf(hFile);
}

platform::tReadResult PosixFiles::ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes)
{
    return ReadBytes(hFile, pBuffer, nBytes);
}

void PosixFiles::CloseHandle(platform::FileHandle hFile)
{
    close(hFile);
}

std::unique_ptr<platform::SearchReading> PosixFiles::BeginReading(const platform::tSearchedFolders& searched)
{
    return std::make_unique<SearchWorkers>(searched);
}

} // namespace desktop
