// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <Qt>

namespace desktop {

/// The alignment of a text in its field, vertically centred.
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
