#pragma once

#include <string>

namespace tavo {

struct CommandRow;

/// The help of a command, or of the program if it is null.
std::string helpOf(const CommandRow* command);

} // namespace tavo
