// The reader as a whole: its statuses, what it leaves behind, and what it tells a logger.

#include "a2l/PhA2l.h"
#include "support/RecordingLogger.h"
#include "support/conversion.h"
#include "support/files.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace tavo;

namespace {

class PhA2lTest : public testing::Test
{
protected:
    /// Makes the file of the reader `description` and reads it.
    int read(PhA2l& reader, const std::string& description)
    {
        writeFile("d.a2l", description);
        reader.setLogger(&logger);
        return reader.readFile(&root);
    }

    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
    RecordingLogger logger;
    PhRoot root;
};

TEST_F(PhA2lTest, StatusTellsWhetherTheFileIsMissingOrWrong)
{
    PhA2l nameless(nullptr);
    PhA2l missing("missing.a2l");
    for (const auto& [reader, status] : {std::pair(&nameless, -1), {&missing, -2}}) {
        logger.text.clear();
        reader->setLogger(&logger);
        EXPECT_EQ(reader->readFile(&root), status);
        EXPECT_EQ(logger.text, "");
        EXPECT_EQ(reader->print_tokens(), status);
        EXPECT_EQ(logger.text, "message: print_tokens ()\n");
    }
    EXPECT_EQ(root.groups(), nullptr);
    PhA2l reader("d.a2l");
    EXPECT_STREQ(reader.formatName(), "ASAP2");
    EXPECT_EQ(read(reader, "ASAP2_VERSION 1 60"), 0);
    EXPECT_EQ(root.groups(), nullptr);
    EXPECT_EQ(read(reader, inModule("77")), -1);
}

TEST_F(PhA2lTest, LeavesTheFileClosed)
{
    const std::filesystem::path openFiles = "/proc/self/fd";
    if (!std::filesystem::exists(openFiles))
        GTEST_SKIP() << "no list of open files here";
    const auto count = [&] {
        const std::filesystem::directory_iterator files(openFiles);
        return std::distance(begin(files), end(files));
    };
    const auto before = count();
    PhA2l good("d.a2l");
    EXPECT_EQ(read(good, inModule("")), 0);
    EXPECT_EQ(good.print_tokens(), 0);
    PhA2l bad("d.a2l");
    EXPECT_EQ(read(bad, inModule("77")), -1);
    EXPECT_EQ(count(), before);
}

TEST_F(PhA2lTest, CutsOnlyTheTextOfAMessageForALoggerAndKeepsTheStandardOutputSilent)
{
    const std::string name(600, 'n');
    PhA2l reader("d.a2l");
    testing::internal::CaptureStdout();
    read(reader, inModule(name));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(logger.text, "error: File 'd.a2l', Line 3: " +
                               ("Unexpected token '" + name).substr(0, 499) + "\n");
}

} // namespace
