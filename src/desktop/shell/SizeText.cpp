// SPDX-License-Identifier: MIT
#include "SizeText.h"

#include "Texts.h"

#include <QLocale>

namespace desktop {
namespace {

constexpr std::int64_t kUnit = 1024;

} // namespace

QString NumberText(std::int64_t nNumber)
{
    return QString::fromStdString(platform::FormatNumber(nNumber));
}

QString CountText(std::int64_t nCount, const char* pOne, const char* pMany)
{
    return NumberText(nCount) + QLatin1Char(' ') + QLatin1String(nCount == 1 ? pOne : pMany);
}

QString ShortSize(std::int64_t cySize)
{
    if (cySize < kUnit) {
        return CountText(cySize, "byte", "bytes");
    }
    constexpr const char* aUnits[] = {"KiB", "MiB", "GiB", "TiB", "PiB", "EiB"};
    // A value that would be rounded to 1,024.0 is shown as 1.0 of the next unit.
    constexpr double dMost = static_cast<double>(kUnit) - 0.05;
    double dSize = static_cast<double>(cySize) / static_cast<double>(kUnit);
    const char* const* ppUnit = aUnits;
    for (; dSize >= dMost; ++ppUnit) {
        dSize /= static_cast<double>(kUnit);
    }
    return QLocale::system().toString(dSize, 'f', 1) + QLatin1Char(' ') + QLatin1String(*ppUnit);
}

QString FullSize(std::int64_t cySize)
{
    const QString sBytes = CountText(cySize, "byte", "bytes");
    return cySize < kUnit ? sBytes : sBytes + QLatin1String(" / ") + ShortSize(cySize);
}

} // namespace desktop
