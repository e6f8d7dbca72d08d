// Outfits and hands are changed through the chooser and saved, and the file's rows compared.
#include <gtest/gtest.h>

#include <QLineEdit>

#include "catalogue/frmSelectSkin.h"
#include "support/archive_builder.h"
#include "support/chooser_driver.h"
#include "support/error_recorder.h"
#include "wardrobe/edit_sim_test.h"

namespace marlowick {
namespace {

using test::bitmapFile;
using test::click;
using test::clickCell;
using test::clickLine;
using test::EditSimTest;
using test::find;
using test::kFile;
using test::lookInArchives;
using test::simRows;
using test::textOf;

struct OutfitCase {
    char letter;
    const char* button;
    const char* body;
    const char* skin;
    const char* picture;
    int row;
};

const OutfitCase kOutfits[] = {
    {'B', "cmdChangeNormal", "txtNormalBody", "txtNormalSkin", "picNormal", 2},
    {'S', "cmdChangeSwimsuit", "txtSwimsuitBody", "txtSwimsuitSkin", "picSwimsuit", 32},
    {'F', "cmdChangeFormal", "txtFormalBody", "txtFormalSkin", "picFormal", 31},
    {'L', "cmdChangePajamas", "txtPajamasBody", "txtPajamasSkin", "picPajamas", 33},
    {'W', "cmdChangeWinter", "txtWinterBody", "txtWinterSkin", "picWinter", 34},
    {'H', "cmdChangeFashion", "txtFashionBody", "txtFashionSkin", "picFashion", 35},
};

struct HandCase {
    const char* button;
    const char* field;
    const char* picture;
    int row;
    const char* prefix;
};

const HandCase kHands[] = {
    {"cmdleftClosedHand", "txtHandClosedLeft", "picHandClosedLeft", 22, "HfLC,HAND="},
    {"cmdRightClosedHand", "txtHandClosedRight", "picHandClosedRight", 23, "HfRC,HAND="},
    {"cmdLeftOpenHand", "txtHandOpenLeft", "picHandOpenLeft", 18, "HfLO,HAND="},
    {"cmdRightOpenHand", "txtHandOpenRight", "picHandOpenRight", 19, "HfRO,HAND="},
    {"cmdLeftPointHand", "txtHandPointLeft", "picHandPointLeft", 20, "HfLP,HAND="},
    {"cmdRightPointHand", "txtHandPointRight", "picHandPointRight", 21, "HfRP,HAND="},
    {"cmdLeftFormalHand", "txtHandFormalLeft", "picHandFormalLeft", 29, "HfLO,HAND="},
    {"cmdRightFormalHand", "txtHandFormalRight", "picHandFormalRight", 30, "HfRO,HAND="},
};

unsigned colourOfOutfit(char letter) {
    return 0x300000U + static_cast<unsigned char>(letter);
}

class EditSimChangeTest : public EditSimTest {
  protected:
    EditSimChangeTest() { std::filesystem::create_directories(folder.program() / "temp"); }

    // One model of each outfit for a fit woman, with a light skin in the folder and one in an
    // archive.
    void makeClothes() {
        std::vector<test::ArchiveEntry> entries;
        for (const OutfitCase& c : kOutfits) {
            const std::string prefix = std::string(1, c.letter) + "777FAfit";
            folder.write("game/GameData/Skins/" + prefix + "_New.cmx", "");
            makeSkin(prefix + "lgt_Folder", colourOfOutfit(c.letter));
            entries.push_back(
                {prefix + "lgt_Far.bmp", bitmapFile(8, 8, 0x100 + colourOfOutfit(c.letter)), {}});
        }
        folder.write("game/GameData/Textures/Textures.far", test::archiveFile(entries));
    }

    // Prepares for the chooser: the only model, the only skin.
    void chooseClothes(char letter, bool archives) {
        script.whenShown("frmSelectSkin", [letter, archives](QWidget& chooser) {
            if (archives) {
                lookInArchives(chooser);
            }
            clickLine(chooser, "lstModels", QString(QChar(letter)) + "777FAFIT_NEW");
            click(chooser, "cmdSelect");
        });
    }

