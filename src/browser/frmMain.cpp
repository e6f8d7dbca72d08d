#include "browser/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScreen>
#include <utility>
#include <vector>

#include "browser/frmSetPath.h"
#include "browser/head_names.h"
#include "catalogue/model_catalogue.h"
#include "catalogue/thumbnail_page_view.h"
#include "far/frmManageFARs.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/game_search.h"
#include "foundation/open_game.h"
#include "foundation/version.h"
#include "iff/sim_names.h"
#include "iff/string_segment.h"
#include "preview/head_files.h"
#include "preview/scene.h"
#include "preview/worn_view.h"
#include "system/files.h"
#include "ui_frmMain.h"
#include "wardrobe/frmEditPet.h"
#include "wardrobe/frmEditSim.h"
#include "wardrobe/frmHistory.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/running_game_messages.h"
#include "widgets/settings.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kWindowHeight = 582;
constexpr int kLowScreen = 640;
constexpr int kBlinkMilliseconds = 333;
// Beside the upper two of the chosen sim's pictures; and where nothing is seen.
constexpr QRect kRenderRoom(108, 0, 149, 126);
constexpr QPoint kOutOfSight(-2000, -2000);

}  // namespace

frmMain::frmMain()
    : FormEvents("frmMain"), ui(std::make_unique<Ui::frmMain>()), Timer1(new QTimer(this)) {
    ui->setupUi(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    ui->picNotFound->setPicture(questionCard({kPortraitSize, kPortraitSize}));
    ui->picCanNotLoad->setPicture(brokenFileCard({kPortraitSize, kPortraitSize}));
    ui->picRender->setFrameStyle(QFrame::NoFrame);
    ui->picRender->hide();
    connectControls();
}

frmMain::~frmMain() = default;

void frmMain::connectControls() {
    onClick(ui->cmdSelect, "cmdSelect_Click", [this] { cmdSelect_Click(); });
    onClick(ui->cmdFirst, "cmdFirst_Click", [this] { turnPage(&SimPage::goToFirst); });
    onClick(ui->cmdPrevious, "cmdPrevious_Click", [this] { turnPage(&SimPage::goToPrevious); });
    onClick(ui->cmdNext, "cmdNext_Click", [this] { turnPage(&SimPage::goToNext); });
    onClick(ui->cmdLast, "cmdLast_Click", [this] { turnPage(&SimPage::goToLast); });
    connect(ui->lstUserDataDir, &ClickList::lineClicked, this, [this] {
        runEvent("frmMain", "lstUserDataDir_Click", [this] { lstUserDataDir_Click(); });
    });
    connect(ui->picThumbs, &PictureBox::mouseDown, this,
            [this](QPoint position) { picThumbs_MouseDown(position); });
    connect(ui->picThumbs, &PictureBox::mouseMoved, this,
            [this](QPoint position) { picThumbs_MouseMove(position); });
    connect(ui->picThumbs, &PictureBox::arrowPressed, this, &frmMain::moveSelection);
    const auto select = [this] {
        runEvent("frmMain", "cmdSelect_Click", [this] { cmdSelect_Click(); });
    };
    connect(ui->picThumbs, &PictureBox::doubleClicked, this, select);
    connect(ui->picThumbs, &PictureBox::enterPressed, this, select);
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    connectMenu(ui->smenuExit, "smenuExit_Click", &frmMain::smenuExit_Click);
    connectMenu(ui->smenuBackup, "smenuBackup_Click", &frmMain::smenuBackup_Click);
    connectMenu(ui->smenuSetPath, "smenuSetPath_Click", &frmMain::smenuSetPath_Click);
    connectMenu(ui->smenuExport, "smenuExport_Click", &frmMain::smenuExport_Click);
    connectMenu(ui->smenuFix, "smenuFix_Click", &frmMain::smenuFix_Click);
    connectMenu(ui->menuFARs, "menuFARs_Click", &frmMain::menuFARs_Click);
    connectMenu(ui->smenuPinkHands, "smenuPinkHands_Click", &frmMain::smenuPinkHands_Click);
    connectMenu(ui->smenuHistory, "smenuHistory_Click", &frmMain::smenuHistory_Click);
    ui->picThumbs->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui->picThumbs, &QWidget::customContextMenuRequested, this, &frmMain::showFaceMenu);
    // Here the keyboard is after a wardrobe; no mouse ever gets there.
    ui->cmdFocus->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui->cmdFocus, &QWidget::customContextMenuRequested, this, &frmMain::showFaceMenu);
}

