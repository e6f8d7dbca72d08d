#include "preview/worn.h"

#include <gtest/gtest.h>

#include "support/user_file_builder.h"

namespace marlowick {
namespace {

StrSegment table(const std::vector<std::string>& rows) {
    StrSegment segment;
    for (const std::string& row : rows) {
        StrEntry entry;
        entry.Text = row;
        segment.Entries.append(entry);
    }
    return segment;
}

TEST(WornTest, RowsAreSplitAtTheirMarks) {
    EXPECT_EQ(splitRow("b001fafit_01,BODY=b001fafitlgt_01"),
              (SuitAndSkin{"b001fafit_01", "b001fafitlgt_01"}));
    EXPECT_EQ(splitRow("HfLO,HAND=huaolgt"), (SuitAndSkin{"HfLO", "huaolgt"}));
    EXPECT_EQ(splitRow("a,b,c=d=e"), (SuitAndSkin{"a", "d=e"}));
    EXPECT_EQ(splitRow(",BODY="), SuitAndSkin());
    EXPECT_EQ(splitRow(",BODY=skin"), (SuitAndSkin{"", "skin"}));
    EXPECT_EQ(splitRow("huaolgt"), SuitAndSkin());
    EXPECT_EQ(splitRow(""), SuitAndSkin());
}

TEST(WornTest, AnOutfitWithoutABodyIsWornOnTheNormalOne) {
    const SuitAndSkin normal = {"body", "skin"};
    EXPECT_EQ(clothes({"other", "dress"}, normal), (SuitAndSkin{"other", "dress"}));
    EXPECT_EQ(clothes({"", "dress"}, normal), (SuitAndSkin{"body", "dress"}));
    EXPECT_EQ(clothes({"other", ""}, normal), (SuitAndSkin{"other", ""}));
    EXPECT_FALSE(clothes({"", ""}, normal));
    EXPECT_FALSE(clothes({"ADDED", "ADDED"}, normal));
    EXPECT_FALSE(clothes({"*** VACATION ONLY ***", ""}, normal));
    EXPECT_FALSE(clothes({"", "*** ADULT SIMS ONLY ***"}, normal));
}

TEST(WornTest, ASimsNormalClothes) {
    std::vector<std::string> rows(35, "row");
    rows[0] = "adult";
    rows[1] = "body,BODY=skin;extra=kept";
    rows[2] = "head,HEAD=face";
    rows[17] = "HfLO,HAND=huaolgt";
    rows[18] = "HfRO,HAND=huaodrk";
    const std::optional<Worn> worn = normalClothes(table(rows));
    ASSERT_TRUE(worn);
    EXPECT_EQ(*worn, (Worn{"adult",
                           {"body", "skin"},
                           {"head", "face"},
                           {"HfLO", "huaolgt"},
                           {"HfRO", "huaodrk"}}));
    rows[2] = "NONE";
    EXPECT_EQ(normalClothes(table(rows))->head, SuitAndSkin());
    rows[2] = "";
    EXPECT_EQ(normalClothes(table(rows))->head, SuitAndSkin());
    rows[1] = ",BODY=";
    EXPECT_FALSE(normalClothes(table(rows)));
}

TEST(WornTest, APetHasNeitherHeadNorHands) {
    std::vector<std::string> rows(35, "row,ROW=row");
    for (const char* kind : {"dog", "kat", "cat"}) {
        rows[0] = kind;
        const std::optional<Worn> worn = normalClothes(table(rows));
        ASSERT_TRUE(worn) << kind;
        EXPECT_EQ(*worn, (Worn{kind, {"row", "row"}, {}, {}, {}}));
    }
}

TEST(WornTest, MissingRowsAreEmpty) {
    EXPECT_FALSE(normalClothes(table({})));
    EXPECT_FALSE(normalClothes(table({"adult"})));
    const std::optional<Worn> worn = normalClothes(table({"adult", "body,BODY=skin"}));
    ASSERT_TRUE(worn);
    EXPECT_EQ(worn->leftHand, SuitAndSkin());
}

TEST(WornTest, TheFirstRowChoosesTheSkeleton) {
    EXPECT_EQ(skeletonOf("adult"), "adult-skeleton");
    EXPECT_EQ(skeletonOf("dog"), "dog_skeleton");
    EXPECT_EQ(skeletonOf("kat"), "kat_skeleton");
    EXPECT_EQ(skeletonOf("cat"), "kat_skeleton");
    for (const char* child : {"child", "Adult", "", "whatever"}) {
        EXPECT_EQ(skeletonOf(child), "child-skeleton") << child;
    }
}

}  // namespace
}  // namespace marlowick
