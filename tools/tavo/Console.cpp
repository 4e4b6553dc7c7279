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

} // namespace

Console::Console()
    : hasStatus_(isTerminal(stderr) && variable("TERM") != "dumb" && variable("TERM") != "")
{
    hasColors_ = hasStatus_ && variable("NO_COLOR").empty();
}

Console::~Console() { setStatus(""); }

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
