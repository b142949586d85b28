// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace platform {
class Control;
}

namespace desktop {

/// The widgets of the program's controls, entered by their creators and removed before they are destroyed.
/// Null for a control without a widget.
QWidget* WidgetOf(const platform::Control* pControl);
void EnterWidget(const platform::Control& control, QWidget* pWidget);
void RemoveWidget(const platform::Control& control);

} // namespace desktop
