// Golden descriptions: each `NAME.a2l` in `golden/` is converted, and what the host sees is
// compared byte for byte with `NAME.report` (the standard output) and `NAME.ini` (the file written;
// there is none where the reading failed). The name says what happens: `ok-` or `bad-`.
//
// A series is a file of many texts, each after a line `==== TITLE`. The results are in the file
// with `.expected` added to its name, after the same titles: of `NAME.messages` the diagnostics,
// of `NAME.tokens` the tokens, of `NAME.model` what the reader leaves in the model, of
// `NAME.resolved` what the resolution of names makes of that, of `NAME.log` what a verbose
// reader reports, and of `NAME.wide` what the wide reader makes of it, which is the body of a
// MODULE unless there is a PROJECT in it. The text before the first title says what the series
// is about. A line `++++ ENDING` in it is an ending: each text is then taken once with each of
// the endings after it.
//
// With TAVO_REWRITE_GOLDEN set in the environment the expectations are rewritten instead.

#include "daq/writer.h"
#include "support/conversion.h"
#include "support/files.h"
#include "support/reading.h"
#include "support/series.h"
#include "support/wide.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;

/// What the reader reports of a description. It fails if and only if there is an error.
std::string messagesOf(const std::string& description)
{
    const Conversion conversion = convertText(description);
    const std::string messages = diagnostics(conversion);
    const bool failed = messages.find("-: Error") != std::string::npos;
    EXPECT_EQ(conversion.result, failed ? TAVO_NOT_READ : TAVO_OK) << description;
    return messages;
}

/// What the wide reader makes of a description: its messages, the configuration with a line for
/// each section, and what else is in the inventory.
std::string wideOf(const std::string& text)
{
    const WideReading reading = readWide(wideDescription(text));
    std::string result;
    for (const std::string& message : reading.messages)
        result += message + "\n";
    const std::size_t errors = static_cast<std::size_t>(
        std::ranges::count_if(reading.messages, [](const std::string& message) {
            return message.find(": Error: ") != std::string::npos;
        }));
    EXPECT_EQ(errors, reading.status == 0 ? 0U : 1U) << text;
    std::istringstream lines(reading.configuration);
    for (std::string line; std::getline(lines, line);)
        result += line.empty() ? "" : (line[0] == '[' ? "\n" : " ") + line;
    return result + "\n" + reading.more;
}

/// What is made of each text of a series, by the extension of its file.
const std::map<std::string, std::string (*)(const std::string& text)> seriesKinds = {
    {".messages", [](const std::string& text) { return messagesOf(text); }},
    {".tokens", [](const std::string& text) { return tokensOf(text) + "\n"; }},
    {".model", [](const std::string& text) { return modelOf(text, Names::AsRead); }},
    {".resolved", [](const std::string& text) { return modelOf(text, Names::Resolved); }},
    {".log", [](const std::string& text) { return logOf(text); }},
    {".wide", [](const std::string& text) { return wideOf(text); }},
};

/// The names of the golden files for whose extension `isWanted` holds.
template <class Condition> std::vector<std::string> goldenFiles(Condition isWanted)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(TAVO_GOLDEN_FOLDER))
        if (isWanted(entry.path().extension()))
            names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

std::string testName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '-' || c == '.'; }, '_');
    return name;
}

void rewrite(const fs::path& base, const Conversion& conversion)
{
    writeFile(base.string() + ".report", conversion.report);
    if (conversion.output)
        writeFile(base.string() + ".ini", *conversion.output);
    else
        fs::remove(base.string() + ".ini");
}

class GoldenTest : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenTest, GivesTheExpectedReportAndConfiguration)
{
    const fs::path base = fs::path(TAVO_GOLDEN_FOLDER) / fs::path(GetParam()).stem();
    const TemporaryFolder folder;
    const std::string output = folder.path("output.ini");
    // The report names the file as the host does: without the folder it is the same everywhere.
    const CurrentFolder current(TAVO_GOLDEN_FOLDER);
    tavo::daqSourceIndex = 0;
    const Conversion conversion = convertFile(GetParam(), output);
    if (std::getenv("TAVO_REWRITE_GOLDEN")) {
        rewrite(base, conversion);
        return;
    }
    const bool good = GetParam().starts_with("ok-");
    EXPECT_EQ(conversion.result, good ? TAVO_OK : TAVO_NOT_READ);
    EXPECT_EQ(conversion.report, readFile(base.string() + ".report"));
    ASSERT_EQ(conversion.output.has_value(), good);
    if (good) {
        EXPECT_EQ(*conversion.output, readFile(base.string() + ".ini"));
    }
}

const auto descriptions = goldenFiles([](const std::string& type) { return type == ".a2l"; });
INSTANTIATE_TEST_SUITE_P(Descriptions, GoldenTest, testing::ValuesIn(descriptions), testName);

/// Puts the result of each text of a series after its title.
template <class Result> std::string resultsOf(const std::string& texts, Result result)
{
    std::string results;
    for (const SeriesText& text : seriesTexts(texts)) {
        results += "==== " + text.title + "\n";
        if (text.endings.empty())
            results += result(text.body);
        for (const std::string& ending : text.endings)
            results += ending + " gives " + result(text.body + "\n" + ending);
    }
    return results;
}

class GoldenSeriesTest : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenSeriesTest, GivesTheExpectedResults)
{
    const fs::path path = fs::path(TAVO_GOLDEN_FOLDER) / GetParam();
    const std::string results = resultsOf(readFile(path), seriesKinds.at(path.extension()));
    ASSERT_NE(results, "");
    if (std::getenv("TAVO_REWRITE_GOLDEN"))
        writeFile(path.string() + ".expected", results);
    else
        EXPECT_EQ(results, readFile(path.string() + ".expected"));
}

const auto series = goldenFiles([](const auto& type) { return seriesKinds.contains(type); });
INSTANTIATE_TEST_SUITE_P(Texts, GoldenSeriesTest, testing::ValuesIn(series), testName);

TEST(ExampleTest, ConvertsToTheConfigurationBesideIt)
{
    const fs::path examples = TAVO_EXAMPLES_FOLDER;
    const TemporaryFolder folder;
    tavo::daqSourceIndex = 0;
    const Conversion conversion =
        convertFile((examples / "engine.a2l").string(), folder.path("engine.ini"));
    if (std::getenv("TAVO_REWRITE_GOLDEN")) {
        writeFile(examples / "engine.ini", conversion.output.value());
        return;
    }
    EXPECT_EQ(conversion.result, TAVO_OK);
    EXPECT_EQ(diagnostics(conversion), "");
    EXPECT_EQ(conversion.output, readFile(examples / "engine.ini"));
}

} // namespace
