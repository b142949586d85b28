// SPDX-License-Identifier: MIT
#include "AskAside.h"
#include "OperationThread.h"
#include "Program.h"
#include "SessionBus.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>
#include <unistd.h>

namespace {

/// True if a display is configured. Without one the toolkit would abort.
bool HasDisplay(std::span<char* const> arguments)
{
    const auto isSet = [](const char* pName) {
        const char* const pValue = std::getenv(pName);
        return pValue != nullptr && *pValue != '\0';
    };
    const auto isPlatform = [](std::string_view sArgument) { return sArgument.ends_with("-platform"); };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM") ||
           std::any_of(arguments.begin(), arguments.end(), isPlatform);
}

} // namespace

int main(int argc, char* argv[])
{
    if (!HasDisplay({argv, static_cast<std::size_t>(argc)})) {
        std::fputs("tallyfen: there is no display for its window.\n", stderr);
        return EXIT_FAILURE;
    }
    // Writing beyond the file size limit then fails like any other write, instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    // The signal for a broken lease must not end the program, either.
    std::signal(SIGIO, SIG_IGN);
    desktop::StartNoSessionBus();
    program::Program program(argc, argv);
    const int nResult = program.Run();
    // A thread stuck in a file system call still uses what a normal exit would destroy.
    if (desktop::ThreadsLeftBehind() > 0 || desktop::ThreadsAside() > 0) {
        std::fflush(nullptr);
        _exit(nResult);
    }
    return nResult;
}
