#include "catalogue/frmSelectSkin.h"

#include <QProxyStyle>
#include <algorithm>
#include <array>
#include <functional>

#include "catalogue/model_catalogue.h"
#include "catalogue/skin_image.h"
#include "catalogue/thumbnail_page.h"
#include "catalogue/thumbnail_page_view.h"
#include "far/far_directory.h"
#include "foundation/error_trap.h"
#include "system/shown_path.h"
#include "ui_frmSelectSkin.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/look.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

constexpr QSize kWindowSize(770, 549);
constexpr int kFontPixels = 10;  // every caption fits its place in it
constexpr int kMarkSize = 10;
constexpr int kMarkSpacing = 4;
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

// Round marks that fit into the low option buttons.
class SmallMarks : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        switch (metric) {
            case PM_ExclusiveIndicatorWidth:
            case PM_ExclusiveIndicatorHeight:
                return kMarkSize;
            case PM_RadioButtonLabelSpacing:
                return kMarkSpacing;
            default:
                return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

}  // namespace

// What the three painters differ in. Entries count from 1.
struct frmSelectSkin::Source {
    const char* procedure;
    int size;
    PictureBox* box;  // every thumbnail passes through it
    std::function<void(int)> load;
    std::function<void(int)> showFirst;
    std::function<Path(int)> file;  // empty: the painter tells no stage and no file
};

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
    activating_ = false;
    setEscapeButton(ui->cmdCancel);
    connectControls();
}

void frmSelectSkin::connectControls() {
    const std::array<QRadioButton*, 2> sources = {ui->optMode0, ui->optMode1};
    auto* style = new SmallMarks(styleKey());
    style->setParent(ui->lblBody);
    for (int index = 0; index < 2; ++index) {
        QRadioButton* source = sources.at(static_cast<std::size_t>(index));
        source->setObjectName(QStringLiteral("optMode"));
        source->setProperty("Index", index);
        source->setStyle(style);
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
    // A report that comes up in here activates the window too when it closes: once is enough.
    if (activating_) {
        return;
    }
    activating_ = true;
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
    }
    if (!ui->optMode0->isChecked() && !ui->optMode1->isChecked()) {
        ui->optMode0->setChecked(true);
    }
    activating_ = false;
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
    trapped("frmSelectSkin", "msGetSkinFileNames", [&] {
        const std::string model = ui->lstModels->line();
        listFiles([&](const PictureTest& loads, std::vector<std::string>& badFiles) {
            listSkinFiles(query(model), loads, SkinFiles, badFiles);
        });
    });
}

void frmSelectSkin::msGetHandFileNames() {
    trapped("frmSelectSkin", "msGetHandFileNames", [&] {
        listFiles([&](const PictureTest& loads, std::vector<std::string>& badFiles) {
            listHandFiles(loads, SkinFiles, badFiles);
        });
    });
}

void frmSelectSkin::listFiles(
    const std::function<void(const PictureTest&, std::vector<std::string>&)>& list) {
    std::vector<std::string> badFiles;
    {
        const InputGuard guard;
        setCursor(Qt::WaitCursor);
        repaintWindows();
        int tried = 0;
        list(
            [&](const Path& file) {
                if (++tried % kFilesBetweenRepaints == 0) {
                    repaintWindows();
                }
                return ignoringErrors([&] { ui->picLoad->load(file); });
            },
            badFiles);
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

void frmSelectSkin::chooseEntry(int entry) {
    if (FarMode) {
        const FarSkinEntry& skin = FarSkins[entry];
        showArchiveSkin(*ui->picSkin, skin.FarFile, skin.FileIndex);
        ChosenFile = skin.FarFile;
        ChosenIndex = skin.FileIndex;
        showSkinName(skin.FileName);
    } else {
        ui->picSkin->load(SkinFiles[entry]);
        ChosenFile = SkinFiles[entry];
        showSkinName(ChosenFile.fileName());
    }
}

void frmSelectSkin::msFillThumbs() {
    // A file that went bad since it was listed shows the thumbnail before it.
    paint({"msFillThumbs", SkinFiles.bound(), ui->picLoad,
           [this](int entry) { ignoringErrors([&] { ui->picLoad->load(SkinFiles[entry]); }); },
           [this](int entry) { chooseEntry(entry); },
           [this](int entry) { return SkinFiles[entry]; }});
}

void frmSelectSkin::msFillHandBMPs() {
    // The first hand of a page is shown but not chosen: the file of the last choice stays.
    paint({"msFillHandBMPs",
           SkinFiles.bound(),
           ui->picSkin,
           [this](int entry) { ui->picSkin->load(SkinFiles[entry]); },
           [this](int entry) {
               ui->picSkin->load(SkinFiles[entry]);
               showSkinName(SkinFiles[entry].fileName());
           },
           {}});
}

void frmSelectSkin::msFillThumbsFAR() {
    paint({"msFillThumbsFAR", FarSkins.bound(), ui->picLoad,
           [this](int entry) {
               showArchiveSkin(*ui->picLoad, FarSkins[entry].FarFile, FarSkins[entry].FileIndex);
           },
           [this](int entry) { chooseEntry(entry); },
           [this](int entry) { return FarSkins[entry].FarFile; }});
}

void frmSelectSkin::paint(const Source& source) {
    trapped("frmSelectSkin", source.procedure, [&] {
        CheckpointNumber = 1000;
        ui->picThumbs->clear();
        if (source.size == 0) {
            return;
        }
        const InputGuard guard;
        setCursor(Qt::WaitCursor);
        repaintWindows();
        const int first = page::entryOf(PageNumber, 0);
        const int last = std::min(page::entryOf(PageNumber, page::kCells - 1), source.size);
        CheckpointNumber = 2000;
        Path file;
        try {
            paintCells(source, first, last, file);
            CheckpointNumber = 3000;
            SelectedCell = 0;
            if (source.file) {
                file = source.file(first);
            }
            source.showFirst(first);
        } catch (...) {
            const RuntimeError failure = currentError();
            if (source.file) {
                throw RuntimeError(failure.number(),
                                   failure.description() + "\r\nFile: " + shownPath(file));
            }
            throw RuntimeError(failure);
        }
        showPageCount(source.size);
        unsetCursor();
    });
}

void frmSelectSkin::paintCells(const Source& source, int first, int last, Path& file) {
    for (int entry = first; entry <= last; ++entry) {
        if (source.file) {
            CheckpointNumber = 2400;
            file = source.file(entry);
        }
        source.load(entry);
        if (source.file) {
            CheckpointNumber = 2800;
        }
        const page::Position corner = page::corner(entry - first);
        ui->picThumbs->paintScaled(source.box->picture(),
                                   {corner.x + 2, corner.y + 2, kThumbSize, kThumbSize});
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
        if (entry >= 1 && entry <= entryCount()) {
            chooseEntry(entry);
        }
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
