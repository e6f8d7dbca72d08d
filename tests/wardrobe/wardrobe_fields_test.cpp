#include "wardrobe/wardrobe_fields.h"

#include <gtest/gtest.h>

#include "foundation/error_trap.h"
#include "iff/user_file_test.h"
#include "system/runtime_error.h"
#include "wardrobe/wardrobe_table.h"

namespace marlowick {
namespace {

using test::simRows;
using test::SimRows;
using test::tableOf;

WardrobeFields fieldsOf(const std::vector<std::string>& rows) {
    WardrobeFields fields;
    const StrSegment strings = tableOf(rows);
    readWardrobe(strings, fields);
    readPerson(strings, fields);
    return fields;
}

int errorOf(const std::vector<std::string>& rows) {
    return test::errorOf([&] { fieldsOf(rows); });
}

TEST(WardrobeFieldsTest, SplitsARowAtCommaAndEquals) {
    EXPECT_EQ(bodyOfRow("s100fcchd_original,BODY=s100fcchdlgt_original"), "s100fcchd_original");
    EXPECT_EQ(skinOfRow("s100fcchd_original,BODY=s100fcchdlgt_original"), "s100fcchdlgt_original");
    EXPECT_EQ(bodyOfRow(",BODY="), "");
    EXPECT_EQ(skinOfRow(",BODY="), "");
    EXPECT_EQ(skinOfRow("HfLO,HAND=a=b"), "a=b");
    EXPECT_EQ(skinOfRow("huaolgt"), "huaolgt");
    EXPECT_EQ(skinOfRow(""), "");
    EXPECT_THROW(bodyOfRow("no comma"), RuntimeError);
}

TEST(WardrobeFieldsTest, AnAdultOfTheLastGenerationHasEverything) {
    const WardrobeFields fields = fieldsOf(simRows({}));
    EXPECT_EQ(fields.txtNormalBody, "b001fafit_own");
    EXPECT_EQ(fields.txtNormalSkin, "b001fafitlgt_own");
    EXPECT_EQ(fields.txtSwimsuitBody, "s001fafit_own");
    EXPECT_EQ(fields.txtSwimsuitSkin, "s001fafitlgt_own");
    EXPECT_EQ(fields.txtFormalBody, "f001fafit_own");
    EXPECT_EQ(fields.txtFormalSkin, "f001fafitlgt_own");
    EXPECT_EQ(fields.txtPajamasBody, "l001fafit_own");
    EXPECT_EQ(fields.txtPajamasSkin, "l001fafitlgt_own");
    EXPECT_EQ(fields.txtNudeBody, "n100fafit_own");
    EXPECT_EQ(fields.txtNudeSkin, "n100fafitlgt_own");
    EXPECT_EQ(fields.txtWinterBody, "w001fafit_own");
    EXPECT_EQ(fields.txtWinterSkin, "w001fafitlgt_own");
    EXPECT_EQ(fields.txtFashionBody, "h001fafit_own");
    EXPECT_EQ(fields.txtFashionSkin, "h001fafitlgt_own");
    EXPECT_EQ(fields.txtHandOpenLeft, "handLO");
    EXPECT_EQ(fields.txtHandOpenRight, "handRO");
    EXPECT_EQ(fields.txtHandPointLeft, "handLP");
    EXPECT_EQ(fields.txtHandPointRight, "handRP");
    EXPECT_EQ(fields.txtHandClosedLeft, "handLC");
    EXPECT_EQ(fields.txtHandClosedRight, "handRC");
    EXPECT_EQ(fields.txtHandFormalLeft, "gloveL");
    EXPECT_EQ(fields.txtHandFormalRight, "gloveR");
    EXPECT_EQ(fields.txtAge, "adult");
    EXPECT_EQ(fields.txtGender, "female");
    EXPECT_EQ(fields.txtSkinTone, "light");
}

TEST(WardrobeFieldsTest, AChildOfTheFirstGenerationShowsFourNotes) {
    const WardrobeFields fields =
        fieldsOf(simRows({.count = 30, .age = "child", .bodyType = "chd"}));
    EXPECT_EQ(fields.txtFormalBody, "*** ADULT SIMS ONLY ***");
    EXPECT_EQ(fields.txtFormalSkin, "*** ADULT SIMS ONLY ***");
    EXPECT_EQ(fields.txtPajamasBody, "*** HOT DATE/VACATION ONLY ***");
    EXPECT_EQ(fields.txtWinterSkin, "*** VACATION ONLY ***");
    EXPECT_EQ(fields.txtFashionBody, "*** SUPERSTAR ADULTS ONLY ***");
    EXPECT_EQ(fields.txtSwimsuitBody, "u001fcchd_own");
}

// What each generation and age shows: R a row of the later kind, 1 a row of the first kind, and
// a note by its first letter.
TEST(WardrobeFieldsTest, EveryGenerationShowsWhatItHas) {
    struct Case {
        int count;
        const char* age;
        const char* swimsuit;
        const char* formal;
        const char* pajamas;
        const char* winter;
        const char* fashion;
    };
    const char* adults = "*** ADULT SIMS ONLY ***";
    const char* hotDate = "*** HOT DATE/VACATION ONLY ***";
    const char* vacation = "*** VACATION ONLY ***";
    const char* superstar = "*** SUPERSTAR ADULTS ONLY ***";
    const Case cases[] = {
        {30, "adult", "u001fafit_own", "g001fafit_own", hotDate, vacation, superstar},
        {30, "child", "u001fcfit_own", adults, hotDate, vacation, superstar},
        {33, "adult", "s001fafit_own", "f001fafit_own", "l001fafit_own", vacation, superstar},
        {33, "child", "u001fcfit_own", adults, hotDate, vacation, superstar},
        {34, "adult", "s001fafit_own", "f001fafit_own", "l001fafit_own", "w001fafit_own",
         superstar},
        {34, "child", "s001fcfit_own", adults, "l001fcfit_own", "w001fcfit_own", superstar},
        {35, "adult", "s001fafit_own", "f001fafit_own", "l001fafit_own", "w001fafit_own",
         "h001fafit_own"},
        {36, "child", "s001fcfit_own", adults, "l001fcfit_own", "w001fcfit_own", superstar},
    };
    for (const Case& c : cases) {
        const WardrobeFields fields = fieldsOf(simRows({.count = c.count, .age = c.age}));
        EXPECT_EQ(fields.txtSwimsuitBody, c.swimsuit) << c.count << c.age;
        EXPECT_EQ(fields.txtFormalBody, c.formal) << c.count << c.age;
        EXPECT_EQ(fields.txtPajamasBody, c.pajamas) << c.count << c.age;
        EXPECT_EQ(fields.txtWinterBody, c.winter) << c.count << c.age;
        EXPECT_EQ(fields.txtFashionBody, c.fashion) << c.count << c.age;
    }
}

TEST(WardrobeFieldsTest, AddedInAnAdultsRowIsANoteOnlyInLaterGenerations) {
    std::vector<std::string> rows = simRows({.count = 34});
    rows[30] = "ADDED";
    EXPECT_EQ(fieldsOf(rows).txtFormalBody, "*** ADULT SIMS ONLY ***");
    rows = simRows({.count = 33});
    rows[30] = "ADDED";
    EXPECT_EQ(errorOf(rows), 5);
    EXPECT_EQ(CheckpointNumber, 1200);
}

TEST(WardrobeFieldsTest, TheTailOfRowTwoIsNotShown) {
    std::vector<std::string> rows = simRows({});
    rows[1] = "b9fafit_x,BODY=b9lgt_x;tail=gone,too";
    const WardrobeFields fields = fieldsOf(rows);
    EXPECT_EQ(fields.txtNormalBody, "b9fafit_x");
    EXPECT_EQ(fields.txtNormalSkin, "b9lgt_x");
}

TEST(WardrobeFieldsTest, TheBodyTypeComesFromTheNormalBodyWithoutRegardToCase) {
    struct Case {
        const char* body;
        BodyType type;
    };
    for (const Case& c : {Case{"b001faFIT_1", BodyType::Fit}, Case{"b001faFat_1", BodyType::Fat},
                          Case{"b001faskn_1", BodyType::Skinny}, Case{"b001fcchd_1", BodyType::Fit},
                          Case{"b001", BodyType::Fit}}) {
        std::vector<std::string> rows = simRows({});
        rows[1] = std::string(c.body) + ",BODY=x";
        EXPECT_EQ(fieldsOf(rows).bodyType, c.type) << c.body;
    }
}

TEST(WardrobeFieldsTest, ABodyThatTellsNoTypeLeavesTheOneThatStood) {
    for (const char* body : {"b001", "", "b001fafi", "b001fcchd_1", "b001fa_fit"}) {
        std::vector<std::string> rows = simRows({});
        rows[1] = std::string(body) + ",BODY=x";
        WardrobeFields fields;
        fields.bodyType = BodyType::Fat;
        readWardrobe(tableOf(rows), fields);
        EXPECT_EQ(fields.bodyType, BodyType::Fat) << body;
    }
}

TEST(WardrobeFieldsTest, RowsWithATestForEmptyPassAndTheOthersFail) {
    struct Case {
        int count;
        const char* age;
        std::size_t row;
        int error;
    };
    for (const Case& c :
         {Case{35, "adult", 2, 5}, Case{35, "adult", 16, 5}, Case{35, "adult", 34, 5},
          Case{35, "adult", 35, 5}, Case{35, "child", 35, 0}, Case{30, "adult", 17, 5},
          Case{33, "adult", 32, 5}, Case{33, "adult", 33, 5}, Case{35, "adult", 32, 0},
          Case{35, "adult", 33, 0}, Case{35, "adult", 31, 0}, Case{33, "adult", 31, 0},
          Case{30, "adult", 28, 0}, Case{33, "child", 32, 0}, Case{35, "adult", 18, 0}}) {
        std::vector<std::string> rows = simRows({.count = c.count, .age = c.age});
        rows[c.row - 1].clear();
        EXPECT_EQ(errorOf(rows), c.error) << c.count << " " << c.age << " row " << c.row;
    }
}

TEST(WardrobeFieldsTest, AnEmptyRowLeavesTheFieldsAsTheyStood) {
    std::vector<std::string> rows = simRows({});
    rows[31].clear();
    WardrobeFields fields;
    fields.txtSwimsuitBody = "before";
    readWardrobe(tableOf(rows), fields);
    EXPECT_EQ(fields.txtSwimsuitBody, "before");
}

TEST(WardrobeFieldsTest, FewerThanThirtyRowsAreAnIndexError) {
    EXPECT_EQ(errorOf(simRows({.count = 29})), 9);
    EXPECT_EQ(CheckpointNumber, 2000);
    EXPECT_EQ(errorOf({}), 9);
}

TEST(WardrobeFieldsTest, AnUnknownToneHasNoWord) {
    EXPECT_EQ(fieldsOf(simRows({.tone = "grn"})).txtSkinTone, "");
    EXPECT_EQ(fieldsOf(simRows({.tone = "drk"})).txtSkinTone, "dark");
}

TEST(WardrobeFieldsTest, BuildsTheRequestToTheChooser) {
    const auto request = [](const SimRows& sim, BodyType type, char letter) {
        WardrobeFields fields = fieldsOf(simRows(sim));
        fields.bodyType = type;
        return skinRequest(fields, tableOf(simRows(sim)), letter);
    };
    EXPECT_EQ(request({}, BodyType::Fit, 'B'), "falgtfitB");
    EXPECT_EQ(request({.gender = "male"}, BodyType::Skinny, 'H'), "malgtsknH");
    EXPECT_EQ(request({.age = "child", .gender = "boy", .tone = "drk"}, BodyType::Fat, 'S'),
              "mcdrkchdS");
    EXPECT_EQ(request({.tone = "odd tone"}, BodyType::Fat, 'W'), "faodd tonefatW");
}

class SimNameTest : public test::UserFileTest {
  protected:
    std::string name() {
        WardrobeFields fields;
        readSimName(iff, fields);
        return fields.txtName;
    }
};

TEST_F(SimNameTest, IsTheNameTableWithTheLabelInBrackets) {
    add("OBJD", "user00001 - Mara");
    add("CTSS", "", test::stringTable({"Mara Quill"}));
    EXPECT_EQ(name(), "Mara Quill  (user00001 - Mara)");
}

TEST_F(SimNameTest, TheLastOfEachKindWins) {
    add("CTSS", "", test::stringTable({"first"}));
    add("OBJD", "USER1");
    add("CTSS", "", test::stringTable({"second"}));
    add("OBJD", "user2");
    add("OBJD", "chair");
    EXPECT_EQ(name(), "second  (user2)");
}

TEST_F(SimNameTest, WithoutANameTableItBeginsWithTwoBlanks) {
    add("OBJD", "user1");
    EXPECT_EQ(name(), "  (user1)");
}

TEST_F(SimNameTest, LabelsArePaddedInTheRecordBehindTheirFirstZeroByte) {
    using std::string_literals::operator""s;
    add("OBJD", "user1\0junk"s);
    add("BMP_", "web_image");
    add("ZERO", "");
    EXPECT_EQ(name(), "  (user1)");
    EXPECT_EQ(iff.Segments[1].Label, test::padded("user1", 64, ' '));
    EXPECT_EQ(iff.Segments[2].Label, test::padded("web_image", 64, ' '));
    EXPECT_EQ(iff.Segments[3].Label, std::string(64, ' '));
    // Read again after a save, it is the same name.
    EXPECT_EQ(name(), "  (user1)");
}

}  // namespace
}  // namespace marlowick
