// SPDX-License-Identifier: MIT
#include "Twips.h"

#include <QApplication>
#include <QFont>
#include <QScreen>

namespace desktop {
namespace {

constexpr double kFontPoints = 8.25;
constexpr double kTwipsPerInch = 1440;

float g_twipsPerPixel = 15;

} // namespace

float TwipsPerPixel()
{
    return g_twipsPerPixel;
}

void UseTextScale(double factor)
{
    QFont font;
    font.setFamilies(
        {QStringLiteral("Tahoma"), QStringLiteral("DejaVu Sans Condensed"), QStringLiteral("DejaVu Sans")});
    font.setPointSizeF(kFontPoints * factor);
    QApplication::setFont(font);
    // The toolkit converts points to pixels with the same resolution.
    const double perInch = QGuiApplication::primaryScreen()->logicalDotsPerInchY();
    g_twipsPerPixel = static_cast<float>(kTwipsPerInch / perInch / factor);
}

} // namespace desktop
