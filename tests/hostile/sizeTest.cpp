// Descriptions that choose a depth or a size to do harm with. None may exceed a small stack, take
// quadratic time, or need more than sixteen times its size of memory.
//
// TAVO_HOSTILE_FULL=1 in the environment makes the chains a million links, the texts 100 MB and the
// huge file more than 4 GiB long; else they have a tenth of that.

#include "Host.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

#if defined(TAVO_SANITIZED)
constexpr bool sanitized = true; // which needs memory of its own
#else
constexpr bool sanitized = false;
#endif

/// One of the names that all have one hash by Murmur2, which the common C++ standard libraries use:
/// two blocks of eight bytes change its state by the highest bit, and the second one takes that
/// back.
std::string equalHashName(long number)
{
    const std::string blocks[] = {"pj6o\xF6Ylsa[6S_G\xDC"
                                  "d",
                                  "pjyU[t\xC4\xE4"
                                  "a[y9\xC4"
                                  "a4\xD6"};
    std::string name;
    for (int bit = 0; bit < 17; ++bit)
        name += blocks[number >> bit & 1];
    return name;
}

/// Writes the lines of a case of `sizes.txt`.
class Writer
{
public:
    explicit Writer(std::FILE* file) : file_(file) {}

    void put(std::string line)
    {
        long count = 1;
        if (std::isdigit(static_cast<unsigned char>(line[0]))) {
            count = lastCount_ = std::stol(line) / (isFull() ? 1 : 10);
            line.erase(0, line.find('*') + 2);
        }
        if (line.ends_with('\\'))
            line.pop_back();
        else
            line += '\n';
        const bool isPlain = line.find_first_of("#@%$") == std::string::npos;
        std::string block;
        for (long i = 0; i < count; ++i) {
            if (isPlain)
                block += line;
            else
                for (const char c : line)
                    putCharacter(block, c, i);
            if (block.size() > 100'000 || i + 1 == count) {
                std::fwrite(block.data(), 1, block.size(), file_);
                written_ += static_cast<long>(block.size());
                block.clear();
            }
        }
    }

    long written() const { return written_; }

private:
    void putCharacter(std::string& block, char c, long number) const
    {
        if (c == '#')
            block += std::to_string(number);
        else if (c == '@')
            block += std::to_string(number + 1);
        else if (c == '%')
            block += std::to_string(lastCount_);
        else if (c == '$')
            block += equalHashName(number);
        else
            block += c;
    }

    std::FILE* file_;
    long lastCount_ = 0;
    long written_ = 0; ///< Bytes.
};

struct Case
{
    std::string name;
    int status = 0;
    long megabytes = 0;
    std::vector<std::string> lines;
};

std::vector<Case> cases(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<Case> all;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("==== ")) {
            std::istringstream title(line.substr(5));
            title >> all.emplace_back().name >> all.back().status >> all.back().megabytes;
        } else if (!all.empty()) {
            all.back().lines.push_back(line);
        }
    }
    return all;
}

void PrintTo(const Case& test, std::ostream* stream) { *stream << test.name; }

class SizeTest : public testing::TestWithParam<Case>
{
};

/// How the host ends that converts the body of a module, and the body's bytes.
std::pair<Ending, long> converted(const std::vector<std::string>& lines,
                                  const char* program = TAVO_HOST)
{
    const TemporaryFolder folder;
    Host host;
    host.program = program;
    long size = 0;
    const Ending ending =
        host.runPiped(folder.path("d.a2l"), folder.path("d.ini"), [&](std::FILE* file) {
            Writer writer(file);
            writer.put("/begin PROJECT p \"\" /begin MODULE m \"\"");
            for (const std::string& line : lines)
                writer.put(line);
            writer.put("\n/end MODULE /end PROJECT");
            size = writer.written();
        });
    return {ending, size};
}

TEST_P(SizeTest, ThatTheInputChoosesDoesNoHarm)
{
    constexpr long megabyte = 1 << 20;
    const auto [ending, size] = converted(GetParam().lines);
    EXPECT_EQ(ending.signal, 0);
    EXPECT_EQ(ending.status, GetParam().status);
    if (!sanitized) {
        static const long idle = converted({}).first.peakBytes;
        EXPECT_LT(ending.peakBytes / megabyte, GetParam().megabytes / (isFull() ? 1 : 10) + 10);
        EXPECT_LT(ending.peakBytes, idle + 16 * size + megabyte / 4);
    }
}

INSTANTIATE_TEST_SUITE_P(Descriptions, SizeTest, testing::ValuesIn(cases(TAVO_SIZES)),
                         [](const auto& test) { return test.param.name; });

class WideSize : public testing::TestWithParam<Case>
{
};

TEST_P(WideSize, thatTheInputChoosesDoesNoHarm)
{
    constexpr long megabyte = 1 << 20;
    const Ending ending = converted(GetParam().lines, TAVO_WIDE_HOST).first;
    EXPECT_EQ(ending.signal, 0);
    EXPECT_EQ(ending.status, GetParam().status);
    if (!sanitized) {
        EXPECT_LT(ending.peakBytes / megabyte, GetParam().megabytes / (isFull() ? 1 : 10) + 10);
    }
}

INSTANTIATE_TEST_SUITE_P(Descriptions, WideSize, testing::ValuesIn(cases(TAVO_WIDE_SIZES)),
                         [](const auto& test) { return test.param.name; });

} // namespace
