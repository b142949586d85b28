// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// The parts of paths, which are exact bytes.

namespace platform {

/// Separates the folders of a path.
inline constexpr char kSeparator = '/';

/// The last name of a path.
inline std::string NameIn(std::string_view sPath)
{
    return std::string(sPath.substr(sPath.rfind(kSeparator) + 1));
}

/// What comes before that name, including the separator.
inline std::string FolderPart(std::string_view sPath)
{
    return std::string(sPath.substr(0, sPath.rfind(kSeparator) + 1));
}

/// The folder that contains the full path `sPath`, without a trailing separator (except for the root).
inline std::string FolderOf(std::string_view sPath)
{
    const auto nSeparator = sPath.rfind(kSeparator);
    return std::string(sPath.substr(0, nSeparator == 0 ? 1 : nSeparator));
}

/// The path of `sName` in a folder, whose path may end in a separator.
inline std::string PathIn(std::string_view sFolder, std::string_view sName)
{
    std::string sPath(sFolder);
    return sPath.append(sFolder.ends_with(kSeparator) ? 0 : 1, kSeparator).append(sName);
}

/// True if `sPath` is `sFolder` or lies inside it. Neither may end in a separator, except for the root.
inline bool IsIn(std::string_view sPath, std::string_view sFolder)
{
    return sPath.starts_with(sFolder) && (sPath.size() == sFolder.size() || sFolder.ends_with(kSeparator) ||
                                          sPath[sFolder.size()] == kSeparator);
}

} // namespace platform
