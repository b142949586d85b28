// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace tour {

/// All visible windows and menus as stacked on screen, each window with a plain frame.
QPixmap PictureOfScreen();

} // namespace tour