void frmMain::connectMenu(QAction* action, const char* event, void (frmMain::*handler)()) {
    connect(action, &QAction::triggered, this, [this, event, handler] {
        runEvent("frmMain", event, [this, handler] { (this->*handler)(); });
    });
}

void frmMain::showMain() {
    setBottomForm(this);
    runEvent("frmMain", "Form_Load", [this] { Form_Load(); });
    show();
    Timer1->start(kBlinkMilliseconds);
    runEvent("frmMain", "Form_Activate", [this] { Form_Activate(); });
}

void frmMain::Form_Load() {
    resize(width(), kWindowHeight);
    for (const char* key : {setting::kBackupSavedFile, setting::kSkipPajamaSave}) {
        if (readSetting(key).isEmpty()) {
            writeSetting(key, QStringLiteral("1"));
        }
    }
    storeLocation();
    ui->smenuBackup->setChecked(readSettingAsNumber(setting::kBackupSavedFile) == 1);
    openGame(toPath(readSetting(setting::kSimsLocation)),
             toPath(readSetting(setting::kNeighborhoods)));
    listAnew();
    ignoringErrors([] { files().makeFolder(ensembleFolder()); });
}

// A search that finds the game at the start finds it for good.
void frmMain::storeLocation() {
    const Path stored = toPath(readSetting(setting::kSimsLocation));
    const Path location = locationAtStart(stored, toPath(registeredSimsPath()), [] {
        setPointer(Pointer::Hourglass);
        std::vector<FoundGame> games = findGames(gameSurroundings());
        setPointer(Pointer::Default);
        return games;
    });
    if (location == stored && !stored.empty()) {
        return;
    }
    writeSetting(setting::kSimsLocation, toDisplay(location));
    if (!stored.empty()) {
        writeSetting(setting::kNeighborhoods, QString());
    }
}

// Nothing of another game stays: its clothes must not be saved for this one's sims.
void frmMain::listAnew() {
    if (listedGame_ != SimsPath) {
        toldOfMissingSaves_ = false;
        toldOfMissingChoice_ = false;
    }
    listedGame_ = SimsPath;
    listedNeighbourhoods_ = neighbourhoodsPath();
    const InputGuard guard;
    setPointer(Pointer::Hourglass);
    masUserDataDirs.reset();
    msFillUserDataList();
    mstrUserDataDir.clear();
    page_ = SimPage();
    ui->picThumbs->clearPage();
    ui->txtPageCount->clear();
    clearSim();
    repaintWindows();
    resetModelCatalogue();
    gsBuildModelCatalogue();
    setPointer(Pointer::Default);
}

void frmMain::Form_Activate() {
    if (screen()->size().height() < kLowScreen) {
        move(x(), 0);
    }
    update();
    setWindowTitle(QStringLiteral("Marlowick - Version %1 - by Tolbert Quay")
                       .arg(QString::fromLatin1(kVersionText)));
    lookAtGame();
    showPathMessages();
    if (isGameThere()) {
        activateWithGame();
        return;
    }
    showMessage(QStringLiteral("SIMS.EXE Not Found!"), MessageIcon::Critical, MessageButtons::Ok,
                QStringLiteral("The file SIMS.EXE was not found in the path specified in the "
                               "registry.\nPlease use the Set Path menu option to locate The "
                               "Sims."));
}

