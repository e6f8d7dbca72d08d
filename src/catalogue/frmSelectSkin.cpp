#include "catalogue/frmSelectSkin.h"

#include <algorithm>
#include <array>

#include "catalogue/model_catalogue.h"
#include "catalogue/skin_image.h"
#include "catalogue/thumbnail_page.h"
#include "catalogue/thumbnail_page_view.h"
#include "far/far_directory.h"
#include "foundation/bitmap_file.h"
#include "foundation/error_trap.h"
#include "preview/worn_options_view.h"
#include "system/runtime_error.h"
#include "system/shown_path.h"
#include "ui_frmSelectSkin.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/look.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr QSize kWindowSize(770, 549);
constexpr int kFontPixels = 10;  // every caption fits its place in it
// Beside the label of the large picture.
constexpr QRect kWornOptions(120, 226, 149, 16);
constexpr int kBlinkMilliseconds = 250;
constexpr int kThumbSize = 64;
constexpr std::size_t kExtension = 4;  // ".bmp"
constexpr int kFilesBetweenRepaints = 32;
constexpr int kBoxEdges = 12;  // what frame and margins take of a text box's width

struct Caption {
    std::int32_t mode;
    const char* request;
};

constexpr Caption kCaptions[] = {
    {kSelectHand, "Select A Hand Skin"},
    {kSelectSimSkin, "Select A Body And A Skin"},
    {kSelectPetSkin, "Select A Pet Body And A Pet Skin"},
};

const char* painterOf(SkinPage kind) {
    switch (kind) {
        case SkinPage::Skins:
            return "msFillThumbs";
        case SkinPage::Hands:
            return "msFillHandBMPs";
        case SkinPage::Archives:
            break;
    }
    return "msFillThumbsFAR";
}

}  // namespace

frmSelectSkin::frmSelectSkin()
    : ModalForm("frmSelectSkin"), ui(std::make_unique<Ui::frmSelectSkin>()) {}

frmSelectSkin::~frmSelectSkin() = default;

void frmSelectSkin::choose(ChosenSkin& reply) {
    reply.SelectedSkin.clear();
    caller_ = &reply;
    showModal();
    caller_ = nullptr;
}

void frmSelectSkin::buildControls() {
    QFont small = font();
    small.setPixelSize(kFontPixels);
    setFont(small);
    ui->setupUi(this);
    unsetCursor();
    // The picture's frame begins inside the label above it.
    ui->picSkin->raise();
    SelectedCell = 0;
    ChosenFile = {};
    ChosenIndex = 0;
    BlinkPhase = false;
    activated_ = false;
    colourPage(*ui->picThumbs);
    setEscapeButton(ui->cmdCancel);
    makeWornOptions();
    connectControls();
}

void frmSelectSkin::makeWornOptions() {
    wornOptions_ = new WornOptions(this);
    wornOptions_->setGeometry(kWornOptions);
    wornOptions_->makeSmall();
    wornOptions_->setVisible(SelectMode != kSelectHand);
    wornOptions_->putBehind(ui->txtSkinName);
    connect(wornOptions_, &WornOptions::switched, this,
            [this] { runEvent("frmSelectSkin", "optWorn_Click", [this] { showWorn(); }); });
}

void frmSelectSkin::showWorn() {
    if (SelectMode == kSelectHand) {
        return;
    }
    const std::string name = toGameText(ui->txtSkinName->text());
    const std::string model = ui->lstModels->line();
    wornOptions_->show(*ui->picSkin,
                       model.empty() ? std::nullopt : std::optional(wornBy(WornBy, {model, name})));
}

