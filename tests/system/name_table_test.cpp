#include "system/name_table.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

using std::string_literals::operator""s;

TEST(NameTableTest, FindsTheVeryNameOrTheFirstThatDiffersInCase) {
    const NameTable names("Face.BMP\0body\0BODY\0Body\0\xC3\x89t\xC3\xA9\0"s);
    EXPECT_EQ(names.size(), 5U);
    EXPECT_EQ(names.find("fACE.bmp"), "Face.BMP");
    EXPECT_EQ(names.find("Body"), "Body");
    EXPECT_EQ(names.find("body"), "body");
    EXPECT_EQ(names.find("bODY"), "BODY");
    EXPECT_EQ(names.find("\xC3\xA9T\xC3\x89"), "\xC3\x89t\xC3\xA9");
    EXPECT_EQ(names.find("\xC3\xA8t\xC3\xA9"), "");
    EXPECT_EQ(names.find("face"), "");
    EXPECT_EQ(names.find(""), "");
    EXPECT_EQ(NameTable().find("face"), "");
}

TEST(NameTableTest, NamesComeAndGo) {
    NameTable names("one\0two\0"s);
    names.add("THREE");
    names.add("two");
    EXPECT_EQ(names.size(), 3U);
    EXPECT_EQ(names.find("three"), "THREE");
    names.remove("three");  // another name
    EXPECT_EQ(names.find("three"), "THREE");
    names.remove("THREE");
    EXPECT_EQ(names.find("three"), "");
    names.add("Three");
    EXPECT_EQ(names.find("THREE"), "Three");
    names.remove("one");
    names.remove("one");
    EXPECT_EQ(names.size(), 2U);
    EXPECT_EQ(names.find("TWO"), "two");
}

// More than there were places for, and the same ones time and again.
TEST(NameTableTest, KeepsManyNamesApartWhileTheyChange) {
    NameTable names;
    const auto nameOf = [](int i) { return "User" + std::to_string(i) + ".iff"; };
    for (int i = 0; i < 5000; ++i) {
        names.add(nameOf(i));
    }
    for (int time = 0; time < 20; ++time) {
        for (int i = 0; i < 5000; i += 2) {
            names.remove(nameOf(i));
        }
        EXPECT_EQ(names.find("USER0.IFF"), "");
        EXPECT_EQ(names.find("USER4999.IFF"), "User4999.iff");
        for (int i = 0; i < 5000; i += 2) {
            names.add(nameOf(i));
        }
    }
    EXPECT_EQ(names.size(), 5000U);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(names.find("uSER" + std::to_string(i) + ".IFF"), nameOf(i));
    }
    EXPECT_EQ(names.find("user5000.iff"), "");
}

TEST(NameTableTest, LongNamesAndThoseOfOtherLettersMeetTheirUpperCase) {
    const std::string longName(300, 'a');
    const std::string cyrillic = "\xD0\xB6\xD1\x83\xD0\xBA";  // small letters
    NameTable names(longName + '\0' + cyrillic + '\0');
    EXPECT_EQ(names.find(std::string(300, 'A')), longName);
    EXPECT_EQ(names.find("\xD0\x96\xD0\xA3\xD0\x9A"), cyrillic);
}

}  // namespace
}  // namespace marlowick
