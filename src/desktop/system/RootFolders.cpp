// SPDX-License-Identifier: MIT
#include "RootFolders.h"

#include "Escaped.h"
#include "MountTable.h"
#include "System.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <istream>
#include <pwd.h>
#include <set>
#include <string_view>
#include <unistd.h>

namespace desktop {
namespace {

/// Mounted by the system for its own purposes.
bool IsSystems(std::string_view sMountPoint)
{
    constexpr std::array<std::string_view, 8> aFolders = {"/boot", "/dev", "/etc", "/proc",
                                                          "/snap", "/sys", "/usr", "/var/lib"};
    return sMountPoint == "/" || std::any_of(aFolders.begin(), aFolders.end(), [&](std::string_view sFolder) {
               return IsIn(sMountPoint, sFolder);
           });
}

/// A disk, or a folder on another machine: "host:/folder", "//host/folder".
bool IsVolume(std::string_view sSource, std::string_view sType)
{
    return sSource.starts_with("/dev/") || sSource.starts_with("//") ||
           sSource.find(':') != std::string_view::npos || sType == "zfs";
}

std::string HomeFolder()
{
    const char* pHome = std::getenv("HOME");
    if (pHome == nullptr) {
        const passwd* pUser = getpwuid(getuid());
        pHome = pUser == nullptr ? "" : pUser->pw_dir;
    }
    return platform::Files().CanonicalFolder(pHome).value_or(std::string());
}

} // namespace

std::vector<std::string> MountedVolumes(std::istream& mountInfo)
{
    std::set<std::string> volumes;
    for (const tMount& mount : ReadMountTable(mountInfo)) {
        // A mounted part of a volume is also visible in the volume itself; with btrfs, parts are volumes of
        // their own.
        const bool bWhole = mount.sFolder == "/" || mount.sType == "btrfs";
        if (bWhole && IsVolume(mount.sSource, mount.sType) && !IsSystems(mount.sPoint)) {
            volumes.insert(mount.sPoint);
        }
    }
    return {volumes.begin(), volumes.end()};
}

std::vector<tRootFolder> RootFolders()
{
    std::vector<tRootFolder> folders;
    const std::string sHome = HomeFolder();
    if (!sHome.empty() && sHome != "/") {
        folders.push_back({sHome, "Home (" + platform::Escaped(sHome) + ")"});
    }
    folders.push_back({"/", "File System (/)"});
    std::ifstream mountInfo(kMountInfo);
    for (const std::string& sVolume : MountedVolumes(mountInfo)) {
        const std::string sName = sVolume.substr(sVolume.rfind('/') + 1);
        if (sVolume != sHome) {
            folders.push_back({sVolume, platform::Escaped(sName) + " (" + platform::Escaped(sVolume) + ")"});
        }
    }
    return folders;
}

} // namespace desktop
