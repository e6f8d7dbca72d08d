#include "browser/head_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/error_recorder.h"

namespace marlowick {
namespace {

StrSegment wardrobe(const std::vector<std::string>& rows) {
    StrSegment strings;
    for (const std::string& row : rows) {
        strings.Entries.append({'\1', row, ""});
    }
    return strings;
}

TEST(HeadNamesTest, ASimsHeadStandsInTheThirdRow) {
    const HeadNames names =
        headNames(wardrobe({"adult", "body,BODY=bodyskin", "head,HEAD=face", "rest"}));
    EXPECT_EQ(names.mesh, "head");
    EXPECT_EQ(names.skin, "face");
}

TEST(HeadNamesTest, WithoutAHeadTheBodyIsTaken) {
    const HeadNames names = headNames(wardrobe({"adult", "body,BODY=bodyskin;x", "NONE"}));
    EXPECT_EQ(names.mesh, "body");
    EXPECT_EQ(names.skin, "bodyskin;x");
}

TEST(HeadNamesTest, TheMeshEndsAtTheFirstCommaAndTheSkinBeginsAtTheFirstSign) {
    const HeadNames names = headNames(wardrobe({"adult", "x,BODY=y", "none,a,b=c=d"}));
    EXPECT_EQ(names.mesh, "none");
    EXPECT_EQ(names.skin, "c=d");
}

TEST(HeadNamesTest, ATableWithoutTheRowsIsAFailure) {
    const auto failureOf = [](const StrSegment& strings) {
        return test::errorOf([&] { headNames(strings); });
    };
    EXPECT_EQ(failureOf(wardrobe({})), 9);
    EXPECT_EQ(failureOf(wardrobe({"adult", "body,BODY=skin"})), 9);
    EXPECT_EQ(failureOf(wardrobe({"adult", "body,BODY=skin", "no comma"})), 5);
}

}  // namespace
}  // namespace marlowick
