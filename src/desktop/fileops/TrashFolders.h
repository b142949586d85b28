// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFile.h"
#include "MountTable.h"
#include "TrashFolder.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace desktop {

using TrashPtr = std::shared_ptr<TrashFolder>;

/// Where files go when they are deleted: the trash in the user's home, for files on the same volume, else
/// that of the volume. Each is looked for once.
class TrashFolders
{
public:
    /// The trash for a held file; null if it has none, and `sReason` says why. With `bVolume`, not the
    /// home's.
    TrashPtr For(const HeldFile& file, bool bVolume, std::string& sReason);

    /// Why files in that folder cannot go to a trash; empty if they can.
    std::string WhyNone(const HeldFolder& folder);

    /// The top folder of the volume that a folder is on.
    std::string VolumeOf(const std::string& sFolder);

private:
    struct tTrash {
        TrashPtr pTrash;
        std::string sReason;
    };

    void FindHome();
    tTrash OfVolume(const std::string& sTop) const;
    TrashPtr For(const std::string& sFolder, dev_t nDevice, bool bVolume, std::string& sReason);
    const tMount* HolderOf(const std::string& sFolder);
    const tMount* MountOf(const std::string& sFolder);

    bool m_bHomeKnown = false;
    tTrash m_home;
    dev_t m_homeDevice = 0;
    std::vector<tMount> m_mounts;
    std::map<std::string, tTrash> m_volumes; ///< by their top folders
};

/// True if folder `sPath`, free of links, is a trash or lies in one.
bool IsInTrash(const std::string& sPath);

} // namespace desktop
