#include "browser/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>

#include "browser/frmSetPath.h"
#include "browser/head_names.h"
#include "catalogue/model_catalogue.h"
#include "catalogue/thumbnail_page.h"
#include "far/frmManageFARs.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/version.h"
#include "iff/sim_names.h"
#include "iff/string_segment.h"
#include "preview/head_files.h"
#include "system/files.h"
#include "ui_frmMain.h"
#include "wardrobe/frmEditPet.h"
#include "wardrobe/frmEditSim.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/settings.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kWindowHeight = 582;
constexpr int kLowScreen = 640;
constexpr int kBlinkMilliseconds = 333;
constexpr int kThumbSize = 45;
constexpr QSize kNameSize(64, 20);

// Where the sim's unpacked pictures are looked for, and the height at which each is painted.
struct Portrait {
    const char* file;
    int y;
};

constexpr Portrait kPortraits[] = {
    {"\\web_image.bmp", 0}, {"\\faces.bmp", 64}, {"\\relimages.bmp", 128}};

QPoint imagePosition(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + 2 + 9, corner.y + 2};
}

// Two lines of it fit under a thumbnail.
QFont nameFont() {
    QFont font = QApplication::font();
    for (int pixels = 10; pixels > 6; --pixels) {
        font.setPixelSize(pixels);
        if (2 * QFontMetrics(font).lineSpacing() <= kNameSize.height()) {
            break;
        }
    }
    return font;
}

}  // namespace

