// Descriptions that choose a depth or a size to do harm with. None may exceed a small stack, take
// quadratic time, or need more memory than a small multiple of what stays in the model.

#include "Host.h"
#include "equalHashes.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

#if defined(TAVO_SANITIZED)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

/// How many blocks a description has, and how many characters a token. The sanitizers make all ten
/// times slower and need memory of their own.
constexpr long million = sanitized ? 100'000 : 1'000'000;
constexpr long characters = 100 * million;

void repeat(std::FILE* file, long count, std::string_view text)
{
    constexpr long atOnce = 1000;
    std::string block;
    for (long i = 0; i < atOnce; ++i)
        block += text;
    for (; count > 0; count -= atOnce)
        std::fwrite(block.data(), text.size(), static_cast<std::size_t>(std::min(count, atOnce)),
                    file);
}

void measurement(std::FILE* file, const char* name, const std::string& conversion)
{
    std::fprintf(file, "/begin MEASUREMENT %s \"\" UWORD %s 0 0 0 1 /end MEASUREMENT\n", name,
                 conversion.c_str());
}

void method(std::FILE* file, const std::string& name, const std::string& referred)
{
    std::fprintf(file,
                 "/begin COMPU_METHOD %s \"\" RAT_FUNC \"\" \"u\" COEFFS 0 1 0 0 0 1 "
                 "COMPU_TAB_REF %s /end COMPU_METHOD\n",
                 name.c_str(), referred.c_str());
}

std::string numbered(long number) { return std::string("c").append(std::to_string(number)); }

/// Conversions 0 to `count` - 1, each of which refers to the next one.
void chain(std::FILE* file, long count)
{
    for (long i = 0; i < count; ++i)
        method(file, numbered(i), numbered(i + 1));
}

void chainForwards(std::FILE* file)
{
    measurement(file, "n", numbered(0));
    chain(file, million);
}

void chainBackwards(std::FILE* file)
{
    for (long i = million; i > 0; --i)
        method(file, numbered(i), numbered(i + 1));
    measurement(file, "n", numbered(1));
}

void manyUsersOfAChain(std::FILE* file)
{
    for (long i = 0; i < million / 4; ++i)
        measurement(file, "n", numbered(0));
    chain(file, million / 4);
    for (long i = 0; i < million / 4; ++i)
        measurement(file, "n", numbered(i));
}

void oneCircle(std::FILE* file)
{
    measurement(file, "n", numbered(0));
    chain(file, million - 1);
    method(file, numbered(million - 1), numbered(0));
    measurement(file, "n", numbered(million / 2));
}

/// A conversion that refers to itself, two that refer to each other, and so on; one user for each.
void circles(std::FILE* file)
{
    long first = 0;
    for (long length = 1; length <= (sanitized ? 400 : 1200); ++length) {
        for (long i = 0; i < length; ++i) {
            measurement(file, "n", numbered(first + i));
            method(file, numbered(first + i), numbered(first + (i + 1) % length));
        }
        first += length;
    }
}

void equalNames(std::FILE* file)
{
    for (long i = 0; i < million; ++i)
        method(file, "same", "same");
    measurement(file, "n", "same");
}

/// Names that the usual hash functions can't tell apart.
void namesOfEqualHash(std::FILE* file)
{
    constexpr unsigned bits = sanitized ? 15 : 17;
    for (unsigned i = 0; i < 1U << bits; ++i)
        method(file, equalHashName(i, bits), "missing");
    measurement(file, "n", equalHashName(0, bits));
}

void nestedBlocks(std::FILE* file)
{
    std::fputs("/begin AXIS_PTS\n", file);
    repeat(file, million, "/begin AXIS_PTS\n");
    repeat(file, million, "/end AXIS_PTS\n");
    std::fputs("/end AXIS_PTS\n", file);
    std::fputs("/begin IF_DATA UNKNOWN\n", file);
    repeat(file, million, "/begin x\n");
    std::fputs("/end IF_DATA\n", file);
    measurement(file, "n", "c");
}

void nestedBlocksWithoutEnd(std::FILE* file)
{
    std::fputs("/begin AXIS_PTS\n", file);
    repeat(file, million, "/begin x\n");
}

void rasters(std::FILE* file)
{
    std::fputs("/begin IF_DATA ASAP1B_CCP\n", file);
    repeat(file, million, "/begin RASTER \"l\" \"r\" 1 3 10 /end RASTER\n");
    std::fputs("/begin TP_BLOB 1 2 3 4 5 6\n", file);
    repeat(file, million, "OPTIONAL_CMD 1\n");
    std::fputs("/end TP_BLOB\n/end IF_DATA\n", file);
}

void events(std::FILE* file)
{
    for (long i = 0; i < million; ++i)
        std::fputs("/begin IF_DATA XCP /begin DAQ 1 2 3 4 5 6 7 8 9 10 "
                   "/begin EVENT \"l\" \"e\" 1 DAQ 1 10 6 0 /end EVENT /end DAQ /end IF_DATA\n",
                   file);
}

void rowsAndCoefficients(std::FILE* file)
{
    std::fprintf(file, "/begin COMPU_VTAB v \"\" TAB_VERB %ld\n", million);
    repeat(file, million, "1 \"text\"\n");
    std::fputs("/end COMPU_VTAB\n/begin COMPU_METHOD c \"\" RAT_FUNC \"\" \"\"\n", file);
    repeat(file, million, "COEFFS 0 1 2 0 0 3\n");
    std::fputs("/end COMPU_METHOD\n", file);
    measurement(file, "n", "c");
}

void modules(std::FILE* file)
{
    repeat(file, million, "/end MODULE /end PROJECT /begin PROJECT p \"\" /begin MODULE m \"\"\n");
}

