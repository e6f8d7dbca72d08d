#include "system/path.h"

#include <gtest/gtest.h>

#include "system/runtime_error.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

TEST(PathTest, JoinsANameWithExactlyOneBackslash) {
    EXPECT_EQ(Path("C:\\game").child("a.bmp").text(), "C:\\game\\a.bmp");
    EXPECT_EQ(Path("C:\\game\\temp\\").child("a.bmp").text(), "C:\\game\\temp\\a.bmp");
    EXPECT_EQ(Path("C:\\game").child("Ren\xE9.bmp").text(), "C:\\game\\Ren\xC3\xA9.bmp");
}

TEST(PathTest, ANameNeverReachesAnotherFolder) {
    for (const std::string& name :
         {"..\\x"s,   "../x"s,    "a/b"s,      "C:x"s, "."s,       ".."s,       "..."s,
          ""s,        " "s,       "a\0b"s,     "CON"s, "con.bmp"s, "lpt1.txt"s, "COM\xB9.bmp"s,
          "lpt\xB2"s, "LPT\xB3"s, "AUX .bmp"s, "a*b"s, "a?b"s,     "a\"b"s,     "a|b"s,
          "a\x1f"s}) {
        EXPECT_FALSE(isFileName(name)) << name;
        try {
            (void)Path("C:\\game").child(name);
            ADD_FAILURE() << name;
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), 52);
        }
    }
}

TEST(PathTest, OrdinaryNamesPass) {
    for (const char* name :
         {".BMP", "a..b", "console.bmp", "com10", "com\xBC", "nul_1", "..a", "(a) & b"}) {
        EXPECT_TRUE(isFileName(name)) << name;
    }
}

TEST(PathTest, TakesPathsApartAtTheLastBackslash) {
    const Path path("C:\\game\\user1.iff");
    EXPECT_EQ(path.fileName(), "user1.iff");
    EXPECT_EQ(path.folder().text(), "C:\\game");
}

}  // namespace
}  // namespace marlowick
