// SPDX-License-Identifier: MIT
#include "Subfolders.h"

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <memory>
#include <sys/stat.h>

namespace desktop {
namespace {

/// The maximum number of entries to read.
constexpr int kLook = 4'000;

struct CloseFolder {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// The type of an entry, one of the DT_ constants.
unsigned char KindOf(DIR* pFolder, const dirent64& entry)
{
    if (entry.d_type != DT_UNKNOWN) {
        return entry.d_type;
    }
    struct stat status = {};
    constexpr int nFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    return fstatat(dirfd(pFolder), entry.d_name, &status, nFlags) == 0
               ? static_cast<unsigned char>(IFTODT(status.st_mode))
               : static_cast<unsigned char>(DT_UNKNOWN);
}

bool IsDots(const char* pName)
{
    return std::strcmp(pName, ".") == 0 || std::strcmp(pName, "..") == 0;
}

bool IsFolder(DIR* pFolder, const dirent64& entry)
{
    return !IsDots(entry.d_name) && KindOf(pFolder, entry) == DT_DIR;
}

/// True if another file system is mounted at the folder, or would be mounted by accessing it.
bool IsMountPoint(const std::string& sPath)
{
    struct statx status = {};
    constexpr int nFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    return statx(AT_FDCWD, sPath.c_str(), nFlags, STATX_TYPE, &status) == 0 &&
           (status.stx_attributes & (STATX_ATTR_AUTOMOUNT | STATX_ATTR_MOUNT_ROOT)) != 0;
}

} // namespace

std::vector<std::string> Subfolders(const std::string& sPath)
{
    std::vector<std::string> names;
    const Folder folder(opendir(sPath.c_str()));
    while (const dirent64* pEntry = folder ? readdir64(folder.get()) : nullptr) {
        if (IsFolder(folder.get(), *pEntry)) {
            names.emplace_back(pEntry->d_name);
        }
    }
    return names;
}

bool IsSubfolder(const std::string& sPath, const std::string& sName)
{
    struct stat status = {};
    return !IsDots(sName.c_str()) && lstat((sPath + "/" + sName).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::vector<std::string> FileNames(const std::string& sPath, const std::string& sPattern)
{
    std::vector<std::string> names;
    const Folder folder(opendir(sPath.c_str()));
    while (const dirent64* pEntry = folder ? readdir64(folder.get()) : nullptr) {
        if (fnmatch(sPattern.c_str(), pEntry->d_name, FNM_CASEFOLD) == 0 &&
            KindOf(folder.get(), *pEntry) == DT_REG) {
            names.emplace_back(pEntry->d_name);
        }
    }
    return names;
}

bool MayHaveSubfolders(const std::string& sPath)
{
    if (IsMountPoint(sPath)) {
        return true;
    }
    const Folder folder(opendir(sPath.c_str()));
    for (int n = 0; n < kLook; ++n) {
        const dirent64* pEntry = folder ? readdir64(folder.get()) : nullptr;
        if (pEntry == nullptr) {
            return false;
        }
        if (IsFolder(folder.get(), *pEntry)) {
            return true;
        }
    }
    return true;
}

} // namespace desktop
