#include "commands.h"

#include "Description.h"
#include "Diagnostics.h"
#include "OutputFile.h"
#include "StandardOutput.h"
#include "base/paths.h"
#include "differences.h"
#include "outputName.h"
#include "pageData.h"
#include "pageFrame.h"
#include "renderDifferences.h"
#include "summary.h"

#include <filesystem>
#include <optional>

namespace tavo {

namespace fs = std::filesystem;

namespace {

constexpr const char* standardOutput = "-";

/// What is read and where the page goes, by the command line.
struct PagePlan
{
    std::string former; ///< The older description, "" if there is none.
    std::string input;
    std::string output;
};

/// Whether an argument is the name of a page, and not that of a description.
bool isPageName(const std::string& path)
{
    const std::string extension = nameOf(pathOf(path).extension());
    return path == standardOutput || extension == ".html" || extension == ".htm";
}

PagePlan planOf(const Options& options)
{
    std::vector<std::string> files = options.files;
    PagePlan plan;
    if (files.size() > 1 && isPageName(files.back())) {
        plan.output = files.back();
        files.pop_back();
    }
    if (files.size() > 2)
        throw Failure(ExitCode::Usage, files.back() + ": is no name of a page (.html)");
    plan.input = files.back();
    if (files.size() == 2)
        plan.former = files.front();
    if (plan.output.empty())
        plan.output = outputNextTo(plan.input, ".html");
    return plan;
}

/// Null if the description is faulty.
std::unique_ptr<Description> readOne(const std::string& file, const Options& options,
                                     Diagnostics& diagnostics)
{
    auto description = Description::make(file, options.dialect);
    return description->read(diagnostics) == ExitCode::AllWell ? std::move(description) : nullptr;
}

std::string titleOf(const std::string& file) { return nameOf(pathOf(file).filename()); }

void writePage(ConfigurationStream& stream, Description& description,
               const PageComparison* comparison)
{
    const PageFrame frame = pageFrame();
    for (const std::string_view piece : frame.before)
        stream.put(piece);
    writePageData(stream, description.inventory(), titleOf(description.file()), comparison);
    for (const std::string_view piece : frame.after)
        stream.put(piece);
}

} // namespace

ExitCode page(const Options& options, Diagnostics& diagnostics)
{
    const PagePlan plan = planOf(options);
    const bool toStandardOutput = plan.output == standardOutput;
    for (const std::string& input : {plan.input, plan.former})
        if (!toStandardOutput && !input.empty())
            checkOutput(input, plan.output, options.force);
    std::unique_ptr<Description> former;
    if (!plan.former.empty() && !(former = readOne(plan.former, options, diagnostics)))
        return ExitCode::DescriptionFailed;
    const auto description = readOne(plan.input, options, diagnostics);
    if (!description)
        return ExitCode::DescriptionFailed;
    std::optional<Differences> differences;
    const std::string formerTitle = titleOf(plan.former);
    if (former) {
        Step comparing(diagnostics, "compared");
        differences.emplace(former->inventory(), description->inventory());
        comparing.finish();
    }
    std::optional<PageComparison> comparison;
    if (differences)
        comparison.emplace(PageComparison{*differences, formerTitle});
    const PageComparison* const shown = comparison ? &*comparison : nullptr;
    if (toStandardOutput) {
        StandardOutput output;
        writePage(output.stream(), *description, shown);
        output.finish();
        return ExitCode::AllWell;
    }
    Step writing(diagnostics, "wrote " + plan.output);
    OutputFile output(plan.output, options.force);
    writePage(output.stream(), *description, shown);
    output.commit();
    writing.finish();
    diagnostics.inform(
        "Wrote " + plan.output + ": " +
        (differences ? summaryOf(*differences, allChanges) : summaryOf(description->inventory())));
    return ExitCode::AllWell;
}

} // namespace tavo
