// Puts the floors together and starts the program.

#include "FormMembers.h"
#include "Main.h"
#include "MainForm.h"
#include "SessionBus.h"
#include "UserInterface.h"
#include "frmMain.h"
#include "frmProgress.h"

int main(int argc, char* argv[])
{
    desktop::StartNoSessionBus();
    desktop::UserInterface userInterface(argc, argv);
    platform::UseSystem(userInterface.System());
    search::UseForms(mainwindow::theMainForm(), dialogs::theProgressForm());
    dialogs::UseMainForm(mainwindow::theMainForm());
    mainwindow::Main();
    return userInterface.Run();
}
