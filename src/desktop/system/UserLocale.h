// SPDX-License-Identifier: MIT
#pragma once

#include "FileTime.h"

#include <cstdint>
#include <ctime>
#include <locale.h> // NOLINT(modernize-deprecated-headers,misc-include-cleaner): locale_t is not in <clocale>
#include <string>

namespace desktop {

/// Inserts `sSeparator` between the groups of digits of a whole number. `grouping` holds the group sizes from
/// the right, as in struct lconv: the last one applies to all remaining groups, and CHAR_MAX ends the
/// grouping.
std::string GroupDigits(const std::string& sDigits, const std::string& sSeparator,
                        const std::string& grouping);

/// A time as the C library represents it, including the days of the week and of the year.
std::tm CalendarTime(const platform::tSystemTime& stTime);

/// The user's number and date formats, according to the environment at the start of the program.
class UserLocale
{
public:
    /// The only instance, created on first use.
    static const UserLocale& Get();

    /// A whole number with digit grouping.
    [[nodiscard]] std::string Number(std::int64_t nNumber) const;

    /// Short date, one blank, long time.
    [[nodiscard]] std::string DateTime(const platform::tSystemTime& stTime) const;

private:
    UserLocale();

    locale_t m_locale;
    std::string m_sThousandsSeparator;
    std::string m_grouping; ///< empty, or the sizes of the digit groups from the right, as in struct lconv
};

} // namespace desktop