// While no sims are listed, the game's disk or its saves may come, or another copy of it take its
// place.
void frmMain::lookAtGame() {
    if (page_.files().bound() == 0) {
        openGame(SimsPath, toPath(readSetting(setting::kNeighborhoods)));
    }
    if (listedGame_ != SimsPath || listedNeighbourhoods_ != neighbourhoodsPath()) {
        listAnew();
    }
    if (!isGameThere()) {
        ui->lblGame->setTexts(QStringLiteral("No game is open"), QString());
        return;
    }
    const char* kind = SimsKind == GameKind::Classic ? " (classic)" : "";
    ui->lblGame->setTexts(QString::fromStdString(gameTitle(SimsKind) + kind),
                          toDisplay(neighbourhoodsPath()));
}

void frmMain::showPathMessages() {
    QString message;
    if (SimsPath.empty()) {
        message = QStringLiteral(
            "The path to The Sims was not found in the registry.\n"
            "Please use the Set Path menu option to locate The Sims.");
    } else if (SimsPath.text() == "ERROR") {
        message = QStringLiteral(
            "GetRegistryString failed on error.\n"
            "The path to The Sims can not be found.\n"
            "Please use the Set Path menu option to locate The Sims.");
    }
    if (!message.isEmpty()) {
        showMessage(QStringLiteral("Path to The Sims not found!"), MessageIcon::Critical,
                    MessageButtons::Ok, message);
    }
}

void frmMain::activateWithGame() {
    if (page_.files().bound() == 0) {
        tellOfMissingChoice();
        if (waitsForSaves()) {
            tellOfMissingSaves();
        } else {
            listNeighbourhoods();
        }
    }
    ignoringErrors([] { files().makeFolder(tempFolder()); });
}

void frmMain::listNeighbourhoods() {
    msGetUserDataDirs();
    msFillUserDataList();
    const QString last = readSetting(setting::kLastNeighborhood);
    const QList<QListWidgetItem*> found =
        last.isEmpty() ? QList<QListWidgetItem*>()
                       : ui->lstUserDataDir->findItems(last, Qt::MatchExactly);
    if (!found.isEmpty()) {
        ui->lstUserDataDir->setCurrentItem(found.first());
    }
}

// A disk that is away, or a folder that got another name: the player must know why other sims show.
void frmMain::tellOfMissingChoice() {
    const Path chosen = toPath(readSetting(setting::kNeighborhoods));
    if (chosen.empty() || mayChooseNeighbourhoods(chosen) ||
        std::exchange(toldOfMissingChoice_, true)) {
        return;
    }
    showMessage(
        QStringLiteral("Neighborhoods Not Found"), MessageIcon::Exclamation, MessageButtons::Ok,
        QStringLiteral("No neighborhoods that the game plays with were found in:\n%1\nThose "
                       "of the game's own place are listed instead:\n%2")
            .arg(toDisplay(chosen), toDisplay(neighbourhoodsPath())));
}

void frmMain::tellOfMissingSaves() {
    if (std::exchange(toldOfMissingSaves_, true)) {
        return;
    }
    showMessage(QStringLiteral("No Neighborhoods Yet"), MessageIcon::Information,
                MessageButtons::Ok,
                QStringLiteral("The Sims Legacy Collection makes its neighborhoods at its first "
                               "start. They are not there yet.\nThe game lies in:\n%1\nIts "
                               "neighborhoods will lie in:\n%2\nPlease start the game once.")
                    .arg(toDisplay(SimsPath), toDisplay(neighbourhoodsPath())));
}

// A player who has started the game meanwhile comes back from it.
bool frmMain::event(QEvent* event) {
    const bool done = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate && toldOfMissingSaves_ && !InputGuard::isActive() &&
        QApplication::activeModalWidget() == nullptr && ui->lstUserDataDir->count() == 0 &&
        !waitsForSaves()) {
        runEvent("frmMain", "Form_Activate", [this] { Form_Activate(); });
    }
    return done;
}

bool frmMain::isGameThere() {
    return files().fileExists(SimsPath + "\\sims.exe");
}

