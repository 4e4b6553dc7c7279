#include "Failure.h"
#include "Program.h"
#include "support/conversion.h"
#include "unpack.h"

#if defined(TAVO_HAS_ZLIB)
#include <zlib.h>
#endif
#if defined(TAVO_HAS_ZSTD)
#include <zstd.h>
#endif

using namespace tavo;

namespace {

/// A compressor of each kind that this build unpacks.
struct Packer
{
    FileKind kind;
    const char* ending;
    std::string (*pack)(const std::string& text);
};

const Packer packers[] = {
#if defined(TAVO_HAS_ZLIB)
    {FileKind::Gzip, ".gz",
     [](const std::string& text) {
         z_stream stream = {};
         EXPECT_EQ(deflateInit2(&stream, 9, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY),
                   Z_OK);
         std::string packed(deflateBound(&stream, text.size()), 0);
         stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
         stream.avail_in = static_cast<uInt>(text.size());
         stream.next_out = reinterpret_cast<Bytef*>(packed.data());
         stream.avail_out = static_cast<uInt>(packed.size());
         EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
         packed.resize(stream.total_out);
         deflateEnd(&stream);
         return packed;
     }},
#endif
#if defined(TAVO_HAS_ZSTD)
    {FileKind::Zstd, ".zst",
     [](const std::string& text) {
         std::string packed(ZSTD_compressBound(text.size()), 0);
         packed.resize(ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), 3));
         return packed;
     }},
#endif
};

const std::string quantity = "/begin MEASUREMENT n \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 "
                             "/end MEASUREMENT";

class InputTest : public ProgramTest
{
protected:
    InputTest() { write("d.a2l", description_); }

    const std::string description_ =
        inModule("/include part.aml\n/include sub/part.a2l\n  word " + quantity);
    const std::string odd_ =
        inModule("/begin MEASUREMENT n \"\" UBYTE c 0 0 0 1 x /end MEASUREMENT");
};

TEST_F(InputTest, EveryWayInIsTheSame)
{
    std::filesystem::create_directory(path("sub"));
    write("sub/part.a2l",
          "/begin MEASUREMENT p \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT y");
    std::vector<std::string> names = {"d.a2l", "-", "/dev/stdin"};
    tavo("convert d.a2l");
    const std::string configuration = content("d.ini");
    for (const Packer& packer : packers) {
        write(std::string("d.a2l") + packer.ending, packer.pack(description_));
        write(std::string("two.a2l") + packer.ending,
              packer.pack(description_.substr(0, 9)) + packer.pack(description_.substr(9)));
        names.push_back(std::string("d.a2l") + packer.ending);
        names.push_back(std::string("two.a2l") + packer.ending);
        names.push_back(std::string("<d.a2l") + packer.ending);
        std::filesystem::remove(path("d.ini"));
        tavo(std::string("convert d.a2l") + packer.ending);
        EXPECT_EQ(content("d.ini"), configuration);
    }
    for (const std::string command : {"convert @ -", "list @", "check @", "list --format json @",
                                      "check --strict @", "normalize @ -", "tokens @"}) {
        ProgramRun expected;
        for (const std::string& name : names) {
            const bool isInput = name.front() == '<' || name.front() == '-' || name.front() == '/';
            standardInput_ = name.front() == '<' ? name.substr(1) : isInput ? "d.a2l" : "";
            std::string words = command;
            const std::string given = name.front() == '<' ? "-" : name;
            words.replace(words.find('@'), 1, given);
            ProgramRun run = tavo(words);
            const std::string shown = standardInput_.empty() ? given : "<stdin>";
            for (std::string* text : {&run.out, &run.err})
                for (std::size_t at = 0; (at = text->find(shown, at)) != std::string::npos;)
                    text->replace(at++, shown.size(), "d.a2l");
            if (name == "d.a2l")
                expected = run;
            EXPECT_EQ(run.exitCode, expected.exitCode) << words;
            EXPECT_EQ(run.out, expected.out) << words;
            EXPECT_EQ(run.err, expected.err) << words;
        }
        const bool isStrict =
            command.starts_with("tokens") || command.find("strict") != std::string::npos;
        EXPECT_NE(isStrict ? expected.out.size() : expected.err.find("word 'y'"),
                  std::string::npos);
    }
}

TEST_F(InputTest, WhatHasNoNameNeedsOneForItsOutput)
{
    standardInput_ = "d.a2l";
    for (const std::string words :
         {"convert -", "convert /dev/stdin", "normalize -q /proc/self/fd/0",
          "convert -d out d.a2l -", "convert -d out /dev/../dev/stdin"}) {
        const ProgramRun run = tavo(words);
        EXPECT_EQ(run.exitCode, 2) << words;
        EXPECT_NE(run.err.find("' needs a name\nhint: it comes after the input, as in '"),
                  std::string::npos)
            << run.err;
    }
    EXPECT_EQ(names(), "d.a2l ");
    EXPECT_EQ(tavo("check -q - -").exitCode, 2);
}

