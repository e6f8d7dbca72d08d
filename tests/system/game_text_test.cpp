#include "system/game_text.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace marlowick
