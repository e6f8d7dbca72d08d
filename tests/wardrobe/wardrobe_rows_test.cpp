#include "wardrobe/wardrobe_rows.h"

#include <gtest/gtest.h>

#include <map>

#include "support/user_file_builder.h"
#include "system/runtime_error.h"
#include "wardrobe/wardrobe_table.h"

namespace marlowick {
namespace {

using test::simRows;
using test::SimRows;
using Changes = std::map<int, std::string>;

class WardrobeRowsTest : public ::testing::Test {
  protected:
    // A sim with known fields, whatever its rows hold.
    explicit WardrobeRowsTest() {
        const auto set = [&](Field body, Field skin, const char* name) {
            fields.*body = name + std::string("Body");
            fields.*skin = name + std::string("Skin");
        };
        for (const OutfitSlot& slot : kOutfitSlots) {
            set(slot.body, slot.skin, std::string(1, slot.letter).c_str());
        }
        fields.txtHandOpenLeft = "Hand18";
        fields.txtHandOpenRight = "Hand19";
        fields.txtHandPointLeft = "Hand20";
        fields.txtHandPointRight = "Hand21";
        fields.txtHandClosedLeft = "Hand22";
        fields.txtHandClosedRight = "Hand23";
        fields.txtHandFormalLeft = "Hand29";
        fields.txtHandFormalRight = "Hand30";
    }

    void load(const SimRows& sim) {
        before = simRows(sim);
        strings = test::tableOf(before);
        fields.txtAge = sim.age;
        fields.txtGender = sim.gender;
    }

    Changes changes() {
        writeWardrobe(fields, strings);
        EXPECT_EQ(strings.Entries.bound(), static_cast<int>(before.size()));
        Changes changed;
        for (int row = 1; row <= strings.Entries.bound(); ++row) {
            if (strings.Entries[row].Text != before[static_cast<std::size_t>(row) - 1]) {
                changed[row] = strings.Entries[row].Text;
            }
        }
        return changed;
    }

    static Changes common(const std::string& sim) {
        return {{2, "bbody,BODY=bskin"},      {16, "nbody,BODY=nskin"},
                {18, sim + "LO,HAND=Hand18"}, {19, sim + "RO,HAND=Hand19"},
                {20, sim + "LP,HAND=Hand20"}, {21, sim + "RP,HAND=Hand21"},
                {22, sim + "LC,HAND=Hand22"}, {23, sim + "RC,HAND=Hand23"},
                {28, "fbody,BODY=fskin"},     {29, sim + "LO,HAND=Hand29"},
                {30, sim + "RO,HAND=Hand30"}};
    }

    static Changes with(Changes changes, const Changes& more) {
        changes.insert(more.begin(), more.end());
        return changes;
    }

