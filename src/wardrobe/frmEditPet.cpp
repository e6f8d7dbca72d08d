#include "wardrobe/frmEditPet.h"

#include "catalogue/frmSelectSkin.h"
#include "catalogue/skin_image.h"
#include "foundation/error_trap.h"
#include "iff/proven_rewrite.h"
#include "preview/worn_options_view.h"
#include "ui_frmEditPet.h"
#include "wardrobe/editor_parts_view.h"
#include "wardrobe/frmHistory.h"
#include "wardrobe/user_file_save.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"
#include "widgets/running_game_messages.h"

namespace marlowick {
namespace {

constexpr QSize kWindowSize(470, 450);
constexpr int kFontPixels = 10;  // every caption fits its place in it
// Beside the label of the picture.
constexpr QRect kWornOptions(100, 161, 169, 17);

}  // namespace

frmEditPet::frmEditPet() : ModalForm("frmEditPet"), ui(std::make_unique<Ui::frmEditPet>()) {}

frmEditPet::~frmEditPet() = default;

void frmEditPet::buildControls() {
    QFont small = font();
    small.setPixelSize(kFontPixels);
    setFont(small);
    ui->setupUi(this);
    PetFile = {};
    loaded_ = {};
    loadedBytes_.clear();
    PetStrings = {};
    fields_ = {};
    setEscapeButton(ui->cmdCancel);
    ui->picNotFound->setPicture(notFoundCard());
    ui->picWebNotFound->setPicture(webNotFoundCard());
    ui->picNoBitmaps->setPicture(noBitmapsCard());
    makeWornOptions();
    onClick(ui->cmdChangeNormal, "cmdChangeNormal_Click", [this] { cmdChangeNormal_Click(); });
    onClick(ui->cmdHistory, "cmdHistory_Click", [this] { cmdHistory_Click(); });
    onClick(ui->cmdSave, "cmdSave_Click", [this] { cmdSave_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] {
        ui->cmdFocus->setFocus();
        close();
    });
}

void frmEditPet::Form_Load() {
    setFixedSize(kWindowSize);
    UserFilePath = LoadUserFile;
    loadPet();
}

void frmEditPet::loadPet() {
    gsResetIFF(PetFile);
    loadFailure_ = firstFailure({[this] { return gsReadIFF(PetFile, UserFilePath, &loadedBytes_); },
                                 [this] { return readWardrobeTable(PetFile, PetStrings); },
                                 [this] {
                                     loaded_ = PetFile;
                                     return true;
                                 },
                                 [this] { return msDisplayPet(); }});
    loadedFields_ = fields_;
    showWorn();
}

void frmEditPet::Form_Activate() {
    setPointer(Pointer::Default);
    ui->cmdFocus->setFocus();
    if (wornOptions_->readSetting()) {
        showWorn();
    }
}

void frmEditPet::makeWornOptions() {
    wornOptions_ = new WornOptions(this);
    wornOptions_->setGeometry(kWornOptions);
    wornOptions_->makeSmall();
    wornOptions_->putBehind(ui->txtNormalSkin);
    connect(wornOptions_, &WornOptions::switched, this,
            [this] { runEvent("frmEditPet", "optWorn_Click", [this] { showWorn(); }); });
}

Wearer frmEditPet::wearer() const {
    return {
        PetStrings.Entries.bound() > 0 ? PetStrings.Entries[1].Text : std::string(), {}, {}, {}};
}

void frmEditPet::showWorn() {
    const SuitAndSkin coat{fields_.txtNormalBody, fields_.txtNormalSkin};
    const std::optional<SuitAndSkin> worn = clothes(coat, coat);
    wornOptions_->show(*ui->picNormal,
                       worn ? std::optional(wornBy(wearer(), *worn)) : std::nullopt);
}

bool frmEditPet::msDisplayPet() {
    const InputGuard guard;
    bool unpacked = false;
    const bool shown = trapped("frmEditSim", "msDisplayUserData", [&] {
        readPet(PetStrings, fields_);
        unpacked = gsDumpBMPs(PetFile);
        CheckpointNumber = 3000;
        showPortraits({{ui->picWebImage, ui->picWebNotFound},
                       {ui->picFaces, ui->picWebNotFound},
                       {ui->picRelImages, ui->picNoBitmaps}});
        CheckpointNumber = 4000;
        readPetName(PetFile, fields_);
        ui->picNormal->setPicture(ui->picNotFound->picture());
        gsFetchSkinImage(*ui->picNormal, fields_.txtNormalSkin);
    });
    showFields();
    return shown && unpacked;
}

void frmEditPet::showFields() {
    struct Box {
        QLineEdit* box;
        const std::string& text;
    };
    const Box boxes[] = {
        {ui->txtName, fields_.txtName},
        {ui->txtType, fields_.txtType},
        {ui->txtGender, fields_.txtGender},
        {ui->txtNormalBody, fields_.txtNormalBody},
        {ui->txtNormalSkin, fields_.txtNormalSkin},
    };
    for (const Box& row : boxes) {
        row.box->setText(toDisplay(row.text));
        row.box->setCursorPosition(0);
        row.box->setToolTip(toToolTip(row.box->text()));
    }
}

// Unlike the sim's window, a choice that can't be shown leaves the old picture.
void frmEditPet::cmdChangeNormal_Click() {
    trapped("frmEditSim", "cmdChangeNormal_Click", [&] {
        CheckpointNumber = 1000;
        ui->cmdFocus->setFocus();
        auto& chooser = theWindow<frmSelectSkin>();
        chooser.SkinData = fields_.txtType;
        chooser.HandMode = false;
        chooser.SelectMode = kSelectPetSkin;
        chooser.WornBy = wearer();
        chooser.choose(*this);
        if (SelectedSkin.empty()) {
            return;
        }
        CheckpointNumber = 3000;
        const std::size_t comma = SelectedSkin.find(',');
        fields_.txtNormalBody = SelectedSkin.substr(0, comma);
        fields_.txtNormalSkin = SelectedSkin.substr(comma + 1);
        showFields();
        CheckpointNumber = 4000;
        showChosenSkin(*ui->picNormal, *this);
        showWorn();
    });
}

void frmEditPet::cmdHistory_Click() {
    ui->cmdFocus->setFocus();
    showEarlierVersions(
        *this, {UserFilePath,
                [this] { return fields_ == loadedFields_ || mayDropChangesOf(fields_.txtName); },
                [this] { loadPet(); }});
}

void frmEditPet::cmdSave_Click() {
    trapped("frmEditSim", "cmdSave_Click", [&] {
        CheckpointNumber = 1000;
        ui->cmdFocus->setFocus();
        if (!loadFailure_.empty()) {
            tellNotSaved(UserFilePath, loadFailure_);
            return;
        }
        if (fields_.txtName.empty() || !saveWanted(fields_.txtName) || !mayWriteNow()) {
            return;
        }
        if (isChangedSince(UserFilePath, loadedBytes_) && !maySaveOver(UserFilePath)) {
            return;
        }
        writePet(fields_, PetStrings);
        if (save()) {
            tellSaved(fields_.txtName);
            close();
        }
    });
}

bool frmEditPet::save() {
    HistoryCommand command(earlierVersions(), "Save pet", nameForHistory(loaded_), mayGoOnWithout);
    return saveUserFile({UserFilePath, loaded_, PetFile, PetStrings, fields_.txtName,
                         SavedParts::WithoutBitmaps, BackupWanted, command});
}

}  // namespace marlowick
