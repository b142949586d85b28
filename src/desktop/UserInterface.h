// SPDX-License-Identifier: MIT
#pragma once

#include "GioLauncher.h"
#include "PacedEventLoop.h"
#include "PosixFiles.h"
#include "PosixTextFiles.h"
#include "PosixVolumes.h"
#include "QtFileDialogs.h"
#include "QtOperationDialogs.h"
#include "QtShell.h"
#include "QtWindows.h"
#include "ShellFileOperations.h"
#include "System.h"

#include <QApplication>

namespace desktop {

/// Gives the application object, which must exist, the program's face: its font, its icon and its names. From
/// then on the program ends with its last form and not with whatever else was visible.
void PutOnFace();

/// The application object with the program's face, and the system as the program uses it. There is one, made
/// before any form is shown.
class UserInterface
{
public:
    UserInterface(int& argc, char* argv[]);

    /// All parts of the system. They live as long as this object.
    platform::tSystem System();

    /// Delivers the user's input until the last form has been taken down, and beyond that until the last
    /// window that stands by itself has been closed; returns the program's result.
    int Run();

private:
    QApplication m_application;
    QtWindows m_windows;
    PacedEventLoop m_events;
    QtFileDialogs m_fileDialogs;
    QtOperationDialogs m_operations;
    GioLauncher m_launcher;
    PosixFiles m_files;
    PosixTextFiles m_textFiles;
    PosixVolumes m_volumes;
    QtShell m_shell;
    ShellFileOperations m_shellFiles{m_operations};
};

} // namespace desktop
