#include "commands.h"

#include "Description.h"
#include "Input.h"
#include "StandardOutput.h"
#include "a2l/PhA2l.h"

namespace tavo {

namespace {

/// Sends what the reader logs, the tokens, to the standard output as it is.
class TokenPrinter : public Diagnostics
{
public:
    using Diagnostics::Diagnostics;

    void message(const char* text) override;
    void finish() { output_.finish(); }

private:
    StandardOutput output_;
    bool isInTokens_ = false;
};

/// A token comes in pieces, of which the line end is the last. The first line is a heading, and the
/// last token, the only one without quotes that is a word, stands for the end of the file.
void TokenPrinter::message(const char* text)
{
    const std::string_view piece = text;
    if (isInTokens_ && piece != "EOF")
        output_.stream().put(piece);
    isInTokens_ = piece != "EOF";
}

} // namespace

ExitCode printTokens(const Options& options, Diagnostics& diagnostics)
{
    TokenPrinter printer(diagnostics.console(), options.volume);
    const std::shared_ptr<const Input> input = Input::open(options.files.front(), printer);
    printer.setSource(input, LineEnds::LineFeed);
    if (!isReadable(*input, Dialect::Strict, printer))
        return ExitCode::DescriptionFailed;
    runStrictReader(*input, printer, [](PhA2l& reader) { return reader.print_tokens(); });
    printer.finish();
    return printer.errorCount() == 0 ? ExitCode::AllWell : ExitCode::DescriptionFailed;
}

} // namespace tavo
