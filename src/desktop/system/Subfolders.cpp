// SPDX-License-Identifier: MIT
#include "Subfolders.h"

#include "Descriptor.h"
#include "FolderReader.h"
#include "ListingOrder.h"
#include "Paths.h"

#include <algorithm>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <utility>

namespace desktop {
namespace {

/// True if another file system is mounted at the folder, or would be mounted by accessing it.
bool IsMountPoint(const std::string& sPath)
{
    struct statx status = {};
    constexpr int nFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC; // asks no server
    return statx(AT_FDCWD, sPath.c_str(), nFlags, STATX_TYPE, &status) == 0 &&
           (status.stx_attributes & (STATX_ATTR_AUTOMOUNT | STATX_ATTR_MOUNT_ROOT)) != 0;
}

/// Calls `take` with each entry of the folder and its type, until `take` returns false.
template <typename Take>
void ForEachEntry(const std::string& sPath, const Take& take)
{
    const Descriptor folder(open(sPath.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
    FolderReader reader;
    reader.Start(folder.Get());
    const dirent64* pEntry = reader.Next();
    while (pEntry != nullptr && take(pEntry->d_name, TypeOf(folder.Get(), *pEntry))) {
        pEntry = reader.Next();
    }
}

void SortForReading(std::vector<std::string>& names)
{
    std::vector<tReadingOrder> ordered;
    ordered.reserve(names.size());
    for (std::string& sName : names) {
        ordered.push_back(ReadingOrder(std::move(sName)));
    }
    std::sort(ordered.begin(), ordered.end());
    std::transform(ordered.begin(), ordered.end(), names.begin(),
                   [](auto& each) { return std::move(std::get<2>(each)); });
}

} // namespace

tReadingOrder ReadingOrder(std::string sName)
{
    std::string sKey = platform::NameKey(sName);
    return {sName.starts_with('.'), std::move(sKey), std::move(sName)};
}

std::vector<std::string> Subfolders(const std::string& sPath)
{
    std::vector<std::string> names;
    ForEachEntry(sPath, [&](const char* pName, unsigned char nType) {
        if (nType == DT_DIR) {
            names.emplace_back(pName);
        }
        return true;
    });
    SortForReading(names);
    return names;
}

bool IsSubfolder(const std::string& sPath, const std::string& sName)
{
    struct stat status = {};
    return sName != "." && sName != ".." && lstat(platform::PathIn(sPath, sName).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::vector<std::string> FileNames(const std::string& sPath, const std::string& sPattern)
{
    std::vector<std::string> names;
    ForEachEntry(sPath, [&](const char* pName, unsigned char nType) {
        if (nType == DT_REG && fnmatch(sPattern.c_str(), pName, FNM_CASEFOLD) == 0) {
            names.emplace_back(pName);
        }
        return true;
    });
    SortForReading(names);
    return names;
}

bool MayHaveSubfolders(const std::string& sPath)
{
    constexpr int kMostRead = 4'000; // entries
    bool bMay = IsMountPoint(sPath);
    int nRead = 0;
    if (!bMay) {
        ForEachEntry(sPath, [&](const char* /*pName*/, unsigned char nType) {
            bMay = nType == DT_DIR || ++nRead == kMostRead;
            return !bMay;
        });
    }
    return bMay;
}

} // namespace desktop
