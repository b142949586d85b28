// SPDX-License-Identifier: MIT
// A time, its calendar fields, its date value and the texts formatted from them agree.

#include "FileTime.h"
#include "Require.h"
#include "Texts.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <fuzzer/FuzzedDataProvider.h>
#include <tuple>

namespace {

using platform::tFileTime;
using platform::tSystemTime;

constexpr std::int64_t kFirstSecond = -59'011'459'200; // of the year 100
constexpr std::int64_t kLastSecond = 253'402'300'799;  // of the year 9999
constexpr std::int64_t kDaysTo1970 = 25'569;

auto Fields(const tSystemTime& stTime)
{
    return std::tie(stTime.wYear, stTime.wMonth, stTime.wDay, stTime.wHour, stTime.wMinute, stTime.wSecond);
}

tSystemTime FromTm(const std::tm& time)
{
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

void CheckLocal(std::int64_t nSeconds, const char* pZone)
{
    setenv("TZ", pZone, 1);
    tzset();
    tFileTime ftTime{nSeconds};
    const bool bLocal = platform::FileTimeToLocalFileTime(ftTime);
    std::tm local{};
    const std::time_t nTime = nSeconds;
    Require(bLocal == (localtime_r(&nTime, &local) != nullptr), "what the calendar has is converted");
    Require(ftTime.nSeconds == (bLocal ? timegm(&local) : nSeconds), "local time is the zone's");
}

void CheckText(const tSystemTime& stTime)
{
    const std::string sText = platform::FormatDateTime(platform::DateValue(stTime));
    std::tm time{};
    time.tm_year = stTime.wYear - 1900;
    time.tm_mon = stTime.wMonth - 1;
    time.tm_mday = stTime.wDay;
    time.tm_hour = stTime.wHour;
    time.tm_min = stTime.wMinute;
    time.tm_sec = stTime.wSecond;
    // timegm sets the day of the week.
    std::tm calendar = time;
    timegm(&calendar);
    time.tm_wday = calendar.tm_wday;
    time.tm_yday = calendar.tm_yday;
    std::array<char, 256> aText{};
    const std::size_t nLength = std::strftime(aText.data(), aText.size(), "%x %X", &time);
    Require(sText == std::string(aText.data(), nLength), "a date reads as the C library writes it");
}

void CheckMoment(std::int64_t nSeconds)
{
    tSystemTime stTime{1, 2, 3, 4, 5, 6};
    const tSystemTime stBefore = stTime;
    const bool bSplit = platform::FileTimeToSystemTime({nSeconds}, stTime);
    Require(bSplit == (nSeconds >= kFirstSecond && nSeconds <= kLastSecond), "the calendar has its limits");
    if (!bSplit) {
        Require(Fields(stTime) == Fields(stBefore), "what cannot be split changes nothing");
        return;
    }
    std::tm utc{};
    const std::time_t nTime = nSeconds;
    Require(gmtime_r(&nTime, &utc) != nullptr, "the C library knows it");
    const tSystemTime stExpected = FromTm(utc);
    Require(Fields(stTime) == Fields(stExpected), "split as the C library does");

    const double dtDate = platform::DateValue(stTime);
    const auto nDay = (nSeconds - kFirstSecond) / 86'400 + kFirstSecond / 86'400 + kDaysTo1970;
    Require(static_cast<std::int64_t>(std::trunc(dtDate)) == nDay, "whole days count from day zero");
    const double dTime = static_cast<double>((nSeconds - kFirstSecond) % 86'400) / 86'400;
    Require(std::fabs(std::fabs(dtDate - std::trunc(dtDate)) - dTime) < 1e-9, "the rest is the time of day");
    const tSystemTime stAgain = platform::SplitDateValue(dtDate);
    Require(Fields(stAgain) == Fields(stTime), "a date value splits into what it was made of");
    CheckText(stTime);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*pArgc*/, char*** /*pArgv*/)
{
    std::setlocale(LC_ALL, "");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    const char* pZone = input.PickValueInArray<const char*>(
        {"UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kathmandu", "Pacific/Apia", "XXX-14:59:59"});
    const auto nAny = input.ConsumeIntegral<std::int64_t>();
    const auto nPast = input.ConsumeIntegralInRange<std::int64_t>(kFirstSecond - 10, kLastSecond + 10);
    CheckMoment(nAny);
    CheckMoment(nPast);
    CheckLocal(nAny, pZone);
    CheckLocal(nPast, pZone);
    return 0;
}
