// The roads that the tour can take through the program's windows, and what each changes on the
// disk.
#pragma once

#include <QPoint>
#include <QString>
#include <functional>
#include <vector>

#include "driver.h"
#include "user_file_report.h"

namespace marlowick::tour {

// A file that a road changes, and in which rows; every other byte of it stays.
struct Expected {
    const char* file;  // below the folder of the neighbourhoods
    const char* what;
    Rows rows;
};

struct Road {
    // Where its pictures, its settings and its working files go; "" for the tour's own folder.
    const char* folder;
    const char* neighbourhoods;
    std::vector<Expected> changes;
    // A folder of which nothing else may change; "" for none.
    const char* untouched;
    // Makes the machine that the program finds itself on.
    void (*prepare)(const QString& tour);
    void (*addSteps)(Driver& driver);
};

// On a classic game, through all windows. All folders are below the tour's.
Road classicRoad();
// On a game of the Legacy Collection, which the program finds by itself, and to the classic one and
// back.
Road legacyRoad();

// The middle of a cell of a page.
QPoint cellCentre(int cell);
// Waits for the blinking frame around a cell of the page in a window.
std::function<bool()> whenChosen(const QString& window, int cell);
// The end of the program, and of every road.
void addEnd(Driver& driver);

}  // namespace marlowick::tour
