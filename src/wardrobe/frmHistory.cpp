#include "wardrobe/frmHistory.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/iff_file.h"
#include "iff/sim_names.h"
#include "iff/string_segment.h"
#include "system/files.h"
#include "system/game_text.h"
#include "ui_frmHistory.h"
#include "wardrobe/history_words.h"
#include "wardrobe/row_changes.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/running_game_messages.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kFaceSize = 45;
constexpr int kLinesOfAFile = 4;
constexpr int kAllFiles = -1;
constexpr std::int64_t kMiB = 1 << 20;

// What stands at a line: the number of its entry or record, and the kept sim whose face it shows.
constexpr int kIndexRole = Qt::UserRole;
constexpr int kFaceRole = Qt::UserRole + 1;

QString shown(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

// The sim or pet in a user file, without its pictures reaching the disk.
struct KeptSim {
    QString name;
    QImage face;
};

KeptSim keptSim(const Path& file) {
    const std::int32_t stage = CheckpointNumber;
    KeptSim sim;
    IffFile iff;
    if (gfstrQuickReadIFF(iff, file).empty()) {
        sim.name = toDisplay(firstCatalogueName(iff).value_or(""));
        for (int i = 1; i <= iff.Segments.bound(); ++i) {
            const IffSegment& segment = iff.Segments[i];
            if (segment.Type == "BMP_" &&
                lowerCase(gfstrCleanName(gfstrTrimAtNull(segment.Label))) == "web_image") {
                ignoringErrors([&] { sim.face = decodePicture(segment.Data); });
                break;
            }
        }
    }
    CheckpointNumber = stage;
    return sim;
}

// The old bytes of a sim or pet, whose face a line can show; empty for anything else.
Path faceFile(const HistoryEntry& entry, const HistoryRecord& record) {
    return record.place && record.place->kind == KeptKind::UserFile && record.before
               ? earlierVersions().keptFile(entry, record)
               : Path();
}

// False if the command names no file that may ever be written.
bool hasPlace(const HistoryEntry& entry) {
    const std::vector<HistoryRecord>& records = entry.about.records;
    return std::any_of(records.begin(), records.end(),
                       [](const HistoryRecord& record) { return record.place.has_value(); });
}

// A chosen line leaves the face as it is.
QIcon iconOf(const QImage& face) {
    const QPixmap shownFace =
        QPixmap::fromImage(face.isNull() ? questionCard({kFaceSize, kFaceSize}) : face);
    QIcon icon(shownFace);
    icon.addPixmap(shownFace, QIcon::Selected);
    return icon;
}

void setFace(QListWidgetItem* item, const Path& file) {
    if (!file.empty()) {
        item->setData(kFaceRole, shown(file.text()));
    }
    QPixmap room(kFaceSize, kFaceSize);
    room.fill(Qt::transparent);
    item->setIcon(QIcon(room));
}

QListWidgetItem* addLine(QListWidget* list, const QString& text, int index) {
    auto* item = new QListWidgetItem(text, list);
    item->setData(kIndexRole, index);
    item->setToolTip(toToolTip(text));
    return item;
}

void addHeading(QListWidget* list, const QString& text) {
    auto* item = new QListWidgetItem(text, list);
    item->setFlags(Qt::NoItemFlags);
}

// What a restore changes in a user file, in words.
std::string wordsOfRestore(const RestoreItem& item) {
    const std::int32_t stage = CheckpointNumber;
    std::string words;
    if (item.record.place->kind == KeptKind::UserFile && item.step == RestoreStep::PutBack) {
        IffFile present;
        IffFile kept;
        StrSegment before;
        StrSegment after;
        if (gfstrQuickReadIFF(present, item.target).empty() &&
            gfstrQuickReadIFF(kept, item.kept).empty()) {
            ignoringErrors([&] {
                lookAtWardrobeTable(present, before);
                lookAtWardrobeTable(kept, after);
                words = inWords(rowChanges(before, after));
            });
        }
    }
    CheckpointNumber = stage;
    return words;
}

}  // namespace

frmHistory::frmHistory() : ModalForm("frmHistory"), ui(std::make_unique<Ui::frmHistory>()) {}

frmHistory::~frmHistory() = default;

void frmHistory::showAll() {
    filter_.clear();
    editor_.reset();
    showModal();
}

void frmHistory::showOf(const Path& userFile) {
    const std::optional<KeptPlace> place = keptPlaceOf(earlierVersions().places(), userFile);
    filter_ = place ? place->path : std::string();
    editor_.reset();
    showModal();
}

