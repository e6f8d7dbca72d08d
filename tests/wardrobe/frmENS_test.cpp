#include "wardrobe/frmENS.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

#include "catalogue/frmSelectSkin.h"
#include "support/chooser_driver.h"
#include "support/error_recorder.h"
#include "system/shown_path.h"
#include "wardrobe/edit_sim_test.h"

namespace marlowick {
namespace {

using test::click;
using test::clickLine;
using test::EditSimTest;
using test::find;
using test::kFile;
using test::textOf;

void type(QWidget& window, const QString& name) {
    auto* box = find<QLineEdit>(window, "txtFileName");
    box->selectAll();
    QTest::keyClicks(box, name);
}

QStringList listed(QWidget& window) {
    QStringList names;
    auto* list = find<ClickList>(window, "flbENS");
    for (int i = 0; i < list->count(); ++i) {
        names.append(list->item(i)->text());
    }
    return names;
}

class EnsembleWindowTest : public EditSimTest {
  protected:
    EnsembleWindowTest() { std::filesystem::create_directories(folder.program() / "ENS"); }

    // Runs an ensemble command of the wardrobe window.
    void run(QWidget& window, const char* button, std::function<void(QWidget&)> action) {
        script.whenShown("frmENS", std::move(action));
        click(window, button);
    }

    // The 22 lines of the sim that simRows gives.
    static std::string linesOfTheSim() {
        return "b001fafit_own\r\nb001fafitlgt_own\r\ns001fafit_own\r\ns001fafitlgt_own\r\n"
               "f001fafit_own\r\nf001fafitlgt_own\r\nl001fafit_own\r\nl001fafitlgt_own\r\n"
               "n100fafit_own\r\nn100fafitlgt_own\r\ngloveL\r\ngloveR\r\nhandLC\r\nhandRC\r\n"
               "handLO\r\nhandRO\r\nhandLP\r\nhandRP\r\nw001fafit_own\r\nw001fafitlgt_own\r\n"
               "h001fafit_own\r\nh001fafitlgt_own\r\n";
    }

    static std::string lines(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i) {
            text += "line" + std::to_string(i) + "\r\n";
        }
        return text;
    }

    // What the messages call the file of a name that was typed.
    std::string shownFile(const std::string& name) const {
        return shownPath(folder.path("program\\ENS\\" + name));
    }
};

TEST_F(EnsembleWindowTest, ItsCaptionAndButtonTellTheMode) {
    makeSim();
    folder.write("program/ENS/b.ens", "");
    folder.write("program/ENS/A.ENS", "");
    folder.write("program/ENS/c.txt", "");
    open([this](QWidget& window) {
        run(window, "cmdEnsSave", [](QWidget& ensembles) {
            EXPECT_EQ(ensembles.windowTitle(), "Save Ensemble File:");
            EXPECT_EQ(find<QPushButton>(ensembles, "cmdSaveLoad")->text(), "Save");
            EXPECT_EQ(listed(ensembles), QStringList({"A.ENS", "b.ens"}));
            EXPECT_EQ(textOf(ensembles, "txtFileName"), "");
            click(ensembles, "cmdCancel");
        });
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            EXPECT_EQ(ensembles.windowTitle(), "Load Ensemble File:");
            EXPECT_EQ(find<QPushButton>(ensembles, "cmdSaveLoad")->text(), "Load");
            clickLine(ensembles, "flbENS", "b.ens");
            EXPECT_EQ(textOf(ensembles, "txtFileName"), "b.ens");
            QTest::keyClick(&ensembles, Qt::Key_Escape);
        });
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(script.messages().empty());
}

TEST_F(EnsembleWindowTest, ATypedNameGetsItsExtensionAndAllLinesAreWritten) {
    makeSim();
    open([this](QWidget& window) {
        run(window, "cmdEnsSave", [](QWidget& ensembles) {
            click(ensembles, "cmdSaveLoad");
            EXPECT_TRUE(ensembles.isVisible());
            type(ensembles, "Evening");
            click(ensembles, "cmdSaveLoad");
            EXPECT_FALSE(ensembles.isVisible());
        });
        run(window, "cmdEnsSave", [](QWidget& ensembles) {
            type(ensembles, "Night.eNs");
            QTest::keyClick(&ensembles, Qt::Key_Return);
            EXPECT_FALSE(ensembles.isVisible());
        });
        click(window, "cmdCancel");
    });
    EXPECT_EQ(folder.read("program/ENS/Evening.ENS"), linesOfTheSim());
    EXPECT_EQ(folder.read("program/ENS/Night.eNs"), linesOfTheSim());
    EXPECT_TRUE(folder.read(kFile) == content);
}

TEST_F(EnsembleWindowTest, AnExistingFileIsOverwrittenOnYesAlone) {
    makeSim();
    folder.write("program/ENS/Evening.ENS", "old");
    open([this](QWidget& window) {
        run(window, "cmdEnsSave", [this](QWidget& ensembles) {
            type(ensembles, "evening");
            script.answer(QMessageBox::No);
            click(ensembles, "cmdSaveLoad");
            EXPECT_TRUE(ensembles.isVisible());
            EXPECT_EQ(folder.read("program/ENS/Evening.ENS"), "old");
            script.answer(QMessageBox::Yes);
            clickLine(ensembles, "flbENS", "Evening.ENS");
            click(ensembles, "cmdSaveLoad");
            EXPECT_FALSE(ensembles.isVisible());
        });
        click(window, "cmdCancel");
    });
    EXPECT_EQ(folder.read("program/ENS/Evening.ENS"), linesOfTheSim());
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Confirm Action");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Question);
    EXPECT_TRUE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text.toStdString(),
              "Overwrite file " + shownFile("evening.ENS"));
}

