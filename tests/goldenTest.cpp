// Golden descriptions: each `NAME.a2l` in `golden/` is converted, and what the host sees is
// compared byte for byte with `NAME.report` (the standard output) and `NAME.ini` (the file written;
// there is none where the reading failed). The name tells the outcome: `ok-` or `bad-`.
//
// A series is a file of many texts, each behind a line `==== TITLE`. What comes of them stands in
// the file with `.expected` added to its name, behind the same titles: of `NAME.messages` the
// diagnostics, of `NAME.tokens` the tokens, of `NAME.model` what a reader leaves in the model, of
// `NAME.log` what a verbose one tells. What stands ahead of the first title tells what the series
// is about; a line
// `++++ ENDING` in it is an ending, and each text is then taken once with each of the endings
// behind it.
//
// With TAVO_REWRITE_GOLDEN set in the environment the expectations are rewritten instead.

#include "daq/writer.h"
#include "support/conversion.h"
#include "support/files.h"
#include "support/reading.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;

/// The names of the golden files with one of these extensions.
std::vector<std::string> goldenFiles(std::initializer_list<std::string> extensions)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(TAVO_GOLDEN_FOLDER))
        if (std::ranges::count(extensions, entry.path().extension().string()) > 0)
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
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

class Golden : public testing::TestWithParam<std::string>
{
};

TEST_P(Golden, givesTheExpectedReportAndConfiguration)
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

INSTANTIATE_TEST_SUITE_P(Descriptions, Golden, testing::ValuesIn(goldenFiles({".a2l"})), testName);

/// What the reading of a description tells. It fails if there is an error, and else it doesn't.
std::string messagesOf(const std::string& description)
{
    const Conversion conversion = convertText(description);
    const std::string messages = diagnostics(conversion);
    const bool failed = messages.find("-: Error") != std::string::npos;
    EXPECT_EQ(conversion.result, failed ? TAVO_NOT_READ : TAVO_OK) << description;
    return messages;
}

/// Puts the result of each text of a series behind its title.
template <class Result> std::string resultsOf(const std::string& series, Result result)
{
    const std::string mark = "\n==== ";
    std::size_t title = series.find(mark);
    std::vector<std::string> endings;
    std::istringstream head(series.substr(0, title));
    for (std::string line; std::getline(head, line);)
        if (line.starts_with("++++ "))
            endings.push_back(line.substr(5));

    std::string results;
    while (title != std::string::npos) {
        const std::size_t text = series.find('\n', title + 1);
        const std::size_t next = series.find(mark, text);
        const std::size_t end = next == std::string::npos ? series.size() - 1 : next;
        results += series.substr(title + 1, text - title);
        const std::string body = text < end ? series.substr(text + 1, end - text - 1) : "";
        if (endings.empty())
            results += result(body);
        for (const std::string& ending : endings)
            results += ending + " gives " + result(body + "\n" + ending);
        title = next;
    }
    return results;
}

class Series : public testing::TestWithParam<std::string>
{
};

TEST_P(Series, givesTheExpectedResults)
{
    const std::string path = TAVO_GOLDEN_FOLDER + ("/" + GetParam());
    const std::map<std::string, std::string (*)(const std::string&)> kinds = {
        {".messages", messagesOf},
        {".tokens", [](const std::string& text) { return tokensOf(text) + "\n"; }},
        {".model", [](const std::string& text) { return modelOf(text, Names::AsRead); }},
        {".resolved", [](const std::string& text) { return modelOf(text, Names::Resolved); }},
        {".log", [](const std::string& text) { return logOf(text); }}};
    const std::string results = resultsOf(readFile(path), kinds.at(fs::path(path).extension()));
    if (std::getenv("TAVO_REWRITE_GOLDEN"))
        writeFile(path + ".expected", results);
    else
        EXPECT_EQ(results, readFile(path + ".expected"));
}

INSTANTIATE_TEST_SUITE_P(Texts, Series,
                         testing::ValuesIn(goldenFiles({".messages", ".tokens", ".model", ".resolved", ".log"})),
                         testName);

TEST(Example, convertsToTheConfigurationBesideIt)
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
