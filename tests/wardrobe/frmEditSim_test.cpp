#include "wardrobe/frmEditSim.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

#include "browser/frmMain.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "start/startup.h"
#include "support/faulty_files.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/files.h"
#include "system/streams.h"
#include "wardrobe/edit_sim_test.h"
#include "wardrobe/wardrobe_fields.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::click;
using test::EditSimTest;
using test::find;
using test::kFile;
using test::simFile;
using test::simRows;
using test::SimRows;
using test::textOf;

const QString kSaved = "Mara Quill  (user00001 - Mara Quill) has been saved.";

TEST_F(EditSimTest, ShowsTheSimsWholeWardrobe) {
    makeSim();
    makeSkin("b001fafitlgt_own", 0x112233);
    makeSkin("handLC", 0x445566);
    open([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Edit Wardrobe");
        EXPECT_EQ(textOf(window, "txtName"), "Mara Quill  (user00001 - Mara Quill)");
        EXPECT_EQ(textOf(window, "txtAge"), "adult");
        EXPECT_EQ(textOf(window, "txtGender"), "female");
        EXPECT_EQ(textOf(window, "txtSkinTone"), "light");
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "h001fafitlgt_own");
        EXPECT_EQ(textOf(window, "txtHandFormalRight"), "gloveR");
        EXPECT_EQ(colourOf(window, "picNormal"), 0x112233U);
        EXPECT_EQ(colourOf(window, "picHandClosedLeft"), 0x445566U);
        EXPECT_TRUE(shows(window, "picSwimsuit", "picNotFound"));
        EXPECT_TRUE(shows(window, "picHandOpenLeft", "picNotFound"));
        EXPECT_EQ(colourOf(window, "picWebImage"), 0x3366CCU);
        EXPECT_TRUE(shows(window, "picFaces", "picWebNotFound"));
        EXPECT_TRUE(shows(window, "picRelImages", "picNoBitmaps"));
        EXPECT_TRUE(find<QRadioButton>(window, "optFit")->isChecked());
        EXPECT_FALSE(pointerIsBusy());
        for (const NamedField& field : kNamedFields) {
            EXPECT_TRUE(find<QLineEdit>(window, field.name)->isReadOnly()) << field.name;
        }
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kFile) == content);
}

TEST_F(EditSimTest, HasItsEightTabsInOrderAndBeginsWithTheFirst) {
    makeSim();
    for (int round = 0; round < 2; ++round) {
        open([](QWidget& window) {
            auto* tabs = find<QTabWidget>(window, "tabSkins");
            const QStringList captions = {"Normal", "Swimsuit", "Formal",     "Pajamas",
                                          "Nude",   "Winter",   "H. Fashion", "Hands"};
            ASSERT_EQ(tabs->count(), captions.size());
            for (int i = 0; i < tabs->count(); ++i) {
                EXPECT_EQ(tabs->tabText(i), captions[i]);
            }
            EXPECT_EQ(tabs->currentIndex(), 0);
            tabs->setCurrentIndex(5);
            click(window, "cmdCancel");
        });
    }
}