TEST_F(InputTest, WhatIsNoDescriptionIsRecognizedByItsBeginning)
{
    using namespace std::string_literals;
    const std::string strictly =
        "which strict reading doesn't know\nhint: read it without --strict\n";
    const std::string packed = " and no description\nhint: unpack it first\n";
    struct
    {
        std::string bytes;
        std::string said;
    } cases[] = {
        {"", "is empty\n"},
        {"PK\x03\x04..", "is a ZIP archive" + packed},
        {"\xFD"
         "7zXZ\0.."s,
         "is an xz file" + packed},
        {"%PDF-1.7", "is a PDF document and no description\n"},
        {"[DAQ_Measurement_0]\n", "is a configuration and no description\n"},
        {"\x01\x02\x03\x04 a b c", "is a binary file and no description\n"},
        {"\xFF\xFE/\0b\0"s, "is UTF-16, " + strictly},
        {"\0/\0b"s, "is UTF-16, " + strictly},
        {"\0\0\xFE\xFF"s, "is UTF-32, " + strictly},
    };
    for (const auto& c : cases) {
        write("x.a2l", c.bytes);
        const ProgramRun run = tavo("check --strict x.a2l");
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.err, "x.a2l: error: The file " + c.said);
        for (const Packer& packer : packers) {
            write("x.a2l", packer.pack(c.bytes));
            EXPECT_EQ(tavo("list --strict x.a2l").err, "x.a2l: error: The file " + c.said);
        }
    }
    // What isn't sure is read: control characters in a comment, and zeros after the end.
    for (const std::string& text : {"/*" + std::string(99, '\x01') + "*/" + description_,
                                    "ASAP2_VERSION 1 71" + std::string(9000, '\0')}) {
        write("part.a2l", "");
        write("x.a2l", text);
        EXPECT_EQ(tavo("check x.a2l").err.find("no description"), std::string::npos);
    }
    write("Engine.a2l", "");
    EXPECT_EQ(
        tavo("check -q engine.a2l").err,
        "tavo: error: engine.a2l: No such file or directory\nhint: did you mean 'Engine.a2l'?\n");
}

TEST_F(InputTest, DamagedAndHostileArchivesAreRefused)
{
    const std::string text = odd_ + odd_;
    for (const Packer& packer : packers) {
        const std::string packed = packer.pack(text);
        const auto unpackedSize = [&](const std::string& bytes, std::uint64_t most) {
            try {
                return static_cast<long>(unpack(packer.kind, bytes, most, "x").size());
            } catch (const Failure& failure) {
                EXPECT_EQ(failure.exitCode(), ExitCode::Trouble);
                return -1L;
            }
        };
        EXPECT_EQ(unpackedSize(packed + packed, text.size() * 2),
                  static_cast<long>(text.size() * 2));
        if (packer.kind == FileKind::Gzip) { // as on a tape
            EXPECT_EQ(unpackedSize(packed + std::string(99, '\0'), text.size()),
                      static_cast<long>(text.size()));
        }
        for (std::size_t size = 1; size < packed.size(); ++size) {
            EXPECT_EQ(unpackedSize(packed.substr(0, size), 1 << 20U), -1) << size;
            EXPECT_EQ(unpackedSize(packed + packed.substr(0, size), 1 << 20U), -1) << size;
        }
        for (std::size_t i = 0; i < packed.size() * 8; ++i) { // one bit is wrong
            std::string damaged = packed;
            damaged[i / 8] = static_cast<char>(damaged[i / 8] ^ (1 << i % 8));
            EXPECT_LE(unpackedSize(damaged, 1 << 20U), 3 << 20) << i;
        }
        const std::string bomb = packer.pack(std::string(80U << 20U, ' '));
        EXPECT_EQ(unpackedSize(bomb + bomb, 32 << 20U), -1);
        EXPECT_EQ(mostUnpacked(bomb.size()),
                  std::max<std::uint64_t>(64 << 20U, bomb.size() * 1000));
        write("bomb.a2l", packer.pack(packer.pack(std::string(80U << 20U, ' '))));
        EXPECT_EQ(tavo("check bomb.a2l").exitCode, 1);
        write("bomb.a2l", packed.substr(0, packed.size() / 2));
        EXPECT_EQ(tavo("check bomb.a2l").err,
                  "tavo: error: bomb.a2l: can't be unpacked: it ends too early\n");
    }
    EXPECT_EQ(mostUnpacked(~0U), mostInMemory);
}

TEST_F(InputTest, SeveralFilesAreSummedUp)
{
    write("ok.a2l", inModule(quantity));
    write("bad.a2l", inModule("/end x"));
    const std::string failed = "Failed: nowhere.a2l\nFailed: bad.a2l\n1 of 3 ";
    const std::string files = " nowhere.a2l ok.a2l bad.a2l";
    for (const auto& [words, done] :
         std::map<std::string, std::string>{{"convert -d a/b/c", "written\n"},
                                            {"convert -d a/b/d -j 3", "written\n"},
                                            {"check", "passed\n"},
                                            {"list", "listed\n"}}) {
        const ProgramRun run = tavo(words + files);
        EXPECT_EQ(run.exitCode, 3) << words;
        EXPECT_TRUE(run.err.ends_with(failed + done)) << run.err;
        EXPECT_NE(run.err.find("bad.a2l:3"), std::string::npos) << run.err;
    }
    EXPECT_EQ(names("a/b/c") + names("a/b/d"), "ok.ini ok.ini ");
    EXPECT_TRUE(tavo("convert -f -d . ok.a2l d.a2l").err.find("0 of") == std::string::npos);
    EXPECT_EQ(tavo("convert -d ok.a2l/b ok.a2l").err, "tavo: error: ok.a2l/b: Not a directory\n");
    EXPECT_EQ(tavo("check ok.a2l ok.a2l").err + tavo("list ok.a2l ok.a2l").err, "");
}

} // namespace
