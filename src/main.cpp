#include "Program.h"

int main(int argc, char* argv[])
{
    return program::Program(argc, argv).Run();
}
