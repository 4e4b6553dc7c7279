#include "Program.h"
#include "support/conversion.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <regex>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

class DiagnosticsTest : public ProgramTest
{
protected:
    /// What the program says on the standard error about a description, whose name is `d.a2l`.
    std::string said(const std::string& description, const std::string& command) const
    {
        write("d.a2l", description);
        return tavo(command + " d.a2l").err;
    }
};

TEST_F(DiagnosticsTest, ShowPlaceTextAndSourceLine)
{
    const auto unknown = [](const char* column, const std::string& line) {
        const std::string caret(line.find('x'), ' ');
        return std::string("d.a2l:3:") + column + ": error: Unexpected token 'x'\n    " + line +
               "\n    " + caret + "^\nhint: read it without --strict\n";
    };
    const std::string include = "warning: /include is not supported\n    /include ";
    const std::string warning = "d.a2l: warning: ";
    const std::string empty =
        warning + "The first PROJECT has no MODULE, the configuration is empty\n";
    const std::string y(118, 'y');
    const std::string far(20000, 'z');
    const std::string near(80, 'z');
    const std::string measurement = "/begin MEASUREMENT a \"\" UBYTE ";
    struct
    {
        std::string description;
        std::string said;
    } cases[] = {
        {inModule("\t  x y \r"), unknown("4", "x y")},
        {inModule("x " + y), unknown("1", "x " + y)},
        {inModule("x " + y + "y"), unknown("1", "x " + y + "...")},
        {inModule("x \xFC \u00fc \x1b[31m\x01"), unknown("1", "x \u00fc \u00fc \\x1b[31m\\x01")},
        {inModule("/*\xFC\u00fc" + far + "*/ x " + far),
         unknown("20008", "..." + far.substr(0, 57) + "*/ x " + far.substr(0, 55) + "...")},
        {inModule("/*" + near + "*/ x"), unknown("86", "..." + near.substr(0, 57) + "*/ x")},
        {inModule("x x"),
         "d.a2l:3: error: Unexpected token 'x'\n    x x\nhint: read it without --strict\n"},
        {inModule("\"two\nlines \x1b[2J\""),
         "d.a2l:4: error: Unexpected token \"two\\nlines \\x1b[2J\"\n    lines \\x1b[2J\"\nhint: "
         "read it without "
         "--strict\n"},
        {inModule("/begin A2ML /* \xFF /end A2ML"),
         "d.a2l:3: error: Unexpected EOF in Comment (Line 3)\n    /begin A2ML /* \u00ff /end "
         "A2ML\n"},
        {inModule("/include a\n\n/include b /include c\nx"),
         "d.a2l:3: " + include + "a\nd.a2l:5: " + include + "b /include c\n" + "d.a2l:5: " +
             include + "b /include c\nd.a2l:6:1: error: Unexpected token 'x'\n    x\n    ^\n"},
        {inModule(measurement + "nowhere 0 0 0 1 /end MEASUREMENT\n" + measurement +
                  "NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT\n" + measurement +
                  "f 0 0 0 1 /end MEASUREMENT\n"
                  "/begin COMPU_METHOD f \"\" RAT_FUNC \"\" \"\" /end COMPU_METHOD"),
         warning + "Conversion 'nowhere' of measurement 'a' is not defined\n"},
        // A module that isn't written has its say, too.
        {"/begin PROJECT p \"\" /begin MODULE m \"\" /end MODULE /begin MODULE n \"\" " +
             measurement + "\"\" 0 0 0 1 /end MEASUREMENT /end MODULE /end PROJECT",
         warning + "Conversion '' of measurement 'a' is not defined\n"},
        {"/begin PROJECT p \"\" /end PROJECT", empty},
        {"ASAP2_VERSION 1 60", empty},
    };
    for (const auto& c : cases)
        EXPECT_EQ(said(c.description, "list --strict"), c.said) << c.description;
}

/// The text in UTF-16, with a mark.
std::string inUtf16(const std::string& text)
{
    std::string wide = "\xFF\xFE";
    for (const char character : text)
        wide.append({character, '\0'});
    return wide;
}

