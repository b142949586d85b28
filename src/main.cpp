// SPDX-License-Identifier: MIT
#include "OperationThread.h"
#include "Program.h"
#include "SessionBus.h"

#include <csignal>
#include <cstdio>
#include <unistd.h>

int main(int argc, char* argv[])
{
    // A file that may not grow any further is a failed write like any other, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    // Nor is somebody who opens a file that a lease is being asked for.
    std::signal(SIGIO, SIG_IGN);
    desktop::StartNoSessionBus();
    program::Program program(argc, argv);
    const int nResult = program.Run();
    // A thread that a file system holds goes on using what would be taken down now.
    if (desktop::ThreadsLeftBehind() > 0) {
        std::fflush(nullptr);
        _exit(nResult);
    }
    return nResult;
}
