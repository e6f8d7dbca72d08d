#include "wardrobe/frmEditPet.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include "browser/frmMain.h"
#include "catalogue/frmSelectSkin.h"
#include "support/archive_builder.h"
#include "support/chooser_driver.h"
#include "wardrobe/editor_test.h"
#include "widgets/history_messages.h"

namespace marlowick {
namespace {

using test::bitmapFile;
using test::click;
using test::clickLine;
using test::find;
using test::mapRow;
using test::mapType;
using test::segment;
using test::textOf;

constexpr const char* kPetFile = "game/UserData2/Characters/user00007.iff";

struct Pet {
    std::string species = "dog";
    std::string outfit = "b001dog_01,BODY=b001dog_coat;collar";
    std::string gender = "dogmale";
    std::string label = "user00007 - Rex";
    bool picture = true;
};

std::vector<std::string> petRows(const Pet& pet) {
    std::vector<std::string> rows;
    for (int i = 1; i <= 35; ++i) {
        rows.push_back("row " + std::to_string(i));
    }
    rows[0] = pet.species;
    rows[1] = pet.outfit;
    rows[12] = pet.gender;
    return rows;
}

// The file as it is read, or, with saved, as a save leaves it: without pictures and map, and the
// head says that there is no map.
std::string petFile(const Pet& pet, bool saved = false) {
    const std::string object = segment("OBJD", 128, 16, pet.label, "object data");
    const std::string names = segment("CTSS", 2000, 16, "", test::stringTable({"Rex", "good dog"}));
    const std::string picture =
        segment("BMP_", 2001, 16, "web_image", bitmapFile(45, 45, 0x3366CC));
    const std::string wardrobe =
        segment("STR#", 200, 16, "a2o skins", test::stringTable(petRows(pet)));
    const std::string last = segment("TREE", 9, 0, "last", "unknown data");
    if (saved || !pet.picture) {
        return test::fileHead(0) + object + names + wardrobe + last;
    }
    const auto at = [](std::size_t offset) { return static_cast<unsigned>(offset); };
    const std::size_t second = 64 + object.size();
    const std::size_t third = second + names.size();
    const std::string types =
        mapType("OBJD", 1, mapRow(64, 128, 16, std::string("ab\0\0", 4))) +
        mapType("BMP_", 1, mapRow(at(third), 2001, 16, std::string("x\0", 2)));
    const std::string body = object + names + picture + wardrobe + last;
    const auto length = static_cast<unsigned>(96 + types.size());
    return test::fileHead(at(64 + body.size())) + body + test::map(length - 1, 2, types);
}

class EditPetTest : public test::EditorTest<frmEditPet> {
  protected:
    EditPetTest() : EditorTest("frmEditPet", "UserData2", "user00007.iff") {
        std::filesystem::create_directories(folder.program() / "temp");
    }

