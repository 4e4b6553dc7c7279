#include "commands.h"

#include "Console.h"
#include "Description.h"
#include "OutputFile.h"
#include "Selection.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "base/paths.h"
#include "normalized.h"
#include "outputName.h"
#include "platform.h"
#include "summary.h"

#include <cerrno>
#include <filesystem>
#include <set>

namespace tavo {

namespace fs = std::filesystem;

namespace {

constexpr const char* standardOutput = "-";

/// What is made of a description.
enum class Product
{
    Configuration,
    StrictDescription ///< For hosts of the strict library.
};

/// One description and where its configuration goes.
struct Conversion
{
    std::string input;
    std::string output;
};

/// The output next to the input, if no other one is asked for.
std::string besideInput(const std::string& input, Product product)
{
    return outputNextTo(input, product == Product::Configuration ? ".ini" : ".strict.a2l");
}

std::vector<Conversion> planForFolder(const Options& options, Product product)
{
    std::vector<Conversion> plan;
    std::set<fs::path> outputs;
    for (const std::string& input : options.files) {
        const fs::path output =
            pathOf(options.outputFolder) / pathOf(besideInput(input, product)).filename();
        if (!outputs.insert(output).second)
            throw Failure(ExitCode::Usage,
                          "Two descriptions would be written to " + nameOf(output));
        plan.push_back({input, nameOf(output)});
    }
    return plan;
}

/// What is to be done, by the command line. Nothing has been touched yet.
std::vector<Conversion> planOf(const Options& options, Product product)
{
    if (!options.outputFolder.empty())
        return planForFolder(options, product);
    const std::string& input = options.files.front();
    if (options.files.size() == 1)
        return {{input, besideInput(input, product)}};
    const std::string& output = options.files[1];
    // Two descriptions, from a wildcard for example, don't mean that the second one is to be
    // replaced.
    const bool isSecond = product == Product::Configuration && looksLikeDescription(output);
    if (options.files.size() > 2 || isSecond)
        throw Failure(ExitCode::Usage, "Several descriptions need an --output-dir");
    return {{input, output}};
}

/// Reports what can't be written, and throws a `Failure` if there is anything.
void checkNormalized(const std::string& file, const Inventory& inventory, Diagnostics& diagnostics)
{
    const std::vector<std::string> hindrances = hindrancesOf(inventory);
    for (const std::string& hindrance : hindrances)
        diagnostics.failAbout(file, hindrance, "");
    if (!hindrances.empty())
        throw Failure(ExitCode::DescriptionFailed,
                      file + ": Can't be written as a strict description");
}

void writeProduct(Description& description, Product product, ConfigurationStream& stream)
{
    if (product == Product::Configuration)
        description.write(stream);
    else
        writeNormalized(stream, description.inventory());
}

/// What is taken of each description.
struct Wanted
{
    explicit Wanted(const Options& options)
        : selection(options.selection),
          enabled(options.enabledPatterns, options.enabledFiles, options.selection.style)
    {
    }

    Selection selection;
    NameSet enabled;
};

ExitCode convertOne(const Conversion& conversion, const Options& options, Product product,
                    Wanted& wanted, Diagnostics& diagnostics)
{
    const bool toStandardOutput = conversion.output == standardOutput;
    if (!toStandardOutput)
        checkOutput(conversion.input, conversion.output, options.force);
    const unsigned formerWarnings = diagnostics.warningCount();
    const auto description = Description::make(conversion.input, options.dialect);
    const ExitCode exitCode = description->read(diagnostics);
    if (exitCode != ExitCode::AllWell)
        return exitCode;
    description->select(wanted.selection, wanted.enabled, diagnostics);
    description->reportLosses(diagnostics);
    if (options.warningsAreErrors && diagnostics.warningCount() > formerWarnings)
        throw Failure(ExitCode::DescriptionFailed,
                      description->file() + ": Not converted because of its warnings");
    if (product == Product::StrictDescription)
        checkNormalized(description->file(), description->inventory(), diagnostics);
    if (toStandardOutput) {
        StandardOutput output;
        writeProduct(*description, product, output.stream());
        output.finish();
        return exitCode;
    }
    Step writing(diagnostics, "wrote " + conversion.output);
    OutputFile output(conversion.output, options.force);
    writeProduct(*description, product, output.stream());
    output.commit();
    writing.finish();
    diagnostics.inform("Wrote " + conversion.output + ": " + summaryOf(description->inventory()));
    return exitCode;
}

/// The arguments of a program that does this conversion alone.
std::vector<std::string> commandOf(const Conversion& conversion, const Options& options,
                                   Product product)
{
    std::vector<std::string> words = options.words;
    words.insert(words.begin(), product == Product::Configuration ? "convert" : "normalize");
    words.insert(words.end(), {"--", conversion.input, conversion.output});
    return words;
}

/// The exit code of a conversion that ran in a process of its own.
ExitCode exitCodeOf(const Conversion& conversion, int result, Diagnostics& diagnostics)
{
    if (result >= 0)
        return static_cast<ExitCode>(result);
    diagnostics.failProgram(conversion.input + ": ended by signal " + std::to_string(-result));
    return ExitCode::Trouble;
}

void createFolder(const std::string& folder)
{
    std::error_code error;
    fs::create_directories(pathOf(folder), error);
    if (error)
        throw systemFailure(folder, error == std::errc::file_exists ? ENOTDIR : error.value());
}

ExitCode convertAll(const Options& options, Product product, Diagnostics& diagnostics)
{
    const std::vector<Conversion> plan = planOf(options, product);
    Wanted wanted(options);
    if (!options.outputFolder.empty())
        createFolder(options.outputFolder);
    const auto run = [&](const Conversion& conversion) {
        return attempt(diagnostics, [&] {
            return convertOne(conversion, options, product, wanted, diagnostics);
        });
    };
    Tally tally;
    if (options.jobs <= 1 || plan.size() == 1) {
        for (const Conversion& conversion : plan)
            tally.add(conversion.input, run(conversion));
    } else {
        diagnostics.console().disableStatus(); // Processes side by side have one line for it.
        const std::vector<int> results = runSideBySide(
            plan.size(), options.jobs,
            [&](std::size_t number) { return static_cast<int>(run(plan[number])); },
            [&](std::size_t number) { return commandOf(plan[number], options, product); });
        for (std::size_t number = 0; number < plan.size(); ++number)
            tally.add(plan[number].input, exitCodeOf(plan[number], results[number], diagnostics));
    }
    tally.report(diagnostics, "written");
    return tally.exitCode();
}

} // namespace

ExitCode convert(const Options& options, Diagnostics& diagnostics)
{
    return convertAll(options, Product::Configuration, diagnostics);
}

ExitCode normalize(const Options& options, Diagnostics& diagnostics)
{
    return convertAll(options, Product::StrictDescription, diagnostics);
}

} // namespace tavo
