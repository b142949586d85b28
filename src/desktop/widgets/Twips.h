// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QRect>
#include <cmath>

namespace desktop {

/// The number of twips, the unit of the program's forms (platform::tPlace), per logical pixel: 15 at normal
/// text size.
float TwipsPerPixel();

/// Scales texts, and the forms with them, by `factor`. Must be called before a form is shown.
void UseTextScale(double factor);

inline int Pixels(float twips)
{
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

inline float Twips(int nPixels)
{
    return static_cast<float>(nPixels) * TwipsPerPixel();
}

inline QRect PixelRect(const platform::tPlace& place)
{
    return {Pixels(place.Left), Pixels(place.Top), Pixels(place.Width), Pixels(place.Height)};
}

} // namespace desktop