TEST_F(EnsembleWindowTest, ANameIsNeverAPathOrAMask) {
    makeSim();
    folder.write("program/ENS/other.ENS", "other");
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        std::size_t reports = 0;
        for (const char* name : {"..\\escape", "a/b", "*", "?", "c:x", "nul"}) {
            run(window, "cmdEnsSave", [&](QWidget& ensembles) {
                type(ensembles, name);
                click(ensembles, "cmdDelete");
                EXPECT_TRUE(ensembles.isVisible());
                click(ensembles, "cmdSaveLoad");
                ASSERT_EQ(recorder.reports().size(), ++reports) << name;
                EXPECT_EQ(recorder.reports().back().number, 52) << name;
                EXPECT_EQ(recorder.reports().back().module, "frmENS");
                EXPECT_EQ(recorder.reports().back().procedure, "cmdSaveLoad_Click");
                EXPECT_TRUE(ensembles.isVisible());
                click(ensembles, "cmdCancel");
            });
        }
        click(window, "cmdCancel");
    });
    EXPECT_EQ(folder.read("program/ENS/other.ENS"), "other");
    EXPECT_FALSE(folder.exists("program/escape.ENS"));
}

TEST_F(EnsembleWindowTest, DeleteAsksAndEmptiesTheNameInBothModes) {
    makeSim();
    open([this](QWidget& window) {
        for (const char* button : {"cmdEnsSave", "cmdEnsLoad"}) {
            folder.write("program/ENS/Evening.ENS", "old");
            run(window, button, [this](QWidget& ensembles) {
                click(ensembles, "cmdDelete");
                type(ensembles, "nowhere.ENS");
                click(ensembles, "cmdDelete");
                EXPECT_EQ(textOf(ensembles, "txtFileName"), "nowhere.ENS");
                clickLine(ensembles, "flbENS", "Evening.ENS");
                script.answer(QMessageBox::No);
                click(ensembles, "cmdDelete");
                EXPECT_TRUE(folder.exists("program/ENS/Evening.ENS"));
                script.answer(QMessageBox::Yes);
                click(ensembles, "cmdDelete");
                EXPECT_FALSE(folder.exists("program/ENS/Evening.ENS"));
                EXPECT_TRUE(listed(ensembles).isEmpty());
                EXPECT_EQ(textOf(ensembles, "txtFileName"), "");
                EXPECT_TRUE(ensembles.isVisible());
                click(ensembles, "cmdCancel");
            });
        }
        click(window, "cmdCancel");
    });
    ASSERT_EQ(script.messages().size(), 4U);
    EXPECT_EQ(script.messages()[0].text.toStdString(), "Delete file " + shownFile("Evening.ENS"));
}

