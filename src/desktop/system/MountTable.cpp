// SPDX-License-Identifier: MIT
#include "MountTable.h"

#include "Paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <set>
#include <sstream>

namespace desktop {
namespace {

std::vector<tMount> MountsIn(std::istream& mountInfo)
{
    std::vector<tMount> mounts;
    std::string sLine;
    while (std::getline(mountInfo, sLine)) {
        // Number, parent, device, folder of the device, mount point, options, tags up to "-", type, source.
        // Fields are separated by exactly one blank; other white space may be part of a name.
        std::istringstream fields(sLine);
        const auto next = [&fields](std::string& sField) -> bool {
            return static_cast<bool>(std::getline(fields, sField, ' '));
        };
        std::string sSkipped;
        tMount mount;
        for (std::string* pField : {&sSkipped, &sSkipped, &mount.sDevice, &mount.sFolder, &mount.sPoint}) {
            next(*pField);
        }
        while (next(sSkipped) && sSkipped != "-") {
        }
        if (next(mount.sType) && next(mount.sSource)) {
            mount.sPoint = Unescaped(mount.sPoint);
            mounts.push_back(std::move(mount));
        }
    }
    return mounts;
}

/// Mounted by the system for its own purposes.
bool IsSystems(std::string_view sMountPoint)
{
    constexpr std::array<std::string_view, 8> aFolders = {"/boot", "/dev", "/etc", "/proc",
                                                          "/snap", "/sys", "/usr", "/var/lib"};
    return sMountPoint == "/" || std::any_of(aFolders.begin(), aFolders.end(), [&](std::string_view sFolder) {
               return platform::IsIn(sMountPoint, sFolder);
           });
}

/// A disk, or a folder on another machine: "host:/folder", "//host/folder".
bool IsVolume(std::string_view sSource, std::string_view sType)
{
    return sSource.starts_with("/dev/") || sSource.starts_with("//") ||
           sSource.find(':') != std::string_view::npos || sType == "zfs";
}

} // namespace

MountTable::MountTable()
{
    std::ifstream mountInfo(kPath);
    m_mounts = MountsIn(mountInfo);
}

MountTable::MountTable(std::istream& mountInfo) : m_mounts(MountsIn(mountInfo)) {}

const tMount* MountTable::HolderOf(std::string_view sFolder) const
{
    // The deepest mount point above the folder counts, and the last one of several at the same point.
    const tMount* pHolder = nullptr;
    for (const tMount& mount : m_mounts) {
        if (platform::IsIn(sFolder, mount.sPoint) &&
            (pHolder == nullptr || mount.sPoint.size() >= pHolder->sPoint.size())) {
            pHolder = &mount;
        }
    }
    return pHolder;
}

bool MountTable::AnyMountedTwice() const
{
    std::set<std::string_view> devices;
    return m_mounts.empty() || !std::all_of(m_mounts.begin(), m_mounts.end(), [&](const tMount& mount) {
               return devices.insert(mount.sDevice).second;
           });
}

std::vector<std::string> MountTable::Volumes() const
{
    std::set<std::string> volumes;
    for (const tMount& mount : m_mounts) {
        // A mounted part of a volume is also visible in the volume itself; with btrfs, parts are volumes of
        // their own.
        const bool bWhole = mount.sFolder == "/" || mount.sType == "btrfs";
        if (bWhole && IsVolume(mount.sSource, mount.sType) && !IsSystems(mount.sPoint)) {
            volumes.insert(mount.sPoint);
        }
    }
    return {volumes.begin(), volumes.end()};
}

std::string Unescaped(std::string_view sText)
{
    constexpr std::size_t nEscape = 4;
    std::string sBytes;
    while (!sText.empty()) {
        const bool bHex = sText.starts_with("\\x");
        const std::string_view sDigits = sText.substr(0, nEscape).substr(bHex ? 2 : 1);
        unsigned char nByte = 0;
        const auto read = std::from_chars(sDigits.begin(), sDigits.end(), nByte, bHex ? 16 : 8);
        const bool bEscape = sText[0] == '\\' && sText.size() >= nEscape && read.ec == std::errc() &&
                             read.ptr == sDigits.end();
        sBytes += bEscape ? static_cast<char>(nByte) : sText[0];
        sText.remove_prefix(bEscape ? nEscape : 1);
    }
    return sBytes;
}

} // namespace desktop
