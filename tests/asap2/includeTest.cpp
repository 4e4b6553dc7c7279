// Descriptions of several files.

#include "support/files.h"
#include "support/wide.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

constexpr const char* quantity = "/begin MEASUREMENT n \"\" UBYTE NO_COMPU_METHOD 0 0 0 1\n";

class Include : public testing::Test
{
protected:
    /// What comes of a module with this body: the names of its quantities, and the messages.
    std::string read(const std::string& body)
    {
        writeFile(folder.path("main.a2l"), "/begin PROJECT p \"\" /begin MODULE m \"\"\n" + body +
                                               "\n/end MODULE /end PROJECT");
        const WideReading reading = readWideFile(folder.path("main.a2l"));
        std::string result;
        for (std::size_t at = 0;
             (at = reading.configuration.find("_0_0_", at)) != std::string::npos; ++at) {
            const std::size_t name = reading.configuration.find("Name=", at) + 6;
            result +=
                reading.configuration.substr(name, reading.configuration.find('"', name) - name);
            result += " ";
        }
        for (const std::string& message : reading.messages)
            result += message + " ";
        return result.empty() ? "" : result.substr(0, result.size() - 1);
    }
    void write(const std::string& name, const std::string& bytes)
    {
        std::filesystem::create_directories(std::filesystem::path(folder.path(name)).parent_path());
        writeFile(folder.path(name), bytes);
    }
    static std::string named(const std::string& name)
    {
        return "/begin MEASUREMENT " + name +
               " \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT\n";
    }

    TemporaryFolder folder;
};

TEST_F(Include, standsInItsPlaceAndIsFoundBesideTheIncludingFile)
{
    write("a.a2l", named("a"));
    write("sub/b.a2l", "\xEF\xBB\xBF" + named("b1") + "/INCLUDE \"c d.a2l\"\n" + named("b2"));
    write("sub/c d.a2l", named("c"));
    EXPECT_EQ(read("/include a.a2l\n" + named("x") +
                   "/include \"sub/b.a2l\"/include \"sub\\b.a2l\"" + named("y")),
              "a x b1 c b2 b1 c b2 y");
    EXPECT_EQ(read("/include \"" + folder.path("a.a2l") + "\""), "a");
    EXPECT_EQ(read("/include sub/b.a2l/include a.a2l"), "b1 c b2 a");
}

TEST_F(Include, mayHoldAnyPartOfABlock)
{
    write("begin.a2l", quantity);
    write("end.a2l", "/end");
    write("number.a2l", "5");
    write("texts.a2l", "BIT_MASK 1\nPHYS_UNIT V");
    EXPECT_EQ(
        read("/include begin.a2l ECU_ADDRESS /include number.a2l /include end.a2l MEASUREMENT"),
        "n");
    EXPECT_EQ(read("/include begin.a2l\n/include texts.a2l\nWORD /end MEASUREMENT"),
              "n texts.a2l:2: Warning: Option 'PHYS_UNIT' is ignored: a field is missing or of "
              "another kind texts.a2l:2: Warning: Unknown word 'V' is passed over");
    write("broken.a2l", "\n\"text");
    EXPECT_EQ(read("/include broken.a2l\n\""), "broken.a2l:2: Error: Text without an end");
    write("broken.a2l", "/* \n");
    EXPECT_EQ(read("/include broken.a2l\n*/"), "broken.a2l:1: Error: Comment without an end");
    EXPECT_EQ(read("/include begin.a2l"),
              "3: Error: '/end MODULE' found in the block 'MEASUREMENT' of line 1");
}

TEST_F(Include, isNotOpenedWhereNothingIsTaken)
{
    write("unit.a2l", "/end GROUP /end MODULE");
    EXPECT_EQ(read("/begin GROUP /include unit.a2l /include none.a2l /end GROUP" + named("a")),
              "a");
    EXPECT_EQ(read("/begin A2ML /include \"none.a2l\" /end A2ML /include none.AML\n/include "
                   "\"none.a2ml\"" +
                   named("a")),
              "a");
}

TEST_F(Include, thatCannotBeReadEndsTheReading)
{
    write("self.a2l", "\n/include self.a2l");
    write("one.a2l", "/include two.a2l");
    write("two.a2l", "/include ./one.a2l");
    for (int i = 0; i < 20; ++i)
        write(std::string("d").append(std::to_string(i)).append(".a2l"),
              std::string("/include d").append(std::to_string(i + 1)).append(".a2l "));
    write("tree0.a2l", "");
    for (int i = 1; i < 15; ++i) {
        const std::string next = "/include tree" + std::to_string(i - 1) + ".a2l ";
        write("tree" + std::to_string(i) + ".a2l", next + next + next);
    }
    ASSERT_EQ(mkfifo(folder.path("pipe.a2l").c_str(), 0600), 0);
    const std::pair<const char*, const char*> cases[] = {
        {"/include pipe.a2l", "2: Error: The included file 'pipe.a2l' is no regular file"},
        {"/include none.a2l", "2: Error: The included file 'none.a2l' doesn't exist"},
        {"/include \"a\nb\"", "2: Error: The included file 'a\nb' doesn't exist"},
        {"/include \"\"", "2: Error: '/include' without the name of a file"},
        {"/include /end", "2: Error: '/include' without the name of a file"},
        {"/include \"none.a2l", "2: Error: Text without an end"},
        {"/include .", "2: Error: The included file '.' is no regular file"},
        {"/include /dev/zero", "2: Error: The included file '/dev/zero' is no regular file"},
        {"/include main.a2l", "2: Error: The included file 'main.a2l' includes itself"},
        {"/include self.a2l", "self.a2l:2: Error: The included file 'self.a2l' includes itself"},
        {"/include one.a2l", "two.a2l:1: Error: The included file './one.a2l' includes itself"},
        {"/include d0.a2l",
         "d15.a2l:1: Error: The included file 'd16.a2l' is nested deeper than 16 files"},
    };
    for (const auto& [body, expected] : cases)
        EXPECT_EQ(read(body), expected) << body;
    EXPECT_NE(read("/include tree14.a2l").find("more than 10000 files are included"),
              std::string::npos);
}

} // namespace
