// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "ControlView.h"

#include <memory>

namespace desktop {

/// Makes the widget that shows a control of `form`, inside `parent`, and what keeps the two in step; null for
/// a control that somebody else shows.
std::unique_ptr<ControlView> ShowControl(const platform::Form& form, platform::Control& control,
                                         QWidget& parent);

} // namespace desktop
