#include "Console.h"

#include "platform.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tavo {

namespace {

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

constexpr const char* wipeLine = "\r\x1b[K";

bool isCapable(std::FILE* file)
{
    return isTerminal(file) && variable("TERM") != "dumb" && variable("TERM") != "";
}

} // namespace

Console::Console() : hasStatus_(isCapable(stderr)) {}

Console::~Console() { setStatus(""); }

bool Console::hasColors(std::FILE* file) const
{
    if (choice_ != ColorChoice::Auto)
        return choice_ == ColorChoice::Always;
    if (!variable("NO_COLOR").empty())
        return false;
    const std::string_view force = variable("CLICOLOR_FORCE");
    return (!force.empty() && force != "0") || isCapable(file);
}

void Console::write(const std::string& lines)
{
    const std::string text = (statusShown_ ? wipeLine : "") + lines;
    std::fwrite(text.data(), 1, text.size(), stderr);
    statusShown_ = false;
}

void Console::setStatus(const std::string& line)
{
    if (!hasStatus_ || (line.empty() && !statusShown_))
        return;
    write(line);
    statusShown_ = !line.empty();
}

} // namespace tavo
