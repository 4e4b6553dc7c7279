#include "commandLine.h"

#include "Console.h"
#include "StandardOutput.h"
#include "commands.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <map>

namespace tavo {

namespace {

constexpr const char* programFooter = R"(Examples:
  tavo convert ecu.a2l                            writes ecu.ini
  tavo convert --jobs 4 --output-dir out *.a2l    four at a time
  tavo check ecu.a2l                              tells what is wrong with it
  tavo list ecu.a2l --match 'Eng*'                shows what can be measured

Exit codes:
  0  all is well
  1  a description is faulty, or has a warning and --werror is given
  2  the command line is wrong
  3  a file can't be read or written
Of several files, the highest code counts.

'tavo COMMAND --help' tells more about a command.)";

constexpr const char* convertFooter =
    R"(An existing file is replaced with --force only, and only once the description
was read and its configuration is complete. What a configuration can't say is
worth a warning.

Examples:
  tavo convert ecu.a2l                       writes ecu.ini
  tavo convert ecu.a2l out/engine.ini
  tavo convert --strict ecu.a2l              as the strict library does it
  tavo convert ecu.a2l - | less
  tavo convert -f -j 4 -d out *.a2l          writes out/*.ini, four at a time)";

constexpr const char* normalizeFooter =
    R"(The strict library converts what is written to the configuration that 'tavo convert'
writes of the input. What a configuration can't express is left out, with a warning.

Examples:
  tavo normalize ecu.a2l                     writes ecu.strict.a2l
  tavo normalize ecu.a2l out/ecu.a2l
  tavo normalize -f -d out *.a2l             writes out/*.strict.a2l)";

constexpr const char* checkFooter =
    R"(With --strict, a warning for each value that strict reading changes.

Examples:
  tavo check ecu.a2l
  tavo check --strict ecu.a2l
  tavo check --quiet --werror *.a2l || echo 'something is wrong')";

constexpr const char* listFooter =
    R"(In a PATTERN, * stands for any text, ? for any character and [a-z] for one of a
set; \ takes the meaning away from the character after it.

Examples:
  tavo list ecu.a2l --match 'Eng*'
  tavo list ecu.a2l --format csv > ecu.csv
  tavo list ecu.a2l --format json | jq '.measurements[] | {name, address}')";

constexpr const char* tokensFooter = R"(The tokens are those that the strict library reads.

Example:
  tavo tokens ecu.a2l | head)";

/// What the command line says.
struct Arguments
{
    bool quiet = false;
    bool verbose = false;
    ConvertOptions convert;
    ConvertOptions normalize;
    CheckOptions check;
    ListOptions list;
    std::string tokenized;

    Volume volume() const
    {
        if (quiet)
            return Volume::Quiet;
        return verbose ? Volume::Verbose : Volume::Normal;
    }
};

/// The help of a command, below usage lines of its own.
class HelpFormatter : public CLI::Formatter
{
public:
    explicit HelpFormatter(const char* usage) : usage_(usage)
    {
        column_width(26);
        label("Positionals", "Arguments");
    }

    std::string make_usage(const CLI::App*, std::string) const override { return usage_; }

    /// What an option takes, and nothing about how often.
    std::string make_option_opts(const CLI::Option* option) const override
    {
        const bool takesValue = option->nonpositional() && option->get_items_expected_max() > 0;
        return takesValue ? " " + option->get_type_name() : "";
    }

private:
    std::string usage_;
};

CLI::App* addCommand(CLI::App& app, const char* name, const char* description, const char* usage,
                     const char* footer, Arguments& arguments)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->formatter(std::make_shared<HelpFormatter>(usage));
    command->group("Commands");
    command->footer(footer);
    CLI::Option* quiet = command->add_flag("-q,--quiet", arguments.quiet, "Show errors only");
    command
        ->add_flag("-v,--verbose", arguments.verbose,
                   "Show each case of a warning, not only the first")
        ->excludes(quiet);
    return command;
}

void addDialect(CLI::App& command, Dialect& dialect)
{
    command.add_flag_callback(
        "--strict", [&dialect] { dialect = Dialect::Strict; },
        "Read exactly what the strict library reads");
}

void addWarningsAreErrors(CLI::App& command, bool& warningsAreErrors, const char* effect)
{
    command.add_flag("--werror", warningsAreErrors, effect);
}

/// What all commands take that write something of a description.
void addConversion(CLI::App& command, ConvertOptions& options, const char* outputHelp)
{
    command.add_option("INPUT", options.input, "A description")->required();
    command.add_option("OUTPUT", options.others, outputHelp);
    command.add_flag("-f,--force", options.force, "Replace existing files");
    command
        .add_option("-d,--output-dir", options.outputFolder,
                    "Write to this folder, which is made if missing")
        ->type_name("DIR");
    command.add_option("-j,--jobs", options.jobs, "Convert N descriptions at a time")
        ->type_name("N")
        ->check(CLI::Range(1, 256).description(""));
    addWarningsAreErrors(command, options.warningsAreErrors,
                         "Write nothing if there is a warning, and end with 1");
}

void addConvert(CLI::App& app, Arguments& arguments)
{
    CLI::App* command = addCommand(app, "convert", "Write the configuration of a description",
                                   "Usage: tavo convert [OPTIONS] INPUT [OUTPUT]\n"
                                   "       tavo convert [OPTIONS] --output-dir DIR INPUT...\n",
                                   convertFooter, arguments);
    ConvertOptions& options = arguments.convert;
    addConversion(*command, options, "Where its configuration goes, '-' for the standard output");
    addDialect(*command, options.dialect);
}

void addNormalize(CLI::App& app, Arguments& arguments)
{
    CLI::App* command =
        addCommand(app, "normalize", "Write a description that the strict library reads",
                   "Usage: tavo normalize [OPTIONS] INPUT [OUTPUT]\n"
                   "       tavo normalize [OPTIONS] --output-dir DIR INPUT...\n",
                   normalizeFooter, arguments);
    arguments.normalize.product = Product::StrictDescription;
    addConversion(*command, arguments.normalize,
                  "Where the strict description goes, '-' for the standard output");
}

void addCheck(CLI::App& app, Arguments& arguments)
{
    CLI::App* command = addCommand(app, "check", "Report what descriptions hold and what is wrong",
                                   "Usage: tavo check [OPTIONS] FILE...\n", checkFooter, arguments);
    command->add_option("FILE", arguments.check.files, "A description")->required();
    addDialect(*command, arguments.check.dialect);
    addWarningsAreErrors(*command, arguments.check.warningsAreErrors,
                         "End with 1 if there is a warning");
}

void addList(CLI::App& app, Arguments& arguments)
{
    static const std::map<std::string, ListFormat> formats = {
        {"table", ListFormat::Table}, {"csv", ListFormat::Csv}, {"json", ListFormat::Json}};
    CLI::App* command =
        addCommand(app, "list", "Show the interfaces, sources and measurements of a description",
                   "Usage: tavo list [OPTIONS] FILE\n", listFooter, arguments);
    command->add_option("FILE", arguments.list.file, "The description")->required();
    command
        ->add_option_function<std::string>(
            "--format",
            [&arguments](const std::string& name) { arguments.list.format = formats.at(name); },
            "table, csv or json")
        ->type_name("FORMAT")
        ->check([](const std::string& name) {
            return formats.count(name) > 0 ? "" : "'" + name + "' is not table, csv or json";
        });
    command->add_option("--match", arguments.list.pattern, "Show only names that match the pattern")
        ->type_name("PATTERN");
    addDialect(*command, arguments.list.dialect);
}

void addTokens(CLI::App& app, Arguments& arguments)
{
    addCommand(app, "tokens", "Print the tokens of a description, one a line",
               "Usage: tavo tokens [OPTIONS] FILE\n", tokensFooter, arguments)
        ->add_option("FILE", arguments.tokenized, "The description")
        ->required();
}

/// What is wrong with the command line, in the words of the program where the parser's don't fit.
Failure usageFailure(const CLI::App& app, const CLI::ParseError& error)
{
    const std::vector<CLI::App*> commands = app.get_subcommands();
    std::string reason = error.what();
    std::string help = "tavo --help";
    if (!commands.empty())
        help = "tavo " + commands.front()->get_name() + " --help";
    else if (app.remaining_size() > 0)
        reason = "There is no command '" + app.remaining().front() + "'";
    else
        reason = "A command is required";
    return {ExitCode::Usage, reason + " (see '" + help + "')"};
}

ExitCode runCommand(const CLI::App& app, const Arguments& arguments, Console& console)
{
    Diagnostics diagnostics(console, arguments.volume());
    const std::string name = app.get_subcommands().front()->get_name();
    return attempt(diagnostics, [&] {
        if (name == "convert")
            return convert(arguments.convert, diagnostics);
        if (name == "normalize")
            return convert(arguments.normalize, diagnostics);
        if (name == "check")
            return check(arguments.check, diagnostics);
        if (name == "list")
            return list(arguments.list, diagnostics);
        return printTokens(arguments.tokenized, console, arguments.volume());
    });
}

} // namespace

ExitCode runCommandLine(int argc, char** argv, Console& console)
{
    Diagnostics diagnostics(console, Volume::Normal);
    Arguments arguments;
    CLI::App app(
        "Turns ECU descriptions (ASAM MCD-2 MC, .a2l) into data-acquisition configurations.");
    app.formatter(std::make_shared<HelpFormatter>("Usage: tavo COMMAND [OPTIONS] ...\n"));
    app.footer(programFooter);
    app.set_version_flag("-V,--version", versionLine, "Show the version");
    app.set_help_flag("-h,--help", "Show this help");
    app.require_subcommand(1);
    addConvert(app, arguments);
    addNormalize(app, arguments);
    addCheck(app, arguments);
    addList(app, arguments);
    addTokens(app, arguments);
    return attempt(diagnostics, [&] {
        try {
            app.parse(argc, argv);
        } catch (const CLI::CallForHelp&) {
            const std::vector<CLI::App*> commands = app.get_subcommands();
            StandardOutput::print((commands.empty() ? &app : commands.front())->help());
            return ExitCode::AllWell;
        } catch (const CLI::CallForVersion&) {
            StandardOutput::print(versionLine);
            return ExitCode::AllWell;
        } catch (const CLI::ParseError& error) {
            throw usageFailure(app, error);
        }
        return runCommand(app, arguments, console);
    });
}

} // namespace tavo
