#include "Console.h"
#include "commandLine.h"

int main(int argc, char** argv)
{
    tavo::Console console;
    return static_cast<int>(tavo::runCommandLine(argc, argv, console));
}
