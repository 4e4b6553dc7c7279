#pragma once

#include "base/PhLogger.h"

#include <cstdarg>
#include <cstdio>
#include <string>

/// Keeps what reaches it, each text after the name of the operation.
class RecordingLogger : public tavo::PhLogger
{
public:
    std::string text;

    void reserved() override { text += "reserved\n"; }
    void message(const char* message) override { text.append("message: ").append(message); }
    void warning(const char* format, ...) override
    {
        std::va_list arguments;
        va_start(arguments, format);
        add("warning: ", format, arguments);
        va_end(arguments);
    }
    void error(const char* format, ...) override
    {
        std::va_list arguments;
        va_start(arguments, format);
        add("error: ", format, arguments);
        va_end(arguments);
    }

private:
    void add(const char* kind, const char* format, std::va_list arguments)
    {
        char buffer[2000];
        std::vsnprintf(buffer, sizeof buffer, format, arguments);
        text.append(kind).append(buffer);
    }
};
