// tour [--legacy] FOLDER: walks one road through the program's own windows, as a person would with
// mouse and keyboard, leaves a picture of every step in FOLDER, or with --legacy in FOLDER/legacy,
// and says what has changed in the sims' files. It fails if one of them isn't what it should be.
// The classic game lies in FOLDER/game, the Legacy one in the Wine prefix FOLDER/home/Games/sims.
// Settings and working files are the tour's own, beside its pictures.
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

#include "driver.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "roads.h"
#include "start/startup.h"
#include "user_file_report.h"
#include "widgets/display_text.h"
#include "widgets/form.h"
#include "widgets/settings.h"

namespace {

using namespace marlowick;
using namespace marlowick::tour;

std::string contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "tour: can't read %s\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
    return file.readAll().toStdString();
}

// The files that a road changes, and the others that it has to leave alone.
struct Contents {
    std::vector<UserFileContent> changed;
    std::map<QString, std::string> others;
};

Contents contentsOf(const QString& tour, const Road& road) {
    Contents contents;
    const QString neighbourhoods = tour + road.neighbourhoods;
    for (const Expected& expected : road.changes) {
        contents.changed.push_back(takeApart(contentOf(neighbourhoods + expected.file)));
    }
    if (*road.untouched != '\0') {
        QDirIterator files(tour + road.untouched, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            contents.others[file] = contentOf(file);
        }
        for (const Expected& expected : road.changes) {
            contents.others.erase(neighbourhoods + expected.file);
        }
    }
    return contents;
}

// True if the tour has changed what it should in a file and nothing else.
bool agrees(const Expected& expected, const UserFileContent& before, const UserFileContent& after) {
    std::printf("What has changed in %s, %s:\n", expected.file, expected.what);
    if (printChanges(before, after) != expected.rows) {
        std::puts("tour: these are not the rows that should have changed");
        return false;
    }
    if (before.rest != after.rest) {
        std::puts("tour: more than the wardrobe's rows has changed");
        return false;
    }
    std::puts("Every other byte of the file is as it was.");
    return true;
}

bool agree(const Road& road, const Contents& before, const Contents& after) {
    bool good = true;
    for (std::size_t i = 0; i < road.changes.size(); ++i) {
        good = agrees(road.changes[i], before.changed[i], after.changed[i]) && good;
    }
    if (before.others != after.others) {
        std::puts("tour: another file has changed, has come or has gone");
        return false;
    }
    if (!after.others.empty()) {
        std::printf("%zu other files are as they were.\n", after.others.size());
    }
    return good;
}

// Walks the road in the program. False if the program ended before its end.
bool walk(const QString& tour, const Road& road) {
    const QString folder = tour + road.folder;
    QDir(folder).mkpath("program");
    prepareApplication();
    ProgramFolder = toPath(folder + "/program");
    useSettingsFile(folder + "/settings.ini");
    road.prepare(tour);
    Driver driver(folder);
    road.addSteps(driver);
    std::puts("The pictures of the tour:");
    driver.start();
    startProgram();
    QApplication::exec();
    setErrorTrap({});
    destroyWindows();
    return driver.isDone();
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const bool legacy = argc == 3 && qstrcmp(argv[1], "--legacy") == 0;
    if (argc != (legacy ? 3 : 2)) {
        std::fputs("usage: tour [--legacy] FOLDER\n", stderr);
        return 2;
    }
    const QString tour = QDir(QString::fromLocal8Bit(argv[argc - 1])).absolutePath();
    const Road road = legacy ? legacyRoad() : classicRoad();
    const Contents before = contentsOf(tour, road);
    if (!walk(tour, road)) {
        std::puts("tour: the program ended before the tour did");
        return EXIT_FAILURE;
    }
    return agree(road, before, contentsOf(tour, road)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
