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

// The sim that the tour dresses: a woman in clothes of her own, and her cell on the first page. The
// dog that it dresses is on the first page of the second neighbourhood.
constexpr const char* kUserFile = "/UserData/Characters/USER00035.IFF";
constexpr int kCell = 34;
constexpr int kDogCell = 12;

// The rows that the tour changes: clothes from the second page of the busiest model, the game's own
// swimsuit, a hand out of an archive; and every save writes the formal outfit into the row of the
// first generation too.
const Rows kExpectedChanges = {
    {2, "b302fafit_busy,BODY=b302fafitlgt_busy0055"},
    {20, "HfLP,HAND=HMAC_PACK5"},
    {28, "f201fafit_evening,BODY=f201fafitlgt_evening"},
    {32, "s100fafit_original,BODY=s100fafitlgt_original"},
};

QPoint cellCentre(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + page::kPitch / 2, corner.y + page::kPitch / 2};
}

// An archive loses an entry and gets a bitmap of the folder of skins.
void addArchiveSteps(Driver& driver) {
    const QString window = "frmManageFARs";
    driver.add("archives", whenShown("frmMain"), chooseCommand("frmMain", "menuFARs"));
    driver.add("archive-window", whenShown(window), clickOn(window, "cmdOpen"));
    driver.add("pick-archive", whenShown("frmOpenFAR"),
               clickRow("frmOpenFAR", "lstFiles", "Textures.far"));
    driver.add("picked-archive", whenShown("frmOpenFAR"), clickOn("frmOpenFAR", "cmdSelect"));
    driver.add("archive", whenShown(window), typeText(window, "txtFind", "b"));
    driver.add("search-text", whenShown(window), clickOn(window, "cmdFind"));
    driver.add("found-entry", whenShown(window), clickOn(window, "cmdDelete"));
    driver.add("deleted-entry", whenShown(window), openRow(window, "dirFiles", "GameData"));
    driver.add("folder", whenShown(window), openRow(window, "dirFiles", "Skins"));
    driver.add("folder-of-skins", whenShown(window), clickRow(window, "lstBMPs", "b"));
    driver.add("bitmap", whenShown(window), clickOn(window, "cmdAddFile"));
    driver.add("added-bitmap", whenShown(window), clickOn(window, "cmdSave"));
    driver.add("saved-archive", whenAsked("Success"), answer("OK"));
    driver.add("archive-again", whenShown(window), closeWindow(window));
}

void addSimSteps(Driver& driver) {
    driver.add("title", whenShown("frmTitle"), clickOn("frmTitle", "cmdOK"));
    driver.add("neighborhoods", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    driver.add("first-page", whenShown("frmMain"), clickOn("frmMain", "cmdNext"));
    driver.add("second-page", whenShown("frmMain"), clickOn("frmMain", "cmdPrevious"));
    driver.add("first-page-again", whenShown("frmMain"),
               clickAt("frmMain", "picThumbs", cellCentre(kCell)));
    driver.add("a-sim", whenShown("frmMain"), clickOn("frmMain", "cmdSelect"));
    driver.add("wardrobe", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdChangeNormal"));
    driver.add("chooser", whenShown("frmSelectSkin"),
               clickRow("frmSelectSkin", "lstModels", "B302FAFIT"));
    driver.add("chooser-page", whenShown("frmSelectSkin"), clickOn("frmSelectSkin", "cmdNext"));
    driver.add("chooser-last-page", whenShown("frmSelectSkin"),
               clickAt("frmSelectSkin", "picThumbs", cellCentre(5)));
    driver.add("a-skin", whenShown("frmSelectSkin"), clickOn("frmSelectSkin", "cmdSelect"));
    driver.add("new-clothes", whenShown("frmEditSim"),
               openTab("frmEditSim", "tabSkins", "Swimsuit"));
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
    driver.add("hands", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdLeftPointHand"));
    // One hand of the sample game is no picture; the list is built twice, and tells of it twice.
    driver.add("bad-hand", whenAsked("Bad Skin Files Detected"), answer("OK"));
    driver.add("bad-hand-again", whenAsked("Bad Skin Files Detected"), answer("OK"));
    driver.add("hand-chooser", whenShown("frmSelectSkin"), press("frmSelectSkin", "FAR Files"));
    driver.add("hand-chooser-archives", whenShown("frmSelectSkin"),
               clickAt("frmSelectSkin", "picThumbs", cellCentre(8)));
    driver.add("a-hand", whenShown("frmSelectSkin"), clickOn("frmSelectSkin", "cmdSelect"));
    driver.add("new-hand", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdEnsSave"));
    driver.add("ensembles", whenShown("frmENS"), typeText("frmENS", "txtFileName", "Evening out"));
    driver.add("ensemble-name", whenShown("frmENS"), clickOn("frmENS", "cmdSaveLoad"));
    driver.add("ensemble-saved", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdEnsLoad"));
    driver.add("ensemble-to-load", whenShown("frmENS"), clickRow("frmENS", "flbENS", "Evening"));
    driver.add("ensemble-chosen", whenShown("frmENS"), clickOn("frmENS", "cmdSaveLoad"));
    driver.add("ensemble-loaded", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdSave"));
    driver.add("save-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("saved", whenAsked("Success"), answer("OK"));
}

void addPetSteps(Driver& driver) {
    driver.add("back", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 02"));
    driver.add("pets", whenShown("frmMain"), clickAt("frmMain", "picThumbs", cellCentre(kDogCell)));
    driver.add("a-dog", whenShown("frmMain"), clickOn("frmMain", "cmdSelect"));
    driver.add("pet-wardrobe", whenShown("frmEditPet"), clickOn("frmEditPet", "cmdChangeNormal"));
    driver.add("pet-chooser", whenShown("frmSelectSkin"),
               clickRow("frmSelectSkin", "lstModels", "B002DOG"));
    driver.add("pet-skins", whenShown("frmSelectSkin"), clickOn("frmSelectSkin", "cmdSelect"));
    driver.add("new-coat", whenShown("frmEditPet"), clickOn("frmEditPet", "cmdSave"));
    driver.add("pet-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("pet-saved", whenAsked("Success"), answer("OK"));
}

void addEnd(Driver& driver) {
    driver.add("end", whenShown("frmMain"), closeWindow("frmMain"));
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
    addSimSteps(driver);
    addPetSteps(driver);
    addArchiveSteps(driver);
    addEnd(driver);
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
