#include "base/PhLogger.h"

#include <cstdio>

namespace tavo {

void putMessage(PhLogger* logger, const char* format, std::va_list arguments)
{
    char text[messageCapacity];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (logger)
        logger->message(text);
    else
        std::printf("-: %s", text);
}

} // namespace tavo
