#include "RootFolders.h"

#include "Escaped.h"
#include "System.h"
#include "Unescaped.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <istream>
#include <pwd.h>
#include <set>
#include <sstream>
#include <string_view>
#include <unistd.h>

namespace desktop {
namespace {

bool IsIn(std::string_view sPath, std::string_view sFolder)
{
    return sPath == sFolder || (sPath.starts_with(sFolder) && sPath[sFolder.size()] == '/');
}

/// Mounted by the system for itself.
bool IsSystems(std::string_view sMountPoint)
{
    constexpr std::array<std::string_view, 8> aFolders = {"/boot", "/dev", "/etc", "/proc",
                                                          "/snap", "/sys", "/usr", "/var/lib"};
    return sMountPoint == "/" || std::any_of(aFolders.begin(), aFolders.end(), [&](std::string_view sFolder) {
               return IsIn(sMountPoint, sFolder);
           });
}

/// A disk, or a folder of another machine: "host:/folder", "//host/folder".
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
    std::string sLine;
    while (std::getline(mountInfo, sLine)) {
        // Number, parent, device, folder of the device, mount point, options, tags up to "-", type, source.
        // One blank stands between two fields; what else could be taken for one may be part of a name.
        std::istringstream fields(sLine);
        const auto next = [&fields](std::string& sField) -> bool {
            return static_cast<bool>(std::getline(fields, sField, ' '));
        };
        std::string sSkipped;
        std::string sFolder;
        std::string sMountPoint;
        std::string sType;
        std::string sSource;
        for (std::string* pField : {&sSkipped, &sSkipped, &sSkipped, &sFolder, &sMountPoint}) {
            next(*pField);
        }
        while (next(sSkipped) && sSkipped != "-") {
        }
        const bool bComplete = next(sType) && next(sSource);
        // A part of a volume is mounted where the volume is seen anyway; with btrfs parts are volumes.
        const bool bWhole = sFolder == "/" || sType == "btrfs";
        if (bComplete && bWhole && IsVolume(sSource, sType) && !IsSystems(sMountPoint)) {
            volumes.insert(Unescaped(sMountPoint));
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
    std::ifstream mountInfo("/proc/self/mountinfo");
    for (const std::string& sVolume : MountedVolumes(mountInfo)) {
        const std::string sName = sVolume.substr(sVolume.rfind('/') + 1);
        if (sVolume != sHome) {
            folders.push_back({sVolume, platform::Escaped(sName) + " (" + platform::Escaped(sVolume) + ")"});
        }
    }
    return folders;
}

} // namespace desktop