    WardrobeFields fields;
    StrSegment strings;
    std::vector<std::string> before;
};

const Changes kLater = {
    {31, "fbody,BODY=fskin"}, {32, "sbody,BODY=sskin"}, {33, "lbody,BODY=lskin"}};

TEST_F(WardrobeRowsTest, TheFirstGenerationWritesNoLaterRow) {
    load({.count = 30});
    EXPECT_EQ(changes(), common("Hf"));
    load({.count = 30, .gender = "male"});
    EXPECT_EQ(changes(), common("Hm"));
    load({.count = 30, .age = "child"});
    EXPECT_EQ(changes(), common("Hu"));
}

TEST_F(WardrobeRowsTest, HotDateWritesThreeMoreRowsForAdults) {
    for (const int count : {31, 32, 33}) {
        load({.count = count});
        if (count < 33) {
            EXPECT_THROW(changes(), RuntimeError);  // rows 32 and 33 aren't there
            continue;
        }
        EXPECT_EQ(changes(), with(common("Hf"), kLater));
    }
    for (const int count : {31, 33}) {
        load({.count = count, .age = "child"});
        EXPECT_EQ(changes(), common("Hu"));
    }
}

TEST_F(WardrobeRowsTest, VacationAddsWinter) {
    load({.count = 34, .gender = "male"});
    EXPECT_EQ(changes(), with(common("Hm"), with(kLater, {{34, "wbody,BODY=wskin"}})));
    load({.count = 34, .age = "child"});
    EXPECT_EQ(changes(),
              with(common("Hu"),
                   {{32, "sbody,BODY=sskin"}, {33, "lbody,BODY=lskin"}, {34, "wbody,BODY=wskin"}}));
    EXPECT_EQ(strings.Entries[31].Text, "ADDED");
}

TEST_F(WardrobeRowsTest, SuperstarAddsHighFashionForAdults) {
    for (const int count : {35, 36}) {
        load({.count = count});
        EXPECT_EQ(
            changes(),
            with(common("Hf"), with(kLater, {{34, "wbody,BODY=wskin"}, {35, "hbody,BODY=hskin"}})));
        load({.count = count, .age = "child"});
        strings.Entries[31].Text = "f,BODY=f";
        strings.Entries[35].Text = "h,BODY=h";
        changes();
        EXPECT_EQ(strings.Entries[31].Text, "ADDED");
        EXPECT_EQ(strings.Entries[35].Text, "ADDED");
    }
    EXPECT_EQ(strings.Entries[36].Text, "row 36");
}

// Every generation, age and gender. A row that isn't told keeps its text.
TEST_F(WardrobeRowsTest, EveryGenerationAgeAndGenderWritesItsRows) {
    const std::string formal = "fbody,BODY=fskin";
    const std::string swimsuit = "sbody,BODY=sskin";
    const std::string pajamas = "lbody,BODY=lskin";
    const std::string winter = "wbody,BODY=wskin";
    const std::string fashion = "hbody,BODY=hskin";
    struct Case {
        int count;
        bool adult;
        Changes later;
    };
    const Case cases[] = {
        {30, true, {}},
        {30, false, {}},
        {31, false, {}},
        {33, true, {{31, formal}, {32, swimsuit}, {33, pajamas}}},
        {33, false, {}},
        {34, true, {{31, formal}, {32, swimsuit}, {33, pajamas}, {34, winter}}},
        {34, false, {{31, "ADDED"}, {32, swimsuit}, {33, pajamas}, {34, winter}}},
        {35, true, {{31, formal}, {32, swimsuit}, {33, pajamas}, {34, winter}, {35, fashion}}},
        {35, false, {{31, "ADDED"}, {32, swimsuit}, {33, pajamas}, {34, winter}, {35, "ADDED"}}},
        {36, true, {{31, formal}, {32, swimsuit}, {33, pajamas}, {34, winter}, {35, fashion}}},
        {36, false, {{31, "ADDED"}, {32, swimsuit}, {33, pajamas}, {34, winter}, {35, "ADDED"}}},
    };
    for (const Case& c : cases) {
        for (const char* age : {"adult", "child", "teen"}) {
            if ((std::string(age) == "adult") != c.adult) {
                continue;
            }
            for (const char* gender : {"female", "male", "cow"}) {
                load({.count = c.count, .age = age, .gender = gender});
                for (int row = 31; row <= c.count; ++row) {
                    strings.Entries[row].Text = "own " + std::to_string(row);
                    before[static_cast<std::size_t>(row) - 1] = strings.Entries[row].Text;
                }
                const char* adults = std::string(gender) == "female" ? "Hf" : "Hm";
                EXPECT_EQ(changes(), with(common(c.adult ? adults : "Hu"), c.later))
                    << c.count << " " << age << " " << gender;
            }
        }
    }
}

TEST_F(WardrobeRowsTest, RowSeventeenIsNeverWritten) {
    for (const int count : {30, 33, 34, 35}) {
        load({.count = count});
        changes();
        EXPECT_EQ(strings.Entries[17].Text, "u001fafit_own,BODY=u001fafitlgt_own");
    }
}

TEST_F(WardrobeRowsTest, BlankOutfitsOfAnAdultStayBlank) {
    load({});
    fields.txtSwimsuitBody = fields.txtSwimsuitSkin = "";
    fields.txtPajamasBody = fields.txtPajamasSkin = "";
    fields.txtWinterBody = fields.txtWinterSkin = "";
    changes();
    for (const int row : {32, 33, 34}) {
        EXPECT_EQ(strings.Entries[row].Text, ",BODY=");
    }
}

TEST_F(WardrobeRowsTest, BlankOutfitsOfAChildAreFilledInAlwaysInTheLightSkin) {
    const auto blank = [&] {
        fields.txtSwimsuitBody = fields.txtSwimsuitSkin = "";
        fields.txtPajamasBody = fields.txtPajamasSkin = "";
        fields.txtWinterBody = fields.txtWinterSkin = "";
    };
    load({.age = "child", .gender = "female", .tone = "drk"});
    blank();
    changes();
    EXPECT_EQ(strings.Entries[32].Text, "s100fcchd_original,BODY=s100fcchdlgt_original");
    EXPECT_EQ(strings.Entries[33].Text, "l100fcchd_original,BODY=l100fcchdlgt_original");
    EXPECT_EQ(strings.Entries[34].Text, "w100fcchd_original,BODY=w100fcchdlgt_original");
    load({.count = 34, .age = "child", .gender = "male", .tone = "drk"});
    changes();
    EXPECT_EQ(strings.Entries[32].Text, "s100mcchd_original,BODY=s100mcchdlgt_original");
    EXPECT_EQ(strings.Entries[33].Text, "l100mcchd_original,BODY=l100mcchdlgt_original");
    EXPECT_EQ(strings.Entries[34].Text, "w100mcchd_original,BODY=w100mcchdlgt_original");
    // Neither adult nor child: the row is marked, and nothing is filled in.
    load({.age = "teen"});
    changes();
    EXPECT_EQ(strings.Entries[31].Text, "ADDED");
    EXPECT_EQ(strings.Entries[32].Text, ",BODY=");
}

TEST_F(WardrobeRowsTest, ABlankFormalBodyMakesTheWholeRowBlank) {
    load({});
    fields.txtFormalBody.clear();
    fields.txtFormalSkin = "leftover";
    changes();
    EXPECT_EQ(strings.Entries[28].Text, ",BODY=");
    EXPECT_EQ(strings.Entries[31].Text, ",BODY=");
}

TEST_F(WardrobeRowsTest, OutfitsAreLowerCasedAndHandsKeepTheirCase) {
    load({});
    fields.txtWinterBody = "W100faFIT_\xC9te";
    changes();
    EXPECT_EQ(strings.Entries[34].Text, "w100fafit_\xE9te,BODY=wskin");
    EXPECT_EQ(strings.Entries[18].Text, "HfLO,HAND=Hand18");
}

TEST_F(WardrobeRowsTest, FormalHandsAreWornAsAPairOrNotAtAll) {
    for (const bool left : {true, false}) {
        load({});
        fields.txtHandFormalLeft = left ? "glove" : "";
        fields.txtHandFormalRight = left ? "" : "glove";
        changes();
        EXPECT_EQ(strings.Entries[29].Text, "");
        EXPECT_EQ(strings.Entries[30].Text, "");
    }
}

TEST_F(WardrobeRowsTest, PlaceholdersAreSavedLikeNames) {
    load({.count = 33, .age = "child"});
    fields.txtFormalBody = fields.txtFormalSkin = "*** ADULT SIMS ONLY ***";
    changes();
    EXPECT_EQ(strings.Entries[28].Text, "*** adult sims only ***,BODY=*** adult sims only ***");
    // An adult whose row 31 reads "ADDED" gets the placeholder there.
    load({.count = 34});
    strings.Entries[31].Text = "ADDED";
    changes();
    EXPECT_EQ(strings.Entries[31].Text, "*** adult sims only ***,BODY=*** adult sims only ***");
}

// The hands' class comes from the boxes, the rows of the generation from the table.
TEST_F(WardrobeRowsTest, HandsGoByTheFieldsAndRowsByTheTable) {
    load({.count = 34, .age = "adult"});
    fields.txtAge = "child";
    changes();
    EXPECT_EQ(strings.Entries[18].Text, "HuLO,HAND=Hand18");
    EXPECT_EQ(strings.Entries[31].Text, "fbody,BODY=fskin");
}

}  // namespace
}  // namespace marlowick