    void makePet(const Pet& pet = {}) { makeFile(petFile(pet)); }
};

TEST_F(EditPetTest, ShowsThePet) {
    makePet();
    makeSkin("b001dog_coat", 0x334455);
    open([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Edit Pet");
        EXPECT_EQ(textOf(window, "txtName"), "user00007 - Rex  (Rex)");
        EXPECT_EQ(textOf(window, "txtType"), "Dog");
        EXPECT_EQ(textOf(window, "txtGender"), "Male");
        EXPECT_EQ(textOf(window, "txtNormalBody"), "b001dog_01");
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "b001dog_coat");
        EXPECT_EQ(colourOf(window, "picNormal"), 0x334455U);
        EXPECT_EQ(colourOf(window, "picWebImage"), 0x3366CCU);
        EXPECT_TRUE(shows(window, "picFaces", "picWebNotFound"));
        EXPECT_TRUE(shows(window, "picRelImages", "picNoBitmaps"));
        EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus"));
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kPetFile) == content);
}

TEST_F(EditPetTest, EveryControlHasItsPlace) {
    struct Place {
        const char* name;
        QRect box;
    };
    static const Place kPlaces[] = {
        {"picWebImage", {8, 8, 49, 49}},        {"picFaces", {68, 8, 109, 49}},
        {"picRelImages", {188, 8, 205, 49}},    {"cmdSave", {404, 8, 57, 21}},
        {"cmdCancel", {404, 36, 57, 21}},       {"Label1", {8, 68, 65, 13}},
        {"txtName", {8, 84, 325, 21}},          {"Label2", {344, 68, 45, 13}},
        {"txtType", {344, 84, 49, 21}},         {"Label11", {404, 68, 45, 13}},
        {"txtGender", {404, 84, 57, 21}},       {"Label9", {8, 116, 49, 13}},
        {"txtNormalBody", {8, 132, 221, 21}},   {"Label10", {240, 116, 49, 13}},
        {"txtNormalSkin", {240, 132, 221, 21}}, {"Label3", {8, 164, 49, 13}},
        {"picNormal", {8, 180, 261, 261}},      {"cmdChangeNormal", {280, 180, 57, 21}},
    };
    makePet();
    open([](QWidget& window) {
        for (const Place& place : kPlaces) {
            EXPECT_EQ(find<QWidget>(window, place.name)->geometry(), place.box) << place.name;
        }
        EXPECT_EQ(window.size(), QSize(470, 450));
        window.resize(900, 900);
        EXPECT_EQ(window.size(), QSize(470, 450));
        for (const char* hidden : {"picNotFound", "picWebNotFound", "picNoBitmaps", "cmdFocus"}) {
            EXPECT_GT(find<QWidget>(window, hidden)->y(), 450) << hidden;
        }
        for (const char* box :
             {"txtName", "txtType", "txtGender", "txtNormalBody", "txtNormalSkin"}) {
            EXPECT_TRUE(find<QLineEdit>(window, box)->isReadOnly()) << box;
        }
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, SpeciesAndGenderAreToldApart) {
    struct Case {
        const char* species;
        const char* row13;
        const char* type;
        const char* gender;
    };
    for (const Case& c :
         {Case{"dog", "dogfemale", "Dog", "Female"}, Case{"kat", "catmale", "Cat", "Male"},
          Case{"kat", "catfemale", "Cat", "Female"}, Case{"Dog", "dogmale", "Cat", "Male"},
          Case{"dog", "female", "Dog", ""}}) {
        makePet({.species = c.species, .gender = c.row13});
        open([&](QWidget& window) {
            EXPECT_EQ(textOf(window, "txtType"), c.type);
            EXPECT_EQ(textOf(window, "txtGender"), c.gender);
            click(window, "cmdCancel");
        });
    }
}

TEST_F(EditPetTest, TheLastLabelAndTheLastNameAreShown) {
    const auto nameOf = [this](const std::string& segments) {
        folder.write(kPetFile, test::fileHead(0) + segments +
                                   segment("STR#", 200, 16, "", test::stringTable(petRows({}))));
        QString name;
        open([&](QWidget& window) {
            name = textOf(window, "txtName");
            click(window, "cmdCancel");
        });
        return name;
    };
    EXPECT_EQ(nameOf(segment("OBJD", 1, 16, "user1 - First", "x") +
                     segment("CTSS", 2, 16, "", test::stringTable({"One"})) +
                     segment("OBJD", 3, 16, std::string("USER2 - Last  \0rest", 19), "x") +
                     segment("CTSS", 4, 16, "", test::stringTable({"Two", "about"})) +
                     segment("OBJD", 5, 16, "no user", "x")),
              "USER2 - Last  (Two)");
    EXPECT_EQ(nameOf(segment("OBJD", 1, 16, "user1 - Rex", "x")), "user1 - Rex  ()");
    EXPECT_EQ(nameOf(segment("CTSS", 2, 16, "", test::stringTable({"Rex"}))), "  (Rex)");
}

TEST_F(EditPetTest, APetWithoutPicturesShowsTheStock) {
    makePet({.picture = false});
    open([](QWidget& window) {
        EXPECT_TRUE(shows(window, "picWebImage", "picWebNotFound"));
        EXPECT_TRUE(shows(window, "picNormal", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, ANoteForASkinIsNotLookedFor) {
    makePet({.outfit = "b001dog_01,BODY=*** a note"});
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"*** a note.bmp", bitmapFile(8, 8, 0x1), {}}}));
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "*** a note");
        EXPECT_TRUE(shows(window, "picNormal", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, DressesADogAndSavesItWithoutPicturesAndMap) {
    makePet({.label = "user00007 - Rex   "});
    folder.write("game/GameData/Skins/B002DOG_new.cmx", "");
    makeSkin("B002dog_Spots", 0x998877);
    open([this](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtName"), "user00007 - Rex  (Rex)");
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            EXPECT_EQ(theWindow<frmSelectSkin>().SkinData, "Dog");
            EXPECT_EQ(theWindow<frmSelectSkin>().SelectMode, 3);
            EXPECT_FALSE(theWindow<frmSelectSkin>().HandMode);
            clickLine(chooser, "lstModels", "B002DOG_NEW");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(textOf(window, "txtNormalBody"), "B002DOG_NEW");
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "B002dog_Spots");
        EXPECT_EQ(colourOf(window, "picNormal"), 0x998877U);
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].text, "Make changes to user00007 - Rex  (Rex)?\nAre You Sure?");
    EXPECT_EQ(script.messages()[1].title, "Success");
    EXPECT_EQ(script.messages()[1].icon, QMessageBox::Information);
    EXPECT_EQ(script.messages()[1].text, "user00007 - Rex  (Rex) has been saved.");
    // Labels, other rows and unknown segments are as they were.
    const std::string expected =
        petFile({.outfit = "b002dog_new,BODY=b002dog_spots", .label = "user00007 - Rex   "}, true);
    const std::string saved = folder.read(kPetFile);
    EXPECT_TRUE(saved.substr(64) == expected.substr(64));
    EXPECT_TRUE(saved.substr(0, 60) == content.substr(0, 60));
    EXPECT_TRUE(folder.read("program/usertemp.iff") == saved);
    // The saved file opens again.
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "b002dog_spots");
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, DressesACatFromAnArchive) {
    makePet({.species = "kat", .outfit = "b001cat_01,BODY=b001cat_coat", .gender = "catmale"});
    folder.write("game/GameData/Skins/B002CAT_new.cmx", "");
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"b002cat_grey.bmp", bitmapFile(8, 8, 0x818181), {}}}));
    open([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            EXPECT_EQ(theWindow<frmSelectSkin>().SkinData, "Cat");
            test::lookInArchives(chooser);
            clickLine(chooser, "lstModels", "B002CAT_NEW");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(colourOf(window, "picNormal"), 0x818181U);
        EXPECT_TRUE(folder.read("program/temp/skintemp.bmp") == bitmapFile(8, 8, 0x818181));
        saveAndAgree(window);
    });
    EXPECT_EQ(test::rowsOfFile(folder.read(kPetFile))[1], "b002cat_new,BODY=b002cat_grey");
}

