#include "model/PhString.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

using namespace tavo;

TEST(PhStringTest, ComparesByUnsignedByteWithNullFirst)
{
    const std::tuple<const char*, const char*, int> cases[] = {
        {nullptr, nullptr, 0}, {nullptr, "", -1}, {"", "", 0},      {"ab", "ab", 0},
        {"ab", "abc", -1},     {"abd", "abc", 1}, {"\x80", "z", 1}, {"a\xff", "a\x7f", 1},
    };
    for (const auto& [left, right, expected] : cases) {
        SCOPED_TRACE(left ? left : "null");
        const PhString a(left);
        const PhString b(right);
        EXPECT_EQ(a.isNull(), left == nullptr);
        EXPECT_EQ(a.compare(b), expected);
        EXPECT_EQ(b.compare(a), -expected);
        EXPECT_EQ(a == b, expected == 0);
        EXPECT_EQ(sameText(a, b), expected == 0);
        // Against plain text a null string is less than everything and equal to nothing.
        EXPECT_EQ(a.compare(right), left ? expected : -1);
        EXPECT_EQ(a == right, left && expected == 0);
    }
}

TEST(PhStringTest, CopiesShareTheirBodyUntilOneIsWrittenTo)
{
    PhString original("room for more");
    original.set("text");
    PhString appended(original);
    PhString replaced(original);
    PhString detached(original);
    EXPECT_EQ(appended.cStr(), original.cStr());
    EXPECT_EQ((original + PhString()).cStr(), original.cStr());
    appended.append("ure");
    replaced.set("new");
    detached.detach();
    EXPECT_STREQ(original, "text");
    EXPECT_STREQ(appended, "texture");
    EXPECT_STREQ(replaced, "new");
    EXPECT_STREQ(detached, "text");
    EXPECT_NE(detached.cStr(), original.cStr());
}

TEST(PhStringTest, SetUsesABufferThatIsLargeEnoughAgain)
{
    PhString string("long text");
    const char* const buffer = string.cStr();
    string.set("short");
    string.append("est");
    EXPECT_STREQ(string, "shortest");
    string.set("LONG TEXT");
    EXPECT_EQ(string.cStr(), buffer);
    EXPECT_STREQ(string, "LONG TEXT");
    string.set(std::string_view("ends\0here", 9));
    EXPECT_EQ(string.length(), 4U);
    string.set(nullptr);
    EXPECT_TRUE(string.isNull());
}

TEST(PhStringTest, TakesNothingAndPiecesOfItself)
{
    PhString string;
    string.append("");
    string.append(nullptr);
    string += PhString("");
    EXPECT_TRUE(string.isNull());
    string.set("abcdef");
    string.append(string.cStr() + 3);
    string.set(string.cStr() + 4);
    EXPECT_STREQ(string, "efdef");
    string += string;
    EXPECT_STREQ(string, "efdefefdef");
    PhString shared(string);
    shared.set(shared.cStr() + 7);
    shared = std::as_const(shared);
    shared = shared.cStr();
    EXPECT_STREQ(shared, "def");
    const PhString moved(std::move(shared));
    shared = PhString(-2147483647 - 1);
    EXPECT_STREQ(moved, "def");
    EXPECT_STREQ(shared, "-2147483648");
}