TEST_F(EditSimTest, AChildShowsTheCardForChildrenAndItsNotes) {
    makeSim({.count = 34, .age = "child", .bodyType = "chd"});
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtFormalBody"), "*** ADULT SIMS ONLY ***");
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "*** SUPERSTAR ADULTS ONLY ***");
        EXPECT_TRUE(shows(window, "picFormal", "picChild"));
        EXPECT_TRUE(shows(window, "picFashion", "picChild"));
        EXPECT_TRUE(shows(window, "picWinter", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, AChildOfTheFirstGenerationShowsEveryNote) {
    makeSim({.count = 30, .age = "child", .bodyType = "chd"});
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtFormalSkin"), "*** ADULT SIMS ONLY ***");
        EXPECT_EQ(textOf(window, "txtPajamasSkin"), "*** HOT DATE/VACATION ONLY ***");
        EXPECT_EQ(textOf(window, "txtWinterSkin"), "*** VACATION ONLY ***");
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "*** SUPERSTAR ADULTS ONLY ***");
        EXPECT_EQ(textOf(window, "txtSwimsuitSkin"), "u001fcchdlgt_own");
        EXPECT_TRUE(shows(window, "picPajamas", "picNotFound"));
        EXPECT_TRUE(shows(window, "picWinter", "picNotFound"));
        EXPECT_TRUE(find<QRadioButton>(window, "optFit")->isChecked());
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, FramesLabelsAndNotesReadAsTheyShould) {
    makeSim();
    open([](QWidget& window) {
        const auto caption = [&](const char* name) {
            return find<QLabel>(window, name)->text().toStdString();
        };
        const auto frame = [&](const char* name) {
            return find<QGroupBox>(window, name)->title().toStdString();
        };
        EXPECT_EQ(frame("fraBodyType"), "Body Type");
        EXPECT_EQ(frame("fraEnsemble"), "Ensemble File");
        EXPECT_EQ(frame("fraHandsClosed"), "Normal Hands Closed");
        EXPECT_EQ(frame("fraHandsPoint"), "Normal Hands Point");
        EXPECT_EQ(frame("fraHandsOpen"), "Normal Hands Open");
        EXPECT_EQ(frame("fraHandsFormal"), "Formal Hands");
        EXPECT_EQ(caption("lblSkinTone"), "Skin Tone");
        EXPECT_EQ(caption("lblHandOpenLeft"), "Left Hand");
        EXPECT_EQ(caption("lblHandOpenRight"), "Right Hand");
        EXPECT_EQ(caption("lblNote"), "Note: Do not use this program while The Sims is running.");
        EXPECT_EQ(caption("lblFormalNote"),
                  "Note: If you are changing a female sim's formal attire you may wish to change "
                  "the formal hands. They are white by default.");
        EXPECT_EQ(caption("lblNudeNote"),
                  "Note: Maxis took away custum nude skins with the release of Unleashed. You can "
                  "still change the default nude skins in your game. This tab now displays the "
                  "nude skin in use, but you can no longer change it.");
        EXPECT_EQ(caption("lblWinterNote"),
                  "Note: Hot Date Townies can not have winter wear assigned to them until the "
                  "first time they show up downtown after installing Vacation. The string element "
                  "that the winter clothing selection is stored in does not exists until that "
                  "time. The program will display the text    *** Vacation Only *** if the townie "
                  "can not have winter wear assigned.");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, StockPicturesHaveTheirSizesAndLieOutOfSight) {
    makeSim();
    open([](QWidget& window) {
        struct Stock {
            const char* name;
            QSize size;
        };
        for (const Stock& stock :
             {Stock{"picNotFound", {256, 256}}, Stock{"picChild", {256, 256}},
              Stock{"picWebNotFound", {44, 44}}, Stock{"picNoBitmaps", {200, 40}},
              Stock{"picHandNotFound", {64, 64}}}) {
            auto* box = find<PictureBox>(window, stock.name);
            EXPECT_EQ(box->picture().size(), stock.size) << stock.name;
            EXPECT_LT(box->geometry().right(), 0) << stock.name;
        }
        EXPECT_LT(find<QWidget>(window, "cmdFocus")->geometry().right(), 0);
        EXPECT_EQ(find<QLabel>(window, "lblSaveDisabled")->text(), "");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, PortraitsOfAnEarlierSimShowAsTold) {
    // Of the portraits' names only that of the faces is cleared before a sim is shown.
    folder.write("program/web_image.BMP", test::bitmapFile(4, 4, 0xAA0000));
    folder.write("program/faces.bmp", test::bitmapFile(4, 4, 0x00AA00));
    folder.write("program/relimages.bmp", test::bitmapFile(4, 4, 0x0000AA));
    folder.write("program/webimage.bmp", "x");
    folder.write("program/rel. images.bmp", "x");
    const std::string rows = test::stringTable(simRows({}));
    folder.write(kFile, test::fileHead(0) + test::segment("STR#", 200, 16, "", rows));
    open([](QWidget& window) {
        EXPECT_EQ(colourOf(window, "picWebImage"), 0xAA0000U);
        EXPECT_TRUE(shows(window, "picFaces", "picWebNotFound"));
        EXPECT_EQ(colourOf(window, "picRelImages"), 0x0000AAU);
        click(window, "cmdCancel");
    });
    EXPECT_FALSE(folder.exists("program/webimage.bmp"));
    EXPECT_FALSE(folder.exists("program/rel. images.bmp"));
    EXPECT_FALSE(folder.exists("program/faces.bmp"));
}

TEST_F(EditSimTest, ASimWithoutPicturesShowsTheStockAndOneWithoutAnyNameIsSavedToo) {
    const std::string rows = test::stringTable(simRows({}));
    makeFile(test::fileHead(0) + test::segment("STR#", 200, 16, "", rows));
    open([this](QWidget& window) {
        EXPECT_TRUE(shows(window, "picWebImage", "picWebNotFound"));
        EXPECT_TRUE(shows(window, "picFaces", "picWebNotFound"));
        EXPECT_TRUE(shows(window, "picRelImages", "picNoBitmaps"));
        EXPECT_EQ(textOf(window, "txtName"), "  ()");
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(test::rowsOfFile(fileContent())[17], "HfLO,HAND=handLO");
}

TEST_F(EditSimTest, AWardrobeThatEndsEarlyGoesToTheReportAndNeverSaves) {
    makeSim({.count = 29});
    auto& editor = theWindow<frmEditSim>();
    editor.LoadUserFile = folder.path("game\\UserData\\characters\\user00001.iff");
    script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
    script.whenShown("frmEditSim", [this](QWidget& window) {
        script.answer();
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    editor.showModal();
    EXPECT_TRUE(script.isDone());
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "File Not Saved");
    EXPECT_NE(
        folder.read("program/errorlog.txt").find("Procedure: msDisplayUserData\r\nLocation: 2000"),
        std::string::npos);
    EXPECT_TRUE(folder.read(kFile) == content);
}

// Saving.

TEST_F(EditSimTest, ASaveOfAnUntouchedSimWritesItsRowsAnewAndNothingElse) {
    const std::vector<std::string> rows = simRows({});
    makeSimOf(rows);
    open([this](QWidget& window) { saveAndAgree(window); });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].text,
              "Make changes to Mara Quill  (user00001 - Mara Quill)?\nAre You Sure?");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[1].title, "Success");
    EXPECT_EQ(script.messages()[1].text, "Mara Quill  (user00001 - Mara Quill) has been saved.");
    EXPECT_EQ(script.messages()[1].icon, QMessageBox::Information);
    const std::map<int, std::string> expected = {{18, "HfLO,HAND=handLO"},
                                                 {19, "HfRO,HAND=handRO"},
                                                 {20, "HfLP,HAND=handLP"},
                                                 {21, "HfRP,HAND=handRP"},
                                                 {22, "HfLC,HAND=handLC"},
                                                 {23, "HfRC,HAND=handRC"},
                                                 {28, "f001fafit_own,BODY=f001fafitlgt_own"},
                                                 {29, "HfLO,HAND=gloveL"},
                                                 {30, "HfRO,HAND=gloveR"}};
    EXPECT_EQ(changedRows(rows), expected);
    EXPECT_EQ(folder.read("program/usertemp.iff"), folder.read(kFile));
}

TEST_F(EditSimTest, ASaveWhileTheGameRunsAsksBeforeItWritesAnything) {
    makeSim();
    saveWhileTheGameRuns();
}

TEST_F(EditSimTest, ASaveOverWhatTheGameWroteMeanwhileAsksAndKeepsThat) {
    makeSim();
    std::vector<std::string> rows = simRows({});
    rows[3] = "played";
    saveOver(simFile(rows));
}

TEST_F(EditSimTest, ASaveThatCannotBeKeptAsks) {
    makeSim();
    saveWithoutHistory();
}

TEST_F(EditSimTest, ASaveThatCannotBeProvenLeavesTheOldFile) {
    makeSim();
    saveOnALyingDisk();
}

// Saved, it would hold the map of nobody, and could never be opened again.
TEST_F(EditSimTest, ASimThatAnnouncesAMapAndHoldsNoneIsNotSpoiled) {
    std::string file = simFile(simRows({}));
    file.resize(file.find("rsmp"));
    makeFile(file);
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdSave");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(test::inWords(recorder.reports()[0]), "321 frmEditSim cmdSave_Click 4000");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(fileContent() == content);
}

// With the menu's backup switched off, too.
TEST_F(EditSimTest, WhatASaveReplacesIsKeptUnderTheSimsName) {
    makeSim();
    backupWanted = false;
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdDefaultFormal");
        click(window, "cmdSave");
    });
    const std::vector<HistoryEntry> entries = History(historyPlaces()).entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].folder, "000001 2026-01-01 12.00.00 Save Mara Quill");
    EXPECT_EQ(entries[0].about.name, "Mara Quill");
    EXPECT_TRUE(keptContent(entries[0]) == content);
    EXPECT_EQ(entries[0].about.records[0].after, stateOf(fileContent()));
    EXPECT_TRUE(entries[0].about.records[0].changes.find(
                    "Formal: f001fafit_own \xE2\x86\x92 f100fafit_original") != std::string::npos)
        << entries[0].about.records[0].changes;
}

