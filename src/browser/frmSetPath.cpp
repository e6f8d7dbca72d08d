#include "browser/frmSetPath.h"

#include <QLayout>

#include "foundation/open_game.h"
#include "system/files.h"
#include "system/registry.h"
#include "ui_frmSetPath.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

void refuse(const char* reason, const Path& folder) {
    showMessage(QStringLiteral("Selected Location Invalid"), MessageIcon::Exclamation,
                MessageButtons::Ok,
                QStringLiteral("%1\n%2\nThe selected location was invalid")
                    .arg(QString::fromLatin1(reason), toDisplay(folder)));
}

}  // namespace

QString registeredSimsPath() {
    return toDisplay(Path(
        GetRegistryString(kRegistryLocalMachine, "Software\\Maxis\\The Sims", "InstallPath", 0)));
}

frmSetPath::frmSetPath() : ModalForm("frmSetPath"), ui(std::make_unique<Ui::frmSetPath>()) {}

frmSetPath::~frmSetPath() = default;

void frmSetPath::buildControls() {
    ui->setupUi(this);
    isChosen_ = false;
    setEscapeButton(ui->cmdCancel);
    onClick(ui->cmdUseReg, "cmdUseReg_Click", [this] { cmdUseReg_Click(); });
    onClick(ui->cmdFindPath, "cmdFindPath_Click", [this] { cmdFindPath_Click(); });
    onClick(ui->cmdFindNeighborhoods, "cmdFindNeighborhoods_Click",
            [this] { cmdFindNeighborhoods_Click(); });
    onClick(ui->cmdAutomatic, "cmdAutomatic_Click", [this] { cmdAutomatic_Click(); });
    onClick(ui->cmdOK, "cmdOK_Click", [this] { cmdOK_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] { cmdCancel_Click(); });
    const auto onEvent = [this](const char* event, void (frmSetPath::*handler)()) {
        return [this, event, handler] {
            runEvent("frmSetPath", event, [this, handler] { (this->*handler)(); });
        };
    };
    connect(ui->lstGames, &ClickList::lineClicked, this,
            onEvent("lstGames_Click", &frmSetPath::lstGames_Click));
    connect(ui->txtLocation, &QLineEdit::textChanged, this,
            onEvent("txtLocation_Change", &frmSetPath::txtLocation_Change));
    connect(ui->txtLocation, &QLineEdit::editingFinished, this,
            onEvent("txtLocation_LostFocus", &frmSetPath::txtLocation_LostFocus));
    connect(ui->txtNeighborhoods, &QLineEdit::textChanged, this,
            [this](const QString& text) { isChosen_ = !text.isEmpty(); });
    for (QLineEdit* box : {ui->txtLocation, ui->txtRegistry, ui->txtNeighborhoods}) {
        connect(box, &QLineEdit::textChanged, box,
                [box](const QString& text) { box->setToolTip(toToolTip(text)); });
    }
}

void frmSetPath::Form_Load() {
    ui->txtRegistry->setText(registeredSimsPath());
    ui->txtLocation->setText(toDisplay(toPath(readSetting(setting::kSimsLocation))));
    const Path chosen = toPath(readSetting(setting::kNeighborhoods));
    // Also if they are away for now: an OK must not forget what the player chose.
    if (!chosen.empty()) {
        showNeighbourhoods(chosen, true);
    }
    listGames();
    // On a small screen the window takes what there is, and what it needs.
    const QSize fitting = sizeOnScreen(*this);
    resize(fitting.expandedTo({0, layout()->totalMinimumHeightForWidth(fitting.width())}));
    ui->txtLocation->selectAll();
    ui->txtLocation->setFocus();
}

void frmSetPath::listGames() {
    setPointer(Pointer::Hourglass);
    games_ = findGames(gameSurroundings());
    setPointer(Pointer::Default);
    QStringList lines;
    for (const FoundGame& game : games_) {
        lines.append(QString::fromStdString(foundGameText(game)) + QLatin1Char('\n') +
                     toDisplay(game.folder));
    }
    ui->lstGames->setTexts(lines);
}

