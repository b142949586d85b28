// SPDX-License-Identifier: MIT
#pragma once

#include "FileIdentity.h"
#include "MountTable.h"

#include <string>
#include <unordered_map>

namespace desktop {

/// The folder for user data; empty if the user has no home.
std::string DataHome();

/// Knows which folders are in a trash. Reads the mount table once, and looks at each folder once.
class TrashLocations
{
public:
    TrashLocations();

    /// True if folder `sFolder`, which contains no links, is a trash or is inside one, even if it is reached
    /// through a mount of a part of that trash.
    bool Contain(const std::string& sFolder);

private:
    [[nodiscard]] std::string OnVolume(const std::string& sFolder) const;
    [[nodiscard]] bool Look(const std::string& sFolder) const;

    MountTable m_mounts;
    tLook m_home;                ///< the trash in the user's home
    std::string m_sHomeOnVolume; ///< empty if it does not exist
    std::unordered_map<std::string, bool> m_known;
};

} // namespace desktop