// The whole file against one that the test writes: labels padded with blanks, the rows, the map.
TEST_F(EditSimTest, ASavedFileIsRightByteForByte) {
    std::vector<std::string> rows = simRows({});
    makeSimOf(rows);
    open([this](QWidget& window) { saveAndAgree(window); });
    const char* codes[] = {"LO", "RO", "LP", "RP", "LC", "RC"};
    for (std::size_t i = 0; i < 6; ++i) {
        rows[17 + i] = std::string("Hf") + codes[i] + ",HAND=hand" + codes[i];
    }
    rows[27] = rows[30];
    rows[28] = "HfLO,HAND=gloveL";
    rows[29] = "HfRO,HAND=gloveR";
    std::string expected = test::simFile(rows);
    for (const char* label : {"user00001 - Mara Quill", "a2o skins", "web_image"}) {
        const std::size_t at = expected.find(test::padded(label, 64));
        ASSERT_NE(at, std::string::npos) << label;
        expected.replace(at, 64, test::padded(label, 64, ' '));
    }
    // The name table's label is empty.
    const std::size_t names = expected.find("CTSS");
    expected.replace(names + 12, 64, std::string(64, ' '));
    EXPECT_TRUE(folder.read(kFile) == expected);
}

TEST_F(EditSimTest, NoKeepsTheWindowOpenAndTheFileAsItIs) {
    makeSim();
    open([this](QWidget& window) {
        script.answer(QMessageBox::No);
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kFile) == content);
    EXPECT_FALSE(folder.exists("program/usertemp.iff"));
}

