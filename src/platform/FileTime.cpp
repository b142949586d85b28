// SPDX-License-Identifier: MIT
#include "FileTime.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace platform {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / std::chrono::December / 30};

constexpr std::chrono::sys_days kFirstDay{std::chrono::year{100} / std::chrono::January / 1};
constexpr std::chrono::sys_days kLastDay{std::chrono::year{9999} / std::chrono::December / 31};

tSystemTime Split(std::chrono::sys_days day, std::int64_t nSecondOfDay)
{
    const std::chrono::year_month_day date{day};
    const auto nSecond = static_cast<int>(nSecondOfDay);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            nSecond / 3600,
            nSecond / 60 % 60,
            nSecond % 60};
}

} // namespace

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

bool FileTimeToSystemTime(const tFileTime& ftTime, tSystemTime& stTime)
{
    std::int64_t nDay = ftTime.nSeconds / kSecondsPerDay;
    std::int64_t nSecondOfDay = ftTime.nSeconds % kSecondsPerDay;
    if (nSecondOfDay < 0) {
        nSecondOfDay += kSecondsPerDay;
        --nDay;
    }
    if (nDay < kFirstDay.time_since_epoch().count() || nDay > kLastDay.time_since_epoch().count()) {
        return false;
    }
    stTime = Split(std::chrono::sys_days{std::chrono::days{nDay}}, nSecondOfDay);
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

double DateValue(const tSystemTime& stTime)
{
    const std::chrono::sys_days day{std::chrono::year{stTime.wYear} /
                                    std::chrono::month{static_cast<unsigned>(stTime.wMonth)} /
                                    std::chrono::day{static_cast<unsigned>(stTime.wDay)}};
    const auto dDays = static_cast<double>((day - kDayZero).count());
    const int nSecondOfDay = (stTime.wHour * 60 + stTime.wMinute) * 60 + stTime.wSecond;
    const double dTime = nSecondOfDay / static_cast<double>(kSecondsPerDay);
    return dDays < 0 ? dDays - dTime : dDays + dTime;
}

tSystemTime SplitDateValue(double dtDate)
{
    auto nDays = static_cast<std::int64_t>(dtDate);
    auto nSecondOfDay = static_cast<std::int64_t>(
        std::llround(std::fabs(dtDate - static_cast<double>(nDays)) * static_cast<double>(kSecondsPerDay)));
    if (nSecondOfDay == kSecondsPerDay) {
        nSecondOfDay = 0;
        ++nDays;
    }
    return Split(kDayZero + std::chrono::days{nDays}, nSecondOfDay);
}

double Now()
{
    const auto stNow = LocalTime({std::time(nullptr)});
    return stNow ? DateValue(*stNow) : 0;
}

} // namespace platform
