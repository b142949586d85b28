// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <Qt>

namespace desktop {

/// Where a text stands in its field, at half the field's height.
inline Qt::Alignment AlignmentOf(platform::Alignment alignment)
{
    switch (alignment) {
    case platform::Alignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case platform::Alignment::Center:
        return Qt::AlignCenter;
    case platform::Alignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace desktop
