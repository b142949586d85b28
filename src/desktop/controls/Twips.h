#pragma once

#include "Control.h"

#include <QRect>
#include <cmath>

namespace desktop {

/// Twips, in which the program counts on its forms (platform::tPlace), to a logical pixel.
inline constexpr float kTwipsPerPixel = 15;

inline int Pixels(float twips)
{
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

inline float Twips(int nPixels)
{
    return static_cast<float>(nPixels) * kTwipsPerPixel;
}

inline QRect PixelRect(const platform::tPlace& place)
{
    return {Pixels(place.Left), Pixels(place.Top), Pixels(place.Width), Pixels(place.Height)};
}

} // namespace desktop