    // What the window asked the chooser for.
    std::string requestOf(QWidget& window, const char* button) {
        std::string request;
        script.whenShown("frmSelectSkin", [&](QWidget& chooser) {
            request = theWindow<frmSelectSkin>().SkinData;
            EXPECT_FALSE(theWindow<frmSelectSkin>().HandMode);
            EXPECT_EQ(theWindow<frmSelectSkin>().SelectMode, 2);
            click(chooser, "cmdCancel");
        });
        click(window, button);
        return request;
    }
};

TEST_F(EditSimChangeTest, EachOutfitFromAFolderReachesItsRow) {
    makeSim();
    makeClothes();
    open([this](QWidget& window) {
        for (const OutfitCase& c : kOutfits) {
            chooseClothes(c.letter, false);
            click(window, c.button);
            const QString prefix = QString(QChar(c.letter)) + "777FA";
            EXPECT_EQ(textOf(window, c.body), prefix + "FIT_NEW");
            EXPECT_EQ(textOf(window, c.skin), prefix + "fitlgt_Folder");
            EXPECT_EQ(colourOf(window, c.picture), colourOfOutfit(c.letter)) << c.picture;
        }
        saveAndAgree(window);
    });
    const std::vector<std::string> rows = test::rowsOfFile(folder.read(kFile));
    for (const OutfitCase& c : kOutfits) {
        const std::string prefix = std::string(1, static_cast<char>(c.letter + 32)) + "777fafit";
        EXPECT_EQ(rows[static_cast<std::size_t>(c.row) - 1],
                  prefix + "_new,BODY=" + prefix + "lgt_folder");
    }
    open([this](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "h777fafitlgt_folder");
        EXPECT_EQ(colourOf(window, "picFashion"), colourOfOutfit('H'));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimChangeTest, EachOutfitFromAnArchiveReachesItsRow) {
    makeSim();
    makeClothes();
    open([this](QWidget& window) {
        for (const OutfitCase& c : kOutfits) {
            chooseClothes(c.letter, true);
            click(window, c.button);
            EXPECT_EQ(colourOf(window, c.picture), 0x100 + colourOfOutfit(c.letter)) << c.picture;
            EXPECT_TRUE(folder.read("program/temp/skintemp.bmp") ==
                        bitmapFile(8, 8, 0x100 + colourOfOutfit(c.letter)));
        }
        saveAndAgree(window);
    });
    const std::vector<std::string> rows = test::rowsOfFile(folder.read(kFile));
    for (const OutfitCase& c : kOutfits) {
        const std::string prefix = std::string(1, static_cast<char>(c.letter + 32)) + "777fafit";
        EXPECT_EQ(rows[static_cast<std::size_t>(c.row) - 1],
                  prefix + "_new,BODY=" + prefix + "lgt_far");
    }
}

TEST_F(EditSimChangeTest, CancelChangesNothing) {
    makeSim();
    makeClothes();
    open([this](QWidget& window) {
        makeSkin("b001fafitlgt_own", 0x1);
        for (const OutfitCase& c : kOutfits) {
            const QString body = textOf(window, c.body);
            const QString skin = textOf(window, c.skin);
            const QImage before = find<PictureBox>(window, c.picture)->picture();
            script.whenShown("frmSelectSkin", [](QWidget& chooser) {
                clickLine(
                    chooser, "lstModels",
                    theWindow<frmSelectSkin>().findChild<ClickList*>("lstModels")->item(0)->text());
                click(chooser, "cmdCancel");
            });
            click(window, c.button);
            EXPECT_EQ(textOf(window, c.body), body);
            EXPECT_EQ(textOf(window, c.skin), skin);
            EXPECT_TRUE(find<PictureBox>(window, c.picture)->picture() == before);
        }
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kFile) == content);
}

TEST_F(EditSimChangeTest, TheRequestComesFromTheOptionsAndTheRawTone) {
    std::vector<std::string> rows = simRows({});
    rows[14] = "Xyz";
    makeSimOf(rows);
    open([this](QWidget& window) {
        EXPECT_EQ(requestOf(window, "cmdChangeNormal"), "faXyzfitB");
        QTest::mouseClick(find<QAbstractButton>(window, "optFat"), Qt::LeftButton, {}, {6, 6});
        EXPECT_EQ(textOf(window, "txtNormalBody"), "b001fafit_own");
        EXPECT_EQ(requestOf(window, "cmdChangeFormal"), "faXyzfatF");
        QTest::mouseClick(find<QAbstractButton>(window, "optSkinny"), Qt::LeftButton, {}, {6, 6});
        EXPECT_EQ(requestOf(window, "cmdChangeFashion"), "faXyzsknH");
        EXPECT_EQ(requestOf(window, "cmdChangePajamas"), "faXyzsknL");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimChangeTest, AChildsRequestSaysSoAndItsAdultSlotsDoNothing) {
    makeSim({.count = 35, .age = "child", .gender = "male", .tone = "drk", .bodyType = "chd"});
    open([this](QWidget& window) {
        EXPECT_EQ(requestOf(window, "cmdChangeSwimsuit"), "mcdrkchdS");
        EXPECT_EQ(requestOf(window, "cmdChangeWinter"), "mcdrkchdW");
        const QString formal = textOf(window, "txtFormalBody");
        for (const char* button : {"cmdChangeFormal", "cmdChangeFashion"}) {
            click(window, button);
            EXPECT_TRUE(test::shownWindow("frmSelectSkin") == nullptr) << button;
            EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus"));
        }
        EXPECT_EQ(textOf(window, "txtFormalBody"), formal);
        EXPECT_TRUE(shows(window, "picFormal", "picChild"));
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(EditSimChangeTest, WinterWearOfAnOldFileIsShownAndDroppedByTheSave) {
    const std::vector<std::string> rows = simRows({.count = 33});
    makeSimOf(rows);
    makeClothes();
    open([this](QWidget& window) {
        chooseClothes('W', false);
        click(window, "cmdChangeWinter");
        EXPECT_EQ(textOf(window, "txtWinterBody"), "W777FAFIT_NEW");
        EXPECT_EQ(colourOf(window, "picWinter"), colourOfOutfit('W'));
        saveAndAgree(window);
    });
    const std::vector<std::string> after = test::rowsOfFile(folder.read(kFile));
    ASSERT_EQ(after.size(), 33U);
    for (const std::string& row : after) {
        EXPECT_EQ(row.find("w777"), std::string::npos);
    }
}

TEST_F(EditSimChangeTest, ASkinThatCantBeShownIsReportedOverTheCard) {
    makeSim();
    makeClothes();
    makeSkin("b001fafitlgt_own", 0x123456);
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        EXPECT_EQ(colourOf(window, "picNormal"), 0x123456U);
        script.whenShown("frmSelectSkin", [this](QWidget& chooser) {
            clickLine(chooser, "lstModels", "B777FAFIT_NEW");
            folder.write("game/GameData/Skins/B777FAfitlgt_Folder.bmp", "no picture");
            click(chooser, "cmdSelect");
        });
        click(window, "cmdChangeNormal");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(recorder.reports()[0].module, "frmEditSim");
        EXPECT_EQ(recorder.reports()[0].procedure, "cmdChangeNormal_Click");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 4000);
        EXPECT_TRUE(shows(window, "picNormal", "picNotFound"));
        EXPECT_EQ(textOf(window, "txtNormalSkin"), "B777FAfitlgt_Folder");
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimChangeTest, EachHandFromAFolderReachesItsRowInItsOwnCase) {
    makeSim();
    for (unsigned i = 0; i < 8; ++i) {
        makeSkin("HUx" + std::to_string(i) + "Own", 0x400000 + i);
    }
    open([this](QWidget& window) {
        for (int i = 0; i < 8; ++i) {
            const HandCase& c = kHands[i];
            script.whenShown("frmSelectSkin", [i](QWidget& chooser) {
                EXPECT_TRUE(theWindow<frmSelectSkin>().HandMode);
                EXPECT_EQ(theWindow<frmSelectSkin>().SelectMode, 1);
                clickCell(chooser, i);
                click(chooser, "cmdSelect");
            });
            click(window, c.button);
            EXPECT_EQ(textOf(window, c.field), QStringLiteral("HUx%1Own").arg(i));
            EXPECT_EQ(colourOf(window, c.picture), 0x400000U + static_cast<unsigned>(i));
        }
        saveAndAgree(window);
    });
    const std::vector<std::string> rows = test::rowsOfFile(folder.read(kFile));
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(rows[static_cast<std::size_t>(kHands[i].row) - 1],
                  std::string(kHands[i].prefix) + "HUx" + std::to_string(i) + "Own");
    }
}

TEST_F(EditSimChangeTest, AHandFromAnArchiveReachesItsRow) {
    makeSim();
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"HFglove.bmp", bitmapFile(8, 8, 0x5150), {}}}));
    open([this](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            lookInArchives(chooser);
            click(chooser, "cmdSelect");
        });
        click(window, "cmdRightPointHand");
        EXPECT_EQ(textOf(window, "txtHandPointRight"), "HFGLOVE");
        EXPECT_EQ(colourOf(window, "picHandPointRight"), 0x5150U);
        script.whenShown("frmSelectSkin", [](QWidget& chooser) { click(chooser, "cmdCancel"); });
        click(window, "cmdRightPointHand");
        EXPECT_EQ(textOf(window, "txtHandPointRight"), "HFGLOVE");
        saveAndAgree(window);
    });
    EXPECT_EQ(test::rowsOfFile(folder.read(kFile))[20], "HfRP,HAND=HFGLOVE");
}