bool frmHistory::showOf(const Editor& editor) {
    const std::optional<KeptPlace> place = keptPlaceOf(earlierVersions().places(), editor.file);
    filter_ = place ? place->path : std::string();
    editor_ = editor;
    isEditorsGone_ = false;
    showModal();
    editor_.reset();
    return !isEditorsGone_;
}

void frmHistory::buildControls() {
    ui->setupUi(this);
    resize(sizeOnScreen(*this));
    setEscapeButton(ui->cmdClose);
    for (ClickList* list : {ui->lstEntries, ui->lstFiles}) {
        list->setIconSize({kFaceSize, kFaceSize});
        connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this,
                [this, list] { showFaces(list); });
        list->viewport()->installEventFilter(this);
    }
    onClick(ui->cmdRestore, "cmdRestore_Click", [this] { cmdRestore_Click(); });
    onClick(ui->cmdClose, "cmdClose_Click", [this] { close(); });
    connect(ui->txtFilter, &QLineEdit::textChanged, this,
            [this] { runEvent("frmHistory", "txtFilter_Change", [this] { showEntries(); }); });
    connect(ui->lstEntries, &ClickList::lineClicked, this,
            [this] { runEvent("frmHistory", "lstEntries_Click", [this] { showFiles(); }); });
    connect(ui->lstFiles, &ClickList::lineClicked, this, [this] { showState(); });
    for (QSpinBox* box : {ui->spnFiles, ui->spnArchives, ui->spnVersions}) {
        connect(box, &QSpinBox::editingFinished, this, &frmHistory::storeShownBounds);
    }
}

void frmHistory::Form_Load() {
    fillBounds();
    readEntries();
    {
        const QSignalBlocker blocker(ui->txtFilter);
        ui->txtFilter->setText(shown(filter_));
    }
    showEntries();
    ui->lstEntries->setFocus();
}

// The bounds.

void frmHistory::fillBounds() {
    const HistoryBounds bounds = storedBounds();
    ui->spnFiles->setValue(static_cast<int>(bounds.files / kMiB));
    ui->spnArchives->setValue(static_cast<int>(bounds.archives / kMiB));
    ui->spnVersions->setValue(bounds.versionsOfAnArchive);
}

// They hold from the end of the next command on: nothing goes while a person is still typing.
void frmHistory::storeShownBounds() {
    storeBounds(
        {ui->spnFiles->value() * kMiB, ui->spnArchives->value() * kMiB, ui->spnVersions->value()});
}

// The lists.

void frmHistory::readEntries() {
    setPointer(Pointer::Hourglass);
    entries_ = earlierVersions().entries();
    // One that ended before its first file has nothing to take back.
    std::erase_if(entries_, [](const HistoryEntry& entry) {
        return entry.isReadable && entry.about.records.empty();
    });
    setPointer(Pointer::Default);
}

void frmHistory::addEntry(std::size_t index) {
    const HistoryEntry& entry = entries_[index];
    QListWidgetItem* item = addLine(ui->lstEntries, shown(titleOf(entry) + "\n" + detailsOf(entry)),
                                    static_cast<int>(index));
    setFace(item,
            entry.about.records.size() == 1 ? faceFile(entry, entry.about.records[0]) : Path());
}

void frmHistory::showEntries() {
    const std::string filter = ui->txtFilter->text().toStdString();
    std::vector<std::size_t> others;
    {
        const QSignalBlocker blocker(ui->lstEntries);
        ui->lstEntries->clear();
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (!fitsFilter(entries_[i], filter)) {
                continue;
            }
            if (gameOfEntry(earlierVersions().places(), entries_[i]) == GameOfRecord::Other) {
                others.push_back(i);
            } else {
                addEntry(i);
            }
        }
        if (!others.empty()) {
            addHeading(ui->lstEntries, QStringLiteral("Of other games, or not to be read:"));
            for (const std::size_t index : others) {
                addEntry(index);
            }
        }
        // The first line, unless that is the heading of the others.
        const bool hasOwn =
            ui->lstEntries->count() > static_cast<int>(others.empty() ? 0 : others.size() + 1);
        ui->lstEntries->setCurrentRow(hasOwn ? 0 : -1);
        ui->lstEntries->scrollToTop();
    }
    ui->lstEntries->doItemsLayout();
    showFaces(ui->lstEntries);
    showFiles();
}

