#pragma once

#include "PosixFiles.h"
#include "QtShell.h"
#include "UserInterface.h"

namespace program {

/// The program on its machine: the system and the forms, put in place for one another. There is one.
class Program
{
public:
    /// `pEvents` stands in for the event loop that long operations yield to, if it is not null.
    Program(int& argc, char* argv[], platform::EventLoop* pEvents = nullptr);

    /// Brings up the window and lives until it has gone; returns the program's result.
    int Run();

private:
    desktop::UserInterface m_userInterface;
    desktop::PosixFiles m_files;
    desktop::QtShell m_shell;
};

} // namespace program