TEST_F(EditPetTest, APetWithoutAnyNameIsSavedToo) {
    makeFile(test::fileHead(0) + segment("STR#", 200, 16, "", test::stringTable(petRows({}))));
    open([this](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtName"), "  ()");
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(test::rowsOfFile(fileContent())[1], "b001dog_01,BODY=b001dog_coat");
}

TEST_F(EditPetTest, TheTailOfARowGoesAtTheFirstSave) {
    makePet();
    open([this](QWidget& window) { saveAndAgree(window); });
    std::vector<std::string> rows = petRows({});
    rows[1] = "b001dog_01,BODY=b001dog_coat";
    EXPECT_EQ(test::rowsOfFile(folder.read(kPetFile)), rows);
}

TEST_F(EditPetTest, CancelAfterAChangeWritesNothing) {
    makePet();
    folder.write("game/GameData/Skins/B002DOG_new.cmx", "");
    makeSkin("B002dog_Spots", 0x998877);
    open([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) { click(chooser, "cmdCancel"); });
        click(window, "cmdChangeNormal");
        EXPECT_EQ(textOf(window, "txtNormalBody"), "b001dog_01");
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002DOG_NEW");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        script.answer(QMessageBox::No);
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_TRUE(folder.read(kPetFile) == content);
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(EditPetTest, ASaveWhileTheGameRunsAsksBeforeItWritesAnything) {
    makePet();
    saveWhileTheGameRuns();
}

TEST_F(EditPetTest, ASaveOverWhatTheGameWroteMeanwhileAsksAndKeepsThat) {
    makePet();
    Pet played;
    played.label = "user00007 - Max";
    saveOver(petFile(played));
}

TEST_F(EditPetTest, ClosesWhenItsPetIsTakenAway) {
    makePet();
    takeAway();
}

TEST_F(EditPetTest, ASaveThatCannotBeKeptAsks) {
    makePet();
    saveWithoutHistory();
}

TEST_F(EditPetTest, ASaveThatCannotBeProvenLeavesTheOldFile) {
    makePet();
    saveOnALyingDisk();
}

TEST_F(EditPetTest, WhatASaveReplacesIsKeptUnderThePetsName) {
    makePet();
    open([this](QWidget& window) { saveAndAgree(window); });
    const std::vector<HistoryEntry> entries = History(historyPlaces()).entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].folder, "000001 2026-01-01 12.00.00 Save pet Rex");
    EXPECT_TRUE(keptContent(entries[0]) == content);
    EXPECT_FALSE(fileContent() == content);
}

TEST_F(EditPetTest, WithoutChangesARestoreAsksNothingMore) {
    makePet();
    open([this](QWidget& window) { saveAndAgree(window); });
    EXPECT_FALSE(fileContent() == content);
    open([&](QWidget& window) {
        restoreWithoutChanges(window);
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, LeadsToThePetsVersionsAndLoadsAnewAfterARestore) {
    makePet();
    folder.write("game/GameData/Skins/B002DOG_new.cmx", "");
    makeSkin("B002dog_Spots", 0x998877);
    // The first save takes pictures and map away: that is the version.
    open([this](QWidget& window) { saveAndAgree(window); });
    const std::string saved = fileContent();
    ASSERT_FALSE(saved == content);
    folder.write("game/UserData2/Characters/user00008.iff", content);
    {
        HistoryCommand command(earlierVersions(), "Save pet", "Max", {});
        ASSERT_TRUE(command.keepOrAsk(folder.path("game\\UserData2\\characters\\user00008.iff"),
                                      stateOf("other")));
    }
    const auto restore = [](QWidget& history) {
        EXPECT_EQ(textOf(history, "txtFilter"), "UserData2\\characters\\user00007.iff");
        auto* entries = find<QListWidget>(history, "lstEntries");
        EXPECT_TRUE(entries->item(entries->count() - 1)->text().startsWith("Save pet Rex\n"));
        entries->setCurrentRow(entries->count() - 1);
        click(history, "cmdRestore");
        click(history, "cmdClose");
    };
    open([&](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002DOG_NEW");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        const std::size_t before = script.messages().size();
        // Yes, but the changes aren't to be dropped.
        script.whenShown("frmHistory", restore);
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::No);
        click(window, "cmdHistory");
        EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus"));
        EXPECT_TRUE(fileContent() == saved);
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "B002dog_Spots");
        EXPECT_TRUE(
            script.messages()
                .at(before + 1)
                .text.startsWith(
                    "The changes to user00007 - Rex  (Rex) that are not saved will be lost."));
        // And now they are.
        script.whenShown("frmHistory", restore);
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdHistory");
        EXPECT_TRUE(fileContent() == content);
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "b001dog_coat");
        // Without changes nobody asks about any.
        script.whenShown("frmHistory", [](QWidget& history) {
            EXPECT_EQ(find<QListWidget>(history, "lstEntries")->count(), 2);
            click(history, "cmdRestore");
            click(history, "cmdClose");
        });
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdHistory");
        EXPECT_TRUE(fileContent() == saved);
        // What is on the disk is what the window has: a save asks nothing more.
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
}

TEST_F(EditPetTest, ASkinThatCantBeShownIsReportedAndTheOldPictureStays) {
    makePet();
    folder.write("game/GameData/Skins/B002DOG_new.cmx", "");
    makeSkin("b001dog_coat", 0x334455);
    makeSkin("B002dog_Spots", 0x998877);
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        script.whenShown("frmSelectSkin", [this](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B002DOG_NEW");
            folder.write("game/GameData/Skins/B002dog_Spots.bmp", "no picture");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(recorder.reports()[0].module, "frmEditSim");
        EXPECT_EQ(recorder.reports()[0].procedure, "cmdChangeNormal_Click");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 4000);
        EXPECT_EQ(colourOf(window, "picNormal"), 0x334455U);
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "B002dog_Spots");
        click(window, "cmdCancel");
    });
}

