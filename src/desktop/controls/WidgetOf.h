// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace platform {
class Control;
}

namespace desktop {

/// The widgets that show the program's controls, each entered by whoever makes it and taken out before it
/// goes. Null where none shows the control.
QWidget* WidgetOf(const platform::Control* pControl);
void EnterWidget(const platform::Control& control, QWidget* pWidget);
void RemoveWidget(const platform::Control& control);

} // namespace desktop
