#include "wardrobe/worn_outfit.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

WardrobeFields woman() {
    WardrobeFields fields;
    fields.txtAge = "adult";
    fields.txtGender = "female";
    fields.txtNormalBody = "b001fafit_01";
    fields.txtNormalSkin = "b001fafitlgt_01";
    fields.txtFormalBody = "f100fafit_01";
    fields.txtFormalSkin = "f100fafitlgt_01";
    fields.txtHandOpenLeft = "huaolgt";
    fields.txtHandOpenRight = "other";
    return fields;
}

StrSegment rowsWithHead(const std::string& head) {
    StrSegment rows;
    rows.Entries.resize(3);
    rows.Entries[1].Text = "child";
    rows.Entries[3].Text = head;
    return rows;
}

TEST(WornOutfitTest, TheFieldsAreWornWithTheRowsHead) {
    EXPECT_EQ(wornOutfit(woman(), rowsWithHead("C003FA_x,HEAD-HEAD=c003falgt_x"), Outfit::Normal),
              (Worn{"adult",
                    {"b001fafit_01", "b001fafitlgt_01"},
                    {"C003FA_x", "c003falgt_x"},
                    {"HfLO", "huaolgt"},
                    {"HfRO", "other"}}));
}

TEST(WornOutfitTest, HandsAreThoseOfTheSimsKind) {
    WardrobeFields fields = woman();
    fields.txtGender = "male";
    const auto leftHand = [&] {
        return wornOutfit(fields, rowsWithHead("NONE"), Outfit::Normal)->leftHand.suit;
    };
    EXPECT_EQ(leftHand(), "HmLO");
    fields.txtAge = "child";
    EXPECT_EQ(leftHand(), "HuLO");
}

TEST(WornOutfitTest, FormalHandsGoWithTheFormalOutfitWhereTheyAreFilled) {
    WardrobeFields fields = woman();
    fields.txtHandFormalLeft = "gfao_bride";
    const StrSegment rows = rowsWithHead("NONE");
    EXPECT_EQ(wornOutfit(fields, rows, Outfit::Formal)->leftHand,
              (SuitAndSkin{"HfLO", "gfao_bride"}));
    EXPECT_EQ(wornOutfit(fields, rows, Outfit::Formal)->rightHand, (SuitAndSkin{"HfRO", "other"}));
    EXPECT_EQ(wornOutfit(fields, rows, Outfit::Swimsuit), std::nullopt);
    EXPECT_EQ(wornOutfit(fields, rows, Outfit::Normal)->leftHand, (SuitAndSkin{"HfLO", "huaolgt"}));
}

TEST(WornOutfitTest, AnEmptyBodyIsTheNormalOne) {
    WardrobeFields fields = woman();
    fields.txtPajamasSkin = "l100fafitlgt_01";
    EXPECT_EQ(wornOutfit(fields, {}, Outfit::Pajamas)->body,
              (SuitAndSkin{"b001fafit_01", "l100fafitlgt_01"}));
}

TEST(WornOutfitTest, NotesAndEmptyFieldsAreNoClothes) {
    WardrobeFields fields = woman();
    EXPECT_FALSE(wornOutfit(fields, {}, Outfit::Winter));
    fields.txtWinterBody = fields.txtWinterSkin = kVacationOnly;
    EXPECT_FALSE(wornOutfit(fields, {}, Outfit::Winter));
    fields.txtFashionBody = kAdded;
    EXPECT_FALSE(wornOutfit(fields, {}, Outfit::Fashion));
}

TEST(WornOutfitTest, AMissingHeadRowAndNoneAreNoHead) {
    EXPECT_EQ(wornOutfit(woman(), {}, Outfit::Normal)->head, SuitAndSkin());
    EXPECT_EQ(wornOutfit(woman(), rowsWithHead("NONE"), Outfit::Normal)->head, SuitAndSkin());
}

}  // namespace
}  // namespace marlowick
