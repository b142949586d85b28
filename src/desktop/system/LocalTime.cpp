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

double Now()
{
    tFileTime ftNow{};
    ftNow.nSeconds = std::time(nullptr);
    tSystemTime stNow;
    return FileTimeToLocalFileTime(ftNow) && FileTimeToSystemTime(ftNow, stNow) ? DateValue(stNow) : 0;
}

} // namespace platform
