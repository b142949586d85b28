// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "ControlView.h"
#include "Form.h"

#include <memory>

namespace desktop {

/// Creates the widget for a control of `form`, inside `parent`, and returns the view that keeps the two in
/// sync; null for a control that is displayed by other code.
std::unique_ptr<ControlView> ShowControl(const platform::Form& form, platform::Control& control,
                                         QWidget& parent);

} // namespace desktop
