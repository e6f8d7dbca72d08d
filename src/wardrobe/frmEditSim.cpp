#include "wardrobe/frmEditSim.h"

#include <QTabBar>
#include <utility>

#include "catalogue/frmSelectSkin.h"
#include "catalogue/skin_image.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "iff/proven_rewrite.h"
#include "preview/worn_options_view.h"
#include "system/files.h"
#include "ui_frmEditSim.h"
#include "wardrobe/default_names.h"
#include "wardrobe/editor_parts_view.h"
#include "wardrobe/frmENS.h"
#include "wardrobe/frmHistory.h"
#include "wardrobe/user_backup.h"
#include "wardrobe/user_file_save.h"
#include "wardrobe/wardrobe_rows.h"
#include "wardrobe/worn_outfit.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/running_game_messages.h"
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
};

const frmEditSim::ChangeCommand frmEditSim::kChangeCommands[] = {
    {Outfit::Normal, "cmdChangeNormal"}, {Outfit::Swimsuit, "cmdChangeSwimsuit"},
    {Outfit::Formal, "cmdChangeFormal"}, {Outfit::Pajamas, "cmdChangePajamas"},
    {Outfit::Winter, "cmdChangeWinter"}, {Outfit::Fashion, "cmdChangeFashion"},
};

// Default commands. Their pictures come from folders alone, never from archives.
struct frmEditSim::DefaultCommand {
    Outfit outfit;
    bool inThirdPack;  // the folder of the third expansion pack is tried too
    const char* button;
    const char* prompt;
};

const frmEditSim::DefaultCommand frmEditSim::kDefaultCommands[] = {
    {Outfit::Swimsuit, true, "cmdDefaultSwimsuit", "Restore swimsuit to the default?"},
    {Outfit::Formal, true, "cmdDefaultFormal", "Restore formal to the default?"},
    {Outfit::Pajamas, true, "cmdDefaultPajamas", "Restore pajamas to the default?"},
    {Outfit::Winter, false, "cmdDefaultWinter", "Restore winter clothes to the default?"},
};

frmEditSim::frmEditSim() : ModalForm("frmEditSim"), ui(std::make_unique<Ui::frmEditSim>()) {}

frmEditSim::~frmEditSim() = default;

