// SPDX-License-Identifier: MIT
#include "Texts.h"

#include "FileTime.h"

#include <array>
#include <climits>
#include <ctime>
#include <glib.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers,misc-include-cleaner): locale_t is not in <clocale>
#include <memory>

namespace platform {
namespace {

/// A small letter of Cherokee, the only script whose small letters are folded to capitals.
bool IsSmallCherokee(gunichar nChar)
{
    return (nChar >= 0x13F8 && nChar <= 0x13FD) || (nChar >= 0xAB70 && nChar <= 0xABBF);
}

/// GLib folds these to capitals but the capitals to small letters, since it does not know the exception.
std::string FoldSmallCherokee(const gchar* pText)
{
    std::string sFolded;
    for (const gchar* p = pText; *p != 0;) {
        const gunichar nChar = g_utf8_get_char(p);
        const gchar* const pNext = p + g_utf8_skip[static_cast<unsigned char>(*p)];
        if (IsSmallCherokee(nChar)) {
            std::array<gchar, 6> aCapital{};
            const gint nBytes = g_unichar_to_utf8(g_unichar_toupper(nChar), aCapital.data());
            sFolded.append(aCapital.data(), static_cast<std::size_t>(nBytes));
        } else {
            sFolded.append(p, pNext);
        }
        p = pNext;
    }
    return sFolded;
}

/// The user's number and date formats, according to the environment at the start of the program.
struct tUserFormats {
    tUserFormats() : locale(newlocale(LC_ALL_MASK, "", nullptr))
    {
        // The environment may name a locale that is not installed.
        if (locale == nullptr) {
            locale = newlocale(LC_ALL_MASK, "C", nullptr);
        }
        const locale_t before = uselocale(locale);
        sThousandsSeparator = localeconv()->thousands_sep;
        grouping = localeconv()->grouping;
        uselocale(before);
    }

    locale_t locale;
    std::string sThousandsSeparator;
    std::string grouping; ///< empty, or the sizes of the digit groups from the right, as in struct lconv
};

/// A time as the C library represents it, including the days of the week and of the year.
std::tm CalendarTime(const tSystemTime& stTime)
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

const tUserFormats& UserFormats()
{
    static const tUserFormats formats;
    return formats;
}

} // namespace

std::string FoldCase(std::string_view sText)
{
    const std::unique_ptr<gchar, decltype(&g_free)> pFolded(
        g_utf8_casefold(sText.data(), static_cast<gssize>(sText.size())), &g_free);
    return FoldSmallCherokee(pFolded.get());
}

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

std::string FormatNumber(std::int64_t nNumber)
{
    const tUserFormats& formats = UserFormats();
    const std::string sNumber = std::to_string(nNumber);
    const std::size_t nSign = nNumber < 0 ? 1 : 0;
    return sNumber.substr(0, nSign) +
           GroupDigits(sNumber.substr(nSign), formats.sThousandsSeparator, formats.grouping);
}

std::string FormatDateTime(double dtDate)
{
    const std::tm time = CalendarTime(SplitDateValue(dtDate));
    std::array<char, 256> text{};
    const std::size_t nLength = strftime_l(text.data(), text.size(), "%x %X", &time, UserFormats().locale);
    return {text.data(), nLength};
}

} // namespace platform