void frmSelectSkin::connectControls() {
    const std::array<QRadioButton*, 2> sources = {ui->optMode0, ui->optMode1};
    for (int index = 0; index < 2; ++index) {
        QRadioButton* source = sources.at(static_cast<std::size_t>(index));
        source->setObjectName(QStringLiteral("optMode"));
        source->setProperty("Index", index);
        useSmallMark(*source);
        connect(source, &QRadioButton::toggled, this, [this, index](bool checked) {
            if (checked) {
                runEvent("frmSelectSkin", "optMode_Click", [&] { optMode_Click(index); });
            }
        });
    }
    onClick(ui->cmdNext, "cmdNext_Click", [this] { cmdNext_Click(); });
    onClick(ui->cmdPrevious, "cmdPrevious_Click", [this] { cmdPrevious_Click(); });
    onClick(ui->cmdSelect, "cmdSelect_Click", [this] { cmdSelect_Click(); });
    onClick(ui->cmdCancel, "cmdCancel_Click", [this] { close(); });
    connect(ui->lstModels, &ClickList::lineClicked, this, [this] {
        runEvent("frmSelectSkin", "lstModels_Click", [this] { lstModels_Click(); });
    });
    connect(ui->picThumbs, &PictureBox::mouseDown, this,
            [this](QPoint position) { picThumbs_MouseDown(position); });
    connect(ui->picThumbs, &PictureBox::mouseMoved, this,
            [this](QPoint position) { picThumbs_MouseMove(position); });
    connect(ui->picThumbs, &PictureBox::arrowPressed, this, &frmSelectSkin::moveSelection);
    const auto select = [this] {
        runEvent("frmSelectSkin", "cmdSelect_Click", [this] { cmdSelect_Click(); });
    };
    connect(ui->picThumbs, &PictureBox::doubleClicked, this, select);
    connect(ui->picThumbs, &PictureBox::enterPressed, this, select);
    connect(ui->txtSkinName, &QLineEdit::textChanged, this,
            [this](const QString& name) { ui->txtSkinName->setToolTip(toToolTip(name)); });
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    connect(Timer1, &QTimer::timeout, this, &frmSelectSkin::Timer1_Timer);
    Timer1->start(kBlinkMilliseconds);
}

void frmSelectSkin::Form_Load() {
    SkinFiles.reset();
    FarSkins.reset();
    PageNumber = 0;
    FarMode = false;
    setFixedSize(kWindowSize);
}

void frmSelectSkin::Form_Activate() {
    // Reports are all that opens over this window. One that closes leaves everything as it is.
    if (activated_) {
        return;
    }
    activated_ = true;
    showCaption();
    if (SelectMode == kSelectHand) {
        ui->lblBody->hide();
        ui->lstModels->hide();
        msGetHandFileNames();
        msFillHandBMPs();
    } else {
        if (SelectMode == kSelectPetSkin) {
            msGetPetModelList();
        } else {
            msGetFilteredModelList();
        }
        msFillModelList();
        ui->picThumbs->setEmptyText(emptyPageText());
    }
    showWorn();
    if (!ui->optMode0->isChecked() && !ui->optMode1->isChecked()) {
        ui->optMode0->setChecked(true);
    }
}

void frmSelectSkin::showCaption() {
    for (const Caption& row : kCaptions) {
        if (row.mode == SelectMode) {
            setWindowTitle(QStringLiteral("Skin Selection - %1 - Looking For Skins In %2")
                               .arg(QString::fromLatin1(row.request),
                                    FarMode ? QStringLiteral("FAR Files")
                                            : QStringLiteral("The Skins Folder")));
        }
    }
}

// The lists.

void frmSelectSkin::msGetFilteredModelList() {
    trapped("frmSelectSkin", "msGetFilteredModelList",
            [&] { listPersonModels(SkinData, ModelList); });
}

void frmSelectSkin::msGetPetModelList() {
    trapped("frmSelectSkin", "msGetPetModelList", [&] { listPetModels(SkinData, ModelList); });
}

void frmSelectSkin::msFillModelList() {
    std::vector<std::string> lines;
    for (int i = 1; i <= ModelList.bound(); ++i) {
        lines.push_back(ModelList[i]);
    }
    ui->lstModels->setLines(sortedLines(std::move(lines)));
}

SkinQuery frmSelectSkin::query(const std::string& model) const {
    return {model, SkinData, SelectMode == kSelectPetSkin};
}