TEST_F(EditSimTest, CancelAndEscLeaveNoTraceOfAChange) {
    makeSim();
    for (const bool byKey : {false, true}) {
        open([&](QWidget& window) {
            script.answer(QMessageBox::Yes);
            click(window, "cmdDefaultSwimsuit");
            if (byKey) {
                QTest::keyClick(&window, Qt::Key_Escape);
            } else {
                click(window, "cmdCancel");
            }
            EXPECT_FALSE(window.isVisible());
        });
    }
    EXPECT_TRUE(folder.read(kFile) == content);
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "s001fafit_own");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, TheMainWindowsMenuSaysWhetherABackupIsWanted) {
    test::installGame(folder);
    for (const char* wanted : {"0", "1"}) {
        makeSim();
        writeSetting(setting::kBackupSavedFile, QString::fromLatin1(wanted));
        writeSetting(setting::kLastNeighborhood, "Neighborhood 01   (UserData)");
        auto& main = theWindow<frmMain>();
        main.showMain();
        script.whenShown("frmEditSim", [this](QWidget& window) { saveAndAgree(window); });
        click(main, "cmdSelect");
        EXPECT_TRUE(script.isDone());
        EXPECT_FALSE(folder.read(kFile) == content);
        EXPECT_EQ(folder.exists("program/Backup"), *wanted == '1');
        destroyWindows();
    }
}

TEST_F(EditSimTest, ABackupOfTheOldFileIsMadeIfWanted) {
    makeSim();
    backupWanted = true;
    open([this](QWidget& window) { saveAndAgree(window); });
    const std::vector<std::string> backups = searchFiles(folder.path("program\\Backup"), "*");
    ASSERT_EQ(backups, std::vector<std::string>{"user00001iff_MaraQuill_UserData_20260101_120000"});
    EXPECT_EQ(folder.read("program/Backup/" + backups[0]), content);
}