bool frmMain::backupWanted() const {
    return ui->smenuBackup->isChecked();
}

void frmMain::closeEvent(QCloseEvent* event) {
    // The system that shuts down isn't kept waiting by a question.
    if (!qApp->isSavingSession() && !confirmAction(QStringLiteral("Exit this program?"))) {
        event->ignore();
        return;
    }
    Timer1->stop();
    event->accept();
    QCoreApplication::quit();
}

// The neighbourhoods and their files.

void frmMain::msGetUserDataDirs() {
    trapped("frmMain", "msGetUserDataDirs", [&] {
        masUserDataDirs.reset();
        masUserDataDirs = findUserDataDirs();
    });
}

void frmMain::msFillUserDataList() {
    std::vector<std::string> lines;
    for (int i = 1; i <= masUserDataDirs.bound(); ++i) {
        lines.push_back(neighbourhoodLine(masUserDataDirs[i]));
    }
    ui->lstUserDataDir->setLines(sortedLines(std::move(lines)));
}

void frmMain::lstUserDataDir_Click() {
    const std::string line = ui->lstUserDataDir->line();
    if (line.empty()) {
        return;
    }
    clearSim();
    mstrUserDataDir = folderOfLine(line);
    page_.goToFirst();
    msGetFileNames();
    msLoadSimImages();
}

void frmMain::msGetFileNames() {
    trapped("frmMain", "msGetFileNames", [&] {
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        page_.setFiles({});
        ui->picSim->clear();
        page_.setFiles(findSimFiles(mstrUserDataDir));
        setPointer(Pointer::Default);
    });
}

void frmMain::msGetSimFileNames() {
    trapped("frmMain", "msGetSimFileNames", [&] {
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        page_.setFiles({});
        mudtBadFiles.reset();
        const List<std::string> found = findSimFiles(mstrUserDataDir);
        List<std::string> good;
        for (int i = 1; i <= found.bound(); ++i) {
            sortOutSimFile(mudtIff, mstrUserDataDir, found[i], good, mudtBadFiles);
        }
        page_.setFiles(std::move(good));
        setPointer(Pointer::Default);
        if (mudtBadFiles.bound() > 0) {
            msReportBadFiles();
        }
    });
}

void frmMain::msReportBadFiles() {
    const std::string report = badFileReport(mudtBadFiles);
    writeWholeFile(ProgramFolder + "\\badobjects.txt", report);
    showMessage(QStringLiteral("Invalid User IFF Files"), MessageIcon::Exclamation,
                MessageButtons::Ok, toDisplay(report));
}

Path frmMain::simPath(const std::string& fileName) const {
    return charactersFolder(mstrUserDataDir).child(fileName);
}

// The page.

void frmMain::paintCell(int cell) {
    if (!readSimFile(mudtIff, mstrUserDataDir, page_.fileIn(cell)).empty()) {
        ui->picThumbs->paintPortrait(cell, ui->picCanNotLoad->picture());
        ui->picThumbs->setName(cell, QStringLiteral("* ERROR *\n Can't Load!!"));
        return;
    }
    ignoringErrors([] { removeIfPresent(webImageFile()); });
    gsDumpBMPs(mudtIff);
    if (!ignoringErrors([&] { ui->picLoad->load(webImageFile()); })) {
        ui->picLoad->setPicture(ui->picNotFound->picture());
    }
    ui->picThumbs->paintPortrait(cell, ui->picLoad->picture());
    ui->picThumbs->setName(cell, toDisplay(firstCatalogueName(mudtIff).value_or(std::string())));
}

void frmMain::msLoadSimImages() {
    trapped("frmMain", "msLoadSimImages", [&] {
        CheckpointNumber = 1000;
        ui->picThumbs->clearPage();
        const int cells = page_.filledCells();
        if (cells == 0) {
            return;
        }
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        CheckpointNumber = 2000;
        for (int cell = 0; cell < cells; ++cell) {
            paintCell(cell);
            repaintWindows();
            CheckpointNumber = 2000;
        }
        CheckpointNumber = 3000;
        page_.select(0);
        msDisplaySim(page_.selectedFile());
        ui->txtPageCount->setText(
            QStringLiteral("Page %1 of %2").arg(page_.number() + 1).arg(page_.pageCount()));
        setPointer(Pointer::Default);
    });
}