void frmSelectSkin::msGetSkinFileNames() {
    trapped("frmSelectSkin", "msGetSkinFileNames", [&] { listFiles(SkinPage::Skins); });
}

void frmSelectSkin::msGetHandFileNames() {
    trapped("frmSelectSkin", "msGetHandFileNames", [&] { listFiles(SkinPage::Hands); });
}

void frmSelectSkin::listFiles(SkinPage kind) {
    std::vector<std::string> badFiles;
    {
        const InputGuard guard;
        setCursor(Qt::WaitCursor);
        repaintWindows();
        SkinFiles.reset();
        const std::string model = ui->lstModels->line();
        int tried = 0;
        const auto loads = [&](const Path& file) {
            if (++tried % kFilesBetweenRepaints == 0) {
                repaintWindows();
            }
            return ignoringErrors([&] { ui->picLoad->load(file); });
        };
        sortOutFiles(kind == SkinPage::Hands ? handCandidates() : skinCandidates(query(model)),
                     loads, SkinFiles, badFiles);
        unsetCursor();
    }
    if (!badFiles.empty()) {
        showMessage(QStringLiteral("Bad Skin Files Detected"), MessageIcon::Critical,
                    MessageButtons::Ok, toDisplay(badSkinReport(badFiles)));
    }
}

void frmSelectSkin::msGetSkinFARNames() {
    const InputGuard guard;
    setCursor(Qt::WaitCursor);
    const std::string model = ui->lstModels->line();
    listSkinEntries(query(model), FarSkins);
    unsetCursor();
}

void frmSelectSkin::msGetHandFARNames() {
    const InputGuard guard;
    setCursor(Qt::WaitCursor);
    listHandEntries(FarSkins);
    unsetCursor();
}

// The page.

int frmSelectSkin::entryCount() const {
    return FarMode ? FarSkins.bound() : SkinFiles.bound();
}

void frmSelectSkin::showSkinName(const std::string& fileName) {
    ui->txtSkinName->setText(
        toDisplay(fileName.substr(0, fileName.size() - std::min(kExtension, fileName.size()))));
    ui->txtSkinName->setCursorPosition(0);
}

// Ten pages and more are told in narrower letters: a number that is cut would be another one.
void frmSelectSkin::showPageCount(int entries) {
    const QString text =
        QStringLiteral("Page %1 of %2").arg(PageNumber + 1).arg(page::pageCount(entries));
    QFont letters = font();
    const int room = ui->txtPageCount->width() - kBoxEdges;
    const int wide = QFontMetrics(letters).horizontalAdvance(text);
    if (wide > room) {
        letters.setStretch(QFont::Unstretched * room / wide);
    }
    ui->txtPageCount->setFont(letters);
    ui->txtPageCount->setText(text);
    ui->txtPageCount->setToolTip(text);
}

QString frmSelectSkin::emptyPageText() const {
    const QString place = FarMode ? QStringLiteral("FAR files") : QStringLiteral("skins folder");
    if (SelectMode == kSelectHand) {
        return QStringLiteral("There is no hand skin in the %1.").arg(place);
    }
    if (ModelList.bound() == 0) {
        return QStringLiteral("There is no body of this kind to choose.");
    }
    return ui->lstModels->line().empty()
               ? QStringLiteral("Click a body in the list first.")
               : QStringLiteral("No skin in the %1 fits this body.").arg(place);
}

void frmSelectSkin::chooseFile(const Path& file) {
    ui->picSkin->load(file);
    ChosenFile = file;
    showSkinName(file.fileName());
}

void frmSelectSkin::chooseArchiveSkin(const FarSkinEntry& skin, const std::string& name) {
    ChosenFile = skin.FarFile;
    ChosenIndex = skin.FileIndex;
    showSkinName(name);
}

