// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"

#include <QWidget>

namespace desktop {

/// The window flags for the frame and the buttons of a form's design.
Qt::WindowFlags FrameOf(const platform::tFormDesign& design);

/// Centres a window, including its frame, on the screen or, if the design says so, on `pOwner`, and keeps it
/// within the screen if possible. A sizable window is shrunk to the screen. The size of the frame is known
/// only once the window is shown.
void PlaceOnScreen(QWidget& window, const platform::tFormDesign& design, const QWidget* pOwner);

/// Whether a window is minimised, maximised or normal.
platform::WindowState StateOf(const QWidget& window);

} // namespace desktop
