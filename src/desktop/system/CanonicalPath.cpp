// SPDX-License-Identifier: MIT
#include "CanonicalPath.h"

#include <cstdlib>
#include <memory>
#include <sys/stat.h>

namespace desktop {

std::string CanonicalPath(const std::string& sPath)
{
    const std::unique_ptr<char, decltype(&std::free)> pPath(realpath(sPath.c_str(), nullptr), &std::free);
    return pPath ? pPath.get() : "";
}

std::string CanonicalFolder(const std::string& sPath)
{
    std::string sCanonical = CanonicalPath(sPath);
    struct stat status = {};
    return stat(sCanonical.c_str(), &status) == 0 && S_ISDIR(status.st_mode) ? sCanonical : "";
}

} // namespace desktop
