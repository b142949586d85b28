// SPDX-License-Identifier: MIT
#pragma once

namespace mainwindow {

/// Starts the program: brings up the main form. From then on the program lives in the event loop, until that
/// form is unloaded. The system and the forms are in place by now (UseSystem, UseForms, UseMainForm).
void Main();

} // namespace mainwindow
