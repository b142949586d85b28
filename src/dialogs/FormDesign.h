// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "Widgets.h"

#include <string_view>

namespace dialogs {

/// Resets a control with a caption to its design.
template <typename T>
void Design(T& control, const platform::tPlace& place, std::string_view sCaption)
{
    control.SetPlace(place);
    control.SetCaption(sCaption);
}

/// The same for a picture, which always has the same size.
inline void Design(platform::Image& image, float left, float top, std::string_view sPicture)
{
    constexpr float kPictureSize = 480; // twips, 32 pixels
    image.SetPlace({left, top, kPictureSize, kPictureSize});
    image.SetPicture(sPicture);
}

} // namespace dialogs
