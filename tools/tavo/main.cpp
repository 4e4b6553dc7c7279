#include "Console.h"
#include "commandLine.h"
#include "platform.h"

int main(int argc, char** argv)
{
    tavo::prepareProcess();
    tavo::Console console;
    return static_cast<int>(tavo::runCommandLine(argc, argv, console));
}
