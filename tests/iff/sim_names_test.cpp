#include "iff/sim_names.h"

#include <gtest/gtest.h>

#include "iff/user_file_test.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

class SimNamesTest : public test::UserFileTest {
  protected:
    bool isUser(const std::string& type, const std::string& label) {
        return isUserObject({0, type, "", "", test::padded(label, 64), ""});
    }

    std::string nameIn(const std::string& data) {
        return catalogueName({0, "CTSS", "", "", "", data});
    }
};

TEST_F(SimNamesTest, AUserObjectsLabelBeginsWithUser) {
    EXPECT_TRUE(isUser("OBJD", "User00012"));
    EXPECT_TRUE(isUser("OBJD", "uSER"));
    EXPECT_FALSE(isUser("OBJD", "Tuser1"));
    EXPECT_FALSE(isUser("OBJD", "use\0r"s));
    EXPECT_FALSE(isUser("OBJf", "user1"));
}

TEST_F(SimNamesTest, TheNameBeginsAtTheSixthByteAndEndsAtAZeroByte) {
    EXPECT_EQ(nameIn("\xFD\xFF\2\0\1Mara\0\0rest"s), "Mara");
    EXPECT_EQ(nameIn("\xFD\xFF\2\0\1Mara"s), "Mara");
    EXPECT_EQ(nameIn("\xFD\xFF\2\0\1"s), "");
    EXPECT_EQ(nameIn(""), "");
}

TEST_F(SimNamesTest, ThePageOfSimsShowsTheFirstOfEachKind) {
    EXPECT_FALSE(firstUserLabel(iff).has_value());
    EXPECT_FALSE(firstCatalogueName(iff).has_value());
    add("OBJD", "chair");
    add("OBJD", "uSer1 - One  \0junk"s);
    add("CTSS", "", "\xFD\xFF\1\0\1One  \0\0"s);
    add("OBJD", "user2");
    add("CTSS", "", "\xFD\xFF\1\0\1Two\0\0"s);
    EXPECT_EQ(firstUserLabel(iff), "uSer1 - One  ");
    EXPECT_EQ(firstCatalogueName(iff), "One  ");
}

TEST_F(SimNamesTest, OfEachKindTheLastCounts) {
    EXPECT_FALSE(lastUserLabel(iff).has_value());
    EXPECT_FALSE(lastCatalogueName(iff).has_value());
    add("OBJD", "user1");
    add("CTSS", "", "\xFD\xFF\1\0\1One\0\0"s);
    add("OBJD", "User2 - Two  \0junk"s);
    add("CTSS", "", "\xFD\xFF\1\0\1Two  \0\0"s);
    add("OBJD", "chair");
    add("STR#", "user3", "\xFD\xFF\1\0\1No\0\0"s);
    EXPECT_EQ(lastUserLabel(iff), "User2 - Two");
    EXPECT_EQ(lastCatalogueName(iff), "Two  ");
}

}  // namespace
}  // namespace marlowick