std::string withLineEnds(std::string text, const char* end)
{
    for (std::size_t place = 0; (place = text.find('\n', place)) != std::string::npos;
         place += std::strlen(end))
        text.replace(place, 1, end);
    return text;
}

TEST_F(DiagnosticsTest, AKindOfWarningComesOnceWithItsCountAndFirstPlace)
{
    const std::string x =
        "/begin MEASUREMENT a \"\" UBYTE c 0 0 0 1 x MATRIX_DIM 3 /end MEASUREMENT";
    const std::string y =
        "/begin MEASUREMENT b \"\" UBYTE d 0 0 0 1 x MATRIX_DIM 4 /end MEASUREMENT";
    const std::string method = " \"\" RAT_FUNC \"\" \"\" COEFFS 0 1e7 0 0 0 3 /end COMPU_METHOD";
    const std::string description =
        inModule(x + "\n/include part.a2l\n  " + y + "\n/begin COMPU_METHOD c" + method +
                 "\n/begin COMPU_METHOD d" + method);
    write("part.a2l", "\n/begin MEASUREMENT p 1 /end MEASUREMENT");
    std::string under(47, ' ');
    under.front() = under.back() = '\n';
    under[45] = '^';
    const std::string word = ": warning: Unknown word 'x' is passed over";
    const std::string included =
        "part.a2l:2:22: warning: MEASUREMENT 'p' is left out: its description "
        "can't be '1'\n    /begin MEASUREMENT p 1 /end MEASUREMENT\n" +
        std::string(25, ' ') + "^\n";
    const std::string array =
        "d.a2l: warning: The configuration has the first element of an array: ";
    const std::string factor = "d.a2l: warning: Six decimals can't hold a factor: ";
    const std::string lost = ", which is 3e-07 and is written as 0.000000\n";
    const std::string once = "d.a2l:3:41" + word + " (2 times)\n    " + x + under + included +
                             array + "2 times, first 'a'\n" + factor + "2 times, first 'c'" + lost;
    const std::string each = "d.a2l:3:41" + word + "\n    " + x + under + included + "d.a2l:5:43" +
                             word + "\n    " + y + under + array + "'a'\n" + factor + "'c'" + lost +
                             array + "'b'\n" + factor + "'d'" + lost;
    for (const std::string& form :
         {description, "\xEF\xBB\xBF" + description, inUtf16(description),
          withLineEnds(description, "\r"), withLineEnds(description, "\r\n")}) {
        EXPECT_EQ(said(form, "check"), once);
        EXPECT_EQ(
            std::regex_replace(said(form, "check --verbose"), std::regex(" *[0-9.]+ s .*\n"), ""),
            each);
        EXPECT_EQ(said(form, "check --quiet --werror"), "");
    }
}

TEST_F(DiagnosticsTest, HintsSayWhatProbablyHelps)
{
    write("Part.a2l", "");
    struct
    {
        const char* body;
        const char* hint; ///< "" for none.
    } cases[] = {
        {"/begin MESUREMENT n /end MESUREMENT", "did you mean 'MEASUREMENT'?"},
        {"/begin GROUP g \"\" /end GROPU", "did you mean '/end GROUP'?"},
        {"/begin GROUP g \"\" /end FUNCTION", ""},
        {"/begin MEASUREMENT n \"\" UWROD NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT",
         "did you mean 'UWORD'?"},
        {"/begin MEASUREMENT n \"\" UWORD NO_COMPU_METHOD 0 0 0 1 ECU_ADRESS 3 /end MEASUREMENT",
         "did you mean 'ECU_ADDRESS'?"},
        // One that belongs elsewhere is no slip.
        {"/begin MEASUREMENT n \"\" UWORD NO_COMPU_METHOD 0 0 0 1 COEFFS 3 /end MEASUREMENT", ""},
        {"/begin MOD_COMMON \"\" BYTE_ORDER MSB_FRIST /end MOD_COMMON",
         "did you mean 'MSB_FIRST'?"},
        {"/begin COMPU_METHOD c \"\" LINEER \"\" \"\" COEFFS_LINEAR 1 0 /end COMPU_METHOD",
         "did you mean 'LINEAR'?"},
        {"/include \".\\part.a2l\"", "did you mean './Part.a2l'?"},
        {"/include nothing-like-that", ""},
    };
    for (const auto& c : cases) {
        const std::string text = said(inModule(c.body), "check");
        const std::size_t place = text.find("\nhint: ");
        EXPECT_EQ(place == std::string::npos ? "" : text.substr(place + 7),
                  *c.hint ? std::string(c.hint) + "\n" : "")
            << text;
    }
}

