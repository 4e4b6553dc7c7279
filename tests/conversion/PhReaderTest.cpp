#include "conversion/PhReader.h"

#include "support/RecordingLogger.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace tavo;

namespace {

class NullReader : public PhReader
{
public:
    using PhReader::PhReader;
    const char* formatName() const override { return "null"; }
    int readFile(PhRoot*) override { return 0; }
};

/// The longest text that a message buffer holds, and one more byte.
const std::string longest(499, 'x');
const std::string tooLong(500, 'x');

std::string printed(const std::function<void()>& call)
{
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

/// A reader and a root put messages out in the same way.
template <class Source> void expectMessages(Source& source)
{
    EXPECT_EQ(printed([&] { source.log("%s=%d\n", "n", 7); }), "-: n=7\n");
    EXPECT_EQ(printed([&] { source.log("%s", longest.c_str()); }), "-: " + longest);
    EXPECT_EQ(printed([&] { source.log("%s", tooLong.c_str()); }), "-: " + longest);

    RecordingLogger logger;
    source.setLogger(&logger);
    EXPECT_EQ(printed([&] { source.log("%s=%d\n", "n", 7); }), "");
    EXPECT_EQ(logger.text, "message: n=7\n");
    source.setLogger(nullptr);
}

TEST(PhReader, putsMessagesOutThroughTheLoggerOrTheStandardOutput)
{
    NullReader reader("f");
    expectMessages(reader);
    PhRoot root;
    expectMessages(root);
}

TEST(PhReader, keepsACopyOfTheFileName)
{
    std::string name = "first";
    NullReader reader(name.c_str());
    name = "other";
    EXPECT_STREQ(reader.fileName(), "first");
    reader.setFileName(nullptr);
    EXPECT_EQ(reader.fileName(), nullptr);
    reader.setFileName("second");
    EXPECT_STREQ(reader.fileName(), "second");
}

} // namespace