void warnings(std::FILE* file)
{
    std::fputs("/begin MEASUREMENT n \"\" UWORD c 0 0 0 1\n", file);
    repeat(file, million, "BYTE_ORDER UNKNOWN\n");
    std::fputs("/end MEASUREMENT\n", file);
}

template <char Character> void longName(std::FILE* file)
{
    std::fputs("/begin MEASUREMENT n", file);
    repeat(file, characters, std::string(1, Character));
    std::fputs(" \"\" UWORD c 0 0 0 1 /end MEASUREMENT\n", file);
}

void longUnknownWord(std::FILE* file)
{
    std::fputs("/begin MEASUREMENT n \"\" UWORD c 0 0 0 1\n", file);
    repeat(file, characters, "x");
}

/// A text that takes both ways: as it stands in the file, and put together from pieces.
void longString(std::FILE* file)
{
    std::fputs("/begin MEASUREMENT n \"", file);
    repeat(file, characters, "x");
    repeat(file, characters / 4, "\"\"");
    repeat(file, characters / 4, "\\\\");
    std::fputs("\" UWORD c 0 0 0 1 /end MEASUREMENT\n", file);
}

void longNumbers(std::FILE* file)
{
    for (const char* head : {"", "0.", "1e", "0x", "-", "1e-", "."}) {
        std::fprintf(file, "/begin MEASUREMENT n \"\" UWORD c 0 0 0 %s", head);
        repeat(file, characters / 10, "7");
        std::fputs(" /end MEASUREMENT\n", file);
    }
}

void nothing(std::FILE* file)
{
    std::fputs("/*", file);
    repeat(file, characters / 2, "**");
    std::fputs("*/\n", file);
    for (const char* blank : {" ", "\n", "\r", "\r\n", "/**/", "\t\n"})
        repeat(file, characters / 10, blank);
    std::fputs("/begin A2ML\n", file);
    for (const char* stray : {"-", ".", "/ ", "0x", "\"\"", "#", "{", "\x80"})
        repeat(file, characters / 10, stray);
    std::fputs("/end A2ML\n", file);
    measurement(file, "n", "c");
}

struct Case
{
    const char* name;
    void (*write)(std::FILE* file); ///< The body of a MODULE.
    int status;
    long megabytes; ///< How much memory is allowed.
};

const Case cases[] = {
    {"chainForwards", chainForwards, 0, 1200},
    {"chainBackwards", chainBackwards, 0, 1000},
    {"manyUsersOfAChain", manyUsersOfAChain, 0, 800},
    {"oneCircle", oneCircle, 0, 1200},
    {"circles", circles, 0, 1400},
    {"equalNames", equalNames, 0, 700},
    {"namesOfEqualHash", namesOfEqualHash, 0, 200},
    {"nestedBlocks", nestedBlocks, 0, 16},
    {"nestedBlocksWithoutEnd", nestedBlocksWithoutEnd, 3, 16},
    {"rasters", rasters, 0, 500},
    {"events", events, 0, 500},
    {"rowsAndCoefficients", rowsAndCoefficients, 0, 900},
    {"modules", modules, 0, 1000},
    {"warnings", warnings, 0, 16},
    {"longNameOfLetters", longName<'x'>, 0, 300},
    {"longNameOfBrackets", longName<'['>, 0, 300},
    {"longUnknownWord", longUnknownWord, 3, 300},
    {"longString", longString, 0, 600},
    {"longNumbers", longNumbers, 0, 64},
    {"nothing", nothing, 0, 64},
};

class Size : public testing::TestWithParam<Case>
{
};

TEST_P(Size, thatTheInputChoosesDoesNoHarm)
{
    const TemporaryFolder folder;
    Host host;
    const Ending ending =
        host.runPiped(folder.path("d.a2l"), folder.path("d.ini"), [](std::FILE* file) {
            std::fputs("/begin PROJECT p \"\"\n/begin MODULE m \"\"\n", file);
            GetParam().write(file);
            std::fputs("\n/end MODULE\n/end PROJECT\n", file);
        });
    EXPECT_EQ(ending.signal, 0);
    EXPECT_EQ(ending.status, GetParam().status);
    if (!sanitized) {
        EXPECT_LT(ending.peakMegabytes, GetParam().megabytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Descriptions, Size, testing::ValuesIn(cases),
                         [](const auto& test) { return test.param.name; });

/// More than 2 and more than 4 GiB, so that no 32-bit count of bytes or lines goes unseen. Most of
/// it is skipped within a comment.
TEST(HugeFile, isReadToItsEnd)
{
    if (sanitized)
        GTEST_SKIP() << "takes minutes under the sanitizers";
    const TemporaryFolder folder;
    Host host;
    const Ending ending =
        host.runPiped(folder.path("d.a2l"), folder.path("d.ini"), [](std::FILE* file) {
            const std::string mebibyte(1 << 20, ' ');
            const std::string lines(1 << 20, '\n');
            std::fputs("ASAP2_VERSION 1 60 /*", file);
            for (int i = 0; i < 4200; ++i)
                std::fwrite(mebibyte.data(), 1, mebibyte.size(), file);
            std::fputs("*/", file);
            for (int i = 0; i < 100; ++i)
                std::fwrite(lines.data(), 1, lines.size(), file);
            std::fputs(withMeasurement("").c_str(), file);
        });
    EXPECT_EQ(ending.status, 0);
    EXPECT_LT(ending.peakMegabytes, 16);
    EXPECT_NE(readFile(folder.path("d.ini")).find("Name=\"n\""), std::string::npos);
}

} // namespace