TEST_F(EditSimTest, ASimOfALongNameIsBackedUpAndSaved) {
    makeFile(test::simFile(simRows({}), "X-" + std::string(300, 'n')));
    backupWanted = true;
    open([this](QWidget& window) {
        saveAndAgree(window);
        EXPECT_FALSE(window.isVisible());
    });
    const std::vector<std::string> backups = searchFiles(folder.path("program\\Backup"), "*");
    ASSERT_EQ(backups.size(), 1U);
    EXPECT_EQ(backups[0].size(), 255U);
    EXPECT_EQ(folder.read("program/Backup/" + backups[0]), content);
    EXPECT_FALSE(folder.read(kFile) == content);
}

TEST_F(EditSimTest, WithoutTheWishThereIsNoBackupAndNoFolder) {
    makeSim();
    backupWanted = false;
    open([this](QWidget& window) { saveAndAgree(window); });
    EXPECT_FALSE(folder.exists("program/Backup"));
    EXPECT_FALSE(folder.read(kFile) == content);
}

TEST_F(EditSimTest, TheFirstGenerationsSwimsuitIsNotSaved) {
    const std::vector<std::string> rows = simRows({.count = 30});
    makeSimOf(rows);
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "nffit_01");
        saveAndAgree(window);
    });
    EXPECT_EQ(test::rowsOfFile(folder.read(kFile))[16], rows[16]);
    open([](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "u001fafit_own");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, TheTailOfRowTwoGoesWithEverySave) {
    std::vector<std::string> rows = simRows({});
    rows[1] += ";tail";
    makeSimOf(rows);
    open([this](QWidget& window) { saveAndAgree(window); });
    EXPECT_EQ(test::rowsOfFile(folder.read(kFile))[1], "b001fafit_own,BODY=b001fafitlgt_own");
}

TEST_F(EditSimTest, AReadOnlyFileIsErrorSeventyFiveAtTheLastStageAndUnchanged) {
    makeSim();
    folder.makeReadOnly(kFile);
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
        click(window, "cmdSave");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    const std::string report = folder.read("program/errorlog.txt");
    EXPECT_NE(report.find("Error: 75\r\n"), std::string::npos);
    EXPECT_NE(report.find("Module: frmEditSim\r\nProcedure: cmdSave_Click\r\nLocation: 4000"),
              std::string::npos);
    EXPECT_TRUE(folder.read(kFile) == content);
    EXPECT_TRUE(folder.exists("program/usertemp.iff"));
}

// Whatever step of a save fails, and its report is closed by the frame: the save ends there, says
// nothing of success, and the sim's file is as it was.
TEST_F(EditSimTest, ASaveEndsAfterAnyFailedStep) {
    makeSim();
    backupWanted = true;
    int steps = 0;
    for (int failAt = 1; failAt <= 60; ++failAt) {
        std::filesystem::remove_all(folder.program() / "Backup");
        std::filesystem::remove_all(folder.program() / "History");
        folder.write("program/usertemp.iff", "an older one");
        folder.write(kFile, content);
        // A failed routine leaves its stream open; that is told elsewhere.
        streams().closeAll();
        bool reported = false;
        const std::size_t messages = script.messages().size();
        open([&](QWidget& window) {
            const test::FaultyFiles faulty(failAt, test::FaultyFiles::Fault::Fail);
            setErrorTrap([&] { reported = true; });
            script.answer(QMessageBox::Yes);
            click(window, "cmdSave");
            installErrorWindow();
            if (window.isVisible()) {
                click(window, "cmdCancel");
            }
        });
        const bool asked = wasAskedAboutKeeping();
        if (!reported && !asked) {
            // Nothing was left to fail: the save went through, and said so.
            EXPECT_FALSE(folder.read(kFile) == content);
            break;
        }
        ++steps;
        EXPECT_TRUE(folder.read(kFile) == content) << failAt;
        EXPECT_EQ(script.messages().size(), messages + 1) << failAt;
        EXPECT_NE(asked, reported) << failAt;
    }
    EXPECT_GE(steps, 15);
    EXPECT_LT(steps, 60);
    ASSERT_EQ(script.unexpected().join("|").toStdString(), kSaved.toStdString());
    script.forgetUnexpected();
}

