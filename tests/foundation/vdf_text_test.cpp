#include "foundation/vdf_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marlowick {
namespace {

using ::testing::ElementsAre;

// "outer.inner=value" for each value.
std::vector<std::string> valuesOf(std::string_view text) {
    std::vector<std::string> values;
    readVdf(text, [&](const std::vector<std::string>& keys, const std::string& value) {
        std::string line;
        for (const std::string& key : keys) {
            line += (line.empty() ? "" : ".") + key;
        }
        values.push_back(line + "=" + value);
    });
    return values;
}

TEST(VdfTextTest, HandsOutValuesWithTheirKeysInOrder) {
    EXPECT_THAT(valuesOf("\"a\"\n{\n\t\"b\"\t\t\"1\"\n\t\"c\" { \"d\" \"2\" }\n\t\"e\" \"3\"\n}\n"
                         "\"f\" \"4\""),
                ElementsAre("a.b=1", "a.c.d=2", "a.e=3", "f=4"));
}

TEST(VdfTextTest, ReadsEscapesAndBareWords) {
    EXPECT_THAT(valuesOf("\"p\" \"D:\\\\Games\\\\\\\"x\\\"\\n\\t\\G\""),
                ElementsAre("p=D:\\Games\\\"x\"\n\t\\G"));
    EXPECT_THAT(valuesOf("a{b c\"d\"\"e\"}"), ElementsAre("a.b=c", "a.d=e"));
    EXPECT_THAT(valuesOf("\"\" \"\""), ElementsAre("="));
}

TEST(VdfTextTest, PassesOverRemarksAndConditions) {
    EXPECT_THAT(valuesOf("// a { \"\n\"a\" \"1\" [$WIN32] // more\n\"b\" \"2\"//"),
                ElementsAre("a=1", "b=2"));
}

TEST(VdfTextTest, EndsWhereItIsNoSuchText) {
    EXPECT_THAT(valuesOf("\"a\" \"1\" } \"b\" \"2\""), ElementsAre("a=1"));
    EXPECT_THAT(valuesOf("\"a\" \"1\" { \"b\" \"2\" }"), ElementsAre("a=1"));
    EXPECT_THAT(valuesOf("\"a\" { \"b\" } \"c\" \"2\""), ElementsAre());
    EXPECT_THAT(valuesOf("\"a\" \"1\" \"b\" \"no end"), ElementsAre("a=1"));
    EXPECT_THAT(valuesOf("\"a\" \"no end\\"), ElementsAre());
    EXPECT_THAT(valuesOf("\"a\""), ElementsAre());
    EXPECT_THAT(valuesOf(""), ElementsAre());
    EXPECT_THAT(valuesOf("[no end"), ElementsAre());
}

TEST(VdfTextTest, BracesMayNotStandDeeperThanRealOnes) {
    const auto nested = [](int depth) {
        std::string text;
        for (int i = 0; i < depth; ++i) {
            text += "k{";
        }
        return text + "a 1";
    };
    EXPECT_EQ(valuesOf(nested(15)).size(), 1U);
    EXPECT_EQ(valuesOf(nested(16)).size(), 0U);
    EXPECT_EQ(valuesOf(nested(1000000)).size(), 0U);
}

// A second for each would be a thousand times too long.
TEST(VdfTextTest, WhateverItIsTakesNoLongerThanItsLength) {
    for (const char* piece : {"\"", "{", "}", "\\", "\"\\", "[", "//", "a ", "\"a\" ", "a{", "a{}",
                              "\"a\"{\"b\" \"c\"}", "\n", "\xFF", "[]"}) {
        std::string text;
        while (text.size() < (1U << 20U)) {
            text += piece;
        }
        std::size_t size = 0;
        readVdf(text, [&](const std::vector<std::string>& keys, const std::string& value) {
            size += keys.back().size() + value.size();
        });
        EXPECT_LE(size, text.size()) << piece;
    }
}

}  // namespace
}  // namespace marlowick
