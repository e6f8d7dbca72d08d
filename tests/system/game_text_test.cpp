#include "system/game_text.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace marlowick {
namespace {

TEST(GameTextTest, EveryByteSurvivesTheRoundTrip) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(utf8ToGameText(gameTextToUtf8(text)), text) << byte;
    }
}

TEST(GameTextTest, ConvertsTheHighControlsAndAccents) {
    EXPECT_EQ(gameTextToUtf8("\x80 \xE9 \x8A \x81"), "\xE2\x82\xAC \xC3\xA9 \xC5\xA0 \xC2\x81");
}

TEST(GameTextTest, ACharacterWithoutAByteBecomesAQuestionMark) {
    EXPECT_EQ(utf8ToGameText("a\xCE\xB1z"), "a?z");          // Greek alpha
    EXPECT_EQ(utf8ToGameText("a\xF0\x9F\x98\x80z"), "a?z");  // beyond 16 bits
    EXPECT_EQ(utf8ToGameText("a\xFFz"), "a?z");              // no UTF-8 at all
    EXPECT_EQ(utf8ToGameText("a\xC3"), "a?");                // cut off
}

TEST(GameTextTest, CaseFollowsOneFixedTable) {
    EXPECT_EQ(upperCase("az\xE0\xFE\x9A\x9C\x9E\xFF"), "AZ\xC0\xDE\x8A\x8C\x8E\x9F");
    EXPECT_EQ(lowerCase("AZ\xC0\xDE\x8A\x8C\x8E\x9F"), "az\xE0\xFE\x9A\x9C\x9E\xFF");
    // Sharp s, the division and multiplication signs, micro and the florin have no other case.
    EXPECT_EQ(upperCase("\xDF\xF7\xB5\x83"), "\xDF\xF7\xB5\x83");
    EXPECT_EQ(lowerCase("\xD7"), "\xD7");
}

TEST(GameTextTest, ComparesUpperCasedBytes) {
    EXPECT_TRUE(equalsIgnoringCase("Bj\xF6rn", "BJ\xD6RN"));
    EXPECT_FALSE(equalsIgnoringCase("a", "ab"));
    EXPECT_LT(compareIgnoringCase("a", "B"), 0);
    EXPECT_GT(compareIgnoringCase("a_", "aB"), 0);  // "_" lies behind the capitals
    EXPECT_LT(compareIgnoringCase("ab", "abc"), 0);
}

TEST(GameTextTest, MatchesMasksBlindToCase) {
    EXPECT_TRUE(matchesMask("USER00001.IFF", "user*.iff"));
    EXPECT_TRUE(matchesMask("user.iff", "user*.iff"));
    EXPECT_FALSE(matchesMask("user1.iff.bak", "user*.iff"));
    EXPECT_TRUE(matchesMask("gfao_bride.bmp", "gf??_*.bmp"));
    EXPECT_FALSE(matchesMask("gfa_bride.bmp", "gf??_*.bmp"));
    EXPECT_TRUE(matchesMask("anything", "*"));
    EXPECT_FALSE(matchesMask("", "?"));
    EXPECT_TRUE(matchesMask(std::string(30000, 'a') + "b", "*a*a*a*a*b"));
}

// Each byte that begins no character is one of its own, and what comes behind it isn't swallowed.
TEST(GameTextTest, WhatIsNoUtf8CostsItsOwnBytesAlone) {
    EXPECT_EQ(utf8ToGameText("a\xC3z"), "a?z");                 // no second byte
    EXPECT_EQ(utf8ToGameText("a\xE2\x82z"), "a??z");            // no third
    EXPECT_EQ(utf8ToGameText("a\xC0\xAFz"), "a??z");            // longer than it had to be
    EXPECT_EQ(utf8ToGameText("a\xE0\x80\xAFz"), "a???z");       // the same in three bytes
    EXPECT_EQ(utf8ToGameText("a\xED\xA0\x80z"), "a???z");       // half of a pair
    EXPECT_EQ(utf8ToGameText("a\xF4\x90\x80\x80z"), "a????z");  // beyond the last character
}

TEST(GameTextTest, LettersBeyondTheGamesHaveTheirUpperCaseToo) {
    struct Pair {
        char32_t letter, upper;
    };
    for (const auto& [letter, upper] : std::initializer_list<Pair>{
             {'a', 'A'},     {'z', 'Z'},     {0xE9, 0xC9},   {0xF7, 0xF7},   {0xFF, 0x178},
             {0x100, 0x100}, {0x101, 0x100}, {0x131, 0x131}, {0x137, 0x136}, {0x138, 0x138},
             {0x139, 0x139}, {0x13A, 0x139}, {0x148, 0x147}, {0x149, 0x149}, {0x14A, 0x14A},
             {0x14B, 0x14A}, {0x177, 0x176}, {0x178, 0x178}, {0x179, 0x179}, {0x17A, 0x179},
             {0x17E, 0x17D}, {0x17F, 0x17F}, {0x3B1, 0x391}, {0x3C2, 0x3C2}, {0x3C9, 0x3A9},
             {0x430, 0x410}, {0x44F, 0x42F}, {0x450, 0x400}, {0x45F, 0x40F}, {0x460, 0x460}}) {
        EXPECT_EQ(upperCodePoint(letter), upper) << std::hex << static_cast<unsigned>(letter);
    }
}

}  // namespace
}  // namespace marlowick
