#include "Program.h"

#include "Main.h"
#include "MainForm.h"
#include "System.h"
#include "frmMain.h"
#include "frmProgress.h"

namespace program {

Program::Program(int& argc, char* argv[], platform::EventLoop* pEvents) : m_userInterface(argc, argv)
{
    platform::tSystem system;
    system.files = &m_files;
    system.shell = &m_shell;
    m_userInterface.EnterInto(system);
    if (pEvents != nullptr) {
        system.events = pEvents;
    }
    platform::UseSystem(system);
    search::UseForms(mainwindow::theMainForm(), dialogs::theProgressForm());
    dialogs::UseMainForm(mainwindow::theMainForm());
}

int Program::Run()
{
    mainwindow::Main();
    return m_userInterface.Run();
}

} // namespace program
