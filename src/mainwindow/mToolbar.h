// SPDX-License-Identifier: MIT
#pragma once

#include "Toolbar.h"

namespace mainwindow {

/// Switches the buttons of a toolbar from raised to flat, or back.
void FlatToolbar(platform::Toolbar& toolbar);

} // namespace mainwindow
