// SPDX-License-Identifier: MIT
#include "Program.h"

#include "Main.h"
#include "MainForm.h"
#include "frmMain.h"
#include "frmProgress.h"

namespace program {

Program::Program(int& argc, char* argv[], const std::function<void(platform::tSystem&)>& replace)
    : m_userInterface(argc, argv)
{
    platform::tSystem system = m_userInterface.System();
    if (replace) {
        replace(system);
    }
    platform::UseSystem(system);
    platform::TheShellFiles().UseGroups(mainwindow::theMainForm());
    search::UseForms(mainwindow::theMainForm(), dialogs::theProgressForm());
    dialogs::UseMainForm(mainwindow::theMainForm());
}

int Program::Run()
{
    mainwindow::Main();
    return m_userInterface.Run();
}

} // namespace program
