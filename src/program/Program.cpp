// SPDX-License-Identifier: MIT
#include "Program.h"

#include "Main.h"

namespace program {

Program::Program(int& argc, char* argv[], const std::function<void(platform::tSystem&)>& replace)
    : m_userInterface(argc, argv)
{
    search::UseForms(m_mainForm, m_progressForm);
    platform::tSystem system = m_userInterface.System();
    if (replace) {
        replace(system);
    }
    platform::UseSystem(system);
    platform::System().shellFiles->UseGroups(m_mainForm);
}

int Program::Run()
{
    mainwindow::Main();
    return m_userInterface.Run();
}

} // namespace program
