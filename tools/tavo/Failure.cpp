#include "Failure.h"

#include <system_error>

namespace tavo {

Failure systemFailure(const std::string& what, int number)
{
    return {ExitCode::Trouble, what + ": " + std::generic_category().message(number)};
}

} // namespace tavo
