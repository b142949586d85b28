// SPDX-License-Identifier: MIT
#include "UserLocale.h"

#include <array>
#include <climits>

namespace desktop {

std::string GroupDigits(const std::string& sDigits, const std::string& sSeparator,
                        const std::string& grouping)
{
    std::string sResult;
    std::size_t nEnd = sDigits.size();
    std::size_t nSize = 0;
    for (std::size_t n = 0; n < grouping.size() || nSize > 0; ++n) {
        if (n < grouping.size()) {
            nSize = grouping[n] == CHAR_MAX ? 0 : static_cast<std::size_t>(grouping[n]);
        }
        if (nSize == 0 || nEnd <= nSize) {
            break;
        }
        nEnd -= nSize;
        sResult.insert(0, sSeparator + sDigits.substr(nEnd, nSize));
    }
    return sDigits.substr(0, nEnd) + sResult;
}

const UserLocale& UserLocale::Get()
{
    static const UserLocale locale;
    return locale;
}

UserLocale::UserLocale() : m_locale(newlocale(LC_ALL_MASK, "", nullptr))
{
    // The environment may name a locale that is not installed.
    if (m_locale == nullptr) {
        m_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    }
    const locale_t before = uselocale(m_locale);
    m_sThousandsSeparator = localeconv()->thousands_sep;
    m_grouping = localeconv()->grouping;
    uselocale(before);
}

std::string UserLocale::Number(std::int64_t nNumber) const
{
    const std::string sNumber = std::to_string(nNumber);
    const std::size_t nSign = nNumber < 0 ? 1 : 0;
    return sNumber.substr(0, nSign) + GroupDigits(sNumber.substr(nSign), m_sThousandsSeparator, m_grouping);
}

std::tm CalendarTime(const platform::tSystemTime& stTime)
{
    std::tm time{};
    time.tm_year = stTime.wYear - 1900;
    time.tm_mon = stTime.wMonth - 1;
    time.tm_mday = stTime.wDay;
    time.tm_hour = stTime.wHour;
    time.tm_min = stTime.wMinute;
    time.tm_sec = stTime.wSecond;
    // timegm assumes UTC, so only the fields that do not depend on the time zone are taken from it.
    std::tm calendar = time;
    timegm(&calendar);
    time.tm_wday = calendar.tm_wday;
    time.tm_yday = calendar.tm_yday;
    return time;
}

std::string UserLocale::DateTime(const platform::tSystemTime& stTime) const
{
    const std::tm time = CalendarTime(stTime);
    std::array<char, 256> text{};
    const std::size_t nLength = strftime_l(text.data(), text.size(), "%x %X", &time, m_locale);
    return {text.data(), nLength};
}

} // namespace desktop
