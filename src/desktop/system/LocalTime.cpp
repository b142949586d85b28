#include "FileTime.h"

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

} // namespace platform
