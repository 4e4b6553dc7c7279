#include "Diagnostics.h"

#include "Console.h"
#include "hints.h"
#include "text.h"

#include <cstdio>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr struct
{
    const char* word;
    const char* color;
} shownSeverities[] = {{"error", "\x1b[1;31m"}, {"warning", "\x1b[1;35m"}, {"note", "\x1b[1;36m"}};

constexpr const char* hintColor = "\x1b[1;36m";
constexpr const char* caretColor = "\x1b[1;32m";
constexpr const char* bold = "\x1b[1m";
constexpr const char* plain = "\x1b[0m";

/// Some texts of a reader begin with the word that is put before all of them here.
std::string_view withoutWord(std::string_view text)
{
    constexpr std::string_view word = "Error: ";
    return text.substr(text.starts_with(word) ? word.size() : 0);
}

/// "FILE:LINE:COLUMN", as much of it as is known, or the program's name.
std::string placeOf(const Diagnostic& diagnostic, unsigned column)
{
    if (!diagnostic.file)
        return "tavo";
    std::string place = diagnostic.file;
    if (diagnostic.line > 0)
        place.append(":").append(std::to_string(diagnostic.line));
    if (column > 0)
        place.append(":").append(std::to_string(column));
    return place;
}

/// A caret under the word, and a line under the rest of it.
std::string caretLine(const Excerpt& excerpt)
{
    return std::string(excerpt.indent, ' ') + "^" + std::string(excerpt.width - 1, '~');
}

} // namespace

Diagnostics::Diagnostics(Console& console, Volume volume) : console_(console), volume_(volume) {}

void Diagnostics::inform(const std::string& text)
{
    if (volume_ != Volume::Quiet)
        console_.write(printable(text) + "\n");
}

bool Diagnostics::showsProgress() const
{
    return console_.hasStatus() && volume_ == Volume::Normal;
}

void Diagnostics::explain(const std::string& text)
{
    if (volume_ == Volume::Verbose)
        console_.write(printable(text) + "\n");
}

void Diagnostics::warning(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    reportFormatted(Severity::Warning, format, arguments);
    va_end(arguments);
}

void Diagnostics::error(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    reportFormatted(Severity::Error, format, arguments);
    va_end(arguments);
}

void Diagnostics::reportFormatted(Severity severity, const char* format, std::va_list arguments)
{
    char text[messageCapacity];
    std::vsnprintf(text, sizeof text, format, arguments);
    report({severity, nullptr, 0, text});
}

void Diagnostics::warnAbout(const std::string& file, const std::string& text)
{
    report({Severity::Warning, file.c_str(), 0, text.c_str()});
}

void Diagnostics::failAbout(const std::string& file, const std::string& text,
                            const std::string& hint)
{
    reportWithHint({Severity::Error, file.c_str(), 0, text.c_str()}, hint);
}

void Diagnostics::failProgram(const std::string& text, const std::string& hint)
{
    reportWithHint({Severity::Error, nullptr, 0, text.c_str()}, hint);
}

void Diagnostics::report(const Diagnostic& diagnostic)
{
    reportWithHint(diagnostic, diagnostic.file ? hintFor(diagnostic) : "");
}

void Diagnostics::advise(const std::string& hint)
{
    if (!findings_)
        console_.write(hintLine(hint));
    else if (!findings_->empty())
        findings_->back().hint = hint;
}

std::string Diagnostics::hintLine(const std::string& hint) const
{
    const bool colored = console_.hasColors();
    return std::string(colored ? hintColor : "") + "hint:" + (colored ? plain : "") + " " +
           printable(hint) + "\n";
}

void Diagnostics::reportWithHint(const Diagnostic& diagnostic, const std::string& hint)
{
    const bool isError = diagnostic.severity == Severity::Error;
    errorCount_ += isError;
    warningCount_ += diagnostic.severity == Severity::Warning;
    if (!isError && volume_ == Volume::Quiet)
        return;
    const Excerpt excerpt = diagnostic.file ? sources_.excerpt(diagnostic) : Excerpt();
    if (findings_) {
        findings_->push_back({diagnostic.severity, diagnostic.file ? diagnostic.file : "",
                              diagnostic.line, excerpt.column,
                              std::string(withoutWord(diagnostic.text)), hint});
        return;
    }
    const bool colored = console_.hasColors();
    std::string lines;
    const auto add = [&](const char* color, std::string_view part) {
        lines.append(colored ? color : "").append(part).append(":");
        lines.append(colored ? plain : "").append(" ");
    };
    add(bold, printable(placeOf(diagnostic, excerpt.column)));
    const auto& severity = shownSeverities[static_cast<int>(diagnostic.severity)];
    add(severity.color, severity.word);
    lines.append(printable(withoutWord(diagnostic.text))).append("\n");
    if (!excerpt.line.empty())
        lines.append("    ").append(excerpt.line).append("\n");
    if (!excerpt.line.empty() && excerpt.width > 0)
        lines.append("    ")
            .append(colored ? caretColor : "")
            .append(caretLine(excerpt))
            .append(colored ? plain : "")
            .append("\n");
    if (!hint.empty())
        lines += hintLine(hint);
    console_.write(lines);
}

Step::Step(Diagnostics& diagnostics, std::string what)
    : diagnostics_(diagnostics), what_(std::move(what)), begin_(Clock::now())
{
}

void Step::finish()
{
    const std::chrono::duration<double> time = Clock::now() - begin_;
    char seconds[40];
    std::snprintf(seconds, sizeof seconds, "%9.3f s  ", time.count());
    diagnostics_.explain(seconds + what_);
}

} // namespace tavo
