// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace tour {

/// The windows and menus that are up, as they lie over each other, each window with a plain frame.
QPixmap PictureOfScreen();

} // namespace tour
