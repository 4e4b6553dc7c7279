#include "model/PhString.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tavo;

TEST(PhStringTest, NullAndEmptyAreTwoThings)
{
    const PhString null;
    const PhString empty("");
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(nullptr, null.cStr());
    EXPECT_FALSE(empty.isNull());
    EXPECT_EQ(0U, empty.length());
    EXPECT_FALSE(sameText(null, empty));
    EXPECT_TRUE(sameText(null, PhString()));
    EXPECT_TRUE(sameText(empty, PhString("")));
}

TEST(PhStringTest, ComparesByUnsignedByteWithNullFirst)
{
    struct
    {
        const char* left;
        const char* right;
        int expected;
    } const cases[] = {
        {nullptr, nullptr, 0}, {nullptr, "", -1}, {"", nullptr, 1},  {"", "", 0},
        {"ab", "ab", 0},       {"ab", "abc", -1}, {"abd", "abc", 1}, {"\x80", "z", 1},
        {"a\xff", "a\x7f", 1}, {"", "a", -1},     {"a", "\xe4", -1},
    };
    for (const auto& [left, right, expected] : cases) {
        SCOPED_TRACE(testing::Message()
                     << (left ? left : "null") << "/" << (right ? right : "null"));
        const PhString string(left);
        EXPECT_EQ(expected, string.compare(PhString(right)));
        EXPECT_EQ(expected == 0, string == PhString(right));
        // Against plain text a null string is less than everything and equal to nothing.
        EXPECT_EQ(left ? expected : -1, string.compare(right));
        EXPECT_EQ(left && expected == 0, string == right);
        EXPECT_NE(string == right, string != right);
    }
}

TEST(PhStringTest, HashFoldsUnsignedBytesAndDropsHighBits)
{
    EXPECT_EQ(0U, PhString().hash());
    EXPECT_EQ(0U, PhString("").hash());
    EXPECT_EQ(292U, PhString("ab").hash());
    EXPECT_EQ(255U, PhString("\xff").hash());
    // The first byte has left the 32 bits behind 32 further ones.
    EXPECT_EQ(PhString("aXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX").hash(),
              PhString("bXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX").hash());
}

TEST(PhStringTest, CopiesShareTheirBodyUntilOneIsWrittenTo)
{
    const PhString original("text");
    PhString appended(original);
    PhString replaced;
    replaced = original;
    PhString detached(original);
    EXPECT_EQ(original.cStr(), appended.cStr());
    EXPECT_EQ(original.cStr(), replaced.cStr());

    appended.append("ure");
    replaced.set("new");
    detached.detach();
    EXPECT_STREQ("text", original);
    EXPECT_STREQ("texture", appended);
    EXPECT_STREQ("new", replaced);
    EXPECT_STREQ("text", detached);
    EXPECT_NE(original.cStr(), detached.cStr());
}

TEST(PhStringTest, SetUsesABufferThatIsLargeEnoughAgain)
{
    PhString string("long text");
    const char* const buffer = string.cStr();
    string.set("short");
    EXPECT_EQ(buffer, string.cStr());
    EXPECT_STREQ("short", string);
    string.append("est");
    string.set("LONG TEXT");
    EXPECT_EQ(buffer, string.cStr());
    EXPECT_STREQ("LONG TEXT", string);
    string.set(nullptr);
    EXPECT_TRUE(string.isNull());
}

TEST(PhStringTest, AppendOfNothingChangesNothing)
{
    PhString string;
    string.append("");
    string.append(nullptr);
    string += PhString("");
    string += PhString();
    EXPECT_TRUE(string.isNull());
    string += PhString("a");
    string += PhString("b");
    EXPECT_STREQ("ab", string);
}

TEST(PhStringTest, TakesPiecesOfItself)
{
    PhString string("abcdef");
    string.append(string.cStr() + 3);
    EXPECT_STREQ("abcdefdef", string);
    string.set(string.cStr() + 4);
    EXPECT_STREQ("efdef", string);
    string.append(string.cStr() + 2);
    EXPECT_STREQ("efdefdef", string);
    string += string;
    EXPECT_STREQ("efdefdefefdefdef", string);

    PhString shared(string);
    shared.set(shared.cStr() + 13);
    EXPECT_STREQ("def", shared);
    shared = std::as_const(shared);
    shared = shared.cStr();
    EXPECT_STREQ("def", shared);
}

TEST(PhStringTest, SumLeavesItsOperandsAlone)
{
    const PhString left("a");
    const PhString right("b");
    EXPECT_STREQ("ab", left + right);
    EXPECT_STREQ("a", left);
    EXPECT_EQ(left.cStr(), (left + PhString()).cStr());
    EXPECT_TRUE((PhString() + PhString("")).isNull());
}

TEST(PhStringTest, MovingLeavesANullString)
{
    PhString source("text");
    PhString target("old");
    target = std::move(source);
    EXPECT_STREQ("text", target);
    const PhString last(std::move(target));
    EXPECT_STREQ("text", last);
    target = "again";
    EXPECT_STREQ("again", target);
}

TEST(PhStringTest, NumbersAreDecimal)
{
    EXPECT_STREQ("-2147483648", PhString(-2147483647 - 1));
    EXPECT_STREQ("4294967295", PhString(4294967295U));
    EXPECT_STREQ("0", PhString(0));
}
