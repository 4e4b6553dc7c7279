#include "Program.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

/// What the program says on the standard error about the description, whose name is `d.a2l`.
std::string saidOf(const std::string& description, std::vector<std::string> arguments = {"check"},
                   Setting setting = {})
{
    const TemporaryFolder folder;
    writeFile(folder.path("d.a2l"), description);
    setting.folder = folder.path("");
    arguments.push_back("d.a2l");
    return run(arguments, setting).err;
}

std::string measurement(const std::string& name, const std::string& conversion)
{
    return "/begin MEASUREMENT " + name + " \"\" UBYTE " + conversion +
           " 0 0 0 1 /end MEASUREMENT\n";
}

struct DiagnosticCase
{
    std::string description;
    std::string said;
};

TEST(DiagnosticsTest, ShowPlaceTextAndSourceLine)
{
    const std::string unknown = "d.a2l:3: error: Unexpected token 'x'\n";
    const DiagnosticCase cases[] = {
        {inModule(""), ""},
        {inModule("\t  x y \r"), unknown + "    x y\n"},
        {inModule(std::string(500, ' ') + "x"), unknown + "    x\n"},
        {inModule("x " + std::string(158, 'y')), unknown + "    x " + std::string(158, 'y') + "\n"},
        {inModule("x " + std::string(159, 'y')),
         unknown + "    x " + std::string(158, 'y') + "...\n"},
        {inModule("x \xFC \xC3\xBC \x1b[31m\x01"),
         unknown + "    x \xC3\xBC \xC3\xBC \\x1b[31m\\x01\n"},
        {inModule("\"two\nlines \x1b[2J\""),
         "d.a2l:4: error: Unexpected token \"two\\nlines \\x1b[2J\"\n    lines \\x1b[2J\"\n"},
        {"", "d.a2l:1: error: Unexpected token EOF\n"},
        {"/begin PROJECT p \"\"\n\n", "d.a2l:3: error: Unexpected token EOF\n"},
        {inModule("/include a\n\n/include b\nx"),
         "d.a2l:3: warning: /include is not supported\n    /include a\n"
         "d.a2l:5: warning: /include is not supported\n    /include b\n"
         "d.a2l:6: error: Unexpected token 'x'\n    x\n"},
        {inModule("/include a /include b"),
         "d.a2l:3: warning: /include is not supported\n    /include a /include b\n"
         "d.a2l:3: warning: /include is not supported\n    /include a /include b\n"},
    };
    for (const DiagnosticCase& c : cases)
        EXPECT_EQ(saidOf(c.description), c.said) << c.description;
}

TEST(DiagnosticsTest, WarnOfWhatTheModelLacks)
{
    const std::string warning = "d.a2l: warning: ";
    const DiagnosticCase cases[] = {
        {inModule(measurement("a", "nowhere") + measurement("b", "NO_COMPU_METHOD") +
                  measurement("c", "f") +
                  "/begin COMPU_METHOD f \"\" RAT_FUNC \"\" \"\" /end COMPU_METHOD"),
         warning + "Conversion 'nowhere' of measurement 'a' is not defined\n"},
        // A module that isn't written has its say, too.
        {"/begin PROJECT p \"\" /begin MODULE m \"\" /end MODULE /begin MODULE n \"\" " +
             measurement("a", "\"\"") + "/end MODULE /end PROJECT",
         warning + "Conversion '' of measurement 'a' is not defined\n"},
        {"/begin PROJECT p \"\" /end PROJECT",
         warning + "The first PROJECT has no MODULE, the configuration is empty\n"},
        {"ASAP2_VERSION 1 60",
         warning + "The first PROJECT has no MODULE, the configuration is empty\n"},
    };
    for (const DiagnosticCase& c : cases)
        EXPECT_EQ(saidOf(c.description), c.said) << c.description;
}

TEST(DiagnosticsTest, QuietLeavesTheErrors)
{
    const std::string description = inModule("/include a\nx");
    EXPECT_EQ(saidOf(description, {"check", "--quiet"}),
              "d.a2l:4: error: Unexpected token 'x'\n    x\n");
}

TEST(DiagnosticsTest, OnlyATerminalGetsColors)
{
    const std::string description = inModule("/include a\nx");
    const auto said = [&](bool onTerminal, const char* variable) {
        Setting setting;
        setting.onTerminal = onTerminal;
        setting.environment = {variable};
        return saidOf(description, {"check"}, setting);
    };
    const std::string colored = said(true, "TERM=xterm");
    EXPECT_NE(colored.find("\x1b[1md.a2l:3:\x1b[0m \x1b[1;35mwarning:\x1b[0m /include"),
              std::string::npos)
        << colored;
    EXPECT_NE(colored.find("\x1b[1;31merror:\x1b[0m"), std::string::npos) << colored;
    EXPECT_EQ(said(true, "NO_COLOR="), colored);
    const std::string plain = said(false, "TERM=xterm");
    EXPECT_EQ(plain.find('\x1b'), std::string::npos) << plain;
    EXPECT_EQ(said(true, "NO_COLOR=1").find('\x1b'), std::string::npos);
    EXPECT_EQ(said(true, "TERM=dumb").find('\x1b'), std::string::npos);
}

TEST(DiagnosticsTest, ASlowFileShowsItsProgressOnATerminal)
{
    const auto feedSlowly = [](const std::string& path) {
        // More than a block of the reader, twice.
        const std::string blanks(150000, ' ');
        const std::string description = inModule("x");
        const int pipe = open(path.c_str(), O_WRONLY);
        for (const std::string& piece : {blanks, blanks, description}) {
            EXPECT_EQ(write(pipe, piece.data(), piece.size()), static_cast<ssize_t>(piece.size()));
            std::this_thread::sleep_for(std::chrono::milliseconds(600));
        }
        close(pipe);
    };
    for (const bool onTerminal : {true, false}) {
        const TemporaryFolder folder;
        ASSERT_EQ(mkfifo(folder.path("slow.a2l").c_str(), 0600), 0);
        Setting setting;
        setting.onTerminal = onTerminal;
        setting.environment = {"NO_COLOR=1"};
        RunningProgram program({"check", folder.path("slow.a2l")}, setting);
        feedSlowly(folder.path("slow.a2l"));
        const std::string said = program.finish().err;
        EXPECT_EQ(said.find("slow.a2l: 0.3 MB\r\x1b[K") != std::string::npos, onTerminal) << said;
        EXPECT_NE(said.find("slow.a2l:3: error: Unexpected token 'x'"), std::string::npos) << said;
    }
}

} // namespace
