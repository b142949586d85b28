// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QColor>
#include <QPalette>

namespace desktop {

/// The contrast ratio of two colours, from 1 (equal) to 21 (black and white).
double Contrast(const QColor& one, const QColor& other);

/// The palette of a list with this background, based on the desktop's palette. A list without the focus shows
/// its selection in a different colour, even if the desktop defines none for that.
QPalette ListColors(const QPalette& desktop, platform::SystemColor background);

} // namespace desktop
