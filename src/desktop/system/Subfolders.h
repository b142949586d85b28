// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <tuple>
#include <vector>

namespace desktop {

/// The sort key of names for display, the same as in a search: hidden ones last, numbers by value.
using tReadingOrder = std::tuple<bool, std::string, std::string>;
tReadingOrder ReadingOrder(std::string sName);

/// The names of the folders in folder `sPath`, exact bytes, in that order. Links to folders are not included.
/// Empty if the folder cannot be listed.
std::vector<std::string> Subfolders(const std::string& sPath);

/// True if folder `sPath` contains a folder with this name that is not a link.
bool IsSubfolder(const std::string& sPath, const std::string& sName);

/// The names of the regular files in folder `sPath` that match a shell pattern, "*.txt", ignoring case; exact
/// bytes, in that order. Empty if the folder cannot be listed.
std::vector<std::string> FileNames(const std::string& sPath, const std::string& sPattern);

/// False if folder `sPath` is known to contain no folders or cannot be listed. Takes no noticeable time:
/// where looking would take long, because the folder is large or is a mount or automount point, it returns
/// true without looking.
bool MayHaveSubfolders(const std::string& sPath);

} // namespace desktop
