#include "wardrobe/frmEditSim.h"

#include <QTabBar>
#include <array>

#include "catalogue/frmSelectSkin.h"
#include "catalogue/skin_image.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "iff/safe_rewrite.h"
#include "system/files.h"
#include "ui_frmEditSim.h"
#include "wardrobe/default_names.h"
#include "wardrobe/editor_parts_view.h"
#include "wardrobe/frmENS.h"
#include "wardrobe/user_backup.h"
#include "wardrobe/user_file_save.h"
#include "wardrobe/wardrobe_rows.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kWindowHeight = 506;

// The order in which the outfits' pictures are filled.
constexpr Outfit kPictureOrder[] = {Outfit::Normal,  Outfit::Swimsuit, Outfit::Formal,
                                    Outfit::Pajamas, Outfit::Winter,   Outfit::Fashion,
                                    Outfit::Nude};

}  // namespace

// Change commands: the chooser's reply goes into the fields and the picture of a slot.
struct frmEditSim::ChangeCommand {
    Outfit outfit;
    const char* button;
    const char* event;
};

const frmEditSim::ChangeCommand frmEditSim::kChangeCommands[] = {
    {Outfit::Normal, "cmdChangeNormal", "cmdChangeNormal_Click"},
    {Outfit::Swimsuit, "cmdChangeSwimsuit", "cmdChangeSwimsuit_Click"},
    {Outfit::Formal, "cmdChangeFormal", "cmdChangeFormal_Click"},
    {Outfit::Pajamas, "cmdChangePajamas", "cmdChangePajamas_Click"},
    {Outfit::Winter, "cmdChangeWinter", "cmdChangeWinter_Click"},
    {Outfit::Fashion, "cmdChangeFashion", "cmdChangeFashion_Click"},
};

struct frmEditSim::HandChange {
    Field field;
    const char* picture;
    const char* button;
    const char* event;
};

using F = WardrobeFields;

const frmEditSim::HandChange frmEditSim::kHandChanges[] = {
    {&F::txtHandClosedLeft, "picHandClosedLeft", "cmdleftClosedHand", "cmdleftClosedHand_Click"},
    {&F::txtHandClosedRight, "picHandClosedRight", "cmdRightClosedHand",
     "cmdRightClosedHand_Click"},
    {&F::txtHandOpenLeft, "picHandOpenLeft", "cmdLeftOpenHand", "cmdLeftOpenHand_Click"},
    {&F::txtHandOpenRight, "picHandOpenRight", "cmdRightOpenHand", "cmdRightOpenHand_Click"},
    {&F::txtHandPointLeft, "picHandPointLeft", "cmdLeftPointHand", "cmdLeftPointHand_Click"},
    {&F::txtHandPointRight, "picHandPointRight", "cmdRightPointHand", "cmdRightPointHand_Click"},
    {&F::txtHandFormalLeft, "picHandFormalLeft", "cmdLeftFormalHand", "cmdLeftFormalHand_Click"},
    {&F::txtHandFormalRight, "picHandFormalRight", "cmdRightFormalHand",
     "cmdRightFormalHand_Click"},
};

// Default commands. Their pictures come from folders alone, never from archives.
struct frmEditSim::DefaultCommand {
    Outfit outfit;
    bool inThirdPack;  // the folder of the third expansion pack is tried too
    const char* button;
    const char* event;
    const char* prompt;
};

const frmEditSim::DefaultCommand frmEditSim::kDefaultCommands[] = {
    {Outfit::Swimsuit, true, "cmdDefaultSwimsuit", "cmdDefaultSwimsuit_Click",
     "Restore swimsuit to the default?"},
    {Outfit::Formal, true, "cmdDefaultFormal", "cmdDefaultFormal_Click",
     "Restore formal to the default?"},
    {Outfit::Pajamas, true, "cmdDefaultPajamas", "cmdDefaultPajamas_Click",
     "Restore pajamas to the default?"},
    {Outfit::Winter, false, "cmdDefaultWinter", "cmdDefaultWinter_Click",
     "Restore winter clothes to the default?"},
};

// The four poses. A Default command fetches the pictures of shownPose, which for closed and
// pointing hands is the other one: the pose itself shows its old skin until the window is opened
// again.
struct frmEditSim::HandPair {
    HandPose pose;
    HandPose shownPose;
    Field left;
    Field right;
    const char* leftPicture;
    const char* rightPicture;
    const char* copyButton;
    const char* copyEvent;
    const char* defaultButton;
    const char* defaultEvent;
    const char* prompt;
};

