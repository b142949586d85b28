#include "Program.h"
#include "SessionBus.h"

#include <csignal>

int main(int argc, char* argv[])
{
    // A file that may not grow any further is a failed write like any other, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    desktop::StartNoSessionBus();
    return program::Program(argc, argv).Run();
}
