// The wardrobe window under the keyboard, and what lies out of its sight.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>

#include "wardrobe/edit_sim_test.h"

namespace marlowick {
namespace {

using test::click;
using test::EditSimTest;
using test::find;
using test::simRows;

class EditSimKeysTest : public EditSimTest {
  protected:
    static QRect placeOf(const QWidget& control, const QWidget& window) {
        return {control.mapTo(&window, QPoint(0, 0)), control.size()};
    }

    // The names of the controls that Tab leads through, until it comes back to the first.
    static QStringList tabRoad(QWidget& window, const char* first) {
        QStringList road;
        // An option that gets the focus takes the others off the road; only then.
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        find<QWidget>(window, first)->setFocus();
        for (int step = 0; step < 100; ++step) {
            const QString name = window.focusWidget()->objectName();
            if (!road.isEmpty() && name == road.first()) {
                break;
            }
            road.append(name);
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        return road;
    }
};

TEST_F(EditSimKeysTest, NoSizeOfTheWindowShowsWhatIsOutOfSight) {
    makeSim();
    open([](QWidget& window) {
        for (const QSize size : {QSize(1, 1), QSize(4000, 3000)}) {
            window.resize(size);
            window.grab();
            for (const char* name : {"picNotFound", "picChild", "picWebNotFound", "picNoBitmaps",
                                     "picHandNotFound", "cmdFocus"}) {
                EXPECT_FALSE(
                    window.rect().intersects(placeOf(*find<QWidget>(window, name), window)))
                    << name;
            }
        }
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimKeysTest, TabGoesThroughTheControlsInReadingOrder) {
    makeSim();
    open([](QWidget& window) {
        const QStringList top = {"optFit", "cmdEnsLoad", "cmdEnsSave",  "txtName",
                                 "txtAge", "txtGender",  "txtSkinTone", "qt_tabwidget_tabbar"};
        const QStringList bottom = {"cmdHistory", "cmdSave", "cmdCancel"};
        const QStringList outfit = {"optWorn", "txtNormalBody", "txtNormalSkin", "cmdChangeNormal"};
        EXPECT_EQ(tabRoad(window, "optFit").join(' ').toStdString(),
                  (top + outfit + bottom).join(' ').toStdString());
        const QStringList hands = {
            "txtHandClosedLeft",   "cmdleftClosedHand",  "txtHandClosedRight", "cmdRightClosedHand",
            "cmdCopyLeftClosed",   "cmdDefClosedHands",  "txtHandPointLeft",   "cmdLeftPointHand",
            "txtHandPointRight",   "cmdRightPointHand",  "cmdCopyPointLeft",   "cmdDefPointHands",
            "txtHandOpenLeft",     "cmdLeftOpenHand",    "txtHandOpenRight",   "cmdRightOpenHand",
            "cmdCopyOpenLeft",     "cmdDefOpenHands",    "txtHandFormalLeft",  "cmdLeftFormalHand",
            "txtHandFormalRight",  "cmdRightFormalHand", "cmdCopyFormalLeft",  "cmdDefFormalHands",
            "cmdNormalFormalHands"};
        auto* tabs = find<QTabWidget>(window, "tabSkins");
        EXPECT_FALSE(tabs->tabBar()->accessibleName().isEmpty());
        tabs->setCurrentIndex(7);
        EXPECT_EQ(tabRoad(window, "optFit").join(' ').toStdString(),
                  (top + hands + bottom).join(' ').toStdString());
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimKeysTest, EnterSavesUnlessAnotherButtonHasTheFocus) {
    makeSim();
    open([this](QWidget& window) {
        find<QWidget>(window, "txtName")->setFocus();
        script.answer(QMessageBox::No);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        // A command leaves the focus where Enter saves again.
        click(window, "cmdCopyOpenLeft");
        script.answer(QMessageBox::No);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        find<QWidget>(window, "cmdCancel")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_TRUE(script.messages()[0].text.startsWith("Make changes to "));
    EXPECT_TRUE(script.messages()[1].text.startsWith("Make changes to "));
    EXPECT_TRUE(folder.read(test::kFile) == content);
}

TEST_F(EditSimKeysTest, ALongNameShowsItsBeginningAndIsToldWhole) {
    std::vector<std::string> rows = simRows({});
    const std::string skin(200, 'x');
    rows[1] = "b001fafit_1,BODY=" + skin + "\xE9";
    rows[17] = "HfLO,HAND=" + skin;
    makeSimOf(rows);
    open([&](QWidget& window) {
        auto* box = find<QLineEdit>(window, "txtNormalSkin");
        EXPECT_EQ(box->toolTip(), QString::fromStdString(skin) + QChar(0xE9));
        EXPECT_EQ(box->cursorPosition(), 0);
        EXPECT_EQ(find<QLineEdit>(window, "txtHandOpenLeft")->toolTip(),
                  QString::fromStdString(skin));
        click(window, "cmdCopyOpenLeft");
        EXPECT_EQ(find<QLineEdit>(window, "txtHandOpenRight")->toolTip(),
                  QString::fromStdString(skin));
        window.grab();
        EXPECT_LE(window.width(), 900);
        click(window, "cmdCancel");
    });
}

TEST_F(EditSimKeysTest, AToolTipShowsMarkupInANameAsItStands) {
    std::vector<std::string> rows = simRows({});
    rows[1] = "b001fafit_1,BODY=<b>bold</b>";
    makeSimOf(rows);
    open([](QWidget& window) {
        auto* box = find<QLineEdit>(window, "txtNormalSkin");
        EXPECT_EQ(box->text(), "<b>bold</b>");
        QTextDocument shown;
        shown.setHtml(box->toolTip());
        EXPECT_EQ(shown.toPlainText(), "<b>bold</b>");
        click(window, "cmdCancel");
    });
}

}  // namespace
}  // namespace marlowick
