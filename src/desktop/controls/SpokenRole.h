// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QWidget>

namespace desktop {

/// Has assistive programs hear that `widget`, whose class says nothing about it, is of that kind. To be
/// called before its name or its title is set, by which the toolkit looks for its kind.
void GiveSpokenRole(QWidget& widget, QAccessible::Role role);

} // namespace desktop