void frmMain::turnPage(bool (SimPage::*turn)()) {
    ui->cmdFocus->setFocus();
    if ((page_.*turn)()) {
        msLoadSimImages();
    }
}

void frmMain::picThumbs_MouseDown(QPoint position) {
    trapped("frmMain", "picThumbs_MouseDown", [&] {
        ui->picThumbs->frameCell(page_.selected(), false);
        page_.select(page::cellAt(position.x(), position.y()));
        const std::string file = page_.selectedFile();
        if (file.empty()) {
            clearSim();
            return;
        }
        msDisplaySim(file);
    });
}

void frmMain::picThumbs_MouseMove(QPoint position) {
    if (page_.files().bound() > 0) {
        ui->picThumbs->tellFile(page_.fileIn(page::cellAt(position.x(), position.y())));
    }
}

void frmMain::moveSelection(int columns, int rows) {
    const int cell = page::cellBeside(page_.selected(), columns, rows);
    if (cell >= 0) {
        picThumbs_MouseDown(cellBox(cell).center());
    }
}

void frmMain::Timer1_Timer() {
    if (InputGuard::isActive()) {
        return;
    }
    mblnBlink = !mblnBlink;
    ui->picThumbs->frameCell(page_.selected(), !mblnBlink);
}

// The chosen sim.

void frmMain::clearSim() {
    showWorn({});
    ui->picSim->clearSim();
    ui->txtSimName->clear();
    ui->txtSimName->setToolTip(QString());
}

void frmMain::showWorn(const std::optional<Worn>& worn) {
    Scene scene;
    ignoringErrors([&] { scene = makeScene(worn, nullptr, decodeTexture); });
    if (!scene.figure) {
        ui->picRender->hide();
        ui->picRender->move(kOutOfSight);
        ui->picRender->setFigure(nullptr,
                                 QStringLiteral("No figure to show: ") + noFigureWords(scene.why));
        return;
    }
    ui->picRender->setFigure(
        scene.figure,
        QStringLiteral("%1 worn: %2").arg(ui->txtSimName->text(), wornWords(*worn, scene)));
    ui->picRender->setGeometry(kRenderRoom.translated(ui->picSim->origin()));
    ui->picRender->show();
}

void frmMain::showUnreadable(const std::string& fileName, const std::string& reason) {
    const QString name = toDisplay(fileName);
    ui->txtSimName->setText(QStringLiteral("* ERROR * Can not load ") + name);
    ui->picSim->showUnreadable(
        ui->picCanNotLoad->picture(),
        {QStringLiteral("The selected sim file"),
         toDisplay(mstrUserDataDir) + QStringLiteral("\\characters\\") + name,
         QStringLiteral("can not be loaded. The error returned was:"), toDisplay(reason)});
}

void frmMain::msDisplaySim(const std::string& fileName) {
    std::optional<Worn> worn;
    trapped("frmMain", "msDisplaySim", [&] {
        const std::string reason = readSimFile(mudtIff, mstrUserDataDir, fileName);
        ui->picSim->clearSim();
        if (!reason.empty()) {
            showUnreadable(fileName, reason);
            return;
        }
        ui->picSim->showPictures(mudtIff, *ui->picLoad, ui->picNotFound->picture());
        ui->txtSimName->setText(toDisplay(firstUserLabel(mudtIff).value_or(fileName)));
        ui->txtSimName->setCursorPosition(0);
        StrSegment strings;
        readWardrobeTable(mudtIff, strings);
        const std::string& species = strings.Entries[1].Text;
        mblnIsPet = species == "dog" || species == "kat";
        worn = normalClothes(strings);
    });
    showWorn(worn);
    ui->txtSimName->setToolTip(toToolTip(ui->txtSimName->text()));
}

