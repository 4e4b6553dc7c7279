#include "Program.h"
#include "support/conversion.h"

#include <functional>

namespace {

std::string named(const char* name, int number)
{
    return std::string(name).append(std::to_string(number));
}

/// A module with so many measurements, made by a function of their numbers.
std::string many(int count, const std::function<std::string(int)>& nameAndAddress)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        const std::string both = nameAndAddress(i);
        const std::size_t blank = both.find(' ');
        text.append("/begin MEASUREMENT ").append(both, 0, blank);
        text.append(" \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 ECU_ADDRESS").append(both, blank);
        text.append(" /end MEASUREMENT\n");
    }
    return inModule(text);
}

class DiffTest : public ProgramTest
{
protected:
    DiffTest()
    {
        write("old.a2l", many(3, [](int i) { return named("n", i) + " 16"; }));
        write("new.a2l", many(4, [](int i) { return named("n", i) + (i ? " 16" : " 32"); }));
        write("bad.a2l", "x");
    }
};

TEST_F(DiffTest, TellsWhatDiffersByItsExitCode)
{
    struct
    {
        const char* words;
        int exitCode;
        const char* out;
    } cases[] = {
        {"diff old.a2l old.a2l", 0, "No differences\n"},
        {"diff -q old.a2l new.a2l", 1, ""},
        {"diff old.a2l new.a2l --only added,gone", 1, "added    measurement n3\n1 added, 0 gone\n"},
        {"diff new.a2l old.a2l --only added", 0, "No differences\n"},
        {"diff --color always old.a2l new.a2l --only moved", 1,
         "\x1b[33mmoved\x1b[0m    measurement n0: address 0x10 -> 0x20\n1 moved\n"},
        {"diff -q --format json old.a2l old.a2l --only gone", 0,
         "{\n  \"differences\": [],\n  \"counts\": {\"gone\":0}\n}\n"},
        {"diff --strict old.a2l new.a2l --only gone,renamed,changed", 0, "No differences\n"},
        {"diff old.a2l", 2, ""},
        {"diff old.a2l new.a2l --only added,lost", 2, ""},
        {"diff old.a2l bad.a2l", 3, ""},
        {"diff bad.a2l new.a2l", 3, ""},
        {"diff old.a2l nowhere.a2l", 3, ""},
    };
    for (const auto& c : cases) {
        const ProgramRun run = tavo(c.words);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.words << "\n" << run.err;
        EXPECT_EQ(run.out, c.out) << c.words;
    }
}

/// Each would take hours if the time were that of the square.
TEST_F(DiffTest, OneNameOrOneAddressForAllTakesNoTime)
{
    constexpr int count = 100000;
    struct
    {
        std::function<std::string(int)> before;
        std::function<std::string(int)> after;
        const char* summary;
    } cases[] = {
        {[](int i) { return named("a", i) + " 16"; }, [](int i) { return named("b", i) + " 16"; },
         "100,000 added, 100,000 gone, 0 renamed, 0 moved, 0 changed"},
        {[](int i) { return named("a", i) + named(" ", i); },
         [](int i) { return named("b", i) + named(" ", i); },
         "0 added, 0 gone, 100,000 renamed, 0 moved, 0 changed"},
        {[](int i) { return named("a ", i); }, [](int i) { return named("a ", i + 1); },
         "0 added, 0 gone, 0 renamed, 100,000 moved, 0 changed"},
    };
    for (const auto& c : cases) {
        write("old.a2l", many(count, c.before));
        write("new.a2l", many(count, c.after));
        const std::string out = tavo("diff old.a2l new.a2l").out;
        EXPECT_EQ(out.substr(out.rfind('\n', out.size() - 2) + 1),
                  std::string(c.summary).append("\n"));
    }
}

/// 20,000 quantities with a table of 2,000 rows each, which they share and which has changed.
TEST_F(DiffTest, RowsOfTablesAreComparedUpToALimit)
{
    const auto description = [](const char* text) {
        std::string module = "/begin COMPU_METHOD c \"\" TAB_VERB \"\" \"\" COMPU_TAB_REF t "
                             "/end COMPU_METHOD /begin COMPU_VTAB t \"\" TAB_VERB 2000";
        for (int i = 0; i < 2000; ++i)
            module.append(named(" ", i)).append(text);
        module += " /end COMPU_VTAB ";
        for (int i = 0; i < 20000; ++i)
            module.append(named("/begin MEASUREMENT m", i))
                .append(" \"\" UBYTE c 0 0 0 1 /end MEASUREMENT\n");
        return inModule(module);
    };
    write("old.a2l", description(" \"a\""));
    write("new.a2l", description(" \"b\""));
    const std::string out = tavo("diff old.a2l new.a2l").out;
    EXPECT_NE(
        out.find(" m0: rows 0=\"a\"; 1=\"a\"; 2=\"a\"; 3=\"a\"; 4=\"a\"; 5=\"a\" and 1994 more"
                 " -> 0=\"b\";"),
        std::string::npos);
    EXPECT_NE(out.find("m9999: rows\n0 added, 0 gone, 0 renamed, 0 moved, 20,000 changed\n"),
              std::string::npos);
}

} // namespace
