#include "far/frmOpenFAR.h"

#include <string>
#include <vector>

#include "far/frmManageFARs.h"
#include "foundation/folders.h"
#include "system/files.h"
#include "ui_frmOpenFAR.h"

namespace marlowick {

frmOpenFAR::frmOpenFAR() : ModalForm("frmOpenFAR"), ui(std::make_unique<Ui::frmOpenFAR>()) {}

frmOpenFAR::~frmOpenFAR() = default;

void frmOpenFAR::buildControls() {
    ui->setupUi(this);
    setEscapeButton(ui->cmdCancel);
    onClick(ui->cmdSelect, "cmdSelect_Click", [this] { cmdSelect_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] { close(); });
    connect(ui->lstFiles, &QListWidget::itemDoubleClicked, this,
            [this] { runEvent("frmOpenFAR", "lstFiles_DblClick", [this] { cmdSelect_Click(); }); });
}

void frmOpenFAR::Form_Load() {
    // One whose name can't be opened isn't offered.
    std::vector<std::string> archives = searchFiles(texturesFolder(), "*.far");
    std::erase_if(archives, [](const std::string& name) { return !isFileName(name); });
    ui->lstFiles->setLines(archives);
}

void frmOpenFAR::cmdSelect_Click() {
    if (ui->lstFiles->selectedItems().isEmpty()) {
        return;
    }
    theWindow<frmManageFARs>().OpenFile = texturesFolder().child(ui->lstFiles->line());
    close();
}

}  // namespace marlowick
