// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QWidget>

namespace desktop {

/// Makes `widget` report this role to assistive programs, for widgets whose class has no suitable one. Must
/// be called before the name or title of the widget is set, since the toolkit determines the role then.
void GiveSpokenRole(QWidget& widget, QAccessible::Role role);

} // namespace desktop
