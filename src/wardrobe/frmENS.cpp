#include "wardrobe/frmENS.h"

#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/open_game.h"
#include "system/files.h"
#include "system/game_text.h"
#include "ui_frmENS.h"
#include "wardrobe/ensemble.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/messages.h"

namespace marlowick {
namespace {

constexpr std::string_view kExtension = ".ENS";

}  // namespace

frmENS::frmENS() : ModalForm("frmENS"), ui(std::make_unique<Ui::frmENS>()) {}

frmENS::~frmENS() = default;

void frmENS::showFor(WardrobeFields& fields) {
    fields_ = &fields;
    showModal();
    fields_ = nullptr;
}

void frmENS::buildControls() {
    ui->setupUi(this);
    setEscapeButton(ui->cmdCancel);
    onClick(ui->cmdSaveLoad, "cmdSaveLoad_Click", [this] { cmdSaveLoad_Click(); });
    onClick(ui->cmdDelete, "cmdDelete_Click", [this] { cmdDelete_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] { close(); });
    connect(ui->flbENS, &ClickList::lineClicked, this, [this] { flbENS_Click(); });
    connect(ui->flbENS, &ClickList::itemDoubleClicked, this,
            [this] { runEvent("frmENS", "flbENS_DblClick", [this] { cmdSaveLoad_Click(); }); });
    connect(ui->txtFileName, &QLineEdit::textChanged, this,
            [this](const QString& name) { ui->txtFileName->setToolTip(toToolTip(name)); });
}

void frmENS::Form_Load() {
    const bool saves = mode == kEnsembleSave;
    ui->cmdSaveLoad->setText(saves ? QStringLiteral("Save") : QStringLiteral("Load"));
    setWindowTitle(saves ? QStringLiteral("Save Ensemble File:")
                         : QStringLiteral("Load Ensemble File:"));
    refreshList();
    (saves ? static_cast<QWidget*>(ui->txtFileName) : ui->flbENS)->setFocus();
}

void frmENS::refreshList() {
    ui->flbENS->setLines(searchFiles(ensembleFolder(), "*.ens"));
}

std::string frmENS::fileName() const {
    return toGameText(ui->txtFileName->text());
}

void frmENS::flbENS_Click() {
    ui->txtFileName->setText(toDisplay(ui->flbENS->line()));
}

void frmENS::cmdSaveLoad_Click() {
    trapped("frmENS", "cmdSaveLoad_Click", [&] {
        ui->cmdFocus->setFocus();
        const std::string typed = fileName();
        if (typed.empty()) {
            return;
        }
        if (!upperCase(typed).ends_with(kExtension)) {
            ui->txtFileName->setText(toDisplay(typed + std::string(kExtension)));
        }
        if (mode == kEnsembleSave) {
            if (!save()) {
                return;
            }
        } else {
            load();
        }
        close();
    });
}

// False if an old file is to stay.
bool frmENS::save() {
    const Path path = ensembleFolder().child(fileName());
    if (files().fileExists(path) &&
        !confirmAction(QStringLiteral("Overwrite file ") + toDisplay(path))) {
        return false;
    }
    HistoryCommand history(earlierVersions(), "Save ensemble", fileName(), mayGoOnWithout);
    return saveEnsemble(path, *fields_, history);
}

// The file is the list's, whatever has been typed; without one the folder itself is opened, which
// fails.
void frmENS::load() {
    const std::string name = ui->flbENS->line();
    loadEnsemble(name.empty() ? ensembleFolder() : ensembleFolder().child(name), *fields_);
}

void frmENS::cmdDelete_Click() {
    ui->cmdFocus->setFocus();
    const std::string name = fileName();
    if (!isFileName(name) || !files().fileExists(ensembleFolder().child(name)) ||
        !confirmAction(QStringLiteral("Delete file ") + toDisplay(ensembleFolder().child(name)))) {
        return;
    }
    HistoryCommand history(earlierVersions(), "Delete ensemble", name, mayGoOnWithout);
    bool wanted = true;
    ignoringErrors([&] { wanted = deleteEnsemble(ensembleFolder().child(name), history); });
    if (!wanted) {
        return;
    }
    refreshList();
    ui->txtFileName->clear();
}

}  // namespace marlowick
