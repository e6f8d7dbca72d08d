#include "widgets/folder_list.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

const QString kLong = QStringLiteral("a folder whose name is much longer than the list is wide");

class FolderListTest : public ::testing::Test {
  protected:
    FolderListTest() {
        folder.write("game/" + kLong.toStdString() + "/x", "");
        folder.write("game/b/x", "");
        list.setToolTip("what to do");
        list.resize(400, 400);
        list.setPath(folder.path("game"));
        list.show();
    }

    // What comes up where the pointer rests on a folder.
    QString toolTipOf(const QString& name) {
        const auto found = list.findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        EXPECT_EQ(found.size(), 1) << name.toStdString();
        const QPoint place = list.visualItemRect(found.value(0)).center();
        QToolTip::hideText();
        QHelpEvent rest(QEvent::ToolTip, {20, place.y()},
                        list.viewport()->mapToGlobal(QPoint(20, place.y())));
        QApplication::sendEvent(list.viewport(), &rest);
        if (!rest.isAccepted()) {
            // Nobody's: then the list's own.
            QApplication::sendEvent(&list, &rest);
        }
        return QToolTip::text();
    }

    test::TestFolder folder;
    FolderList list;
};

TEST_F(FolderListTest, TheToolTipOfACutNameIsTheName) {
    EXPECT_EQ(toolTipOf("b"), "what to do");
    EXPECT_EQ(toolTipOf(kLong), kLong);
    list.resize(1200, 400);
    QTest::qWait(1);
    EXPECT_EQ(toolTipOf(kLong), "what to do");
}

TEST_F(FolderListTest, AnEmptyPathIsNoFolder) {
    EXPECT_EQ(test::errorOf([&] { list.setPath({}); }), error::kPathNotFound);
    EXPECT_EQ(list.path(), folder.path("game"));
}

}  // namespace
}  // namespace marlowick
