// SPDX-License-Identifier: MIT
#pragma once

#include "System.h"
#include "UserInterface.h"
#include "frmMain.h"
#include "frmProgress.h"

#include <functional>

namespace program {

/// The whole program: creates the system and the forms and connects them. There must be only one.
class Program
{
public:
    /// `replace` may replace parts of the system before they are used. The forms are installed by then.
    Program(int& argc, char* argv[], const std::function<void(platform::tSystem&)>& replace = {});

    /// Shows the window and runs the event loop until it is closed. Returns the exit code.
    int Run();

private:
    // Destroyed after the user interface, which shows them.
    mainwindow::frmMain m_mainForm;
    dialogs::frmProgress m_progressForm;
    desktop::UserInterface m_userInterface;
};

} // namespace program
