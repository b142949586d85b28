// SPDX-License-Identifier: MIT
#include "FileTime.h"
#include "Texts.h"

#include <ctime>

namespace platform {

bool FileTimeToLocalFileTime(tFileTime& ftTime)
{
    const std::time_t nTime = ftTime.nSeconds;
    std::tm local{};
    if (localtime_r(&nTime, &local) == nullptr) {
        return false;
    }
    ftTime.nSeconds += local.tm_gmtoff;
    return true;
}

std::optional<tSystemTime> LocalTime(tFileTime ftTime)
{
    tSystemTime stTime;
    if (!FileTimeToLocalFileTime(ftTime) || !FileTimeToSystemTime(ftTime, stTime)) {
        return std::nullopt;
    }
    return stTime;
}

double Now()
{
    const auto stNow = LocalTime({std::time(nullptr)});
    return stNow ? DateValue(*stNow) : 0;
}

} // namespace platform
