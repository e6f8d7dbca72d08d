#include "browser/frmSetPath.h"

#include "foundation/game.h"
#include "system/files.h"
#include "system/registry.h"
#include "ui_frmSetPath.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"
#include "widgets/messages.h"
#include "widgets/settings.h"

namespace marlowick {

QString registeredSimsPath() {
    return toDisplay(Path(
        GetRegistryString(kRegistryLocalMachine, "Software\\Maxis\\The Sims", "InstallPath", 0)));
}

frmSetPath::frmSetPath() : ModalForm("frmSetPath"), ui(std::make_unique<Ui::frmSetPath>()) {}

frmSetPath::~frmSetPath() = default;

void frmSetPath::buildControls() {
    ui->setupUi(this);
    setEscapeButton(ui->cmdCancel);
    onClick(ui->cmdUseReg, "cmdUseReg_Click", [this] { cmdUseReg_Click(); });
    onClick(ui->cmdFindPath, "cmdFindPath_Click", [this] { cmdFindPath_Click(); });
    onClick(ui->cmdOK, "cmdOK_Click", [this] { cmdOK_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] { cmdCancel_Click(); });
}

void frmSetPath::Form_Load() {
    ui->txtRegistry->setText(registeredSimsPath());
    ui->txtLocation->setText(toDisplay(toPath(readSetting(setting::kSimsLocation))));
    ui->txtLocation->selectAll();
    ui->txtLocation->setFocus();
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

void frmSetPath::cmdOK_Click() {
    ui->cmdFocus->setFocus();
    const Path location = toPath(ui->txtLocation->text());
    if (!files().fileExists(location + "\\Sims.exe")) {
        showMessage(QStringLiteral("Selected Location Invalid"), MessageIcon::Exclamation,
                    MessageButtons::Ok,
                    QStringLiteral("The Sims was not found in:\n%1\nThe selected location was "
                                   "invalid")
                        .arg(toDisplay(location)));
        return;
    }
    const QString stored = toDisplay(location);
    SimsPath = toPath(stored);
    writeSetting(setting::kSimsLocation, stored);
    close();
}

void frmSetPath::cmdCancel_Click() {
    ui->cmdFocus->setFocus();
    close();
}

}  // namespace marlowick