TEST_F(EnsembleWindowTest, ALoadTakesTheListsFileWhateverIsTyped) {
    makeSim();
    folder.write("program/ENS/a.ENS", lines(22));
    makeSkin("line2", 0x654321);
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "a.ENS");
            type(ensembles, "nowhere");
            click(ensembles, "cmdSaveLoad");
            EXPECT_EQ(textOf(ensembles, "txtFileName"), "nowhere.ENS");
            EXPECT_FALSE(ensembles.isVisible());
        });
        EXPECT_EQ(textOf(window, "txtNormalBody"), "line1");
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "line22");
        EXPECT_EQ(colourOf(window, "picNormal"), 0x654321U);
        EXPECT_EQ(textOf(window, "txtName"), "Mara Quill  (user00001 - Mara Quill)");
        click(window, "cmdCancel");
    });
    EXPECT_TRUE(folder.read(kFile) == content);
}

TEST_F(EnsembleWindowTest, EnterChoosesTheFirstFileAndThenLoadsIt) {
    makeSim();
    folder.write("program/ENS/a.ENS", lines(22));
    folder.write("program/ENS/b.ENS", lines(18));
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            auto* list = find<ClickList>(ensembles, "flbENS");
            list->setFocus();
            EXPECT_EQ(list->currentItem(), nullptr);
            QTest::keyClick(list, Qt::Key_Return);
            EXPECT_EQ(list->line(), "a.ENS");
            EXPECT_TRUE(ensembles.isVisible());
            QTest::keyClick(list, Qt::Key_Return);
            EXPECT_FALSE(ensembles.isVisible());
        });
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "line22");
        click(window, "cmdCancel");
    });
}

TEST_F(EnsembleWindowTest, ADoubleClickLoads) {
    makeSim();
    folder.write("program/ENS/a.ENS", lines(22));
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "a.ENS");
            auto* list = find<ClickList>(ensembles, "flbENS");
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                               list->visualItemRect(list->item(0)).center());
            EXPECT_FALSE(ensembles.isVisible());
        });
        EXPECT_EQ(textOf(window, "txtNudeSkin"), "line10");
        click(window, "cmdCancel");
    });
}

TEST_F(EnsembleWindowTest, AShortFileAndNoChoiceAreReportedAndTheFieldsKeepWhatWasRead) {
    makeSim();
    folder.write("program/ENS/short.ENS", lines(3));
    const test::ErrorRecorder recorder;
    open([&](QWidget& window) {
        run(window, "cmdEnsLoad", [&](QWidget& ensembles) {
            type(ensembles, "short");
            click(ensembles, "cmdSaveLoad");
            ASSERT_EQ(recorder.reports().size(), 1U);
            EXPECT_EQ(recorder.reports()[0].number, 75);
            EXPECT_TRUE(ensembles.isVisible());
            clickLine(ensembles, "flbENS", "short.ENS");
            click(ensembles, "cmdSaveLoad");
            ASSERT_EQ(recorder.reports().size(), 2U);
            EXPECT_EQ(recorder.reports()[1].number, 62);
            EXPECT_EQ(recorder.reports()[1].procedure, "cmdSaveLoad_Click");
            click(ensembles, "cmdCancel");
        });
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "line3");
        EXPECT_EQ(textOf(window, "txtSwimsuitSkin"), "s001fafitlgt_own");
        click(window, "cmdCancel");
    });
}

