// SPDX-License-Identifier: MIT
#include "System.h"

#include <cassert>

namespace platform {
namespace {

tSystem g_system;

template <typename T>
T& InPlace(T* part)
{
    assert(part != nullptr && "UseSystem comes first");
    return *part;
}

} // namespace

void UseSystem(const tSystem& system)
{
    g_system = system;
}

FileSystem& Files()
{
    return InPlace(g_system.files);
}

EventLoop& Events()
{
    return InPlace(g_system.events);
}

Screen& TheScreen()
{
    return InPlace(g_system.screen);
}

MessageBoxes& Messages()
{
    return InPlace(g_system.messages);
}

WindowManager& Windows()
{
    return InPlace(g_system.windows);
}

ShellDialogs& Shell()
{
    return InPlace(g_system.shell);
}

ShellFiles& TheShellFiles()
{
    return InPlace(g_system.shellFiles);
}

Launcher& TheLauncher()
{
    return InPlace(g_system.launcher);
}

FileDialogs& TheFileDialogs()
{
    return InPlace(g_system.fileDialogs);
}

TextFiles& TheTextFiles()
{
    return InPlace(g_system.textFiles);
}

Volumes& TheVolumes()
{
    return InPlace(g_system.volumes);
}

void DoEvents(std::int64_t nSteps)
{
    Events().DoEvents(nSteps);
}

} // namespace platform