void frmEditSim::buildControls() {
    ui->setupUi(this);
    userFile_ = {};
    loaded_ = {};
    loadedBytes_.clear();
    wardrobe_ = {};
    fields_ = {};
    setEscapeButton(ui->cmdCancel);
    ui->optFit->setChecked(true);
    ui->tabSkins->tabBar()->setAccessibleName(ui->tabSkins->accessibleName());
    makeStockPictures();
    makeWornOptions();
    connectOutfitCommands();
    connectHandCommands();
    connectBodyTypes();
    onButton("cmdEnsLoad", [this] { cmdEnsLoad_Click(); });
    onButton("cmdEnsSave", [this] { cmdEnsSave_Click(); });
    onButton("cmdHistory", [this] { cmdHistory_Click(); });
    onButton("cmdSave", [this] { cmdSave_Click(); });
    onButton("cmdCancel", [this] {
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

void frmEditSim::makeWornOptions() {
    wornOptions_ = new WornOptions(this);
    ui->tabSkins->setCornerWidget(wornOptions_);
    wornOptions_->putBehind(ui->tabSkins->tabBar());
    connect(wornOptions_, &WornOptions::switched, this,
            [this] { runEvent("frmEditSim", "optWorn_Click", [this] { showWorn(); }); });
    connect(ui->tabSkins, &QTabWidget::currentChanged, this,
            [this] { runEvent("frmEditSim", "tabSkins_Click", [this] { showWorn(); }); });
}

void frmEditSim::connectOutfitCommands() {
    for (const ChangeCommand& command : kChangeCommands) {
        onButton(command.button, [this, &command] { changeOutfit(command); });
    }
    for (const DefaultCommand& command : kDefaultCommands) {
        onButton(command.button, [this, &command] { defaultOutfit(command); });
    }
}

void frmEditSim::connectHandCommands() {
    for (const HandPair& pair : kHandPairs) {
        for (const Hand* hand : {&pair.left, &pair.right}) {
            onButton(hand->changeButton, [this, hand] { changeHand(*hand); });
        }
        onButton(pair.copyButton, [this, &pair] { copyLeftHand(pair); });
        onButton(pair.defaultButton, [this, &pair] { defaultHands(pair); });
    }
    onButton("cmdNormalFormalHands", [this] { cmdNormalFormalHands_Click(); });
}

void frmEditSim::connectBodyTypes() {
    for (const BodyTypeOption& choice : kBodyTypes) {
        connect(option(choice), &QRadioButton::toggled, this, [this, &choice](bool checked) {
            if (checked) {
                fields_.bodyType = choice.type;
            }
        });
    }
}

void frmEditSim::onButton(const char* button, std::function<void()> command) {
    onClick(findChild<QAbstractButton*>(QString::fromLatin1(button)),
            std::string(button) + "_Click", std::move(command));
}

QRadioButton* frmEditSim::option(const BodyTypeOption& choice) const {
    return findChild<QRadioButton*>(QString::fromLatin1(choice.button));
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
    showWorn();
}

void frmEditSim::Form_Activate() {
    setPointer(Pointer::Default);
    if (wornOptions_->readSetting()) {
        showWorn();
    }
}

void frmEditSim::msLoadUserData() {
    gstrUserFile = LoadUserFile;
    msClearUserData();
    loadFailure_ =
        firstFailure({[this] { return gsReadIFF(userFile_, gstrUserFile, &loadedBytes_); },
                      [this] { return readWardrobeTable(userFile_, wardrobe_); },
                      [this] {
                          loaded_ = userFile_;
                          return true;
                      },
                      [this] { return msDisplayUserData(); }});
    loadedFields_ = fields_;
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
        showPortraits({{ui->picWebImage, ui->picWebNotFound},
                       {ui->picFaces, ui->picWebNotFound},
                       {ui->picRelImages, ui->picNoBitmaps}});
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

void frmEditSim::showFields() {
    for (const NamedField& field : kNamedFields) {
        auto* box = findChild<QLineEdit*>(QString::fromLatin1(field.name));
        box->setText(toDisplay(fields_.*field.field));
        box->setCursorPosition(0);
        box->setToolTip(toToolTip(box->text()));
    }
    option(bodyTypeOption(fields_.bodyType))->setChecked(true);
}

void frmEditSim::showSkin(const char* name, const std::string& skin, SkinImages& images) {
    PictureBox& box = picture(name);
    box.setPicture(ui->picNotFound->picture());
    images.fetch(box, skin);
}

void frmEditSim::showPictures(bool childCards) {
    SkinImages images;
    for (const Outfit outfit : kPictureOrder) {
        const OutfitSlot& slot = outfitSlot(outfit);
        if (childCards && slot.adultsOnly && !fields_.isAdult()) {
            picture(slot.picture).setPicture(ui->picChild->picture());
        } else {
            showSkin(slot.picture, fields_.*slot.skin, images);
        }
    }
    for (const HandPair& pair : kHandPairs) {
        showHands(pair, images);
    }
}

void frmEditSim::showHands(const HandPair& pair, SkinImages& images) {
    for (const Hand& hand : {pair.left, pair.right}) {
        showSkin(hand.picture, fields_.*hand.field, images);
    }
}

void frmEditSim::showWorn() {
    const auto tab = static_cast<std::size_t>(ui->tabSkins->currentIndex());
    const bool isOutfit = tab < kOutfitSlots.size();
    wornOptions_->setVisible(isOutfit);
    if (isOutfit) {
        const OutfitSlot& slot = kOutfitSlots.at(tab);
        wornOptions_->show(picture(slot.picture), wornOutfit(fields_, wardrobe_, slot.outfit));
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
    CheckpointNumber = 1000;
    takeFocus();
    const OutfitSlot& slot = outfitSlot(command.outfit);
    if (slot.adultsOnly && !fields_.isAdult()) {
        return;
    }
    CheckpointNumber = 2000;
    auto& chooser = theWindow<frmSelectSkin>();
    chooser.SkinData = skinRequest(fields_, wardrobe_, slot.letter);
    chooser.HandMode = false;
    chooser.SelectMode = kSelectSimSkin;
    chooser.WornBy = wearerOf(fields_, wardrobe_, slot.outfit);
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
    try {
        showChoice(slot.picture);
    } catch (...) {
        showWorn();
        throw;
    }
    showWorn();
}

void frmEditSim::defaultOutfit(const DefaultCommand& command) {
    takeFocus();
    if (!confirmChange(QString::fromLatin1(command.prompt), QStringLiteral("\r\n"))) {
        return;
    }
    setDefaultOutfit(command.outfit, wardrobe_, fields_);
    showFields();
    showDefault(command);
    showWorn();
}

void frmEditSim::showDefault(const DefaultCommand& command) {
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

void frmEditSim::changeHand(const Hand& hand) {
    takeFocus();
    auto& chooser = theWindow<frmSelectSkin>();
    chooser.HandMode = true;
    chooser.SelectMode = kSelectHand;
    chooser.choose(*this);
    if (SelectedSkin.empty()) {
        return;
    }
    fields_.*hand.field = SelectedSkin;
    showFields();
    showChoice(hand.picture);
}

void frmEditSim::copyLeftHand(const HandPair& pair) {
    takeFocus();
    fields_.*pair.right.field = fields_.*pair.left.field;
    showFields();
    picture(pair.right.picture).setPicture(picture(pair.left.picture).picture());
}

void frmEditSim::defaultHands(const HandPair& pair) {
    takeFocus();
    if (!confirmChange(QString::fromLatin1(pair.defaultPrompt))) {
        return;
    }
    const std::string hand = defaultHand(pair.pose, wardrobe_, fields_);
    fields_.*pair.left.field = hand;
    fields_.*pair.right.field = hand;
    showFields();
    SkinImages images;
    showHands(handPair(pair.fetchedPose), images);
}

void frmEditSim::cmdNormalFormalHands_Click() {
    takeFocus();
    if (!confirmChange(QStringLiteral("Formal hands are the same as normal\n"
                                      "hands if the formal hands' string is\n"
                                      "left blank. This is the default for \n"
                                      "male sims.\n"
                                      "\n"
                                      "Change formal hands to normal?"))) {
        return;
    }
    fields_.txtHandFormalLeft.clear();
    fields_.txtHandFormalRight.clear();
    showFields();
    ui->picHandFormalLeft->setPicture(ui->picHandNotFound->picture());
    ui->picHandFormalRight->setPicture(ui->picHandFormalLeft->picture());
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
    showWorn();
    setPointer(Pointer::Default);
}

// Earlier versions.

void frmEditSim::cmdHistory_Click() {
    takeFocus();
    showEarlierVersions(*this, {gstrUserFile, [this] { return mayDropChanges(); },
                                [this] {
                                    msLoadUserData();
                                    showWorn();
                                }});
}

// The body type isn't saved, and so nothing that could be lost.
bool frmEditSim::mayDropChanges() const {
    WardrobeFields loaded = loadedFields_;
    loaded.bodyType = fields_.bodyType;
    return loaded == fields_ || mayDropChangesOf(fields_.txtName);
}

// Saving.

void frmEditSim::cmdSave_Click() {
    CheckpointNumber = 1000;
    takeFocus();
    if (!loadFailure_.empty()) {
        tellNotSaved(gstrUserFile, loadFailure_);
        return;
    }
    if (fields_.txtName.empty() || !saveWanted(fields_.txtName) || !mayWriteNow()) {
        return;
    }
    if (isChangedSince(gstrUserFile, loadedBytes_) && !maySaveOver(gstrUserFile)) {
        return;
    }
    writeWardrobe(fields_, wardrobe_);
    if (save()) {
        tellSaved(fields_.txtName);
        close();
    }
}

bool frmEditSim::save() {
    HistoryCommand command(earlierVersions(), "Save", nameForHistory(loaded_), mayGoOnWithout);
    return saveUserFile({gstrUserFile, loaded_, userFile_, wardrobe_, fields_.txtName,
                         SavedParts::All, BackupWanted, command});
}

}  // namespace marlowick