// Default commands.

TEST_F(EditSimTest, DefaultCommandsAskFillAndShow) {
    makeSim({.tone = "drk", .bodyType = "fat"});
    struct Case {
        const char* button;
        const char* question;
        const char* body;
        const char* skin;
        const char* picture;
    };
    unsigned colour = 0x101010;
    for (const Case& c : {Case{"cmdDefaultSwimsuit", "Restore swimsuit to the default?",
                               "s100fafat_original", "s100fafatdrk_original", "Swimsuit"},
                          Case{"cmdDefaultFormal", "Restore formal to the default?",
                               "f100fafat_original", "f100fafatdrk_original", "Formal"},
                          Case{"cmdDefaultPajamas", "Restore pajamas to the default?",
                               "l100fafat_original", "l100fafatdrk_original", "Pajamas"},
                          Case{"cmdDefaultWinter", "Restore winter clothes to the default?",
                               "W100fafat_original", "W100fafatdrk_original", "Winter"}}) {
        colour += 0x101010;
        makeSkin(c.skin, colour);
        open([&](QWidget& window) {
            const std::string slot = c.picture;
            script.answer(QMessageBox::No);
            click(window, c.button);
            EXPECT_NE(textOf(window, ("txt" + slot + "Body").c_str()), c.body);
            script.answer(QMessageBox::Yes);
            click(window, c.button);
            EXPECT_EQ(textOf(window, ("txt" + slot + "Body").c_str()), c.body);
            EXPECT_EQ(textOf(window, ("txt" + slot + "Skin").c_str()), c.skin);
            EXPECT_EQ(colourOf(window, ("pic" + slot).c_str()), colour);
            click(window, "cmdCancel");
        });
        const test::SeenMessage& seen = script.messages().back();
        EXPECT_EQ(seen.title, "Confirm Action");
        EXPECT_EQ(seen.text, QString::fromLatin1(c.question) + "\r\nAre You Sure?");
        EXPECT_EQ(seen.icon, QMessageBox::Question);
        EXPECT_TRUE(seen.yesNo);
    }
}