TEST_F(EnsembleWindowTest, AnAdultsEnsembleGoesOntoAChildAndBack) {
    makeSim();
    open([this](QWidget& window) {
        run(window, "cmdEnsSave", [](QWidget& ensembles) {
            type(ensembles, "adult");
            click(ensembles, "cmdSaveLoad");
        });
        click(window, "cmdCancel");
    });
    makeSkin("f001fafitlgt_own", 0xABCDEF);
    makeSim({.count = 35, .age = "child", .bodyType = "chd"});
    open([this](QWidget& window) {
        run(window, "cmdEnsSave", [](QWidget& ensembles) {
            type(ensembles, "child");
            click(ensembles, "cmdSaveLoad");
        });
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "adult.ENS");
            click(ensembles, "cmdSaveLoad");
        });
        EXPECT_EQ(textOf(window, "txtFormalBody"), "f001fafit_own");
        EXPECT_EQ(textOf(window, "txtFashionSkin"), "h001fafitlgt_own");
        EXPECT_EQ(colourOf(window, "picFormal"), 0xABCDEFU);
        EXPECT_TRUE(shows(window, "picFashion", "picNotFound"));
        click(window, "cmdCancel");
    });
    makeSim();
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "child.ENS");
            click(ensembles, "cmdSaveLoad");
        });
        EXPECT_EQ(textOf(window, "txtFashionBody"), "*** SUPERSTAR ADULTS ONLY ***");
        EXPECT_EQ(textOf(window, "txtNormalBody"), "b001fcchd_own");
        // The options of the body type stay; the next request shows it.
        EXPECT_TRUE(find<QAbstractButton>(window, "optFit")->isChecked());
        click(window, "cmdCancel");
    });
}

TEST_F(EnsembleWindowTest, ALineWithAZeroByteLeavesTheSimsOtherRowsInTheirPlaces) {
    using std::string_literals::operator""s;
    std::vector<std::string> rows = test::simRows({});
    makeSimOf(rows);
    std::string ensemble = linesOfTheSim();
    ensemble.insert(ensemble.find("n100fafit_own"), "na\0\0"s);
    folder.write("program/ENS/zero.ENS", ensemble);
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "zero.ENS");
            click(ensembles, "cmdSaveLoad");
        });
        EXPECT_EQ(textOf(window, "txtNudeBody"), "na");
        saveAndAgree(window);
    });
    const std::vector<std::string> after = test::rowsOfFile(folder.read(kFile));
    ASSERT_EQ(after.size(), rows.size());
    EXPECT_EQ(after[15], "na,BODY=n100fafitlgt_own");
    EXPECT_EQ(after[16], rows[16]);
    EXPECT_EQ(after[34], rows[34]);
}

TEST_F(EnsembleWindowTest, ALoadLeavesTheOptionsToChangesAndItsBodyToDefaults) {
    makeSim();
    folder.write("program/ENS/fat.ENS", "b001fafat_new\r\n" + lines(21));
    open([this](QWidget& window) {
        run(window, "cmdEnsLoad", [](QWidget& ensembles) {
            clickLine(ensembles, "flbENS", "fat.ENS");
            click(ensembles, "cmdSaveLoad");
        });
        EXPECT_EQ(textOf(window, "txtNormalBody"), "b001fafat_new");
        script.whenShown("frmSelectSkin", [](QWidget& chooser) {
            EXPECT_EQ(theWindow<frmSelectSkin>().SkinData, "falgtfitS");
            click(chooser, "cmdCancel");
        });
        click(window, "cmdChangeSwimsuit");
        script.answer(QMessageBox::Yes);
        click(window, "cmdDefaultSwimsuit");
        EXPECT_EQ(textOf(window, "txtSwimsuitBody"), "s100fafat_original");
        click(window, "cmdCancel");
    });
}

TEST_F(EnsembleWindowTest, CancelShowsAllPicturesAnew) {
    makeSim({.count = 35, .age = "child", .bodyType = "chd"});
    makeSkin("b001fcchdlgt_own", 0x1);
    open([this](QWidget& window) {
        EXPECT_TRUE(shows(window, "picFormal", "picChild"));
        makeSkin("b001fcchdlgt_own", 0x2);
        run(window, "cmdEnsLoad", [](QWidget& ensembles) { click(ensembles, "cmdCancel"); });
        EXPECT_TRUE(shows(window, "picFormal", "picNotFound"));
        EXPECT_TRUE(shows(window, "picFashion", "picNotFound"));
        EXPECT_EQ(colourOf(window, "picNormal"), 0x2U);
        run(window, "cmdEnsSave", [](QWidget& ensembles) { click(ensembles, "cmdCancel"); });
        click(window, "cmdCancel");
    });
}

}  // namespace
}  // namespace marlowick