TEST_F(EditPetTest, ARowWithoutACommaIsReportedAsTheSimsWindowAndASaveTellsWhyItCant) {
    makePet({.outfit = "no comma;a,b"});
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 5);
        EXPECT_EQ(recorder.reports()[0].module, "frmEditSim");
        EXPECT_EQ(recorder.reports()[0].procedure, "msDisplayUserData");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 2000);
        EXPECT_EQ(textOf(window, "txtType"), "Dog");
        script.answer();
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "File Not Saved");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(script.messages()[0].text,
              "The file user00007.iff can not be saved.\nIt could not be loaded:\n"
              "Error 5 - Invalid procedure call or argument");
    EXPECT_TRUE(folder.read(kPetFile) == content);
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(EditPetTest, TheBackupIsTheUnchangedFileUnderItsCleanedName) {
    makePet();
    backupWanted = true;
    open([this](QWidget& window) { saveAndAgree(window); });
    EXPECT_TRUE(folder.read("program/Backup/user00007iff_RexRex_UserData2_20260101_120000") ==
                content);
    EXPECT_FALSE(folder.read(kPetFile) == content);
}

TEST_F(EditPetTest, WithoutABackupNoneIsMade) {
    makePet();
    backupWanted = false;
    open([this](QWidget& window) { saveAndAgree(window); });
    EXPECT_FALSE(folder.exists("program/Backup"));
    EXPECT_FALSE(folder.read(kPetFile) == content);
}

