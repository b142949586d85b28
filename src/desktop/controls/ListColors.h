// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <QColor>
#include <QPalette>

namespace desktop {

/// How well two colours can be told apart, from 1, not at all, to 21, black and white.
double Contrast(const QColor& one, const QColor& other);

/// The colours of a list with that background, of those of the desktop. One that has not got the keyboard
/// shows its selection in another colour also where the desktop has no such colour.
QPalette ListColors(const QPalette& desktop, platform::SystemColor background);

} // namespace desktop
