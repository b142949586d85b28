#include "Texts.h"

#include "FileTime.h"
#include "UserLocale.h"

#include <glib.h>
#include <memory>

namespace platform {

std::string FoldCase(std::string_view sText)
{
    const std::unique_ptr<gchar, decltype(&g_free)> pFolded(
        g_utf8_casefold(sText.data(), static_cast<gssize>(sText.size())), &g_free);
    return pFolded.get();
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
