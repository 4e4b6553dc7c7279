#include "conversion/entry.h"

namespace tavo {

void makeExceptionsPresent() noexcept
{
    // Asks for what the runtime keeps of each thread's exceptions, which makes it.
    const volatile int count = std::uncaught_exceptions();
    static_cast<void>(count);
}

namespace {

/// For the thread that loads the library.
[[maybe_unused]] const bool present = (makeExceptionsPresent(), true);

} // namespace

} // namespace tavo
