#include "Diagnostics.h"

#include "Console.h"
#include "text.h"

#include <cstdio>
#include <string_view>

namespace tavo {

struct Diagnostics::Severity
{
    const char* word;
    const char* color;
};

const Diagnostics::Severity Diagnostics::warningSeverity = {"warning", "\x1b[1;35m"};
const Diagnostics::Severity Diagnostics::errorSeverity = {"error", "\x1b[1;31m"};

namespace {

/// How a reader reports. Its arguments are the file, the line and the text.
constexpr std::string_view readerFormat = "File '%s', Line %d: %s\n";

constexpr const char* bold = "\x1b[1m";
constexpr const char* plain = "\x1b[0m";

/// Some texts of a reader begin with the word that stands ahead of all of them here.
std::string withoutWord(const std::string& text)
{
    const std::string word = "Error: ";
    return text.substr(text.starts_with(word) ? word.size() : 0);
}

} // namespace

Diagnostics::Diagnostics(Console& console, Volume volume) : console_(console), volume_(volume) {}

void Diagnostics::message(const char* text)
{
    if (volume_ != Volume::Verbose)
        return;
    std::string_view line = text;
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    console_.write(printable(line) + "\n");
}

void Diagnostics::warning(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(warningSeverity, format, arguments);
    va_end(arguments);
}

void Diagnostics::error(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(errorSeverity, format, arguments);
    va_end(arguments);
}

void Diagnostics::report(const Severity& severity, const char* format, std::va_list arguments)
{
    if (format != readerFormat) {
        char text[messageCapacity];
        std::vsnprintf(text, sizeof text, format, arguments);
        put(severity, "tavo", text);
        return;
    }
    const std::string file = va_arg(arguments, const char*);
    const int line = va_arg(arguments, int);
    const char* text = va_arg(arguments, const char*);
    put(severity, file + ":" + std::to_string(line), withoutWord(text),
        printable(sources_.line(file, line)));
}

void Diagnostics::warnAbout(const std::string& file, const std::string& text)
{
    put(warningSeverity, file, text);
}

void Diagnostics::warnOfProgram(const std::string& text) { put(warningSeverity, "tavo", text); }

void Diagnostics::failProgram(const std::string& text) { put(errorSeverity, "tavo", text); }

void Diagnostics::put(const Severity& severity, const std::string& place, const std::string& text,
                      const std::string& sourceLine)
{
    const bool isError = &severity == &errorSeverity;
    ++(isError ? errorCount_ : warningCount_);
    if (!isError && volume_ == Volume::Quiet)
        return;
    const bool colored = console_.hasColors();
    std::string lines;
    const auto add = [&](const char* color, std::string_view part) {
        lines.append(colored ? color : "").append(part).append(":");
        lines.append(colored ? plain : "").append(" ");
    };
    add(bold, printable(place));
    add(severity.color, severity.word);
    lines.append(printable(text)).append("\n");
    if (!sourceLine.empty())
        lines.append("    ").append(sourceLine).append("\n");
    console_.write(lines);
}

} // namespace tavo
