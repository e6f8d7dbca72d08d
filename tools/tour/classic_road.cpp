#include "foundation/game_surroundings.h"
#include "roads.h"
#include "widgets/settings.h"

namespace marlowick::tour {
namespace {

// The sim that the tour dresses: a woman in clothes of her own, and her cell on the first page. The
// dog that it dresses is on the first page of the second neighbourhood, and a file that is no sim
// on that of the third.
constexpr const char* kUserFile = "/UserData/Characters/USER00035.IFF";
constexpr int kCell = 34;
constexpr int kDogCell = 12;
constexpr int kChairCell = 3;

const std::vector<Expected> kChanges = {
    // Clothes from the second page of the busiest model, the game's own swimsuit, a hand out of an
    // archive; and every save writes the formal outfit into the row of the first generation too.
    {kUserFile,
     "the sim that was dressed",
     {{2, "b302fafit_busy,BODY=b302fafitlgt_busy0055"},
      {20, "HfLP,HAND=HMAC_PACK5"},
      {28, "f201fafit_evening,BODY=f201fafitlgt_evening"},
      {32, "s100fafit_original,BODY=s100fafitlgt_original"}}},
    // Skinny sims in clothes of a fit one, and pink hands.
    {"/UserData/Characters/user00021.iff",
     "a skinny woman",
     {{31, "f100faSKN_original,BODY=f100faSKNlgt_original"},
      {33, "l100faSKN_original,BODY=l100faSKNlgt_original"}}},
    {"/UserData/Characters/User00022.iff",
     "a skinny man",
     {{32, "s100maSKN_original,BODY=s100maSKNmed_original"}}},
    {"/UserData/Characters/user00024.iff", "a man with pink hands", {{29, ""}, {30, ""}}},
    {"/UserData/Characters/User00025.iff",
     "a woman with pink hands",
     {{29, "HfLO,HAND=gfao_bride"}, {30, "HfRO,HAND=gfao_bride"}}},
};

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
    driver.add("path-command", whenShown("frmMain"), chooseCommand("frmMain", "smenuSetPath"));
    driver.add("set-path", whenShown("frmSetPath"), clickOn("frmSetPath", "cmdCancel"));
    driver.add("neighborhoods", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    driver.add("first-page", whenShown("frmMain"), clickOn("frmMain", "cmdNext"));
    driver.add("second-page", whenShown("frmMain"), clickOn("frmMain", "cmdPrevious"));
    driver.add("first-page-again", whenShown("frmMain"),
               clickAt("frmMain", "picThumbs", cellCentre(kCell)));
    driver.add("a-sim", whenChosen("frmMain", kCell), clickOn("frmMain", "cmdSelect"));
    driver.add("wardrobe", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdChangeNormal"));
    driver.add("chooser", whenShown("frmSelectSkin"),
               clickRow("frmSelectSkin", "lstModels", "B302FAFIT"));
    driver.add("chooser-page", whenShown("frmSelectSkin"), clickOn("frmSelectSkin", "cmdNext"));
    driver.add("chooser-last-page", whenShown("frmSelectSkin"),
               clickAt("frmSelectSkin", "picThumbs", cellCentre(5)));
    driver.add("a-skin", whenChosen("frmSelectSkin", 5), clickOn("frmSelectSkin", "cmdSelect"));
    driver.add("new-clothes", whenShown("frmEditSim"),
               openTab("frmEditSim", "tabSkins", "Swimsuit"));
    driver.add("swimsuit", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdDefaultSwimsuit"));
    driver.add("default-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("default-swimsuit", whenShown("frmEditSim"),
               openTab("frmEditSim", "tabSkins", "Formal"));
    driver.add("formal", whenShown("frmEditSim"), dragOn("frmEditSim", "wornView", {60, 20}));
    driver.add("turned", whenShown("frmEditSim"), clickOn("frmEditSim", "optSkin"));
    driver.add("flat", whenShown("frmEditSim"), clickOn("frmEditSim", "optWorn"));
    // Each picture shows the tab that the step before it has opened.
    struct Tab {
        const char* shown;
        const char* next;
    };
    for (const Tab& tab :
         {Tab{"worn-again", "Pajamas"}, Tab{"pajamas", "Nude"}, Tab{"nude", "Winter"},
          Tab{"winter", "H. Fashion"}, Tab{"high-fashion", "Hands"}}) {
        driver.add(tab.shown, whenShown("frmEditSim"), openTab("frmEditSim", "tabSkins", tab.next));
    }
    driver.add("hands", whenShown("frmEditSim"), clickOn("frmEditSim", "cmdLeftPointHand"));
    // One hand of the sample game is no picture; the list is built twice, and tells of it twice.
    driver.add("bad-hand", whenAsked("Bad Skin Files Detected"), answer("OK"));
    driver.add("bad-hand-again", whenAsked("Bad Skin Files Detected"), answer("OK"));
    driver.add("hand-chooser", whenShown("frmSelectSkin"), press("frmSelectSkin", "FAR Files"));
    driver.add("hand-chooser-archives", whenShown("frmSelectSkin"),
               clickAt("frmSelectSkin", "picThumbs", cellCentre(8)));
    driver.add("a-hand", whenChosen("frmSelectSkin", 8), clickOn("frmSelectSkin", "cmdSelect"));
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

// The whole first neighbourhood at once.
void addToolSteps(Driver& driver) {
    driver.add("before-the-tools", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 01"));
    driver.add("before-export", whenShown("frmMain"), chooseCommand("frmMain", "smenuExport"));
    driver.add("exported", whenAsked("Export Complete"), answer("OK"));
    driver.add("before-fix", whenShown("frmMain"), chooseCommand("frmMain", "smenuFix"));
    driver.add("fix-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("fixed", whenAsked("Success"), answer("OK"));
    driver.add("before-pink-hands", whenShown("frmMain"),
               chooseCommand("frmMain", "smenuPinkHands"));
    driver.add("pink-hands-question", whenAsked("Confirm Action"), answer("Yes"));
    driver.add("no-pink-hands", whenAsked("Success"), answer("OK"));
    driver.add("before-earlier-versions", whenShown("frmMain"),
               chooseCommand("frmMain", "smenuHistory"));
    driver.add("earlier-versions", whenShown("frmHistory"),
               clickRow("frmHistory", "lstEntries", "Save Greta"));
    driver.add("an-earlier-version", whenShown("frmHistory"), clickOn("frmHistory", "cmdClose"));
}

// A file that is no sim brings the error report; its frame lets the program go on.
void addReportSteps(Driver& driver) {
    driver.add("before-a-bad-file", whenShown("frmMain"),
               clickRow("frmMain", "lstUserDataDir", "Neighborhood 03"));
    driver.add("bad-files", whenShown("frmMain"),
               clickAt("frmMain", "picThumbs", cellCentre(kChairCell)));
    driver.add("error-report", whenShown("frmErrorDialog"), closeWindow("frmErrorDialog"));
}

void prepare(const QString& tour) {
    // None of the games of the machine that the tour runs on.
    setGameSurroundings([] { return GameSurroundings(); });
    writeSetting(setting::kSimsLocation, tour + "/game");
}

void addSteps(Driver& driver) {
    addSimSteps(driver);
    addPetSteps(driver);
    addArchiveSteps(driver);
    addToolSteps(driver);
    addReportSteps(driver);
    addEnd(driver);
}

}  // namespace

Road classicRoad() {
    return {"", "/game", kChanges, "", prepare, addSteps};
}

}  // namespace marlowick::tour