TEST_F(EditSimTest, DefaultPicturesComeFromTheFoldersOfTheirRowAndNeverFromArchives) {
    makeSim();
    folder.write("game/ExpansionPack3/SkinsBuy/s100fafitlgt_original.bmp",
                 test::bitmapFile(8, 8, 0x0A0B0C));
    folder.write("game/ExpansionPack3/SkinsBuy/W100fafitlgt_original.bmp",
                 test::bitmapFile(8, 8, 0x0A0B0C));
    folder.write("game/ExpansionShared/SkinsBuy/l100fafitlgt_original.bmp",
                 test::bitmapFile(8, 8, 0x0D0E0F));
    const std::string bitmap = test::bitmapFile(8, 8, 0x777777);
    const auto size = static_cast<unsigned>(bitmap.size());
    const std::string name = "f100fafitlgt_original.bmp";
    folder.write("game/ExpansionPack/ExpansionPack.far",
                 "FAR!byAZ" + test::little32(1) + test::little32(16 + size) + bitmap +
                     test::little32(1) + test::little32(size) + test::little32(size) +
                     test::little32(16) + test::little32(static_cast<unsigned>(name.size())) +
                     name);
    open([this](QWidget& window) {
        for (const char* button :
             {"cmdDefaultSwimsuit", "cmdDefaultWinter", "cmdDefaultPajamas", "cmdDefaultFormal"}) {
            script.answer(QMessageBox::Yes);
            click(window, button);
        }
        EXPECT_EQ(colourOf(window, "picSwimsuit"), 0x0A0B0CU);
        EXPECT_TRUE(shows(window, "picWinter", "picNotFound"));
        EXPECT_EQ(colourOf(window, "picPajamas"), 0x0D0E0FU);
        EXPECT_TRUE(shows(window, "picFormal", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, DefaultsThatDontExistKeepTheNoteAndShowNotFound) {
    makeSim({.count = 30});
    open([this](QWidget& window) {
        for (const char* button : {"cmdDefaultPajamas", "cmdDefaultWinter"}) {
            script.answer(QMessageBox::Yes);
            click(window, button);
        }
        EXPECT_EQ(textOf(window, "txtPajamasBody"), "*** HOT DATE/VACATION ONLY ***");
        EXPECT_EQ(textOf(window, "txtWinterBody"), "*** VACATION ONLY ***");
        EXPECT_TRUE(shows(window, "picPajamas", "picNotFound"));
        EXPECT_TRUE(shows(window, "picWinter", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, AChildsFormalDefaultIsBlankAndShowsNotFound) {
    makeSim({.age = "child", .bodyType = "chd"});
    open([this](QWidget& window) {
        EXPECT_TRUE(shows(window, "picFormal", "picChild"));
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultFormal");
        EXPECT_EQ(textOf(window, "txtFormalBody"), "");
        EXPECT_EQ(textOf(window, "txtFormalSkin"), "");
        EXPECT_TRUE(shows(window, "picFormal", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, TheBodyTypeOptionsDoNotChangeADefault) {
    makeSim({.bodyType = "fat"});
    open([this](QWidget& window) {
        EXPECT_TRUE(find<QRadioButton>(window, "optFat")->isChecked());
        QTest::mouseClick(find<QRadioButton>(window, "optFit"), Qt::LeftButton);
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "s100fafat_original");
        click(window, "cmdCancel");
    });
}

// Hands.

TEST_F(EditSimTest, CopyLeftCopiesTextAndPicture) {
    makeSim();
    makeSkin("handLO", 0x123456);
    struct Pose {
        const char* button;
        const char* left;
        const char* right;
        const char* rightPicture;
        const char* leftPicture;
    };
    open([](QWidget& window) {
        for (const Pose& pose :
             {Pose{"cmdCopyLeftClosed", "txtHandClosedLeft", "txtHandClosedRight",
                   "picHandClosedRight", "picHandClosedLeft"},
              Pose{"cmdCopyOpenLeft", "txtHandOpenLeft", "txtHandOpenRight", "picHandOpenRight",
                   "picHandOpenLeft"},
              Pose{"cmdCopyPointLeft", "txtHandPointLeft", "txtHandPointRight", "picHandPointRight",
                   "picHandPointLeft"},
              Pose{"cmdCopyFormalLeft", "txtHandFormalLeft", "txtHandFormalRight",
                   "picHandFormalRight", "picHandFormalLeft"}}) {
            click(window, pose.button);
            EXPECT_EQ(textOf(window, pose.right), textOf(window, pose.left));
            EXPECT_TRUE(shows(window, pose.rightPicture, pose.leftPicture));
        }
        EXPECT_EQ(colourOf(window, "picHandOpenRight"), 0x123456U);
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(EditSimTest, CopyLeftOfABlankHandBlanksTheRightOne) {
    std::vector<std::string> rows = simRows({});
    rows[19] = "HfLP,HAND=";
    makeSimOf(rows);
    makeSkin("handRP", 0x123456);
    open([](QWidget& window) {
        EXPECT_EQ(colourOf(window, "picHandPointRight"), 0x123456U);
        click(window, "cmdCopyPointLeft");
        EXPECT_EQ(textOf(window, "txtHandPointRight"), "");
        EXPECT_TRUE(shows(window, "picHandPointRight", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, DefaultHandsFillTheirFieldsAndTwoPosesShowTheOtherOne) {
    makeSim({.tone = "med"});
    makeSkin("huacmed", 0xC0C0C0);
    makeSkin("huapmed", 0xB0B0B0);
    makeSkin("huaomed", 0xA0A0A0);
    makeSkin("handLP", 0x010101);
    makeSkin("handLC", 0x020202);
    makeSkin("gfao_bride", 0x909090);
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefClosedHands");
        EXPECT_EQ(textOf(window, "txtHandClosedLeft"), "huacmed");
        EXPECT_EQ(textOf(window, "txtHandClosedRight"), "huacmed");
        EXPECT_EQ(colourOf(window, "picHandClosedLeft"), 0x020202U);  // still the old one
        EXPECT_EQ(colourOf(window, "picHandPointLeft"), 0x010101U);   // fetched anew
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefPointHands");
        EXPECT_EQ(textOf(window, "txtHandPointRight"), "huapmed");
        EXPECT_EQ(colourOf(window, "picHandPointLeft"), 0x010101U);  // still the old one
        EXPECT_EQ(colourOf(window, "picHandClosedLeft"), 0xC0C0C0U);
        EXPECT_EQ(colourOf(window, "picHandClosedRight"), 0xC0C0C0U);
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefOpenHands");
        EXPECT_EQ(textOf(window, "txtHandOpenLeft"), "huaomed");
        EXPECT_EQ(colourOf(window, "picHandOpenRight"), 0xA0A0A0U);
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefFormalHands");
        EXPECT_EQ(textOf(window, "txtHandFormalLeft"), "gfao_bride");
        EXPECT_EQ(colourOf(window, "picHandFormalLeft"), 0x909090U);
        script.answer(QMessageBox::No);
        click(window, "cmdDefClosedHands");
        click(window, "cmdCancel");
    });
    EXPECT_EQ(script.messages()[0].text, "Restore closed hands to the default?\nAre You Sure?");
    EXPECT_EQ(script.messages()[1].text, "Restore point hands to the default?\nAre You Sure?");
    EXPECT_EQ(script.messages()[2].text, "Restore open hands to the default?\nAre You Sure?");
    EXPECT_EQ(script.messages()[3].text, "Restore formal hands to the default?\nAre You Sure?");
}

TEST_F(EditSimTest, AMansFormalDefaultIsBlank) {
    makeSim({.gender = "male"});
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefFormalHands");
        EXPECT_EQ(textOf(window, "txtHandFormalLeft"), "");
        EXPECT_EQ(textOf(window, "txtHandFormalRight"), "");
        EXPECT_TRUE(shows(window, "picHandFormalLeft", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimTest, NormalTakesTheFormalHandsAway) {
    makeSim();
    open([this](QWidget& window) {
        script.answer(QMessageBox::No);
        click(window, "cmdNormalFormalHands");
        EXPECT_EQ(textOf(window, "txtHandFormalLeft"), "gloveL");
        script.answer(QMessageBox::Yes);
        click(window, "cmdNormalFormalHands");
        EXPECT_EQ(textOf(window, "txtHandFormalLeft"), "");
        EXPECT_EQ(textOf(window, "txtHandFormalRight"), "");
        EXPECT_TRUE(shows(window, "picHandFormalLeft", "picHandNotFound"));
        EXPECT_TRUE(shows(window, "picHandFormalRight", "picHandNotFound"));
        saveAndAgree(window);
    });
    EXPECT_EQ(script.messages()[0].text,
              "Formal hands are the same as normal\nhands if the formal hands' string is\n"
              "left blank. This is the default for \nmale sims.\n\n"
              "Change formal hands to normal?\nAre You Sure?");
    const std::vector<std::string> rows = test::rowsOfFile(folder.read(kFile));
    EXPECT_EQ(rows[28], "");
    EXPECT_EQ(rows[29], "");
}

TEST_F(EditSimTest, AWinterDefaultReachesItsRowInLowerCase) {
    makeSim();
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultWinter");
        saveAndAgree(window);
    });
    EXPECT_EQ(test::rowsOfFile(folder.read(kFile))[33],
              "w100fafit_original,BODY=w100fafitlgt_original");
}

TEST_F(EditSimTest, EveryCommandMovesTheFocusToItsHolder) {
    makeSim();
    open([this](QWidget& window) {
        const auto cancel = [](QWidget& opened) { click(opened, "cmdCancel"); };
        for (const char* button : {"cmdChangeNormal", "cmdleftClosedHand", "cmdEnsLoad",
                                   "cmdEnsSave", "cmdCopyOpenLeft"}) {
            if (std::string(button).starts_with("cmdEns")) {
                script.whenShown("frmENS", cancel);
            } else if (button != std::string("cmdCopyOpenLeft")) {
                script.whenShown("frmSelectSkin", cancel);
            }
            find<QWidget>(window, "txtName")->setFocus();
            click(window, button);
            EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus")) << button;
        }
        click(window, "cmdCancel");
    });
}

}  // namespace
}  // namespace marlowick
