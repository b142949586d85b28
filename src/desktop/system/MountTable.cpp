// SPDX-License-Identifier: MIT
#include "MountTable.h"

#include "Unescaped.h"

#include <istream>
#include <sstream>

namespace desktop {

std::vector<tMount> ReadMountTable(std::istream& mountInfo)
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

const tMount* HolderOf(const std::vector<tMount>& mounts, std::string_view sFolder)
{
    // The deepest mount point above the folder counts, and the last one of several at the same point.
    const tMount* pHolder = nullptr;
    for (const tMount& mount : mounts) {
        if (IsIn(sFolder, mount.sPoint) &&
            (pHolder == nullptr || mount.sPoint.size() >= pHolder->sPoint.size())) {
            pHolder = &mount;
        }
    }
    return pHolder;
}

bool IsIn(std::string_view sPath, std::string_view sFolder)
{
    if (sFolder == "/") {
        return sPath.starts_with('/');
    }
    return sPath == sFolder || (sPath.starts_with(sFolder) && sPath[sFolder.size()] == '/');
}

} // namespace desktop
