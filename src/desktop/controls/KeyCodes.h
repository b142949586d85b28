// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QKeyEvent;

namespace desktop {

/// The number that the program knows a key by, 0 for keys that it does not know. A key with a letter of
/// another script goes by the Latin letter of its place on the keyboard.
int VirtualKey(const QKeyEvent& event);

/// The held keys as the program adds them up.
int ShiftMask(Qt::KeyboardModifiers modifiers);

/// The same once a key has come up, whether or not its event still counts that key as held.
int ShiftMaskAfter(const QKeyEvent& released);

/// Mouse buttons as the program adds them up.
int ButtonMask(Qt::MouseButtons buttons);

} // namespace desktop
