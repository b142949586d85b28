// SPDX-License-Identifier: MIT
#pragma once

#include "GioLauncher.h"
#include "PacedEventLoop.h"
#include "PosixFiles.h"
#include "PosixTextFiles.h"
#include "PosixVolumes.h"
#include "QtOperationDialogs.h"
#include "QtShellDialogs.h"
#include "QtWindows.h"
#include "ShellFileOperations.h"
#include "System.h"

#include <QApplication>

namespace desktop {

/// Sets the font, the icon and the names of the application object, which must exist. From then on the
/// program ends with its last form, whatever other windows are open.
void PutOnFace();

/// Owns the application object and the parts of the system that the program uses. There must be only one,
/// created before any form is shown.
class UserInterface
{
public:
    UserInterface(int& argc, char* argv[]);

    /// All parts of the system, valid for the lifetime of this object.
    platform::tSystem System();

    /// Runs the event loop until the last form has been taken down and the last standalone window has been
    /// closed; returns the exit code.
    int Run();

private:
    QApplication m_application;
    QtWindows m_windows;
    PacedEventLoop m_events;
    QtShellDialogs m_shellDialogs;
    QtOperationDialogs m_operations;
    GioLauncher m_launcher;
    PosixFiles m_files;
    PosixTextFiles m_textFiles;
    PosixVolumes m_volumes;
    ShellFileOperations m_shellFiles{m_operations};
};

} // namespace desktop
