// tour FOLDER: walks one road through the program's own windows on the game in
// FOLDER/game, as a person would with mouse and keyboard, leaves a picture of every
// step in FOLDER, and says what has changed in the sim's file. It fails if the file
// isn't what it should be. Settings and working files are its own, in FOLDER.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <cstdlib>

#include "catalogue/thumbnail_page.h"
#include "driver.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "foundation/startup.h"
#include "platform/display_text.h"
#include "platform/form.h"
#include "platform/settings.h"
#include "user_file_report.h"

namespace {

using namespace marlowick;
using namespace marlowick::tour;

// The sim that the tour dresses: a woman in clothes of her own, and her cell on the first page.
constexpr const char* kUserFile = "/UserData/Characters/user00003.iff";
constexpr int kCell = 2;

// The rows that the tour changes: the swimsuit goes back to the game's own, and every save writes
// the formal outfit into the row of the first generation too.
const Rows kExpectedChanges = {
    {28, "f201faskn_evening,BODY=f201fasknmed_evening"},
    {32, "s100faskn_original,BODY=s100fasknmed_original"},
};

QPoint cellCentre(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + page::kPitch / 2, corner.y + page::kPitch / 2};
}

void addSteps(Driver& driver) {
    driver.add("title", whenShown("frmTitle"), clickOn("frmTitle", "cmdOK"));
    driver.add("neighborhoods", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    driver.add("first-page", whenShown("frmMain"), clickOn("frmMain", "cmdNext"));
    driver.add("second-page", whenShown("frmMain"), clickOn("frmMain", "cmdPrevious"));
    driver.add("first-page-again", whenShown("frmMain"),
               clickAt("frmMain", "picThumbs", cellCentre(kCell)));
    driver.add("a-sim", whenShown("frmMain"), clickOn("frmMain", "cmdSelect"));
    driver.add("wardrobe", whenShown("frmEditSim"), openTab("frmEditSim", "tabSkins", "Swimsuit"));
    driver.add("swimsuit", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdDefaultSwimsuit"));
    driver.add("default-question", whenAsked("Confirm Action"), answer("Yes"));
    // Each picture shows the tab that the step before it has opened.
    struct Tab {
        const char* shown;
        const char* next;
    };
    for (const Tab& tab :
         {Tab{"default-swimsuit", "Formal"}, Tab{"formal", "Pajamas"}, Tab{"pajamas", "Nude"},
          Tab{"nude", "Winter"}, Tab{"winter", "H. Fashion"}, Tab{"high-fashion", "Hands"}}) {
        driver.add(tab.shown, whenShown("frmEditSim"), openTab("frmEditSim", "tabSkins", tab.next));
    }
    driver.add("hands", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdSave"));
    driver.add("save-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("saved", whenAsked("Success"), answer("OK"));
    driver.add("back", whenShown("frmMain"),
               [] { QMetaObject::invokeMethod(shownWindow("frmMain"), "close"); });
    driver.add("exit-question", whenAsked("Confirm Action"), answer("Yes"));
}

std::string contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "tour: can't read %s\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
    return file.readAll().toStdString();
}

// True if the save has changed what it should and nothing else.
bool agrees(const UserFileContent& before, const UserFileContent& after) {
    const Rows changed = printChanges(before, after);
    if (changed != kExpectedChanges) {
        std::puts("tour: these are not the rows that should have changed");
        return false;
    }
    if (before.rest != after.rest) {
        std::puts("tour: the save has changed more than the wardrobe's rows");
        return false;
    }
    std::puts("Every other byte of the file is as it was.");
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: tour FOLDER\n", stderr);
        return 2;
    }
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    const QString game = folder + "/game";
    QDir(folder).mkpath("program");
    prepareApplication();
    ProgramFolder = toPath(folder + "/program");
    useSettingsFile(folder + "/settings.ini");
    writeSetting(setting::kSimsLocation, game);

    const UserFileContent before = takeApart(contentOf(game + kUserFile));
    Driver driver(folder);
    addSteps(driver);
    std::puts("The pictures of the tour:");
    driver.start();
    startProgram();
    QApplication::exec();
    setErrorTrap({});
    destroyWindows();
    if (!driver.isDone()) {
        std::puts("tour: the program ended before the tour did");
        return EXIT_FAILURE;
    }
    std::printf("What the save changed in %s:\n", qPrintable(game + kUserFile));
    return agrees(before, takeApart(contentOf(game + kUserFile))) ? EXIT_SUCCESS : EXIT_FAILURE;
}
