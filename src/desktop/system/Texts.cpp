#include "Texts.h"

#include "FileTime.h"
#include "Launching.h"
#include "UserLocale.h"

#include <algorithm>
#include <cstring>
#include <ctime>
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

double Now()
{
    tFileTime ftNow{std::time(nullptr)};
    tSystemTime stNow;
    FileTimeToLocalFileTime(ftNow);
    FileTimeToSystemTime(ftNow, stNow);
    return DateValue(stNow);
}

void FormatMessageA(unsigned /*dwFlags*/, long dwMessageId, unsigned /*dwLanguageId*/, std::string& sBuffer)
{
    // The one code of the shell that is none of the kernel's; the kernel's 31 never gets here.
    const bool bNoProgram = dwMessageId == SE_ERR_NOASSOC;
    const int nCode = static_cast<int>(dwMessageId);
    if (!bNoProgram && (nCode != dwMessageId || strerrordesc_np(nCode) == nullptr)) {
        return;
    }
    std::string sText =
        bNoProgram ? "No application is registered for files of this kind." : std::strerror(nCode);
    sText += '\0';
    sBuffer.replace(0, std::min(sText.size(), sBuffer.size()), sText, 0, sBuffer.size());
}

} // namespace platform
