// SPDX-License-Identifier: MIT
#pragma once

namespace mainwindow {

/// Starts the program by showing the main form. From then on the program runs in the event loop until that
/// form is unloaded. The system and the forms must have been installed (UseSystem, UseForms).
void Main();

} // namespace mainwindow
