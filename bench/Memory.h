// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <fstream>
#include <unistd.h>

namespace bench {

/// The resident memory of this process, in bytes.
inline std::size_t ResidentBytes()
{
    std::ifstream status("/proc/self/statm");
    std::size_t nTotal = 0;
    std::size_t nResident = 0;
    status >> nTotal >> nResident;
    return nResident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace bench