TEST_F(EditPetTest, AFailedBackupEndsTheSave) {
    makePet();
    backupWanted = true;
    folder.write("program/Backup", "a file where the folder should be");
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdSave");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].module, "frmEditSim");
        EXPECT_EQ(recorder.reports()[0].procedure, "msMakeUserBackup");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kPetFile) == content);
}

TEST_F(EditPetTest, AReadOnlyFileIsError75AndUnchanged) {
    makePet();
    folder.makeReadOnly(kPetFile);
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdSave");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 75);
        EXPECT_EQ(recorder.reports()[0].procedure, "cmdSave_Click");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 4000);
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kPetFile) == content);
    EXPECT_TRUE(folder.exists("program/usertemp.iff"));
}

TEST_F(EditPetTest, ASaveThatStopsAnywhereLeavesTheOldFileOrTheNewOne) {
    makePet();
    backupWanted = true;
    open([this](QWidget& window) { saveAndAgree(window); });
    const std::string saved = folder.read(kPetFile);
    ASSERT_FALSE(saved == content);
    stopEverySave(saved, 5);
}

TEST_F(EditPetTest, TheMainWindowOpensItForAPet) {
    makePet();
    test::installGame(folder);
    auto& main = theWindow<frmMain>();
    main.showMain();
    clickLine(main, "lstUserDataDir", find<ClickList>(main, "lstUserDataDir")->item(0)->text());
    script.whenShown("frmEditPet", [](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtName"), "user00007 - Rex  (Rex)");
        click(window, "cmdCancel");
    });
    click(main, "cmdSelect");
    EXPECT_TRUE(script.isDone());
}

}  // namespace
}  // namespace marlowick
