#include "Program.h"
#include "support/conversion.h"

#include <chrono>
#include <fcntl.h>
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
    const std::string unknown = "d.a2l:3: error: Unexpected token 'x'\n";
    const std::string include = "warning: /include is not supported\n    /include ";
    const std::string warning = "d.a2l: warning: ";
    const std::string empty =
        warning + "The first PROJECT has no MODULE, the configuration is empty\n";
    const std::string y = std::string(158, 'y');
    const std::string measurement = "/begin MEASUREMENT a \"\" UBYTE ";
    struct
    {
        std::string description;
        std::string said;
    } cases[] = {
        {inModule("\t  x y \r"), unknown + "    x y\n"},
        {inModule("x " + y), unknown + "    x " + y + "\n"},
        {inModule("x " + y + "y"), unknown + "    x " + y + "...\n"},
        {inModule("x \xFC \u00fc \x1b[31m\x01"), unknown + "    x \u00fc \u00fc \\x1b[31m\\x01\n"},
        {inModule("\"two\nlines \x1b[2J\""),
         "d.a2l:4: error: Unexpected token \"two\\nlines \\x1b[2J\"\n    lines \\x1b[2J\"\n"},
        {inModule("/begin A2ML /* \xFF /end A2ML"),
         "d.a2l:3: error: Unexpected EOF in Comment (Line 3)\n    /begin A2ML /* \u00ff /end "
         "A2ML\n"},
        {inModule("/include a\n\n/include b /include c\nx"),
         "d.a2l:3: " + include + "a\nd.a2l:5: " + include + "b /include c\n" +
             "d.a2l:5: " + include + "b /include c\nd.a2l:6: error: Unexpected token 'x'\n    x\n"},
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

TEST_F(DiagnosticsTest, OnlyATerminalGetsColors)
{
    struct
    {
        bool onTerminal;
        const char* variable;
        bool colored;
    } cases[] = {
        {true, "TERM=xterm", true}, {true, "NO_COLOR=", true},   {true, "NO_COLOR=1", false},
        {true, "TERM=dumb", false}, {false, "NO_COLOR=", false},
    };
    for (const auto& c : cases) {
        onTerminal_ = c.onTerminal;
        environment_ = {c.variable};
        const std::string text = said(inModule("/include a\nx"), "check --strict");
        const auto holds = [&](const char* part) { return text.find(part) != std::string::npos; };
        EXPECT_EQ(holds("\x1b[1md.a2l:3:\x1b[0m \x1b[1;35mwarning:\x1b[0m /include"), c.colored);
        EXPECT_EQ(holds("\x1b[1md.a2l:4:\x1b[0m \x1b[1;31merror:\x1b[0m Unexp"), c.colored);
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
        EXPECT_NE(text.find("slow.a2l:3: warning: Unknown word 'x'"), std::string::npos) << text;
    }
}

} // namespace