// A picture that isn't a whole bitmap costs its own place alone. What is no picture at all is
// raised: then the archive itself may be damaged, and the report names it.
std::string frmSelectSkin::loadOrShowCard(PictureBox& box, const FarSkinEntry& skin) {
    const ExtractedSkin extracted = extractSkin(skin.FarFile, skin.FileIndex);
    try {
        box.load(extracted.file, extracted.length);
    } catch (const RuntimeError& failure) {
        if (failure.number() != error::kInvalidPicture ||
            !beginsLikePicture(extracted.file, extracted.length)) {
            throw;
        }
        box.setPicture(brokenFileCard({kThumbSize, kThumbSize}));
    }
    return extracted.name;
}

void frmSelectSkin::msFillThumbs() {
    paint(SkinPage::Skins);
}

void frmSelectSkin::msFillHandBMPs() {
    paint(SkinPage::Hands);
}

void frmSelectSkin::msFillThumbsFAR() {
    paint(SkinPage::Archives);
}

// Whether the painter tells how far it came and with which file.
bool frmSelectSkin::tellsFile(SkinPage kind) {
    return kind != SkinPage::Hands;
}

const Path& frmSelectSkin::fileOf(SkinPage kind, int entry) const {
    return kind == SkinPage::Archives ? FarSkins[entry].FarFile : SkinFiles[entry];
}

const QImage& frmSelectSkin::loadThumb(SkinPage kind, int entry) {
    switch (kind) {
        case SkinPage::Skins:
            // A file that went bad since it was listed shows the thumbnail before it.
            ignoringErrors([&] { ui->picLoad->load(SkinFiles[entry]); });
            break;
        case SkinPage::Hands:
            ui->picSkin->load(SkinFiles[entry]);
            return ui->picSkin->picture();
        case SkinPage::Archives:
            loadOrShowCard(*ui->picLoad, FarSkins[entry]);
            break;
    }
    return ui->picLoad->picture();
}

void frmSelectSkin::showFirst(SkinPage kind, int entry) {
    switch (kind) {
        case SkinPage::Skins:
            chooseFile(SkinFiles[entry]);
            break;
        case SkinPage::Hands:
            // It is shown but not chosen: the file of the last choice stays.
            ui->picSkin->load(SkinFiles[entry]);
            showSkinName(SkinFiles[entry].fileName());
            break;
        case SkinPage::Archives:
            chooseArchiveSkin(FarSkins[entry], loadOrShowCard(*ui->picSkin, FarSkins[entry]));
            break;
    }
}

void frmSelectSkin::paint(SkinPage kind) {
    trapped("frmSelectSkin", painterOf(kind), [&] {
        CheckpointNumber = 1000;
        const int size = kind == SkinPage::Archives ? FarSkins.bound() : SkinFiles.bound();
        ui->picThumbs->setEmptyText(size == 0 ? emptyPageText() : QString());
        ui->picThumbs->clear();
        if (size == 0) {
            return;
        }
        const InputGuard guard;
        setCursor(Qt::WaitCursor);
        repaintWindows();
        const int first = page::entryOf(PageNumber, 0);
        const int last = std::min(page::entryOf(PageNumber, page::kCells - 1), size);
        CheckpointNumber = 2000;
        Path file;
        try {
            paintCells(kind, first, last, file);
            CheckpointNumber = 3000;
            SelectedCell = 0;
            file = tellsFile(kind) ? fileOf(kind, first) : Path();
            showFirst(kind, first);
            showWorn();
        } catch (...) {
            const RuntimeError failure = currentError();
            if (tellsFile(kind)) {
                throw RuntimeError(failure.number(),
                                   failure.description() + "\r\nFile: " + shownPath(file));
            }
            throw RuntimeError(failure);
        }
        showPageCount(size);
        unsetCursor();
    });
}

// file is the one that is being loaded.
void frmSelectSkin::paintCells(SkinPage kind, int first, int last, Path& file) {
    for (int entry = first; entry <= last; ++entry) {
        if (tellsFile(kind)) {
            CheckpointNumber = 2400;
            file = fileOf(kind, entry);
        }
        const QImage& thumb = loadThumb(kind, entry);
        if (tellsFile(kind)) {
            CheckpointNumber = 2800;
        }
        const page::Position corner = page::corner(entry - first);
        ui->picThumbs->paintScaled(thumb, {corner.x + 2, corner.y + 2, kThumbSize, kThumbSize});
        repaintWindows();
    }
}

