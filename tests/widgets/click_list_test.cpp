#include "widgets/click_list.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace marlowick {
namespace {

// A list above a button that Enter presses where nobody else takes it.
class ClickListTest : public ::testing::Test {
  protected:
    ClickListTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&list);
        layout->addWidget(&button);
        button.setDefault(true);
        list.setLines({"first", "second", "third"});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        // As the first control of a window takes it.
        list.setFocus(Qt::TabFocusReason);
    }

    QDialog window;
    ClickList list;
    QPushButton button;
    QSignalSpy clicked{&list, &ClickList::lineClicked};
    QSignalSpy pressed{&button, &QPushButton::clicked};
};

TEST_F(ClickListTest, MarksNoLineBeforeOneIsChosen) {
    ASSERT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentItem(), nullptr);
    EXPECT_TRUE(list.selectedItems().isEmpty());
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(1)).center());
    button.setFocus(Qt::TabFocusReason);
    list.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list.currentItem(), list.item(1));
    EXPECT_EQ(list.line(), "second");
}

TEST_F(ClickListTest, EnterChoosesTheFirstLineAndThenGoesToTheWindow) {
    for (const auto mode :
         {QAbstractItemView::SingleSelection, QAbstractItemView::ExtendedSelection}) {
        list.setSelectionMode(mode);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
            list.setLines({"first", "second"});
            clicked.clear();
            pressed.clear();
            QTest::keyClick(&list, key);
            EXPECT_EQ(list.line(), "first");
            EXPECT_EQ(clicked.count(), 1);
            EXPECT_EQ(pressed.count(), 0);
            QTest::keyClick(&list, key);
            EXPECT_EQ(list.line(), "first");
            EXPECT_EQ(clicked.count(), 1);
            EXPECT_EQ(pressed.count(), 1);
        }
    }
}

TEST_F(ClickListTest, TheFirstArrowChoosesTheFirstLine) {
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home}) {
        list.setLines({"first", "second"});
        QTest::keyClick(&list, key);
        EXPECT_EQ(list.line(), "first");
    }
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.line(), "second");
}

TEST_F(ClickListTest, AnEmptyListLeavesEnterToTheWindow) {
    list.setLines({});
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(pressed.count(), 1);
}

}  // namespace
}  // namespace marlowick
