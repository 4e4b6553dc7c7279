// Golden descriptions: each `NAME.a2l` in `golden/` is converted, and what the host sees is
// compared byte for byte with `NAME.report` (the standard output) and `NAME.ini` (the file written;
// there is none where the reading failed). The name tells the outcome: `ok-` or `bad-`.
//
// With TAVO_REWRITE_GOLDEN set in the environment the expectations are rewritten instead.

#include "daq/writer.h"
#include "support/conversion.h"
#include "support/files.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> goldenNames(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".a2l")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
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
    const fs::path base = fs::path(TAVO_GOLDEN_FOLDER) / GetParam();
    const TemporaryFolder folder;
    const std::string output = folder.path("output.ini");
    // The report names the file as the host does: without the folder it is the same everywhere.
    const CurrentFolder current(TAVO_GOLDEN_FOLDER);
    tavo::daqSourceIndex = 0;
    const Conversion conversion = convertFile(GetParam() + ".a2l", output);
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

std::string testName(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Descriptions, Golden, testing::ValuesIn(goldenNames(TAVO_GOLDEN_FOLDER)),
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
