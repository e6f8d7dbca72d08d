#include "foundation/bytes.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::errorOf;

TEST(BytesTest, ReadsNumbersInBothOrders) {
    EXPECT_EQ(gflngBigEndianToLong("\x00\x00\x00\x4C"s), 76);
    EXPECT_EQ(gflngLittleEndianToLong("\x4C\x00\x00\x00"s), 76);
    EXPECT_EQ(gflngLittleEndianToLong("\x01\x02\x03\x04"s), 0x04030201);
    EXPECT_EQ(gflngBigEndianToLong("\x01\x02\x03\x04"s), 0x01020304);
}

TEST(BytesTest, ReadsTheTopBitAsTheSign) {
    EXPECT_EQ(gflngBigEndianToLong("\xFF\xFF\xFF\xFF"s), -1);
    EXPECT_EQ(gflngBigEndianToLong("\x80\x00\x00\x00"s), -2147483647 - 1);
    EXPECT_EQ(gflngLittleEndianToLong("\xFF\xFF\xFF\x7F"s), 2147483647);
}

TEST(BytesTest, FailsOnFewerThanFourBytes) {
    EXPECT_EQ(errorOf([] { gflngLittleEndianToLong("abc"); }), 5);
    EXPECT_EQ(errorOf([] { gflngBigEndianToLong(""); }), 5);
}

TEST(BytesTest, LooksAtTheFirstFourBytesAlone) {
    EXPECT_EQ(gflngBigEndianToLong("\x00\x00\x00\x01\x09"s), 1);
}

TEST(BytesTest, WritesNumbersInBothOrders) {
    EXPECT_EQ(gfstrLongToBigEndian(-1), "\xFF\xFF\xFF\xFF"s);
    EXPECT_EQ(gfstrLongToLittleEndian(255), "\xFF\x00\x00\x00"s);
    EXPECT_EQ(gfstrLongToBigEndian(0x01020304), "\x01\x02\x03\x04"s);
    EXPECT_EQ(gfstrLongToLittleEndian(-2147483647 - 1), "\x00\x00\x00\x80"s);
}

TEST(BytesTest, CutsAtTheFirstZeroByte) {
    EXPECT_EQ(gfstrTrimAtNull("\0abc"s), "");
    EXPECT_EQ(gfstrTrimAtNull("ab\0c\0"s), "ab");
    EXPECT_EQ(gfstrTrimAtNull("abc"), "abc");
}

TEST(BytesTest, ReversesExactlyFourBytes) {
    EXPECT_EQ(gfstrReverseFour("#RTS"), "STR#");
    EXPECT_EQ(gfstrReverseFour("ab"), "    ");
    EXPECT_EQ(gfstrReverseFour("abcde"), "    ");
    EXPECT_EQ(gfstrReverseFour(""), "    ");
}

TEST(BytesTest, TurnsHexDigitsIntoAByteAndUpperCasesTheCallersText) {
    std::string digits = "c8";
    EXPECT_EQ(gfintHexToByte(digits), 200);
    EXPECT_EQ(digits, "C8");
    std::string one = "f";
    EXPECT_EQ(gfintHexToByte(one), 15);
    EXPECT_EQ(one, "F");
}

TEST(BytesTest, CountsMalformedHexDigitsAsNothing) {
    struct Row {
        const char* digits;
        int value;
    };
    for (const Row& row : {Row{"G1", 1}, Row{"1G", 16}, Row{"ZZ", 0}, Row{"", -1}, Row{"123", -1},
                           Row{"00", 0}, Row{"FF", 255}}) {
        std::string digits = row.digits;
        EXPECT_EQ(gfintHexToByte(digits), row.value) << row.digits;
    }
}

TEST(BytesTest, TurnsAnAddressIntoFourBytes) {
    EXPECT_EQ(gfstrHexToBytes("00 C8 00 10"), "\x00\xC8\x00\x10"s);
    EXPECT_EQ(gfstrHexToBytes("7 D0 0 1"), "\x07\xD0\x00\x01"s);
    EXPECT_EQ(errorOf([] { gfstrHexToBytes("00 C8 00"); }), 5);
    EXPECT_EQ(errorOf([] { gfstrHexToBytes("00 C8  10"); }), 5);
    EXPECT_EQ(errorOf([] { gfstrHexToBytes("00 C8 000 10"); }), 5);
}

TEST(BytesTest, KeepsTheCleanCharactersOfAName) {
    EXPECT_EQ(gfstrCleanName("web_image.bmp"), "web_imagebmp");
    EXPECT_EQ(gfstrCleanName("rel. images"), "relimages");
    EXPECT_EQ(gfstrCleanName("a-Z_09 \xE9(@"), "a-Z_09");
    EXPECT_EQ(gfstrCleanName(std::string(32767, 'x')).size(), 32767U);
    EXPECT_EQ(errorOf([] { gfstrCleanName(std::string(32768, 'x')); }), 6);
}

TEST(BytesTest, GivesTheFileNameOfAPath) {
    EXPECT_EQ(gfstrFileNameOfPath("C:\\game\\user1.iff"), "user1.iff");
    EXPECT_EQ(gfstrFileNameOfPath("user1.iff"), "user1.iff");
    EXPECT_EQ(gfstrFileNameOfPath("C:\\game\\"), "");
}

}  // namespace
}  // namespace marlowick
