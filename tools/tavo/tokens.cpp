#include "commands.h"

#include "Description.h"
#include "StandardOutput.h"
#include "a2l/PhA2l.h"

namespace tavo {

namespace {

/// Sends what the reader logs, the tokens, to the standard output as it is.
class TokenPrinter : public Diagnostics
{
public:
    using Diagnostics::Diagnostics;

    void message(const char* text) override { output_.stream().put(text); }
    void finish() { output_.finish(); }

private:
    StandardOutput output_;
};

} // namespace

ExitCode printTokens(const std::string& file, Console& console, Volume volume)
{
    TokenPrinter printer(console, volume);
    runReader(file, printer, [](PhA2l& reader) { return reader.print_tokens(); });
    printer.finish();
    return printer.errorCount() == 0 ? ExitCode::AllWell : ExitCode::DescriptionFailed;
}

} // namespace tavo
