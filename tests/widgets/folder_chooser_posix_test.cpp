#include <gtest/gtest.h>

#include <QFileDialog>

#include "support/window_driver.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"

namespace marlowick {
namespace {

class FolderChooserTest : public test::WindowTest {
  protected:
    QWidget owner;
};

TEST_F(FolderChooserTest, GivesTheChosenFolder) {
    const QString place = toDisplay(folder.path("game")).replace('\\', '/');
    script.whenShown("QFileDialog", [&](QWidget& chooser) {
        auto& dialog = dynamic_cast<QFileDialog&>(chooser);
        EXPECT_EQ(dialog.windowTitle(), "Select the location of The Sims.");
        EXPECT_EQ(dialog.parentWidget(), &owner);
        dialog.setDirectory(place);
        dialog.selectFile(place);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(chooseFolder(&owner, "Select the location of The Sims."), place);
}

TEST_F(FolderChooserTest, GivesNothingOnCancel) {
    script.whenShown("QFileDialog",
                     [](QWidget& chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); });
    EXPECT_TRUE(chooseFolder(&owner, "Select the location of The Sims.").isEmpty());
}

}  // namespace
}  // namespace marlowick
