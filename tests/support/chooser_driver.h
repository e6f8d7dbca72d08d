// Makes choices in the skin chooser as a person does.
#pragma once

#include <QRadioButton>

#include "support/window_driver.h"
#include "widgets/click_list.h"
#include "widgets/picture_box.h"

namespace marlowick::test {

// Clicks a line of a list box.
inline void clickLine(QWidget& window, const char* list, const QString& line) {
    auto* box = find<ClickList>(window, list);
    const QList<QListWidgetItem*> found = box->findItems(line, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << line.toStdString();
    QTest::mouseClick(box->viewport(), Qt::LeftButton, Qt::NoModifier,
                      box->visualItemRect(found.first()).center());
}

// Where the chooser looks for skins: the index of an option.
inline constexpr int kFolder = 0;
inline constexpr int kArchives = 1;

inline QRadioButton* sourceOption(QWidget& chooser, int index) {
    for (auto* option : chooser.findChildren<QRadioButton*>("optMode")) {
        if (option->property("Index") == index) {
            return option;
        }
    }
    qFatal("no option of that index");
    return nullptr;
}

// Switches the chooser to the folders or to the archives.
inline void lookIn(QWidget& chooser, int index) {
    QTest::mouseClick(sourceOption(chooser, index), Qt::LeftButton, Qt::NoModifier, {6, 6});
}

inline void lookInArchives(QWidget& chooser) {
    lookIn(chooser, kArchives);
}

// Clicks a cell of the chooser's page, counted from 0.
inline void clickCell(QWidget& chooser, int cell) {
    QTest::mouseClick(find<PictureBox>(chooser, "picThumbs"), Qt::LeftButton, Qt::NoModifier,
                      {cell % 7 * 68 + 30, cell / 7 * 68 + 30});
}

}  // namespace marlowick::test