void frmMain::cmdSelect_Click() {
    ui->cmdFocus->setFocus();
    const std::string file = page_.selectedFile();
    if (ui->lstUserDataDir->line().empty() || ui->txtSimName->text().isEmpty() || file.empty()) {
        return;
    }
    if (!readSimFile(mudtIff, mstrUserDataDir, file).empty()) {
        return;
    }
    if (runningGame_.isDue()) {
        tellGameRuns();
    }
    writeSetting(setting::kLastNeighborhood, toDisplay(ui->lstUserDataDir->line()));
    setPointer(Pointer::Hourglass);
    repaint();
    historyWindow();
    if (mblnIsPet) {
        auto& editor = theWindow<frmEditPet>();
        editor.LoadUserFile = simPath(file);
        editor.BackupWanted = backupWanted();
        editor.showModal();
    } else {
        auto& editor = theWindow<frmEditSim>();
        editor.LoadUserFile = simPath(file);
        editor.BackupWanted = backupWanted();
        editor.showModal();
    }
    // Taking a step back may have taken the sim away, and reading it would make an empty file.
    if (page_.selectedFile() == file && files().fileExists(simPath(file))) {
        showWornAnew(file);
    }
}

// A save has changed the clothes. mudtIff stays: the page was read with it and isn't read anew.
void frmMain::showWornAnew(const std::string& fileName) {
    const std::int32_t stage = CheckpointNumber;
    std::optional<Worn> worn;
    ignoringErrors([&] {
        IffFile iff;
        StrSegment strings;
        if (readSimFile(iff, mstrUserDataDir, fileName).empty()) {
            lookAtWardrobeTable(iff, strings);
            worn = normalClothes(strings);
        }
    });
    CheckpointNumber = stage;
    showWorn(worn);
}

void frmMain::msPrepareSimPreview() {
    trapped("frmMain", "msPrepareSimPreview", [&] {
        StrSegment strings;
        readWardrobeTable(mudtIff, strings);
        ui->cmdFocus->setFocus();
        const std::string file = page_.selectedFile();
        if (ui->lstUserDataDir->line().empty() || ui->txtSimName->text().isEmpty() ||
            file.empty()) {
            return;
        }
        gsResetIFF(mudtIff);
        gsReadIFF(mudtIff, simPath(file));
        readWardrobeTable(mudtIff, strings);
        const HeadNames head = headNames(strings);
        findHeadFiles(head.mesh, head.skin);
    });
}

// The menus.

void frmMain::smenuExit_Click() {
    close();
}

void frmMain::smenuBackup_Click() {
    writeSetting(setting::kBackupSavedFile,
                 backupWanted() ? QStringLiteral("1") : QStringLiteral("0"));
}

void frmMain::smenuSetPath_Click() {
    theWindow<frmSetPath>().showModal();
}

void frmMain::menuFARs_Click() {
    theWindow<frmManageFARs>().showModal();
    // The clothes on show may lie in an archive that has been changed.
    if (ui->picRender->isVisible()) {
        showWornAnew(page_.selectedFile());
    }
}

// The tools.

bool frmMain::walkSims(const std::function<bool(const SimWalk&)>& tool) {
    setPointer(Pointer::Hourglass);
    bool done = false;
    {
        const InputGuard guard;
        repaintWindows();
        done = tool({mstrUserDataDir, page_.files(), mudtIff, repaintWindows});
    }
    setPointer(Pointer::Default);
    return done;
}

void frmMain::smenuExport_Click() {
    trapped("frmMain", "smenuExport_Click", [&] {
        if (page_.files().bound() == 0) {
            return;
        }
        walkSims([](const SimWalk& walk) {
            exportSkinNames(walk);
            return true;
        });
        showMessage(QStringLiteral("Export Complete"), MessageIcon::Information, MessageButtons::Ok,
                    QStringLiteral("Exported:\n") + toDisplay(headSkinsFile()) +
                        QStringLiteral("\n") + toDisplay(bodySkinsFile()));
    });
}

