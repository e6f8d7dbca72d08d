#include "wardrobe/row_changes.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

using std::string_literals::operator""s;

constexpr const char* kArrow = " \xE2\x86\x92 ";

StrSegment table(int rows, const char* age = "adult") {
    StrSegment strings;
    strings.Entries.resize(rows);
    for (int row = 1; row <= rows; ++row) {
        strings.Entries[row].Text = "row " + std::to_string(row);
    }
    strings.Entries[1].Text = age;
    return strings;
}

struct Change {
    int row;
    const char* before;
    const char* after;
};

std::string words(const std::vector<Change>& changes, int rows = 35, const char* age = "adult") {
    StrSegment before = table(rows, age);
    StrSegment after = table(rows, age);
    for (const Change& change : changes) {
        before.Entries[change.row].Text = change.before;
        after.Entries[change.row].Text = change.after;
    }
    return inWords(rowChanges(before, after));
}

TEST(RowChangesTest, AnOutfitIsToldByItsBody) {
    EXPECT_EQ(words({{31, "f100fafit_original,BODY=f100fafitlgt_original",
                      "f301fafit_rose,BODY=f301fafitlgt_rose"}}),
              "Formal: f100fafit_original"s + kArrow + "f301fafit_rose");
}

TEST(RowChangesTest, AndByItsSkinWhereTheBodyIsTheSame) {
    EXPECT_EQ(
        words({{2, "b001fafit_01,BODY=b001fafitlgt_red", "b001fafit_01,BODY=b001fafitlgt_blue"}}),
        "Normal: b001fafitlgt_red"s + kArrow + "b001fafitlgt_blue");
    // What stands behind the skin goes with a save.
    EXPECT_EQ(words({{2, "b,BODY=s;tail", "b,BODY=s"}}), "Normal: s;tail"s + kArrow + "s");
    EXPECT_EQ(words({{2, "b,HEAD=s", "b,BODY=s"}}), "Normal: b,HEAD=s"s + kArrow + "b,BODY=s");
}

TEST(RowChangesTest, EveryRowHasTheNameOfTheWindow) {
    const char* const names[] = {"Age",
                                 "Normal",
                                 "Head",
                                 "Row 4",
                                 "Row 5",
                                 "Row 6",
                                 "Row 7",
                                 "Row 8",
                                 "Row 9",
                                 "Row 10",
                                 "Row 11",
                                 "Row 12",
                                 "Gender",
                                 "Row 14",
                                 "Skin tone",
                                 "Nude",
                                 "Swimsuit (base game)",
                                 "Left open hand",
                                 "Right open hand",
                                 "Left pointing hand",
                                 "Right pointing hand",
                                 "Left closed hand",
                                 "Right closed hand",
                                 "Row 24",
                                 "Row 25",
                                 "Row 26",
                                 "Row 27",
                                 "Formal (base game)",
                                 "Left formal hand",
                                 "Right formal hand",
                                 "Formal",
                                 "Swimsuit",
                                 "Pajamas",
                                 "Winter",
                                 "High fashion",
                                 "Row 36"};
    for (int row = 2; row <= 36; ++row) {
        EXPECT_EQ(words({{row, "a", "b"}}, 36), names[row - 1] + ": a"s + kArrow + "b");
    }
    EXPECT_EQ(words({{1, "child", "adult"}}), "Age: child"s + kArrow + "adult");
}

TEST(RowChangesTest, AHandIsToldByItsSkin) {
    EXPECT_EQ(words({{18, "HfLO,HAND=huaolgt", "HfLO,HAND=guao_pinkg"}}),
              "Left open hand: huaolgt"s + kArrow + "guao_pinkg");
    EXPECT_EQ(words({{29, "HfLO,HAND=gfao_bride", ""}}),
              "Left formal hand: gfao_bride"s + kArrow + "nothing");
    EXPECT_EQ(words({{18, "HxLO,HAND=huaolgt", "HfLO,HAND=huaolgt"}}),
              "Left open hand: HxLO,HAND=huaolgt"s + kArrow + "HfLO,HAND=huaolgt");
}

TEST(RowChangesTest, NothingWornIsToldSo) {
    EXPECT_EQ(words({{33, "", "l100fafit_original,BODY=l100fafitlgt_original"}}),
              "Pajamas: nothing"s + kArrow + "l100fafit_original");
    EXPECT_EQ(words({{33, ",BODY=", "l,BODY=s"}}), "Pajamas: nothing"s + kArrow + "l");
    EXPECT_EQ(words({{31, "f,BODY=s", "ADDED"}}), "Formal: f"s + kArrow + "ADDED");
    EXPECT_EQ(words({{31, "", ",BODY="}}), "Formal: nothing"s + kArrow + ",BODY=");
}

// A save writes formal wear into the rows of both generations.
TEST(RowChangesTest, TwoRowsOfOneOutfitAreToldOnce) {
    const Change late{31, "f100fafit_original,BODY=a", "f301fafit_rose,BODY=b"};
    EXPECT_EQ(words({{28, late.before, late.after}, late}),
              "Formal: f100fafit_original"s + kArrow + "f301fafit_rose");
    EXPECT_EQ(words({{28, "fffit_01,BODY=a", late.after}, late}), "Formal (base game): fffit_01"s +
                                                                      kArrow +
                                                                      "f301fafit_rose\nFormal: "
                                                                      "f100fafit_original" +
                                                                      kArrow + "f301fafit_rose");
}

TEST(RowChangesTest, InAFileOfTheFirstGenerationItsRowsAreTheOutfits) {
    EXPECT_EQ(words({{17, "a", "b"}}, 30), "Swimsuit: a"s + kArrow + "b");
    EXPECT_EQ(words({{28, "a", "b"}}, 30), "Formal: a"s + kArrow + "b");
    EXPECT_EQ(words({{28, "a", "b"}}, 33, "child"), "Formal: a"s + kArrow + "b");
    EXPECT_EQ(words({{28, "a", "b"}}, 33), "Formal (base game): a"s + kArrow + "b");
    EXPECT_EQ(words({{28, "a", "b"}}, 34, "child"), "Formal (base game): a"s + kArrow + "b");
}

TEST(RowChangesTest, ChangesComeInTheOrderOfTheRowsALineEach) {
    EXPECT_EQ(words({{34, "w,BODY=a", "x,BODY=a"}, {2, "b,BODY=a", "c,BODY=a"}}),
              "Normal: b"s + kArrow + "c\nWinter: w" + kArrow + "x");
    EXPECT_EQ(words({}), "");
}

TEST(RowChangesTest, TablesOfDifferentLengthsAndGameTextsAreTold) {
    StrSegment before = table(1);
    StrSegment after = table(2);
    after.Entries[2].Text = "b\xE9,BODY=s";
    EXPECT_EQ(inWords(rowChanges(before, after)), "Normal: nothing"s + kArrow + "b\xC3\xA9");
    EXPECT_EQ(inWords(rowChanges(after, before)), "Normal: b\xC3\xA9"s + kArrow + "nothing");
    EXPECT_TRUE(rowChanges(StrSegment(), StrSegment()).empty());
}

}  // namespace
}  // namespace marlowick
