#include "browser/main_window_test.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QTimer>

#include "catalogue/thumbnail_page.h"
#include "support/user_file_builder.h"
#include "widgets/picture_box.h"

namespace marlowick::test {

void MainWindowTest::makeSims(const std::string& neighbourhood, int count) {
    folder.write("game/" + neighbourhood + "/Characters/readme.txt", "");
    for (int number = 1; number <= count; ++number) {
        const std::string text = std::to_string(number);
        folder.write(simPlace(number, neighbourhood),
                     simFile(simRows({}), "Sim " + text, "User" + text + " - Sim " + text));
    }
}

frmMain& MainWindowTest::show() {
    auto& window = theWindow<frmMain>();
    window.showMain();
    return window;
}

frmMain& MainWindowTest::showFirst() {
    frmMain& window = show();
    if (find<QListWidget>(window, "lstUserDataDir")->count() > 0) {
        chooseLine(window, 0);
    }
    return window;
}

frmMain& MainWindowTest::showSims(int count) {
    installGame(folder);
    makeSims("UserData", count);
    return showFirst();
}

void MainWindowTest::chooseLine(QWidget& window, int row) {
    auto* list = find<QListWidget>(window, "lstUserDataDir");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(row)).center());
}

void MainWindowTest::chooseCommand(QWidget& window, const char* entry) {
    window.findChild<QAction*>(entry)->trigger();
}

QString MainWindowTest::nameIn(QWidget& window, int cell) {
    for (const QLabel* label : window.findChildren<QLabel*>("lblSimName")) {
        if (label->property("Index").toInt() == cell) {
            return label->text();
        }
    }
    return "no such label";
}

QPoint MainWindowTest::centreOf(int cell) {
    return {page::corner(cell).x + 34, page::corner(cell).y + 34};
}

void MainWindowTest::clickCell(QWidget& window, int cell, Qt::MouseButton button) {
    QTest::mouseClick(find<QWidget>(window, "picThumbs"), button, Qt::NoModifier, centreOf(cell));
}

// Without the screen's one pointer, which other programs move too.
void MainWindowTest::moveOver(QWidget* control, QPoint position) {
    QMouseEvent event(QEvent::MouseMove, position, control->mapToGlobal(position), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(control, &event);
}

QRgb MainWindowTest::pagePixel(QWidget& window, int cell) {
    const QImage image = find<PictureBox>(window, "picThumbs")->painted();
    return image.pixel(page::corner(cell).x + 11 + 22, page::corner(cell).y + 2 + 22);
}

bool MainWindowTest::framed(QWidget& window, int cell) {
    return find<PictureBox>(window, "picThumbs")
        ->outlineAt(QRect(page::corner(cell).x, page::corner(cell).y, 68, 68))
        .isValid();
}

void MainWindowTest::tick(QWidget& window) {
    auto* timer = window.findChild<QTimer*>("Timer1");
    timer->start(1000000);
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
}

}  // namespace marlowick::test