// Both repairs report their failures under the name of the first.
void frmMain::repairSims(const QString& question, const char* command,
                         bool (*tool)(const SimWalk&, RepairWork&)) {
    trapped("frmMain", "smenuFix_Click", [&] {
        if (!confirmAction(question + QStringLiteral("\n\nDo you wish to proceed?")) ||
            page_.files().bound() == 0 || !mayWriteNow()) {
            return;
        }
        if (repairAndTell(command, tool)) {
            showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                        QStringLiteral("Operation Complete"));
        }
    });
}

bool frmMain::repairAndTell(const char* command, bool (*tool)(const SimWalk&, RepairWork&)) {
    HistoryCommand history(earlierVersions(), command, "", mayGoOnWithout);
    RepairWork work{history, maySaveOver};
    const bool done = walkSims([&](const SimWalk& walk) { return tool(walk, work); });
    if (done && !work.passedOver.empty()) {
        QString names;
        for (const std::string& name : work.passedOver) {
            names += QStringLiteral("\n") + toDisplay(name);
        }
        showMessage(QStringLiteral("Files Passed Over"), MessageIcon::Exclamation,
                    MessageButtons::Ok,
                    QStringLiteral("These files were left as they were: what was written of them "
                                   "was not what was meant.") +
                        names);
    }
    return done;
}

void frmMain::smenuFix_Click() {
    repairSims(QStringLiteral(
                   "This function will fix the fit to skinny sim problem that was introduced with "
                   "Hot Date. Any sim in the selected neighborhood whose swimsuit, formal or "
                   "pajamas does not match their normal outfit body type (Fit, Fat or Skn) will "
                   "have the outfit replaced with the default outfit of the correct body type."),
               "Fix fit to skinny", fixFitToSkinny);
}

void frmMain::smenuPinkHands_Click() {
    repairSims(
        QStringLiteral("This function will remove the Pink Gorilla formal hands from the sims in "
                       "the selected neighborhood. This bug affects both House Party and Hot Date. "
                       "The sims that are afflicted will have their formal hands restored to the "
                       "proper default for their gender."),
        "Remove pink hands", removePinkHands);
}

// Earlier versions.

frmHistory& frmMain::historyWindow() {
    auto& window = theWindow<frmHistory>();
    window.Restored = [this] { paintPageAnew(); };
    return window;
}

void frmMain::smenuHistory_Click() {
    historyWindow().showAll();
}

// The right button has chosen the face below it before; the menu key means the one that is chosen.
void frmMain::showFaceMenu(QPoint position) {
    const std::string file = page_.selectedFile();
    if (file.empty()) {
        return;
    }
    const QRect cell = cellBox(page_.selected()).translated(ui->picThumbs->origin());
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menuSim"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* name, const QString& text, const std::function<void()>& work) {
        QAction* action = menu->addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        const std::string event = std::string(name) + "_Click";
        connect(action, &QAction::triggered, this,
                [event, work] { runEvent("frmMain", event.c_str(), work); });
    };
    add("smenuSimEdit", QStringLiteral("&Edit This Sim"), [this] { cmdSelect_Click(); });
    add("smenuSimHistory", QStringLiteral("Earlier &Versions ..."),
        [this, path = simPath(file)] { historyWindow().showOf(path); });
    menu->popup(ui->picThumbs->mapToGlobal(cell.contains(position) ? position : cell.center()));
}

// With the same cell chosen; a sim that was gone may be there again.
void frmMain::paintPageAnew() {
    if (mstrUserDataDir.empty()) {
        return;
    }
    const int selected = page_.selected();
    msGetFileNames();
    msLoadSimImages();
    if (selected > 0 && !page_.fileIn(selected).empty()) {
        picThumbs_MouseDown(cellBox(selected).center());
    }
}

}  // namespace marlowick
