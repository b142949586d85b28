// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"

#include <Qt>

class QKeyEvent;

namespace desktop {

// Converts the toolkit's values to those of the program, and back.

/// The virtual key code of a key that the program knows: letters, modifier keys and Delete; 0 for others. On
/// a non-Latin keyboard layout, a letter key has the code of the Latin letter at its position.
int VirtualKey(const QKeyEvent& event);

/// The held modifier keys, as the program's bit mask.
int ShiftMask(Qt::KeyboardModifiers modifiers);

/// The same after a key was released, whether or not the event still counts that key as held.
int ShiftMaskAfter(const QKeyEvent& released);

/// Mouse buttons, as the program's bit mask.
int ButtonMask(Qt::MouseButtons buttons);

/// The alignment of a text in its field, vertically centred.
Qt::Alignment AlignmentOf(platform::Alignment alignment);

} // namespace desktop