const HistoryEntry* frmHistory::chosenEntry() const {
    const QListWidgetItem* item = ui->lstEntries->currentItem();
    const QVariant index = item == nullptr ? QVariant() : item->data(kIndexRole);
    return index.isValid() ? &entries_.at(static_cast<std::size_t>(index.toInt())) : nullptr;
}

void frmHistory::showFiles() {
    const HistoryEntry* entry = chosenEntry();
    {
        const QSignalBlocker blocker(ui->lstFiles);
        ui->lstFiles->clear();
        if (entry != nullptr) {
            const std::vector<HistoryRecord>& records = entry->about.records;
            if (records.size() > 1) {
                addLine(ui->lstFiles, QStringLiteral("All %1 files").arg(records.size()),
                        kAllFiles);
            }
            for (std::size_t i = 0; i < records.size(); ++i) {
                QListWidgetItem* item =
                    addLine(ui->lstFiles,
                            shown(records[i].path + "\n" + changesOf(records[i], kLinesOfAFile)),
                            static_cast<int>(i));
                item->setToolTip(
                    toToolTip(shown(records[i].path + "\n" + changesOf(records[i], 50))));
                setFace(item, faceFile(*entry, records[i]));
            }
            ui->lstFiles->setCurrentRow(0);
        }
    }
    ui->lstFiles->doItemsLayout();
    showFaces(ui->lstFiles);
    showState();
}

// Reads the faces of the lines that are seen, and the names of those that tell none.
void frmHistory::showFaces(QListWidget* list) {
    const QRect seen = list->viewport()->rect();
    for (int row = std::max(0, list->row(list->itemAt(seen.topLeft() + QPoint(1, 1))));
         row < list->count(); ++row) {
        QListWidgetItem* item = list->item(row);
        if (!list->visualItemRect(item).intersects(seen)) {
            break;
        }
        const QString file = item->data(kFaceRole).toString();
        if (file.isEmpty()) {
            continue;
        }
        item->setData(kFaceRole, QVariant());
        const KeptSim sim = keptSim(Path(file.toStdString()));
        item->setIcon(iconOf(sim.face));
        if (list == ui->lstFiles && !sim.name.isEmpty()) {
            item->setText(sim.name + QStringLiteral("  ") + item->text());
        }
    }
}

// A list that grows shows lines that weren't seen before.
bool frmHistory::eventFilter(QObject* watched, QEvent* event) {
    const bool done = ModalForm::eventFilter(watched, event);
    if (event->type() == QEvent::Resize) {
        for (ClickList* list : {ui->lstEntries, ui->lstFiles}) {
            if (list->viewport() == watched) {
                showFaces(list);
            }
        }
    }
    return done;
}

void frmHistory::showState() {
    const HistoryEntry* entry = chosenEntry();
    const bool isOpenGames =
        entry != nullptr && gameOfEntry(earlierVersions().places(), *entry) != GameOfRecord::Other;
    ui->cmdRestore->setEnabled(isOpenGames && ui->lstFiles->currentItem() != nullptr);
    QString state;
    if (entries_.empty()) {
        state = QStringLiteral(
            "Nothing is kept yet. Whatever a save, a repair or an archive's save "
            "replaces will stand here.");
    } else if (ui->lstEntries->count() == 0) {
        state = QStringLiteral("Nothing fits the filter.");
    } else if (entry != nullptr && !entry->isReadable) {
        state = QStringLiteral("What this command changed can not be read.");
    } else if (entry != nullptr && !hasPlace(*entry)) {
        state = QStringLiteral("No sim, archive or ensemble can lie where these files lay.");
    } else if (entry != nullptr && !isOpenGames) {
        state = QStringLiteral(
                    "These files belong to another game. Open it with Set Path to "
                    "restore them.\nGame: %1\nNeighborhoods: %2")
                    .arg(toDisplay(entry->about.game), toDisplay(entry->about.neighbourhoods));
    }
    if (state == ui->lblState->text()) {
        return;
    }
    ui->lblState->setText(state);
    // The lists give the text its room, and the chosen line could be in it.
    layout()->activate();
    for (ClickList* list : {ui->lstEntries, ui->lstFiles}) {
        list->scrollToItem(list->currentItem());
    }
}

