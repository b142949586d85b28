// Puts the floors together and starts the program.

#include "Main.h"
#include "FormMembers.h"
#include "MainForm.h"
#include "PosixFiles.h"
#include "PosixTextFiles.h"
#include "PosixVolumes.h"
#include "QtShell.h"
#include "SessionBus.h"
#include "ShellFileOperations.h"
#include "System.h"
#include "UserInterface.h"
#include "frmMain.h"
#include "frmProgress.h"

int main(int argc, char* argv[])
{
    desktop::StartNoSessionBus();
    desktop::UserInterface userInterface(argc, argv);
    desktop::PosixFiles files;
    desktop::PosixTextFiles textFiles;
    desktop::PosixVolumes volumes;
    desktop::QtShell shell;
    desktop::ShellFileOperations shellFiles(userInterface.Operations());
    platform::tSystem system;
    system.files = &files;
    system.shell = &shell;
    system.shellFiles = &shellFiles;
    system.volumes = &volumes;
    system.textFiles = &textFiles;
    userInterface.EnterInto(system);
    platform::UseSystem(system);

    search::UseForms(mainwindow::theMainForm(), dialogs::theProgressForm());
    dialogs::UseMainForm(mainwindow::theMainForm());
    mainwindow::Main();
    return userInterface.Run();
}
