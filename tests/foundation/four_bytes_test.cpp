#include "foundation/four_bytes.h"

#include <gtest/gtest.h>

#include "foundation/bytes.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

TEST(FourBytesTest, AreEmptyUntilTheyAreGiven) {
    const FourBytes field;
    EXPECT_TRUE(field.empty());
    EXPECT_EQ(field, "");
    EXPECT_EQ(std::string(field), "");
}

TEST(FourBytesTest, TakeAndGiveTexts) {
    FourBytes field = "\x01\0\x02\0"s;
    const std::string text = field;
    EXPECT_EQ(text, "\x01\0\x02\0"s);
    EXPECT_EQ(field.size(), 4U);
    EXPECT_EQ(field[2], '\x02');
    field = "STR#";
    const std::string_view view = field;
    EXPECT_EQ(view, "STR#");
    EXPECT_EQ(view.data(), field.data());
    field = std::string_view("ab");
    EXPECT_EQ(std::string(field), "ab");
    field = std::string();
    EXPECT_TRUE(field.empty());
}

TEST(FourBytesTest, KeepNoMoreThanFour) {
    EXPECT_EQ(std::string(FourBytes("OBJDx")), "OBJD");
}

TEST(FourBytesTest, AreComparedByTheirBytesAndTheirNumber) {
    const FourBytes field = "BMP_";
    EXPECT_TRUE(field == "BMP_" && "BMP_" == field);
    EXPECT_TRUE(field == "BMP_"s && "BMP_"s == field);
    EXPECT_TRUE(field == FourBytes("BMP_"));
    EXPECT_TRUE(field != "BMP" && field != FourBytes("bmp_") && "BMP_x"s != field);
    EXPECT_TRUE(FourBytes() != FourBytes("\0\0\0\0"s));
}

TEST(FourBytesTest, StandInTexts) {
    const FourBytes left = "ab";
    const FourBytes right = "cdef";
    EXPECT_EQ(left + right, "abcdef");
    EXPECT_EQ(left + "x"s, "abx");
    EXPECT_EQ("x" + right, "xcdef");
    EXPECT_EQ(gflngLittleEndianToLong(FourBytes("\x02\x01\0\0"s)), 258);
}

}  // namespace
}  // namespace marlowick
