// SPDX-License-Identifier: MIT
#include "PosixFiles.h"

#include "CanonicalPath.h"
#include "FileAccess.h"
#include "Paths.h"
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

std::unique_ptr<platform::SearchReading> PosixFiles::BeginReading(const platform::tSearchedFolders& searched)
{
    return std::make_unique<SearchWorkers>(searched);
}

} // namespace desktop
