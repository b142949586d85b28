// SPDX-License-Identifier: MIT
#pragma once

#include "System.h"
#include "UserInterface.h"

#include <functional>

namespace program {

/// The program on its machine: the system and the forms, put in place for one another. There is one.
class Program
{
public:
    /// `replace` may put others in the place of parts of the system, before anything uses them.
    Program(int& argc, char* argv[], const std::function<void(platform::tSystem&)>& replace = {});

    /// Brings up the window and lives until it has gone; returns the program's result.
    int Run();

private:
    desktop::UserInterface m_userInterface;
};

} // namespace program