const frmEditSim::HandPair frmEditSim::kHandPairs[] = {
    {HandPose::Closed, HandPose::Point, &F::txtHandClosedLeft, &F::txtHandClosedRight,
     "picHandClosedLeft", "picHandClosedRight", "cmdCopyLeftClosed", "cmdCopyLeftClosed_Click",
     "cmdDefClosedHands", "cmdDefClosedHands_Click", "Restore closed hands to the default?"},
    {HandPose::Open, HandPose::Open, &F::txtHandOpenLeft, &F::txtHandOpenRight, "picHandOpenLeft",
     "picHandOpenRight", "cmdCopyOpenLeft", "cmdCopyOpenLeft_Click", "cmdDefOpenHands",
     "cmdDefOpenHands_Click", "Restore open hands to the default?"},
    {HandPose::Point, HandPose::Closed, &F::txtHandPointLeft, &F::txtHandPointRight,
     "picHandPointLeft", "picHandPointRight", "cmdCopyPointLeft", "cmdCopyPointLeft_Click",
     "cmdDefPointHands", "cmdDefPointHands_Click", "Restore point hands to the default?"},
    {HandPose::Formal, HandPose::Formal, &F::txtHandFormalLeft, &F::txtHandFormalRight,
     "picHandFormalLeft", "picHandFormalRight", "cmdCopyFormalLeft", "cmdCopyFormalLeft_Click",
     "cmdDefFormalHands", "cmdDefFormalHands_Click", "Restore formal hands to the default?"},
};

frmEditSim::frmEditSim() : ModalForm("frmEditSim"), ui(std::make_unique<Ui::frmEditSim>()) {}

frmEditSim::~frmEditSim() = default;

void frmEditSim::buildControls() {
    ui->setupUi(this);
    userFile_ = {};
    wardrobe_ = {};
    fields_ = {};
    loaded_ = false;
    setEscapeButton(ui->cmdCancel);
    ui->optFit->setChecked(true);
    ui->tabSkins->tabBar()->setAccessibleName(ui->tabSkins->accessibleName());
    makeStockPictures();
    connectOutfitCommands();
    connectHandCommands();
    connectBodyTypes();
    onClick(ui->cmdEnsLoad, "cmdEnsLoad_Click", [this] { cmdEnsLoad_Click(); });
    onClick(ui->cmdEnsSave, "cmdEnsSave_Click", [this] { cmdEnsSave_Click(); });
    onClick(ui->cmdSave, "cmdSave_Click", [this] { cmdSave_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] {
        takeFocus();
        close();
    });
}

void frmEditSim::makeStockPictures() {
    ui->picNotFound->setPicture(notFoundCard());
    ui->picChild->setPicture(wordCard(
        {256, 256}, QStringLiteral("Child sims do not have formal or high fashion skins."), 16));
    ui->picWebNotFound->setPicture(webNotFoundCard());
    ui->picNoBitmaps->setPicture(noBitmapsCard());
    ui->picHandNotFound->setPicture(wordCard({64, 64}, QStringLiteral("Skin not found"), 11));
}

void frmEditSim::connectOutfitCommands() {
    for (const ChangeCommand& command : kChangeCommands) {
        onClick(findChild<QAbstractButton*>(QString::fromLatin1(command.button)), command.event,
                [this, &command] { changeOutfit(command); });
    }
    for (const DefaultCommand& command : kDefaultCommands) {
        onClick(findChild<QAbstractButton*>(QString::fromLatin1(command.button)), command.event,
                [this, &command] { defaultOutfit(command); });
    }
}

void frmEditSim::connectHandCommands() {
    for (const HandChange& command : kHandChanges) {
        onClick(findChild<QAbstractButton*>(QString::fromLatin1(command.button)), command.event,
                [this, &command] { changeHand(command); });
    }
    for (const HandPair& pair : kHandPairs) {
        onClick(findChild<QAbstractButton*>(QString::fromLatin1(pair.copyButton)), pair.copyEvent,
                [this, &pair] { copyLeftHand(pair); });
        onClick(findChild<QAbstractButton*>(QString::fromLatin1(pair.defaultButton)),
                pair.defaultEvent, [this, &pair] { defaultHands(pair); });
    }
    onClick(ui->cmdNormalFormalHands, "cmdNormalFormalHands_Click",
            [this] { cmdNormalFormalHands_Click(); });
}

void frmEditSim::connectBodyTypes() {
    const std::array<QRadioButton*, 3> options = {ui->optFit, ui->optFat, ui->optSkinny};
    for (std::size_t i = 0; i < options.size(); ++i) {
        connect(options.at(i), &QRadioButton::toggled, this, [this, i](bool checked) {
            if (checked) {
                fields_.bodyType = static_cast<BodyType>(i);
            }
        });
    }
}

