#include "preview/items.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/error_recorder.h"
#include "support/mesh_files.h"

namespace marlowick {
namespace {

using test::errorOf;

float realOf(std::string_view text) {
    return TextItems(text).real();
}

int failureOfReal(std::string_view text) {
    return errorOf([&] { realOf(text); });
}

TEST(TextItemsTest, FloatsAreTheNearest) {
    EXPECT_EQ(realOf("0.1"), 0.1F);
    EXPECT_EQ(realOf("-1"), -1.0F);
    EXPECT_EQ(realOf("+2.5"), 2.5F);
    EXPECT_EQ(realOf("1.234567e-005"), 1.234567e-5F);
    EXPECT_EQ(realOf("-5.88894e-5"), -5.88894e-5F);
    EXPECT_EQ(realOf("16777217"), 16777216.0F);
    // A little more than half way to the next float, so little that a double has it half way.
    EXPECT_EQ(realOf("1.00000005960464477539062500000001"), 1.0000001F);
    EXPECT_EQ(realOf("3.4028235e38"), std::numeric_limits<float>::max());
}

TEST(TextItemsTest, WhatIsTooSmallIsNothing) {
    EXPECT_NEAR(realOf("1e-45"), 0, 2e-45F);
    EXPECT_EQ(realOf("1e-60"), 0.0F);
    EXPECT_EQ(realOf("-1.5e-0400"), 0.0F);
    EXPECT_EQ(realOf("0." + std::string(400, '0') + "1"), 0.0F);
}

TEST(TextItemsTest, WhatIsNoNumberOrHasNoEndIsRefused) {
    EXPECT_EQ(failureOfReal("nan"), 6);
    EXPECT_EQ(failureOfReal("-nan"), 6);
    EXPECT_EQ(failureOfReal("inf"), 6);
    EXPECT_EQ(failureOfReal("1e39"), 6);
    EXPECT_EQ(failureOfReal("1" + std::string(400, '0')), 6);
    EXPECT_EQ(failureOfReal("1.#QNAN"), 13);
    EXPECT_EQ(failureOfReal("1.5x"), 13);
    EXPECT_EQ(failureOfReal("word"), 13);
    EXPECT_EQ(failureOfReal(""), 62);
    EXPECT_EQ(failureOfReal(" \r\n\t\r\n"), 62);
}

TEST(TextItemsTest, NumbersHaveThirtyTwoBits) {
    TextItems items("7 -1 4294967295 2147483648 +3");
    EXPECT_EQ(items.number(), 7);
    EXPECT_EQ(items.number(), -1);
    EXPECT_EQ(items.number(), -1);
    EXPECT_EQ(items.number(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(items.number(), 3);
    for (const char* text : {"4294967296", "-2147483649"}) {
        EXPECT_EQ(errorOf([&] { TextItems(text).number(); }), 6) << text;
    }
    for (const char* text : {"1.0", "x", "99999999999999999999"}) {
        EXPECT_EQ(errorOf([&] { TextItems(text).number(); }), 13) << text;
    }
}

TEST(TextItemsTest, LinesBarsBlanksAndComments) {
    TextItems items(
        "// made by hand\r\nversion 300\n\tfirst name \r|1.5\t2 |  3|\n // more\n  4\nlast");
    items.skipVersion();
    EXPECT_EQ(items.text(), "first name");
    EXPECT_EQ(readVector(items), (Vector{1.5F, 2, 3}));
    EXPECT_EQ(items.number(), 4);
    EXPECT_EQ(items.text(), "last");
    EXPECT_EQ(errorOf([&] { items.text(); }), 62);
}

TEST(TextItemsTest, TheVersionMayStandBehindEmptyLinesAndInAnyCase) {
    TextItems items("// made by hand\r\n\r\n \nVERSION 300\r\n0\r\n");
    items.skipVersion();
    EXPECT_EQ(items.number(), 0);
    TextItems without("\r\n7\r\n");
    without.skipVersion();
    EXPECT_EQ(without.number(), 7);
    TextItems nothing("\r\n");
    nothing.skipVersion();
    EXPECT_EQ(errorOf([&] { nothing.number(); }), 62);
}

TEST(TextItemsTest, AnEmptyLineIsAnEmptyText) {
    TextItems items("name\r\n\r\n1\r\n");
    items.skipVersion();
    EXPECT_EQ(items.text(), "name");
    EXPECT_EQ(items.text(), "");
    EXPECT_EQ(items.number(), 1);
}

TEST(BinaryItemsTest, ReadsWhatIsThere) {
    const std::string bytes = test::counted("name") + test::integers({-2}) +
                              test::floats({0.25F, 1e-45F}) + test::counted("");
    BinaryItems items(bytes);
    EXPECT_EQ(items.text(), "name");
    EXPECT_EQ(items.number(), -2);
    EXPECT_EQ(items.real(), 0.25F);
    EXPECT_EQ(items.real(), 1e-45F);
    EXPECT_EQ(items.text(), "");
    EXPECT_EQ(errorOf([&] { items.text(); }), 62);
    EXPECT_EQ(errorOf([&] { BinaryItems("123").number(); }), 62);
    EXPECT_EQ(errorOf([&] { BinaryItems("\x05name").text(); }), 62);
    for (const float value :
         {std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity()}) {
        const std::string wrong = test::floats({value});
        EXPECT_EQ(errorOf([&] { BinaryItems(wrong).real(); }), 6);
    }
}

// A count that lies ends with the bytes.
TEST(BinaryItemsTest, PropertyListsArePassedOver) {
    const std::string bytes = test::integers({2, 1}) + test::counted("key") +
                              test::counted("value") + test::integers({0, 5});
    BinaryItems items(bytes);
    skipProperties(items);
    EXPECT_EQ(items.number(), 5);
    const std::string wrong = test::integers({0x7FFFFFFF, 0, 0, 0});
    BinaryItems lying(wrong);
    EXPECT_EQ(errorOf([&] { skipProperties(lying); }), 62);
    const std::string negative = test::integers({-1});
    BinaryItems below(negative);
    EXPECT_EQ(errorOf([&] { skipProperties(below); }), 9);
}

}  // namespace
}  // namespace marlowick