TEST_F(DiagnosticsTest, CheckGoesOnAfterAnError)
{
    const std::string quantity = " \"\" UWORD NO_COMPU_METHOD 0 0 0 1 ";
    const std::string text =
        said(inModule("/include missing\n/begin MEASUREMENT a" + quantity +
                      "/end MEASUREMNT\n/begin IF_DATA XCP /end IF_DATA\n/end MEASUREMENT\n"
                      "/begin GROUP g \"\" /end GRUOP\n/begin MEASUREMENT b" +
                      quantity + "/end MEASUREMENT\n/begin MEASUREMENT c" + quantity),
             "check");
    std::string lines;
    for (std::size_t at = 0; (at = text.find("d.a2l:", at)) != std::string::npos;) {
        const std::size_t end = text.find('\n', at);
        lines += text.substr(at + 6, end - at - 5);
        at = end;
    }
    EXPECT_EQ(lines, "3:1: error: The included file 'missing' doesn't exist\n"
                     "4:60: error: '/end MEASUREMNT' found in the block 'MEASUREMENT' of line 4\n"
                     "7:1: note: What follows the error in line 4 is passed over up to here\n"
                     "7:24: error: '/end GRUOP' found in the block 'GROUP' of line 7\n"
                     "10:6: error: '/end MODULE' found in the block 'MEASUREMENT' of line 9\n");
    EXPECT_TRUE(text.ends_with("hint: an '/end MEASUREMENT' is missing\n"));
    // It finds an error where the others do.
    for (const auto& entry : std::filesystem::directory_iterator(TAVO_GOLDEN_FOLDER)) {
        if (entry.path().extension() != ".a2l")
            continue;
        const ProgramRun checked = tavo("check -q " + entry.path().string());
        const ProgramRun listed = tavo("list -q " + entry.path().string());
        EXPECT_EQ(checked.exitCode, listed.exitCode) << entry.path();
        EXPECT_TRUE(checked.err.starts_with(listed.err)) << checked.err;
    }
    // A hundred errors are enough.
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "/begin GROUP g \"\" /end x\n";
    const std::string much = said(inModule(many), "check -q");
    EXPECT_EQ(std::count(much.begin(), much.end(), '^'), 101);
}

TEST_F(DiagnosticsTest, StrictCheckTellsWhatStrictReadingChanges)
{
    const std::string d = "d.a2l: warning: ";
    struct
    {
        const char* body;
        std::string said;
    } cases[] = {
        {"/begin MEASUREMENT n \"\" ULONG c 0 0 0 4294967295 ECU_ADDRESS 4000000000\n"
         "/end MEASUREMENT /begin MOD_COMMON \"\" BYTE_ORDER MSB_LAST /end MOD_COMMON\n"
         "/begin COMPU_METHOD c \"\" RAT_FUNC \"\" \"\" COEFFS 0 1e7 0 0 0 3 /end COMPU_METHOD",
         d + "Six decimals can't hold a factor: 'c', which is 3e-07 and is written as 0.000000\n" +
             d + "ByteOrder of 'n': strict nothing, the description says Intel\n" + d +
             "ECUAddress of 'n': strict 0x7fffffff, the description says 0xee6b2800\n" + d +
             "Max of 'n': strict 2147483647, the description says 4294967295\n"},
        {"/begin IF_DATA XCPplus /begin XCP_ON_USB /end XCP_ON_USB /end IF_DATA\n"
         "/begin IF_DATA ASAP1B_CCP /begin TP_BLOB 1 2 3 4 5 1 /end TP_BLOB\n"
         "/begin RASTER \"\" \"\" 1 3 10 /end RASTER /end IF_DATA",
         d + "Interfaces of XCPplus: strict 0, the description says 1\n"},
        {"/include part.a2l",
         "d.a2l:3: warning: /include is not supported\n    /include part.a2l\n" + d +
             "Measurements: strict lacks 1 that the description has\n"},
        {"/begin MEASUREMENT n \"\" UBYTE NO_COMPU_METHOD 0 0 x 1 /end MEASUREMENT",
         "d.a2l:3: warning: Unexpected type for lower limit.\n    /begin MEASUREMENT n \"\" UBYTE "
         "NO_COMPU_METHOD 0 0 x 1 /end MEASUREMENT\n" +
             d + "'n': strict has it, but the description doesn't say all that it needs\n"},
        {"/begin A2ML \"/end A2ML\" /end A2ML",
         d + "Read without --strict, the description is faulty: d.a2l:3: Text without an end\n"},
    };
    write("part.a2l", "/begin MEASUREMENT p \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT");
    for (const auto& c : cases)
        EXPECT_EQ(said(inModule(c.body), "check --strict"), c.said) << c.body;
}