PictureBox& frmEditSim::picture(const char* name) const {
    return *findChild<PictureBox*>(QString::fromLatin1(name));
}

void frmEditSim::takeFocus() {
    ui->cmdFocus->setFocus();
}

// Loading and showing.

void frmEditSim::Form_Load() {
    resize(width(), kWindowHeight);
    msLoadUserData();
}

void frmEditSim::Form_Activate() {
    setPointer(Pointer::Default);
}

void frmEditSim::msLoadUserData() {
    gstrUserFile = LoadUserFile;
    msClearUserData();
    const bool read = gsReadIFF(userFile_, gstrUserFile);
    const bool parsed = readWardrobeTable(userFile_, wardrobe_);
    const bool shown = msDisplayUserData();
    loaded_ = read && parsed && shown;
}

void frmEditSim::msClearUserData() {
    gsResetIFF(userFile_);
    wardrobe_.Entries.reset();
    for (PictureBox* portrait : {ui->picWebImage, ui->picFaces, ui->picRelImages}) {
        portrait->clear();
    }
    fields_.txtName.clear();
    fields_.txtGender.clear();
    fields_.txtAge.clear();
    fields_.txtSkinTone.clear();
    ui->tabSkins->setCurrentIndex(0);
    // Of the three names only the second is one that the portraits are loaded from: the others of
    // an earlier sim stay until a new file brings pictures of those names.
    for (const char* name : {"\\webimage.bmp", "\\faces.bmp", "\\rel. images.bmp"}) {
        ignoringErrors([&] { removeIfPresent(ProgramFolder + name); });
    }
}

bool frmEditSim::msDisplayUserData() {
    const InputGuard guard;
    bool unpacked = false;
    const bool shown = trapped("frmEditSim", "msDisplayUserData", [&] {
        readWardrobe(wardrobe_, fields_);
        unpacked = gsDumpBMPs(userFile_);
        CheckpointNumber = 3000;
        showPortraits();
        setPointer(Pointer::Hourglass);
        CheckpointNumber = 4000;
        readSimName(userFile_, fields_);
        readPerson(wardrobe_, fields_);
        showPictures(true);
        setPointer(Pointer::Default);
    });
    showFields();
    return shown && unpacked;
}

void frmEditSim::showPortraits() {
    showPortrait({ui->picWebImage, "\\web_image.BMP", ui->picWebNotFound});
    showPortrait({ui->picFaces, "\\faces.BMP", ui->picWebNotFound});
    showPortrait({ui->picRelImages, "\\relimages.BMP", ui->picNoBitmaps});
}

void frmEditSim::showFields() {
    for (const NamedField& field : kNamedFields) {
        auto* box = findChild<QLineEdit*>(QString::fromLatin1(field.name));
        box->setText(toDisplay(fields_.*field.field));
        box->setCursorPosition(0);
        box->setToolTip(toToolTip(box->text()));
    }
    const std::array<QRadioButton*, 3> options = {ui->optFit, ui->optFat, ui->optSkinny};
    options.at(static_cast<std::size_t>(fields_.bodyType))->setChecked(true);
}

void frmEditSim::showSkin(const char* name, const std::string& skin) {
    PictureBox& box = picture(name);
    box.setPicture(ui->picNotFound->picture());
    gsFetchSkinImage(box, skin);
}

void frmEditSim::showPictures(bool childCards) {
    for (const Outfit outfit : kPictureOrder) {
        const OutfitSlot& slot = outfitSlot(outfit);
        if (childCards && slot.adultsOnly && !fields_.isAdult()) {
            picture(slot.picture).setPicture(ui->picChild->picture());
        } else {
            showSkin(slot.picture, fields_.*slot.skin);
        }
    }
    for (const HandSlot& hand : kHandSlots) {
        showSkin(hand.picture, fields_.*hand.field);
    }
}

void frmEditSim::showChoice(const char* name) {
    PictureBox& box = picture(name);
    box.setPicture(ui->picNotFound->picture());
    showChosenSkin(box, *this);
}

// Commands on outfits.

// The body type comes from the options, so that a person may pick a body of another type.
void frmEditSim::changeOutfit(const ChangeCommand& command) {
    trapped("frmEditSim", command.event, [&] {
        CheckpointNumber = 1000;
        takeFocus();
        const OutfitSlot& slot = outfitSlot(command.outfit);
        if (slot.adultsOnly && !fields_.isAdult()) {
            return;
        }
        auto& chooser = theWindow<frmSelectSkin>();
        chooser.SkinData = skinRequest(fields_, wardrobe_, slot.letter);
        chooser.HandMode = false;
        chooser.SelectMode = kSelectSimSkin;
        chooser.choose(*this);
        if (SelectedSkin.empty()) {
            return;
        }
        CheckpointNumber = 3000;
        const std::size_t comma = SelectedSkin.find(',');
        fields_.*slot.body = SelectedSkin.substr(0, comma);
        fields_.*slot.skin = SelectedSkin.substr(comma + 1);
        showFields();
        CheckpointNumber = 4000;
        showChoice(slot.picture);
    });
}