TEST_F(EditSimChangeTest, AFirstHandThatNobodyClickedBlanksThePicture) {
    makeSim();
    makeSkin("handLO", 0x1111);
    makeSkin("hm1", 0x2222);
    open([this](QWidget& window) {
        EXPECT_EQ(colourOf(window, "picHandOpenLeft"), 0x1111U);
        script.whenShown("frmSelectSkin", [](QWidget& chooser) { click(chooser, "cmdSelect"); });
        click(window, "cmdLeftOpenHand");
        EXPECT_EQ(textOf(window, "txtHandOpenLeft"), "hm1");
        EXPECT_TRUE(find<PictureBox>(window, "picHandOpenLeft")->picture().isNull());
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimChangeTest, AnArchivesPathTakenForABitmapIsReported) {
    makeSim();
    makeSkin("hm1", 0x2222);
    folder.write("game/GameData/Textures/Textures.far",
                 test::archiveFile({{"HFglove.bmp", bitmapFile(8, 8, 0x5150), {}}}));
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            lookInArchives(chooser);
            for (auto* option : chooser.findChildren<QRadioButton*>("optMode")) {
                if (option->property("Index") == 0) {
                    QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, {6, 6});
                }
            }
            click(chooser, "cmdSelect");
        });
        click(window, "cmdleftClosedHand");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(recorder.reports()[0].procedure, "cmdleftClosedHand_Click");
        EXPECT_TRUE(shows(window, "picHandClosedLeft", "picNotFound"));
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimChangeTest, AMansFormalHandMayBeChangedButOneAloneIsNotSaved) {
    makeSim({.gender = "male"});
    makeSkin("hm1", 0x2222);
    open([this](QWidget& window) {
        script.answer(QMessageBox::Yes);
        click(window, "cmdNormalFormalHands");
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            clickCell(chooser, 0);
            click(chooser, "cmdSelect");
        });
        click(window, "cmdLeftFormalHand");
        EXPECT_EQ(textOf(window, "txtHandFormalLeft"), "hm1");
        saveAndAgree(window);
    });
    const std::vector<std::string> rows = test::rowsOfFile(folder.read(kFile));
    EXPECT_EQ(rows[28], "");
    EXPECT_EQ(rows[29], "");
}

}  // namespace
}  // namespace marlowick