void frmSelectSkin::paintPage() {
    if (FarMode) {
        msFillThumbsFAR();
    } else if (SelectMode == kSelectHand) {
        msFillHandBMPs();
    } else {
        msFillThumbs();
    }
}

// Events.

void frmSelectSkin::lstModels_Click() {
    PageNumber = 0;
    ui->txtSkinName->clear();
    ui->picSkin->clear();
    showWorn();
    if (FarMode) {
        msGetSkinFARNames();
    } else {
        msGetSkinFileNames();
    }
    paintPage();
}

void frmSelectSkin::optMode_Click(int index) {
    ui->cmdFocus->setFocus();
    FarMode = index == 1;
    showCaption();
    if (SelectMode == kSelectHand) {
        if (FarMode) {
            msGetHandFARNames();
        } else {
            msGetHandFileNames();
        }
        paintPage();
    } else if (!ui->lstModels->line().empty()) {
        lstModels_Click();
    }
}

void frmSelectSkin::cmdNext_Click() {
    ui->cmdFocus->setFocus();
    if (page::lastPage(entryCount()) > PageNumber) {
        ++PageNumber;
        paintPage();
    }
}

void frmSelectSkin::cmdPrevious_Click() {
    ui->cmdFocus->setFocus();
    if (PageNumber > 0) {
        --PageNumber;
        paintPage();
    }
}

void frmSelectSkin::frameCell(bool visible) {
    ui->picThumbs->frame(cellBox(SelectedCell), visible);
}

void frmSelectSkin::picThumbs_MouseDown(QPoint position) {
    trapped("frmSelectSkin", "picThumbs_MouseDown", [&] {
        frameCell(false);
        SelectedCell = page::cellAt(position.x(), position.y());
        const int entry = page::entryOf(PageNumber, SelectedCell);
        if (entry < 1 || entry > entryCount()) {
            return;
        }
        if (!FarMode) {
            chooseFile(SkinFiles[entry]);
        } else {
            const FarSkinEntry& skin = FarSkins[entry];
            const ExtractedSkin extracted = extractSkin(skin.FarFile, skin.FileIndex);
            ui->picSkin->load(extracted.file, extracted.length);
            chooseArchiveSkin(skin, extracted.name);
        }
        showWorn();
    });
}

void frmSelectSkin::picThumbs_MouseMove(QPoint position) {
    const int entry = page::entryOf(PageNumber, page::cellAt(position.x(), position.y()));
    std::string name;
    if (entry >= 1 && entry <= entryCount()) {
        name = FarMode ? FarSkins[entry].FileName : gfstrFarBaseName(SkinFiles[entry].fileName());
    }
    ui->picThumbs->setToolTip(toToolTip(toDisplay(name)));
}

void frmSelectSkin::moveSelection(int columns, int rows) {
    const int cell = page::cellBeside(SelectedCell, columns, rows);
    if (cell >= 0) {
        const QPoint centre = cellBox(cell).center();
        picThumbs_MouseDown(centre);
    }
}

void frmSelectSkin::Timer1_Timer() {
    if (InputGuard::isActive()) {
        return;
    }
    BlinkPhase = !BlinkPhase;
    frameCell(!BlinkPhase);
}

void frmSelectSkin::cmdSelect_Click() {
    const QString skin = ui->txtSkinName->text();
    const std::string model = ui->lstModels->line();
    if ((model.empty() && !HandMode) || skin.isEmpty()) {
        return;
    }
    if (caller_ != nullptr) {
        caller_->FarFileIndex = FarMode ? ChosenIndex : -1;
        caller_->LoadSkinFile = ChosenFile;
        caller_->SelectedSkin =
            SelectMode == kSelectHand ? toGameText(skin) : model + "," + toGameText(skin);
    }
    close();
}

}  // namespace marlowick