std::vector<std::size_t> frmHistory::chosenRecords() const {
    const QListWidgetItem* item = ui->lstFiles->currentItem();
    const int index = item == nullptr ? kAllFiles : item->data(kIndexRole).toInt();
    return index == kAllFiles ? std::vector<std::size_t>()
                              : std::vector<std::size_t>{static_cast<std::size_t>(index)};
}

// Restoring.

bool frmHistory::mayTakeOnMovedGame(const HistoryEntry& entry) const {
    return gameOfEntry(earlierVersions().places(), entry) != GameOfRecord::Moved ||
           confirmLoss(QStringLiteral("These files are of a game that lay in\n%1\nwith its "
                                      "neighborhoods in\n%2\nIt is not there any more. The game "
                                      "that is open lies in\n%3\nwith its neighborhoods "
                                      "in\n%4\nIs it the same game, moved?")
                           .arg(toDisplay(entry.about.game), toDisplay(entry.about.neighbourhoods),
                                toDisplay(earlierVersions().places().game),
                                toDisplay(earlierVersions().places().neighbourhoods)));
}

std::vector<RestoreItem> frmHistory::planFor(const HistoryEntry& entry) const {
    const InputGuard guard;
    setPointer(Pointer::Hourglass);
    std::vector<RestoreItem> plan =
        restorePlan(earlierVersions(), entry, entries_, chosenRecords(), true, repaintWindows);
    setPointer(Pointer::Default);
    return plan;
}

bool frmHistory::mayRestore(const HistoryEntry& entry, const std::vector<RestoreItem>& plan) {
    const std::string question = restoreQuestion(entry, plan, entries_);
    if (question.empty()) {
        showMessage(QStringLiteral("Nothing To Restore"), MessageIcon::Information,
                    MessageButtons::Ok, shown(nothingToRestore(plan)));
        return false;
    }
    const auto isEditors = [this](const RestoreItem& item) {
        return editor_ && item.step != RestoreStep::Nothing && item.step != RestoreStep::Refused &&
               isSameFolder(item.target, editor_->file);
    };
    isEditorsRestored_ = std::any_of(plan.begin(), plan.end(), isEditors);
    return confirmLoss(shown(question)) && mayWriteNow() &&
           (!isEditorsRestored_ || editor_->mayDropChanges());
}

bool frmHistory::restore(const HistoryEntry& entry, const std::vector<RestoreItem>& plan) {
    const InputGuard guard;
    setPointer(Pointer::Hourglass);
    HistoryCommand command(earlierVersions(), "Restore", utf8ToGameText(entry.about.name),
                           mayGoOnWithout);
    bool goesOn = true;
    for (const RestoreItem& item : plan) {
        if (item.step == RestoreStep::Nothing || item.step == RestoreStep::Refused) {
            continue;
        }
        const bool isArchive = item.record.place->kind == KeptKind::Archive;
        CheckpointNumber = isArchive ? 7000 : 4000;
        const std::string words = wordsOfRestore(item);
        goesOn = goesOn && (!isArchive || mayBeOverwritten(item.target)) &&
                 restoreFile(item, {command, words, repaintWindows});
        repaintWindows();
    }
    setPointer(Pointer::Default);
    return goesOn;
}

void frmHistory::cmdRestore_Click() {
    trapped("frmHistory", "cmdRestore_Click", [&] {
        CheckpointNumber = 1000;
        const HistoryEntry* chosen = chosenEntry();
        if (chosen == nullptr || !mayTakeOnMovedGame(*chosen)) {
            return;
        }
        const HistoryEntry entry = *chosen;
        const std::vector<RestoreItem> plan = planFor(entry);
        if (!mayRestore(entry, plan)) {
            return;
        }
        bool done = false;
        try {
            done = restore(entry, plan);
        } catch (...) {
            tellRestored();
            throw;
        }
        tellRestored();
        if (done) {
            showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                        shown(titleOf(entry)) + QStringLiteral(" has been taken back."));
        }
    });
}

// Whatever came of it, some files may be others now.
void frmHistory::tellRestored() {
    setPointer(Pointer::Default);
    readEntries();
    showEntries();
    if (Restored) {
        Restored();
    }
    if (isEditorsRestored_) {
        isEditorsGone_ = !files().fileExists(editor_->file);
        if (!isEditorsGone_) {
            editor_->loadAnew();
        }
    }
}

void showEarlierVersions(QWidget& window, const frmHistory::Editor& editor) {
    if (!theWindow<frmHistory>().showOf(editor)) {
        window.close();
    }
}

}  // namespace marlowick
