// SPDX-License-Identifier: MIT
#include "ListColors.h"

#include <algorithm>
#include <cmath>

namespace desktop {
namespace {

/// The minimum contrast for text that is easy to read.
constexpr double kReadable = 4.5;

/// The relative luminance of a colour, 0 to 1.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

bool IsDark(const QColor& color)
{
    return Contrast(color, Qt::white) > Contrast(color, Qt::black);
}

QColor Mixed(const QColor& one, const QColor& other, float ofOther)
{
    const auto part = [&](float first, float second) { return first + (second - first) * ofOther; };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

/// The information colour is meant for tool tips: many dark desktops keep it bright, and some light ones have
/// it black. For a whole list only its hue is used, at a lightness close to that of the other lists.
QColor Toned(const QColor& information, const QColor& base)
{
    constexpr float kMostSaturated = 0.25F;
    constexpr float kLighter = 0.08F;
    constexpr float kDarker = 0.04F;
    const float tone = base.lightnessF() + (IsDark(base) ? kLighter : -kDarker);
    return QColor::fromHslF(std::max(0.0F, information.hslHueF()),
                            std::min(kMostSaturated, information.hslSaturationF()),
                            std::clamp(tone, 0.0F, 1.0F));
}

void UseInformationColors(QPalette& colors, QPalette::ColorGroup group)
{
    const QColor information = colors.color(group, QPalette::ToolTipBase);
    const QColor base = colors.color(group, QPalette::Base);
    const bool bFits = IsDark(information) == IsDark(base);
    const QColor background = bFits ? information : Toned(information, base);
    colors.setColor(group, QPalette::Base, background);
    const QColor text = colors.color(group, QPalette::ToolTipText);
    if (bFits && Contrast(text, background) >= kReadable) {
        colors.setColor(group, QPalette::Text, text);
    }
}

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QPalette ListColors(const QPalette& desktop, platform::SystemColor background)
{
    QPalette colors = desktop;
    if (background == platform::SystemColor::InfoBackground) {
        UseInformationColors(colors, QPalette::Active);
        UseInformationColors(colors, QPalette::Inactive);
        colors.setColor(QPalette::Disabled, QPalette::Base, colors.color(QPalette::Inactive, QPalette::Base));
    }
    if (colors.color(QPalette::Inactive, QPalette::Highlight) ==
        colors.color(QPalette::Active, QPalette::Highlight)) {
        constexpr float kOfText = 0.2F;
        const QColor text = colors.color(QPalette::Inactive, QPalette::Text);
        colors.setColor(QPalette::Inactive, QPalette::Highlight,
                        Mixed(colors.color(QPalette::Inactive, QPalette::Base), text, kOfText));
        colors.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    }
    return colors;
}

} // namespace desktop