void frmEditSim::defaultOutfit(const DefaultCommand& command) {
    takeFocus();
    if (!confirmAction(QString::fromLatin1(command.prompt) + QStringLiteral("\r\nAre You Sure?"))) {
        return;
    }
    setDefaultOutfit(command.outfit, wardrobe_, fields_);
    showFields();
    const OutfitSlot& slot = outfitSlot(command.outfit);
    PictureBox& box = picture(slot.picture);
    box.setPicture(ui->picNotFound->picture());
    for (const SkinFolder folder : skinFolders()) {
        const bool tried = command.inThirdPack || folder != SkinFolder::Expansion3;
        if (tried && ignoringErrors([&] {
                box.load(skinFolder(folder).child(fields_.*slot.skin + ".bmp"));
            })) {
            return;
        }
    }
}

// Commands on hands.

void frmEditSim::changeHand(const HandChange& command) {
    trapped("frmEditSim", command.event, [&] {
        takeFocus();
        auto& chooser = theWindow<frmSelectSkin>();
        chooser.HandMode = true;
        chooser.SelectMode = kSelectHand;
        chooser.choose(*this);
        if (SelectedSkin.empty()) {
            return;
        }
        fields_.*command.field = SelectedSkin;
        showFields();
        showChoice(command.picture);
    });
}

void frmEditSim::copyLeftHand(const HandPair& pair) {
    takeFocus();
    fields_.*pair.right = fields_.*pair.left;
    showFields();
    picture(pair.rightPicture).setPicture(picture(pair.leftPicture).picture());
}

void frmEditSim::defaultHands(const HandPair& pair) {
    takeFocus();
    if (!confirmAction(QString::fromLatin1(pair.prompt) + QStringLiteral("\nAre You Sure?"))) {
        return;
    }
    const std::string hand = defaultHand(pair.pose, wardrobe_, fields_);
    fields_.*pair.left = hand;
    fields_.*pair.right = hand;
    showFields();
    for (const HandPair& shown : kHandPairs) {
        if (shown.pose == pair.shownPose) {
            showSkin(shown.leftPicture, fields_.*shown.left);
            showSkin(shown.rightPicture, fields_.*shown.right);
        }
    }
}

void frmEditSim::cmdNormalFormalHands_Click() {
    trapped("frmEditSim", "cmdNormalFormalHands_Click", [&] {
        takeFocus();
        if (!confirmAction(QStringLiteral("Formal hands are the same as normal\n"
                                          "hands if the formal hands' string is\n"
                                          "left blank. This is the default for \n"
                                          "male sims.\n"
                                          "\n"
                                          "Change formal hands to normal?\n"
                                          "Are You Sure?"))) {
            return;
        }
        fields_.txtHandFormalLeft.clear();
        fields_.txtHandFormalRight.clear();
        showFields();
        ui->picHandFormalLeft->setPicture(ui->picHandNotFound->picture());
        ui->picHandFormalRight->setPicture(ui->picHandFormalLeft->picture());
    });
}

// Ensembles.

void frmEditSim::cmdEnsSave_Click() {
    takeFocus();
    auto& ensembles = theWindow<frmENS>();
    ensembles.mode = kEnsembleSave;
    ensembles.showFor(fields_);
}

// All pictures are shown anew, also after Cancel; a child's adult outfits then show the fields.
void frmEditSim::cmdEnsLoad_Click() {
    takeFocus();
    auto& ensembles = theWindow<frmENS>();
    ensembles.mode = kEnsembleLoad;
    ensembles.showFor(fields_);
    showFields();
    const InputGuard guard;
    setPointer(Pointer::Hourglass);
    showPictures(false);
    setPointer(Pointer::Default);
}

// Saving.

void frmEditSim::cmdSave_Click() {
    trapped("frmEditSim", "cmdSave_Click", [&] {
        CheckpointNumber = 1000;
        takeFocus();
        if (fields_.txtName.empty() || !loaded_) {
            return;
        }
        if (!saveWanted(fields_.txtName)) {
            return;
        }
        writeWardrobe(fields_, wardrobe_);
        if (saveUserFile({gstrUserFile, userFile_, wardrobe_, fields_.txtName, writeUserTemp,
                          BackupWanted})) {
            tellSaved(fields_.txtName);
            close();
        }
    });
}

}  // namespace marlowick
