#include "base/InputFile.h"

#include "support/files.h"

#include <cerrno>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace tavo;

namespace {

std::string readUpTo(InputFile& file, std::size_t size)
{
    std::string bytes(size, '\0');
    bytes.resize(file.read(bytes.data(), size));
    return bytes;
}

} // namespace

TEST(InputFile, givesTheBytesOfAFileInPieces)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("bytes");
    writeFile(path, "one\r\n\x1Atwo");
    InputFile file;
    ASSERT_TRUE(file.open(path.c_str()));
    EXPECT_EQ(file.size(), 9U);
    EXPECT_EQ(readUpTo(file, 5), "one\r\n");
    EXPECT_EQ(readUpTo(file, 100), "\x1Atwo");
    std::ofstream(path, std::ios::app) << "more";
    EXPECT_EQ(readUpTo(file, 100), "") << "a file that has ended stays so";
    EXPECT_EQ(file.error(), 0);
}

TEST(InputFile, fillsABlockFromAPipe)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    std::thread writer([&] {
        std::ofstream pipe(path);
        for (const char byte : std::string("bytes"))
            pipe << byte << std::flush;
    });
    InputFile file;
    const bool isOpen = file.open(path.c_str());
    writer.join(); // the pipe keeps so few bytes
    ASSERT_TRUE(isOpen);
    EXPECT_EQ(file.size(), 0U);
    EXPECT_EQ(readUpTo(file, 4), "byte");
    EXPECT_EQ(readUpTo(file, 4), "s");
    EXPECT_EQ(file.error(), 0);
}

TEST(InputFile, tellsWhatEndedItUntilTheNextOne)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("bytes");
    writeFile(path, "bytes");
    InputFile file;
    EXPECT_FALSE(file.open(folder.path("none").c_str()));
    EXPECT_EQ(errno, ENOENT);
    ASSERT_TRUE(file.open(folder.path("").c_str()));
    EXPECT_EQ(file.size(), 0U) << "a folder has no bytes to read";
    EXPECT_EQ(readUpTo(file, 4), "");
    file.close();
    EXPECT_EQ(file.error(), EISDIR);
    ASSERT_TRUE(file.open(path.c_str()));
    EXPECT_EQ(readUpTo(file, 100), "bytes");
    EXPECT_EQ(file.error(), 0);
}
