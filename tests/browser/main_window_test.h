// The base of the main window's tests: a game with sims, and hands for the window.
#pragma once

#include <string>

#include "browser/frmMain.h"
#include "browser/sim_files.h"
#include "support/window_driver.h"

namespace marlowick::test {

class MainWindowTest : public WindowTest {
  protected:
    // Sims 1 to count, called "Sim 1" below their faces and "User1 - Sim 1" by their objects. The
    // neighbourhood is made without any too.
    void makeSims(const std::string& neighbourhood, int count);

    // Shows the window as it starts.
    frmMain& show();
    // Shows it on the first neighbourhood.
    frmMain& showFirst();
    // The same with a game that has one neighbourhood of so many sims.
    frmMain& showSims(int count);

    static void chooseLine(QWidget& window, int row);
    static void chooseCommand(QWidget& window, const char* entry);

    // The label under a cell.
    static QString nameIn(QWidget& window, int cell);
    static QPoint centreOf(int cell);
    static void clickCell(QWidget& window, int cell, Qt::MouseButton button = Qt::LeftButton);
    static void moveOver(QWidget* control, QPoint position);
    // The middle of a cell's portrait.
    static QRgb pagePixel(QWidget& window, int cell);
    static bool framed(QWidget& window, int cell);
    // The next beat of the blinking.
    static void tick(QWidget& window);
};

}  // namespace marlowick::test