frmMain::frmMain()
    : FormEvents("frmMain"), ui(std::make_unique<Ui::frmMain>()), Timer1(new QTimer(this)) {
    ui->setupUi(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    ui->picNotFound->setPicture(questionCard({kThumbSize, kThumbSize}));
    ui->picCanNotLoad->setPicture(brokenFileCard({kThumbSize, kThumbSize}));
    QFont small = font();
    small.setPixelSize(10);
    ui->picSim->setFont(small);
    makeNameLabels();
    connectControls();
}

frmMain::~frmMain() = default;

void frmMain::makeNameLabels() {
    const QFont font = nameFont();
    for (int cell = 0; cell < page::kCells; ++cell) {
        auto* label = new QLabel(ui->picThumbs);
        label->setObjectName(QStringLiteral("lblSimName"));
        label->setProperty("Index", cell);
        const page::Position corner = page::corner(cell);
        label->setGeometry(QRect(QPoint(corner.x + 2, corner.y + 48), kNameSize));
        label->setFont(font);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        lblSimName.at(static_cast<std::size_t>(cell)) = label;
    }
}

void frmMain::connectControls() {
    onClick(ui->cmdSelect, "cmdSelect_Click", [this] { cmdSelect_Click(); });
    onClick(ui->cmdFirst, "cmdFirst_Click", [this] { cmdFirst_Click(); });
    onClick(ui->cmdPrevious, "cmdPrevious_Click", [this] { cmdPrevious_Click(); });
    onClick(ui->cmdNext, "cmdNext_Click", [this] { cmdNext_Click(); });
    onClick(ui->cmdLast, "cmdLast_Click", [this] { cmdLast_Click(); });
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
    SimsPath = toPath(registeredSimsPath());
    struct Default {
        const char* key;
        QString value;
    };
    const Default defaults[] = {{setting::kBackupSavedFile, QStringLiteral("1")},
                                {setting::kSkipPajamaSave, QStringLiteral("1")},
                                {setting::kSimsLocation, toDisplay(SimsPath)}};
    for (const Default& missing : defaults) {
        if (readSetting(missing.key).isEmpty()) {
            writeSetting(missing.key, missing.value);
        }
    }
    ui->smenuBackup->setChecked(readSettingAsNumber(setting::kBackupSavedFile) == 1);
    SimsPath = toPath(readSetting(setting::kSimsLocation));
    masSimFiles.reset();
    for (int cell = 0; cell < page::kCells; ++cell) {
        setName(cell, QString());
    }
    resetModelCatalogue();
    gsBuildModelCatalogue();
    ignoringErrors([] { files().makeFolder(ensembleFolder()); });
}

void frmMain::Form_Activate() {
    if (screen()->size().height() < kLowScreen) {
        move(x(), 0);
    }
    update();
    setWindowTitle(QStringLiteral("Marlowick - Version %1 - by Tolbert Quay")
                       .arg(QString::fromLatin1(kVersionText)));
    showPathMessages();
    if (files().fileExists(SimsPath + "\\sims.exe")) {
        activateWithGame();
        return;
    }
    showMessage(QStringLiteral("SIMS.EXE Not Found!"), MessageIcon::Critical, MessageButtons::Ok,
                QStringLiteral("The file SIMS.EXE was not found in the path specified in the "
                               "registry.\nPlease use the Set Path menu option to locate The "
                               "Sims."));
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
    if (masSimFiles.bound() == 0) {
        msGetUserDataDirs();
        msFillUserDataList();
        const QString last = readSetting(setting::kLastNeighborhood);
        const QList<QListWidgetItem*> found =
            last.isEmpty() ? QList<QListWidgetItem*>()
                           : ui->lstUserDataDir->findItems(last, Qt::MatchFixedString);
        if (!found.isEmpty()) {
            ui->lstUserDataDir->setCurrentItem(found.first());
        }
    }
    ignoringErrors([] { files().makeFolder(tempFolder()); });
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
    mlngPage = 0;
    msGetFileNames();
    msLoadSimImages();
}

void frmMain::msGetFileNames() {
    trapped("frmMain", "msGetFileNames", [&] {
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        masSimFiles.reset();
        ui->picSim->clear();
        masSimFiles = findSimFiles(mstrUserDataDir);
        setPointer(Pointer::Default);
    });
}

void frmMain::msGetSimFileNames() {
    trapped("frmMain", "msGetSimFileNames", [&] {
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        masSimFiles.reset();
        mudtBadFiles.reset();
        const List<std::string> found = findSimFiles(mstrUserDataDir);
        for (int i = 1; i <= found.bound(); ++i) {
            sortOutSimFile(mudtIff, mstrUserDataDir, found[i], masSimFiles, mudtBadFiles);
        }
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

void frmMain::setName(int cell, const QString& name) {
    QLabel* label = lblSimName.at(static_cast<std::size_t>(cell));
    // Long names break in two; a word that is too long even so is shortened.
    const QFontMetrics metrics(label->font());
    QStringList lines = name.split(QLatin1Char('\n'));
    const auto fitted = [&](const QString& line) {
        return metrics.elidedText(line, Qt::ElideRight, kNameSize.width());
    };
    if (lines.size() == 1 && fitted(name) != name) {
        const qsizetype blank = name.indexOf(QLatin1Char(' '));
        if (blank > 0) {
            lines = {name.left(blank), name.mid(blank + 1)};
        }
    }
    for (QString& line : lines) {
        line = fitted(line);
    }
    label->setText(lines.join(QLatin1Char('\n')));
    label->setAccessibleName(name);
}

void frmMain::paintCell(int cell, const std::string& fileName) {
    if (!readSimFile(mudtIff, mstrUserDataDir, fileName).empty()) {
        ui->picThumbs->paint(ui->picCanNotLoad->picture(), imagePosition(cell));
        setName(cell, QStringLiteral("* ERROR *\n Can't Load!!"));
        return;
    }
    ignoringErrors([] { removeIfPresent(ProgramFolder + "\\Web_Image.Bmp"); });
    gsDumpBMPs(mudtIff);
    if (!ignoringErrors([&] { ui->picLoad->load(ProgramFolder + "\\Web_Image.Bmp"); })) {
        ui->picLoad->setPicture(ui->picNotFound->picture());
    }
    ui->picThumbs->paint(ui->picLoad->picture(), imagePosition(cell));
    for (int i = 1; i <= mudtIff.Segments.bound(); ++i) {
        if (mudtIff.Segments[i].Type == "CTSS") {
            setName(cell, toDisplay(catalogueName(mudtIff.Segments[i])));
            break;
        }
    }
}

void frmMain::msLoadSimImages() {
    trapped("frmMain", "msLoadSimImages", [&] {
        CheckpointNumber = 1000;
        ui->picThumbs->clear();
        for (int cell = 0; cell < page::kCells; ++cell) {
            setName(cell, QString());
        }
        // A page of -1 stands for an empty list.
        if (masSimFiles.bound() == 0) {
            return;
        }
        const InputGuard guard;
        setPointer(Pointer::Hourglass);
        repaintWindows();
        const int count = masSimFiles.bound();
        CheckpointNumber = 2000;
        for (int cell = 0; cell < page::kCells; ++cell) {
            const int entry = page::entryOf(mlngPage, cell);
            if (entry > count) {
                break;
            }
            paintCell(cell, masSimFiles[entry]);
            repaintWindows();
            CheckpointNumber = 2000;
        }
        CheckpointNumber = 3000;
        mlngSelected = 0;
        msDisplaySim(masSimFiles[page::entryOf(mlngPage, 0)]);
        ui->txtPageCount->setText(
            QStringLiteral("Page %1 of %2").arg(mlngPage + 1).arg(page::pageCount(count)));
        setPointer(Pointer::Default);
    });
}

void frmMain::goToPage(int pageNumber) {
    mlngPage = pageNumber;
    msLoadSimImages();
}

void frmMain::cmdFirst_Click() {
    ui->cmdFocus->setFocus();
    if (mlngPage != 0) {
        goToPage(0);
    }
}

void frmMain::cmdPrevious_Click() {
    ui->cmdFocus->setFocus();
    if (mlngPage > 0) {
        goToPage(mlngPage - 1);
    }
}

void frmMain::cmdNext_Click() {
    ui->cmdFocus->setFocus();
    if (page::lastPage(masSimFiles.bound()) > mlngPage) {
        goToPage(mlngPage + 1);
    }
}

void frmMain::cmdLast_Click() {
    ui->cmdFocus->setFocus();
    const int last = page::lastPage(masSimFiles.bound());
    if (last != mlngPage) {
        goToPage(last);
    }
}

std::string frmMain::fileInCell(int cell) const {
    const int entry = page::entryOf(mlngPage, cell);
    return entry >= 1 && entry <= masSimFiles.bound() ? masSimFiles[entry] : std::string();
}

void frmMain::outlineCell(int cell, bool visible) {
    const page::Position corner = page::corner(cell);
    ui->picThumbs->frame({corner.x, corner.y, page::kPitch, page::kPitch}, visible);
}

void frmMain::picThumbs_MouseDown(QPoint position) {
    trapped("frmMain", "picThumbs_MouseDown", [&] {
        outlineCell(mlngSelected, false);
        mlngSelected = page::cellAt(position.x(), position.y());
        const std::string file = fileInCell(mlngSelected);
        if (file.empty()) {
            clearSim();
            return;
        }
        msDisplaySim(file);
    });
}

void frmMain::picThumbs_MouseMove(QPoint position) {
    if (masSimFiles.bound() > 0) {
        ui->picThumbs->setToolTip(
            toToolTip(toDisplay(fileInCell(page::cellAt(position.x(), position.y())))));
    }
}

void frmMain::moveSelection(int columns, int rows) {
    const int cell = page::cellBeside(mlngSelected, columns, rows);
    if (cell >= 0) {
        const page::Position corner = page::corner(cell);
        picThumbs_MouseDown({corner.x + page::kPitch / 2, corner.y + page::kPitch / 2});
    }
}

void frmMain::Timer1_Timer() {
    if (InputGuard::isActive()) {
        return;
    }
    mblnBlink = !mblnBlink;
    outlineCell(mlngSelected, !mblnBlink);
}

// The chosen sim.

void frmMain::clearSim() {
    ui->picSim->clear();
    ui->picSim->setToolTip(QString());
    ui->txtSimName->clear();
    ui->txtSimName->setToolTip(QString());
}

void frmMain::showUnreadable(const std::string& fileName, const std::string& reason) {
    const QString name = toDisplay(fileName);
    ui->txtSimName->setText(QStringLiteral("* ERROR * Can not load ") + name);
    ui->picSim->paint(ui->picCanNotLoad->picture(), {0, 0});
    const QString lines[] = {
        QStringLiteral("The selected sim file"),
        toDisplay(mstrUserDataDir) + QStringLiteral("\\characters\\") + name,
        QStringLiteral("can not be loaded. The error returned was:"),
        toDisplay(reason),
    };
    int y = 48;
    for (const QString& line : lines) {
        ui->picSim->print(line, {2, y});
        y += 12;
    }
    ui->picSim->setToolTip(toToolTip(toDisplay(reason)));
}

void frmMain::showPortraits() {
    for (const Portrait& portrait : kPortraits) {
        ignoringErrors([&] { removeIfPresent(ProgramFolder + portrait.file); });
    }
    ignoringErrors([&] { dumpBitmaps(mudtIff); });
    for (const Portrait& portrait : kPortraits) {
        ui->picLoad->setPicture(ui->picNotFound->picture());
        ignoringErrors([&] { ui->picLoad->load(ProgramFolder + portrait.file); });
        ui->picSim->paint(ui->picLoad->picture(), {0, portrait.y});
    }
}

void frmMain::showObjectName(const std::string& fileName) {
    ui->txtSimName->setText(toDisplay(fileName));
    for (int i = 1; i <= mudtIff.Segments.bound(); ++i) {
        if (isUserObject(mudtIff.Segments[i])) {
            ui->txtSimName->setText(toDisplay(gfstrTrimAtNull(mudtIff.Segments[i].Label)));
            break;
        }
    }
    ui->txtSimName->setCursorPosition(0);
}

void frmMain::msDisplaySim(const std::string& fileName) {
    trapped("frmMain", "msDisplaySim", [&] {
        const std::string reason = readSimFile(mudtIff, mstrUserDataDir, fileName);
        ui->picSim->clear();
        ui->picSim->setToolTip(QString());
        if (!reason.empty()) {
            showUnreadable(fileName, reason);
            return;
        }
        showPortraits();
        showObjectName(fileName);
        StrSegment strings;
        readWardrobeTable(mudtIff, strings);
        const std::string& species = strings.Entries[1].Text;
        mblnIsPet = species == "dog" || species == "kat";
    });
    ui->txtSimName->setToolTip(toToolTip(ui->txtSimName->text()));
}

void frmMain::cmdSelect_Click() {
    ui->cmdFocus->setFocus();
    const std::string file = fileInCell(mlngSelected);
    if (ui->lstUserDataDir->line().empty() || ui->txtSimName->text().isEmpty() || file.empty()) {
        return;
    }
    if (!readSimFile(mudtIff, mstrUserDataDir, file).empty()) {
        return;
    }
    writeSetting(setting::kLastNeighborhood, toDisplay(ui->lstUserDataDir->line()));
    setPointer(Pointer::Hourglass);
    repaint();
    if (mblnIsPet) {
        auto& editor = theWindow<frmEditPet>();
        editor.LoadUserFile = simPath(file);
        editor.BackupWanted = backupWanted();
        editor.showModal();
        return;
    }
    auto& editor = theWindow<frmEditSim>();
    editor.LoadUserFile = simPath(file);
    editor.BackupWanted = backupWanted();
    editor.showModal();
}

void frmMain::msPrepareSimPreview() {
    trapped("frmMain", "msPrepareSimPreview", [&] {
        StrSegment strings;
        readWardrobeTable(mudtIff, strings);
        ui->cmdFocus->setFocus();
        const std::string file = fileInCell(mlngSelected);
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
}

// The tools.

bool frmMain::walkSims(const std::function<bool(const SimWalk&)>& tool) {
    setPointer(Pointer::Hourglass);
    bool done = false;
    {
        const InputGuard guard;
        repaintWindows();
        done = tool({mstrUserDataDir, masSimFiles, mudtIff, repaintWindows});
    }
    setPointer(Pointer::Default);
    return done;
}

void frmMain::smenuExport_Click() {
    trapped("frmMain", "smenuExport_Click", [&] {
        if (masSimFiles.bound() == 0) {
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
void frmMain::repairSims(const QString& question, bool (*tool)(const SimWalk&)) {
    trapped("frmMain", "smenuFix_Click", [&] {
        if (!confirmAction(question + QStringLiteral("\n\nDo you wish to proceed?")) ||
            masSimFiles.bound() == 0) {
            return;
        }
        if (walkSims(tool)) {
            showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                        QStringLiteral("Operation Complete"));
        }
    });
}

void frmMain::smenuFix_Click() {
    repairSims(QStringLiteral(
                   "This function will fix the fit to skinny sim problem that was introduced with "
                   "Hot Date. Any sim in the selected neighborhood whose swimsuit, formal or "
                   "pajamas does not match their normal outfit body type (Fit, Fat or Skn) will "
                   "have the outfit replaced with the default outfit of the correct body type."),
               fixFitToSkinny);
}

void frmMain::smenuPinkHands_Click() {
    repairSims(
        QStringLiteral("This function will remove the Pink Gorilla formal hands from the sims in "
                       "the selected neighborhood. This bug affects both House Party and Hot Date. "
                       "The sims that are afflicted will have their formal hands restored to the "
                       "proper default for their gender."),
        removePinkHands);
}

}  // namespace marlowick
