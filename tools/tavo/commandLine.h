#pragma once

#include "Failure.h"

namespace tavo {

class Console;

/// Does what the command line asks for.
ExitCode runCommandLine(int argc, char** argv, Console& console);

} // namespace tavo
