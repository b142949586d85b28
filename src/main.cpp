#include "Program.h"
#include "SessionBus.h"

int main(int argc, char* argv[])
{
    desktop::StartNoSessionBus();
    return program::Program(argc, argv).Run();
}
