// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QRect>
#include <cmath>

namespace desktop {

/// Twips, in which the program counts on its forms (platform::tPlace), to a logical pixel: 15 with texts of
/// the usual size.
float TwipsPerPixel();

/// Has texts, and the forms with them, `factor` times the usual size. To be called before a form is shown.
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
