#include "conversion/PhReader.h"

#include "support/RecordingLogger.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

class NullReader : public PhReader
{
public:
    using PhReader::PhReader;
    const char* formatName() const override { return "null"; }
    int readFile(PhRoot*) override { return 0; }
};

/// A reader and a root put messages out in the same way.
template <class Source> void expectMessages(Source& source)
{
    const std::string longest(499, 'x'); // that a message buffer holds
    RecordingLogger logger;
    testing::internal::CaptureStdout();
    source.log("%s=%d\n", "n", 7);
    source.log("%s", longest.c_str());
    source.log("%s", (longest + "x").c_str());
    source.setLogger(&logger);
    source.log("%s=%d\n", "n", 7);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "-: n=7\n-: " + longest + "-: " + longest);
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
}

} // namespace
