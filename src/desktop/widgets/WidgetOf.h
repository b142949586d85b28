// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace platform {
class Observable;
}

namespace desktop {

/// The widgets of the program's controls, menus and panels, entered by their creators and removed before they
/// are destroyed. Null for an object without a widget.
QWidget* WidgetOf(const platform::Observable* pShown);
void EnterWidget(const platform::Observable& shown, QWidget* pWidget);
void RemoveWidget(const platform::Observable& shown);

} // namespace desktop
