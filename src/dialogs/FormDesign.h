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

/// The same for a picture of 32 by 32 pixels.
inline void Design(platform::Image& image, float left, float top, std::string_view sPicture)
{
    image.SetPlace({left, top, 480, 480});
    image.SetPicture(sPicture);
}

} // namespace dialogs
