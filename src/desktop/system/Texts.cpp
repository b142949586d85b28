// SPDX-License-Identifier: MIT
#include "Texts.h"

#include "FileTime.h"
#include "UserLocale.h"

#include <array>
#include <glib.h>
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

} // namespace

std::string FoldCase(std::string_view sText)
{
    const std::unique_ptr<gchar, decltype(&g_free)> pFolded(
        g_utf8_casefold(sText.data(), static_cast<gssize>(sText.size())), &g_free);
    return FoldSmallCherokee(pFolded.get());
}

std::string FormatNumber(std::int64_t nNumber)
{
    return desktop::UserLocale::Get().Number(nNumber);
}

std::string FormatDateTime(double dtDate)
{
    return desktop::UserLocale::Get().DateTime(SplitDateValue(dtDate));
}

} // namespace platform
