// SPDX-License-Identifier: MIT
#pragma once

#include "FileTime.h"

#include <cstdint>
#include <ctime>
#include <locale.h> // NOLINT(modernize-deprecated-headers,misc-include-cleaner): locale_t is not in <clocale>
#include <string>

namespace desktop {

/// The digits of a whole number with `sSeparator` between its groups. `grouping` holds the sizes of the
/// groups from the right, as struct lconv has them: the last one serves all that remain, CHAR_MAX ends the
/// grouping.
std::string GroupDigits(const std::string& sDigits, const std::string& sSeparator,
                        const std::string& grouping);

/// A moment as the C library has it, the days of the week and of the year included.
std::tm CalendarTime(const platform::tSystemTime& stTime);

/// The user's ways of writing numbers and dates, as the environment names them when the program starts.
class UserLocale
{
public:
    static const UserLocale& Get();

    /// A whole number with its digits grouped.
    [[nodiscard]] std::string Number(std::int64_t nNumber) const;

    /// Short date, one blank, long time.
    [[nodiscard]] std::string DateTime(const platform::tSystemTime& stTime) const;

private:
    UserLocale();

    locale_t m_locale;
    std::string m_sThousandsSeparator;
    std::string
        m_grouping; ///< empty, or sizes of the groups of digits from the right, as struct lconv has them
};

} // namespace desktop
