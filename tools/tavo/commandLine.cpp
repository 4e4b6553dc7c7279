#include "commandLine.h"

#include "Console.h"
#include "StandardOutput.h"
#include "arguments.h"
#include "commands.h"
#include "help.h"
#include "optionTable.h"
#include "version.h"

namespace tavo {

ExitCode runCommandLine(int argc, char** argv, Console& console)
{
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    Diagnostics diagnostics(console, Volume::Normal);
    return attempt(diagnostics, [&] {
        Request request;
        try {
            readArguments(words, request);
        } catch (const Failure&) {
            console.chooseColors(request.options.colors);
            throw;
        }
        console.chooseColors(request.options.colors);
        if (request.kind == Request::Kind::Help)
            StandardOutput::print(helpOf(request.command));
        else if (request.kind == Request::Kind::Version)
            StandardOutput::print(versionLine);
        if (request.kind != Request::Kind::Run)
            return ExitCode::AllWell;
        Diagnostics ofCommand(console, request.options.volume);
        return attempt(ofCommand, [&] { return request.command->run(request.options, ofCommand); });
    });
}

} // namespace tavo
