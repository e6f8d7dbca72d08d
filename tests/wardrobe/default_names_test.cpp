#include "wardrobe/default_names.h"

#include <gtest/gtest.h>

#include "support/user_file_builder.h"
#include "wardrobe/wardrobe_table.h"

namespace marlowick {
namespace {

using test::simRows;
using test::SimRows;

class DefaultNamesTest : public ::testing::Test {
  protected:
    void load(const SimRows& sim) {
        strings = test::tableOf(simRows(sim));
        fields = {};
        fields.txtAge = sim.age;
        fields.txtGender = sim.gender;
        fields.txtNormalBody = bodyOfRow(strings.Entries[2].Text);
    }

    std::string defaultOf(Outfit outfit) {
        const OutfitSlot& slot = outfitSlot(outfit);
        fields.*slot.body = "kept body";
        fields.*slot.skin = "kept skin";
        setDefaultOutfit(outfit, strings, fields);
        return fields.*slot.body + " / " + fields.*slot.skin;
    }

    StrSegment strings;
    WardrobeFields fields;
};

const char* const kKept = "kept body / kept skin";

TEST_F(DefaultNamesTest, EveryRowOfTheTable) {
    struct Case {
        SimRows sim;
        Outfit outfit;
        const char* names;
    };
    const SimRows woman30{.count = 30, .tone = "drk", .bodyType = "fat"};
    const SimRows man30{.count = 30, .gender = "male", .tone = "med", .bodyType = "skn"};
    const SimRows girl30{.count = 30, .age = "child", .bodyType = "chd"};
    const SimRows boy30{.count = 30, .age = "child", .gender = "male", .bodyType = "chd"};
    const SimRows woman31{.count = 31, .tone = "drk", .bodyType = "fat"};
    const SimRows man33{.count = 33, .gender = "male", .tone = "med", .bodyType = "skn"};
    const SimRows girl33{.count = 33, .age = "child", .bodyType = "chd"};
    const SimRows boy34{.count = 34, .age = "child", .gender = "male", .bodyType = "chd"};
    const SimRows woman34{.count = 34, .tone = "drk", .bodyType = "fat"};
    const SimRows man35{.count = 35, .gender = "male", .tone = "med", .bodyType = "skn"};
    const SimRows girl34{.count = 34, .age = "child", .bodyType = "chd"};
    const Case cases[] = {
        {woman30, Outfit::Swimsuit, "nffat_01 / uffatdrk_undies01"},
        {man30, Outfit::Swimsuit, "nmskn_01 / umsknmed_undies01"},
        {girl30, Outfit::Swimsuit, "nuchd_01 / ufchdlgt_undies01"},
        {boy30, Outfit::Swimsuit, "nuchd_01 / umchdlgt_undies01"},
        {woman31, Outfit::Swimsuit, "s100fafat_original / s100fafatdrk_original"},
        {man33, Outfit::Swimsuit, "s100maskn_original / s100masknmed_original"},
        {girl33, Outfit::Swimsuit, "s100fcchd_original / s100fcchdlgt_original"},
        {boy34, Outfit::Swimsuit, "s100mcchd_original / s100mcchdlgt_original"},
        {woman30, Outfit::Formal, "fffat_01 / fffatdrk_01"},
        {man30, Outfit::Formal, "fmskn_01 / fmsknmed_01"},
        {woman31, Outfit::Formal, "f100fafat_original / f100fafatdrk_original"},
        {man33, Outfit::Formal, "f100maskn_original / f100masknmed_original"},
        {girl30, Outfit::Formal, " / "},
        {boy34, Outfit::Formal, " / "},
        {woman30, Outfit::Pajamas, kKept},
        {woman31, Outfit::Pajamas, "l100fafat_original / l100fafatdrk_original"},
        {man33, Outfit::Pajamas, "l100maskn_original / l100masknmed_original"},
        {girl33, Outfit::Pajamas, "l100fcchd_original / l100fcchdlgt_original"},
        {boy34, Outfit::Pajamas, "l100mcchd_original / l100mcchdlgt_original"},
        {man33, Outfit::Winter, kKept},
        {woman34, Outfit::Winter, "W100fafat_original / W100fafatdrk_original"},
        {man35, Outfit::Winter, "W100maskn_original / W100masknmed_original"},
        {girl34, Outfit::Winter, "W100fcchd_original / W100fcchdlgt_original"},
        {boy34, Outfit::Winter, "W100mcchd_original / W100mcchdlgt_original"},
        {man35, Outfit::Normal, kKept},
        {man35, Outfit::Nude, kKept},
        {man35, Outfit::Fashion, kKept},
    };
    for (const Case& c : cases) {
        load(c.sim);
        EXPECT_EQ(defaultOf(c.outfit), c.names);
    }
}

TEST_F(DefaultNamesTest, TheBodyTypeComesFromTheMeshInItsOwnCaseAndNotFromTheOptions) {
    load({});
    fields.txtNormalBody = "b001faFaT_1";
    fields.bodyType = BodyType::Skinny;
    EXPECT_EQ(defaultOf(Outfit::Swimsuit), "s100faFaT_original / s100faFaTlgt_original");
    fields.txtNormalBody = "short";
    EXPECT_EQ(defaultOf(Outfit::Swimsuit), "s100fa_original / s100falgt_original");
}

TEST_F(DefaultNamesTest, HandsGoByPoseToneAndGender) {
    load({.tone = "drk"});
    EXPECT_EQ(defaultHand(HandPose::Closed, strings, fields), "huacdrk");
    EXPECT_EQ(defaultHand(HandPose::Open, strings, fields), "huaodrk");
    EXPECT_EQ(defaultHand(HandPose::Point, strings, fields), "huapdrk");
    EXPECT_EQ(defaultHand(HandPose::Formal, strings, fields), "gfao_bride");
    load({.gender = "male"});
    EXPECT_EQ(defaultHand(HandPose::Formal, strings, fields), "");
}

}  // namespace
}  // namespace marlowick
