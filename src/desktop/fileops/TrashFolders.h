// SPDX-License-Identifier: MIT
#pragma once

#include "HeldFolder.h"
#include "MountTable.h"
#include "TrashFolder.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>

namespace desktop {

using TrashPtr = std::shared_ptr<TrashFolder>;

/// Finds the trash for files: the one in the user's home for files on the same volume, otherwise that of the
/// volume. Each is looked up once.
class TrashFolders
{
public:
    /// The trash for the files of a held folder; null if there is none, and `sReason` is set to the reason.
    /// With `bVolume` the home trash is not used.
    TrashPtr For(const HeldFolder& folder, bool bVolume, std::string& sReason);

    /// Why the contents of the folder cannot go to a trash, as far as that can be known without creating one;
    /// empty if they can.
    std::string WhyNone(const HeldFolder& folder);

    /// The top folder of the volume that contains a folder.
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
    std::optional<MountTable> m_mounts;      ///< once it is needed
    std::map<std::string, tTrash> m_volumes; ///< by top folder
};

} // namespace desktop
