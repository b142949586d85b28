// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"
#include "MountTable.h"
#include "TrashFolder.h"

#include <map>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace desktop {

using TrashPtr = std::shared_ptr<TrashFolder>;

/// Where files go when they are deleted: the trash in the user's home, for files on the same volume, else
/// that of the volume. Each is looked for once.
class TrashFolders
{
public:
    /// The trash for the files of a held folder; null if they have none, and `sReason` says why. With
    /// `bVolume`, not the home's.
    TrashPtr For(const HeldFolder& folder, bool bVolume, std::string& sReason);

    /// Why what is in that folder cannot go to a trash, as far as that can be known without making one; empty
    /// if it can.
    std::string WhyNone(const HeldFolder& folder);

    /// The top folder of the volume that a folder is on.
    std::string VolumeOf(const std::string& sFolder);

private:
    struct tTrash {
        TrashPtr pTrash;
        std::string sReason;
    };

    void FindHome();
    [[nodiscard]] tTrash OfVolume(const std::string& sTop) const;
    [[nodiscard]] const tMount* HolderOf(const std::string& sFolder);
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
