#include "support/conversion.h"

#include "support/files.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

constexpr std::string_view statusText = "ph_reader->readFile () -> ";

} // namespace

Conversion convertFile(const std::string& input, const std::string& output)
{
    Conversion conversion;
    testing::internal::CaptureStdout();
    conversion.result = tavoConvert(input.c_str(), output.c_str());
    conversion.report = testing::internal::GetCapturedStdout();
    if (std::filesystem::exists(output))
        conversion.output = readFile(output);
    return conversion;
}

Conversion convertText(std::string_view description)
{
    const TemporaryFolder folder;
    const CurrentFolder current(folder.path(""));
    writeFile("d.a2l", description);
    return convertFile("d.a2l", "d.ini");
}

std::string inModule(std::string_view body)
{
    return "/begin PROJECT p \"\"\n/begin MODULE m \"\"\n" + std::string(body) +
           "\n/end MODULE\n/end PROJECT\n";
}

std::string withMeasurement(std::string_view options)
{
    return inModule("/begin MEASUREMENT n \"d\" UWORD c 0 0 0 100\n" + std::string(options) +
                    "\n/end MEASUREMENT");
}

std::string diagnostics(const Conversion& conversion)
{
    const std::size_t status = conversion.report.find(statusText);
    EXPECT_NE(status, std::string::npos) << conversion.report;
    EXPECT_EQ(conversion.report.substr(0, 1), "\n");
    return conversion.report.substr(1, status - 1);
}
