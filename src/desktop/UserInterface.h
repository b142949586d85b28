#pragma once

#include "GioLauncher.h"
#include "PacedEventLoop.h"
#include "QtFileDialogs.h"
#include "QtOperationDialogs.h"
#include "QtWindows.h"
#include "System.h"

#include <QApplication>

namespace desktop {

/// Gives the application object, which must exist, the program's face: its font, its icon and its names. From
/// then on the program ends with its last form and not with whatever else was visible.
void PutOnFace();

/// The application object with the program's face, and those parts of the system that need it. There is one,
/// made before any form is shown.
class UserInterface
{
public:
    UserInterface(int& argc, char* argv[]);

    /// Puts the event loop, the screen, the message boxes, the windows, the file dialogs and the launcher
    /// into `system`.
    void EnterInto(platform::tSystem& system);

    /// The user, for the operations on files.
    OperationDialogs& Operations() { return m_operations; }

    /// Delivers the user's input until the last form has been taken down; returns the program's result.
    int Run();

private:
    QApplication m_application;
    QtWindows m_windows;
    PacedEventLoop m_events;
    QtFileDialogs m_fileDialogs;
    QtOperationDialogs m_operations;
    GioLauncher m_launcher;
};

} // namespace desktop