TEST_F(DiagnosticsTest, ColorsAreForTerminalsUnlessTheUserSaysOtherwise)
{
    struct
    {
        bool onTerminal;
        std::vector<std::string> variables;
        const char* option;
        bool colored;
    } cases[] = {
        {true, {}, "", true},
        {true, {"NO_COLOR="}, "", true},
        {true, {"NO_COLOR=1"}, "", false},
        {true, {"NO_COLOR=1"}, "--color always", true},
        {true, {}, "--color=never", false},
        {true, {"TERM=dumb"}, "", false},
        {false, {}, "", false},
        {false, {}, "--color=auto", false},
        {false, {"CLICOLOR_FORCE=1"}, "", true},
        {false, {"CLICOLOR_FORCE=0"}, "", false},
        {false, {"CLICOLOR_FORCE=1"}, "--color never", false},
        {false, {"CLICOLOR_FORCE=1", "NO_COLOR=1"}, "", false},
        {false, {"NO_COLOR=1"}, "--color always", true},
    };
    for (const auto& c : cases) {
        onTerminal_ = c.onTerminal;
        environment_ = c.variables;
        const std::string text =
            said(inModule("/include a\nx"), c.option + std::string(" check --strict"));
        const auto holds = [&](const char* part) { return text.find(part) != std::string::npos; };
        EXPECT_EQ(holds("\x1b[1md.a2l:3:\x1b[0m \x1b[1;35mwarning:\x1b[0m /include"), c.colored);
        EXPECT_EQ(holds("\x1b[1md.a2l:4:1:\x1b[0m \x1b[1;31merror:\x1b[0m Unexp"), c.colored);
        EXPECT_EQ(holds("\x1b"), c.colored) << text;
    }
}

TEST_F(DiagnosticsTest, ASlowFileShowsItsProgressOnATerminal)
{
    ASSERT_EQ(mkfifo(path("slow.a2l").c_str(), 0600), 0);
    const auto feedSlowly = [&](pid_t) {
        const std::string blanks(150000, ' '); // More than two blocks of the reader.
        const int pipe = open(path("slow.a2l").c_str(), O_WRONLY);
        for (const std::string& piece : {blanks, blanks, inModule("x")}) {
            EXPECT_EQ(::write(pipe, piece.data(), piece.size()),
                      static_cast<ssize_t>(piece.size()));
            std::this_thread::sleep_for(std::chrono::milliseconds(600));
        }
        close(pipe);
    };
    for (const bool onTerminal : {true, false}) {
        onTerminal_ = onTerminal;
        environment_ = {"NO_COLOR=1"};
        const std::string text = tavo("check slow.a2l", feedSlowly).err;
        EXPECT_EQ(text.find("slow.a2l: 0.3 MB\r\x1b[K") != std::string::npos, onTerminal) << text;
        EXPECT_NE(text.find("slow.a2l:3:1: warning: Unknown word 'x'"), std::string::npos) << text;
    }
}

} // namespace