void frmSetPath::showNeighbourhoods(const Path& folder, bool isChosen) {
    ui->txtNeighborhoods->setText(toDisplay(folder));
    ui->txtNeighborhoods->setCursorPosition(0);
    isChosen_ = isChosen;
}

// Of a location without the game, nothing.
void frmSetPath::showAutomatic() {
    const Path location = toPath(ui->txtLocation->text());
    const bool isGame = files().fileExists(location + "\\Sims.exe");
    showNeighbourhoods(isGame ? automaticNeighbourhoods(location) : Path(), false);
}

void frmSetPath::lstGames_Click() {
    const int row = ui->lstGames->currentRow();
    if (row >= 0) {
        ui->txtLocation->setText(toDisplay(games_.at(static_cast<std::size_t>(row)).folder));
    }
}

// Another game has other neighbourhoods. A place in a network isn't asked for letter by letter.
void frmSetPath::txtLocation_Change() {
    const bool isTyped = ui->txtLocation->isModified();
    if (isTyped && ui->txtLocation->text().startsWith(QStringLiteral("\\\\"))) {
        showNeighbourhoods(Path(), false);
        return;
    }
    showAutomatic();
}

void frmSetPath::txtLocation_LostFocus() {
    if (!isChosen_) {
        showAutomatic();
    }
}

void frmSetPath::cmdUseReg_Click() {
    ui->cmdFocus->setFocus();
    const QString registered = ui->txtRegistry->text();
    if (registered.isEmpty() || registered == QStringLiteral("ERROR")) {
        showMessage(QStringLiteral("Path Invalid"), MessageIcon::Exclamation, MessageButtons::Ok,
                    QStringLiteral("Registry value invalid. Please find the path manually."));
        return;
    }
    ui->txtLocation->setText(registered);
}

void frmSetPath::cmdFindPath_Click() {
    ui->cmdFocus->setFocus();
    const QString chosen = chooseFolder(this, QStringLiteral("Select the location of The Sims."));
    if (!chosen.isEmpty()) {
        ui->txtLocation->setText(chosen);
    }
}

void frmSetPath::cmdFindNeighborhoods_Click() {
    ui->cmdFocus->setFocus();
    const QString chosen =
        chooseFolder(this, QStringLiteral("Select the location of the neighborhoods."));
    if (!chosen.isEmpty()) {
        ui->txtNeighborhoods->setText(chosen);
    }
}

void frmSetPath::cmdAutomatic_Click() {
    ui->cmdFocus->setFocus();
    showAutomatic();
}

void frmSetPath::cmdOK_Click() {
    ui->cmdFocus->setFocus();
    const Path location = toPath(ui->txtLocation->text());
    if (!files().fileExists(location + "\\Sims.exe")) {
        refuse("The Sims was not found in:", location);
        return;
    }
    const Path neighbourhoods = isChosen_ ? toPath(ui->txtNeighborhoods->text()) : Path();
    if (isChosen_ && !mayChooseNeighbourhoods(neighbourhoods)) {
        refuse("No neighborhoods that the game plays with were found in:", neighbourhoods);
        return;
    }
    const QString stored = toDisplay(location);
    const QString storedNeighbourhoods = toDisplay(neighbourhoods);
    openGame(toPath(stored), toPath(storedNeighbourhoods));
    writeSetting(setting::kSimsLocation, stored);
    if (storedNeighbourhoods != readSetting(setting::kNeighborhoods)) {
        writeSetting(setting::kNeighborhoods, storedNeighbourhoods);
    }
    close();
}

void frmSetPath::cmdCancel_Click() {
    ui->cmdFocus->setFocus();
    close();
}

}  // namespace marlowick
