// SPDX-License-Identifier: MIT
#include "CanonicalPath.h"

#include <cstdlib>
#include <memory>

namespace desktop {

std::string CanonicalPath(const std::string& sPath)
{
    const std::unique_ptr<char, decltype(&std::free)> pPath(realpath(sPath.c_str(), nullptr), &std::free);
    return pPath ? pPath.get() : "";
}

} // namespace desktop
