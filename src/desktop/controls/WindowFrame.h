// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"

#include <QWidget>

namespace desktop {

/// The frame that a form's design asks for, with its buttons.
Qt::WindowFlags FrameOf(const platform::tFormDesign& design);

/// Moves a window, its frame included, to the middle of the screen, or of `pOwner` where the design asks for
/// that and there is one, and as far as it fits onto the screen. One that can be sized becomes no larger than
/// the screen allows. What the frame measures is known only once the window is on the screen.
void PlaceOnScreen(QWidget& window, const platform::tFormDesign& design, const QWidget* pOwner);

/// What has become of a window.
platform::WindowState StateOf(const QWidget& window);

} // namespace desktop
