#include "far/frmManageFARs.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <set>

#include "far/frmOpenFAR.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "system/disk.h"
#include "system/files.h"
#include "system/game_text.h"
#include "ui_frmManageFARs.h"
#include "widgets/display_text.h"
#include "widgets/history_messages.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/running_game_messages.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kPaintPause = 30;  // milliseconds

void showText(QLineEdit* box, const QString& text) {
    box->setText(text);
    box->setToolTip(toToolTip(text));
    box->setCursorPosition(0);
}

// The selected rows of a list, ascending.
std::vector<int> selectedRows(const QListWidget* list) {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : list->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void selectRows(QListWidget* list, const std::vector<int>& rows) {
    QItemSelection selection;
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t last = first;
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) {
            ++last;
        }
        selection.append(QItemSelectionRange(list->model()->index(rows[first], 0),
                                             list->model()->index(rows[last], 0)));
        first = last + 1;
    }
    list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

// Shows what there is to show, whatever becomes of the work.
void workAndShow(const std::function<void()>& work, const std::function<void()>& show) {
    try {
        work();
    } catch (...) {
        show();
        throw;
    }
    show();
}

// All rows are laid out like the last, so that a long list shows at once; it is made as wide as the
// widest.
void widenRows(QListWidget* list) {
    if (list->count() == 0) {
        return;
    }
    const QFontMetrics metrics(list->font());
    int width = 0;
    for (int row = 0; row < list->count(); ++row) {
        width = std::max(width, metrics.horizontalAdvance(list->item(row)->text()));
    }
    list->item(list->count() - 1)->setSizeHint({width + 12, metrics.height() + 2});
}

}  // namespace

frmManageFARs::frmManageFARs()
    : ModalForm("frmManageFARs"), ui(std::make_unique<Ui::frmManageFARs>()) {}

frmManageFARs::~frmManageFARs() = default;

void frmManageFARs::buildControls() {
    ui->setupUi(this);
    resize(sizeOnScreen(*this));
    mudtEdit = {};
    ui->picError->setPicture(brokenFileCard({96, 96}));
    QSizePolicy policy = ui->picStatus->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui->picStatus->setSizePolicy(policy);
    connectControls();
}

void frmManageFARs::connectButton(QAbstractButton* button, const char* event,
                                  void (frmManageFARs::*handler)()) {
    onClick(button, event, [this, handler] {
        ui->cmdFocus->setFocus();
        (this->*handler)();
    });
}

void frmManageFARs::connectControls() {
    connectButton(ui->cmdNew, "cmdNew_Click", &frmManageFARs::msNewFile);
    connectButton(ui->cmdOpen, "cmdOpen_Click", &frmManageFARs::msOpenFile);
    connectButton(ui->cmdSave, "cmdSave_Click", &frmManageFARs::msSaveFile);
    connectButton(ui->cmdAddFile, "cmdAddFile_Click", &frmManageFARs::msAddFile);
    connectButton(ui->cmdImportFolder, "cmdImportFolder_Click", &frmManageFARs::msAddFolder);
    connectButton(ui->cmdDelete, "cmdDelete_Click", &frmManageFARs::msDelete);
    connectButton(ui->cmdUndelete, "cmdUndelete_Click", &frmManageFARs::msUndelete);
    onClick(ui->cmdExtractFile, "cmdExtractFile_Click", [this] {
        ui->cmdFocus->setFocus();
        msExtract();
        fillDiskSide();
    });
    onClick(ui->cmdFind, "cmdFind_Click", [this] { cmdFind_Click(); });
    onClick(ui->cmdNext, "cmdNext_Click", [this] { cmdNext_Click(); });
    connect(ui->txtFind, &QLineEdit::returnPressed, ui->cmdFind, &QAbstractButton::click);
    connect(ui->lstFiles, &ClickList::lineClicked, this, &frmManageFARs::lstFiles_Click);
    connect(ui->lstBMPs, &ClickList::lineClicked, this, &frmManageFARs::lstBMPs_Click);
    connect(ui->drvFiles, &QComboBox::activated, this, [this](int index) {
        runEvent("frmManageFARs", "drvFiles_Change", [&] { drvFiles_Change(index); });
    });
    connect(ui->dirFiles, &FolderList::pathChanged, this, [this] {
        runEvent("frmManageFARs", "dirFiles_Change", [this] { dirFiles_Change(); });
    });
}

// Esc drops nothing that a person has done.
void frmManageFARs::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !hasChanges(mudtEdit)) {
        close();
        return;
    }
    ModalForm::keyPressEvent(event);
}

void frmManageFARs::Form_Load() {
    mudtEdit.mudtAddedFiles.reset();
    const std::string home = driveRoot(SimsPath).text();
    for (const Path& root : driveRoots()) {
        ui->drvFiles->addItem(toDisplay(root));
        ui->drvFiles->setItemData(ui->drvFiles->count() - 1, toToolTip(toDisplay(root)),
                                  Qt::ToolTipRole);
        if (equalsIgnoringCase(root.text(), home)) {
            ui->drvFiles->setCurrentIndex(ui->drvFiles->count() - 1);
        }
    }
    ui->dirFiles->setPath(SimsPath);
}

// The archive.

void frmManageFARs::showRows(const std::vector<int>& selected, int current) {
    const QSignalBlocker blocker(ui->lstFiles);
    const int scrolled = ui->lstFiles->verticalScrollBar()->value();
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(mudtEdit.Rows.count()));
    for (const FarRow& row : mudtEdit.Rows) {
        texts.push_back(row.Text);
    }
    ui->lstFiles->setLines(texts);
    widenRows(ui->lstFiles);
    ui->lstFiles->setCurrentRow(std::min(current, ui->lstFiles->count() - 1),
                                QItemSelectionModel::NoUpdate);
    selectRows(ui->lstFiles, selected);
    ui->lstFiles->doItemsLayout();
    ui->lstFiles->verticalScrollBar()->setValue(scrolled);
}

void frmManageFARs::change(const std::function<void()>& work) {
    std::set<int> numbers;
    for (const int row : selectedRows(ui->lstFiles)) {
        numbers.insert(mudtEdit.Rows[row].Number);
    }
    const int current = ui->lstFiles->currentRow();
    workAndShow(work, [&] {
        std::vector<int> selected;
        for (int row = 0; row < mudtEdit.Rows.count(); ++row) {
            if (numbers.contains(mudtEdit.Rows[row].Number)) {
                selected.push_back(row);
            }
        }
        showRows(selected, current);
    });
}

void frmManageFARs::showArchive(const QString& name) {
    ui->txtCount->setText(QString::number(farEntryCount(mudtEdit.mudtFarDir)));
    showText(ui->txtFarFile, name);
}

void frmManageFARs::msNewFile() {
    mudtEdit = {};
    showRows({}, -1);
    showText(ui->txtFarFile, QString());
    ui->txtCount->clear();
    ui->picFARBMP->setPicture({});
}

void frmManageFARs::msOpenFile() {
    trapped("frmManageFARs", "msOpenFile", [&] {
        CheckpointNumber = 0;
        theWindow<frmOpenFAR>().showModal();
        if (OpenFile.empty()) {
            return;
        }
        msNewFile();
        mudtEdit.ReadingFailed = !gsReadFARdir(mudtEdit.mudtFarDir, OpenFile);
        if (farEntryCount(mudtEdit.mudtFarDir) == 0) {
            showMessage(QStringLiteral("File Load Error"), MessageIcon::Critical,
                        MessageButtons::Ok,
                        QStringLiteral("The file ") + toDisplay(OpenFile) +
                            QStringLiteral("\n can not be loaded. It is not a valid FAR file."));
            msNewFile();
            return;
        }
        showArchive(toDisplay(OpenFile.fileName()));
        mudtEdit.mstrFarFile = OpenFile;
        listEntries(mudtEdit);
        showRows({}, -1);
        warnIfTooLarge();
    });
}

void frmManageFARs::warnIfTooLarge() const {
    const auto size = static_cast<double>(files().length(mudtEdit.mstrFarFile));
    const double room = gfdblFreeDiskSpace(driveRoot(mudtEdit.mstrFarFile));
    if (room >= size) {
        return;
    }
    const QString lines[] = {
        QStringLiteral("The file:"),
        toDisplay(mudtEdit.mstrFarFile),
        QStringLiteral("is too large to be saved. You do not have enough free disk space."),
        QString(),
        QStringLiteral("FAR File Size: ") + QString::fromStdString(groupedDigits(size)),
        QStringLiteral("Free Space(") + QString::fromStdString(driveName(mudtEdit.mstrFarFile)) +
            QStringLiteral("): ") + QString::fromStdString(groupedDigits(room)),
    };
    showMessage(QStringLiteral("WARNING!!!"), MessageIcon::Exclamation, MessageButtons::Ok,
                QStringList(std::begin(lines), std::end(lines)).join(QLatin1Char('\n')));
}

void frmManageFARs::showProgress(int processed, int total) {
    if (processed == 0) {
        setPointer(Pointer::Hourglass);
        ui->picStatus->show();
        repaintWindows();
        painted_.start();
    }
    const QSize size = ui->picStatus->contentsRect().size();
    const auto width = static_cast<int>(std::int64_t{size.width()} * processed / total);
    ui->picStatus->clear();
    ui->picStatus->fill({0, 0, width, size.height()}, QColor(255, 0, 0));
    paintNowAndThen();
}

void frmManageFARs::hideProgress() {
    setPointer(Pointer::Default);
    ui->picStatus->hide();
}

void frmManageFARs::paintNowAndThen() {
    if (painted_.hasExpired(kPaintPause)) {
        repaintWindows();
        painted_.restart();
    }
}

bool frmManageFARs::mayBeSaved() const {
    if (mudtEdit.ReadingFailed) {
        showMessage(QStringLiteral("File Save Error"), MessageIcon::Critical, MessageButtons::Ok,
                    QStringLiteral("The file ") + toDisplay(mudtEdit.mstrFarFile) +
                        QStringLiteral("\n can not be saved. Reading it has failed."));
        return false;
    }
    const int announced = farAnnouncedCount(mudtEdit.mudtFarDir);
    const int readable = farEntryCount(mudtEdit.mudtFarDir);
    return announced == readable ||
           confirmLoss(
               QStringLiteral("The file %1 announces %2 entries, but only %3 of them can be "
                              "read.\nSaving it loses the others.")
                   .arg(toDisplay(mudtEdit.mstrFarFile.fileName()), QString::number(announced),
                        QString::number(readable)));
}

void frmManageFARs::msSaveFile() {
    trapped("frmManageFARs", "msSaveFile", [&] {
        CheckpointNumber = 1000;
        if (mudtEdit.Rows.empty() || !mayBeSaved()) {
            return;
        }
        Path target = mudtEdit.mstrFarFile;
        if (target.empty()) {
            const QString name = askForText(QStringLiteral("Save FAR File As"),
                                            QStringLiteral("Enter the name to save the file as."));
            if (name.isEmpty()) {
                return;
            }
            target = newArchivePath(name.toStdString());
        }
        if (!mayWriteNow() || !mayBeOverwritten(target) || !save(target)) {
            return;
        }
        hideProgress();
        showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                    QStringLiteral("File Saved."));
    });
}

bool frmManageFARs::save(const Path& target) {
    std::vector<int> selected = selectedRows(ui->lstFiles);
    int current = ui->lstFiles->currentRow();
    FarSaveProgress progress;
    progress.step = [this](int processed, int total) { showProgress(processed, total); };
    progress.block = [this] { paintNowAndThen(); };
    progress.replaced = [&, kept = rowsAfterSave(mudtEdit, selected)] {
        showArchive(toDisplay(target));
        selected = kept;
        current = kept.empty() ? -1 : kept.front();
    };
    const InputGuard guard;
    bool done = false;
    HistoryCommand history(earlierVersions(), "Save archive", target.fileName(), mayGoOnWithout);
    workAndShow([&] { done = saveArchive(mudtEdit, target, history, progress); },
                [&] { showRows(selected, current); });
    if (!done && !mudtEdit.ReadingFailed) {
        hideProgress();
    }
    return done;
}

void frmManageFARs::msDelete() {
    trapped("frmManageFARs", "msDelete",
            [&] { change([this] { deleteRows(mudtEdit, selectedRows(ui->lstFiles)); }); });
}

void frmManageFARs::msUndelete() {
    change([this] { undeleteRows(mudtEdit, selectedRows(ui->lstFiles)); });
}

void frmManageFARs::lstFiles_Click() {
    trapped("frmManageFARs", "lstFiles_Click", [&] {
        const int current = ui->lstFiles->currentRow();
        if (current < 0) {
            return;
        }
        const FarRow row = mudtEdit.Rows[current];
        ui->picFARBMP->setPicture({});
        if (row.Text.starts_with("[NEW]")) {
            ui->picFARBMP->load(mudtEdit.mudtAddedFiles[-row.Number].AddedPath);
            return;
        }
        gsExtractFile(mudtEdit.mstrFarFile, tempFolder(), mudtEdit.mudtFarDir, row.Number);
        // The mark goes from the bare name, also where it stood in front of a folder: then what is
        // shown and deleted is another name.
        std::string name = gfstrFileNameOfPath(row.Text);
        if (row.Text.starts_with("[DEL]")) {
            name.erase(0, kDeletedMark.size());
        }
        ui->picFARBMP->setPicture(ui->picError->picture());
        ignoringErrors([&] {
            ui->picFARBMP->load(
                tempFolder().child(name),
                farEntryLength(mudtEdit.mudtFarDir.Entries[row.Number], mudtEdit.mstrFarFile));
        });
        files().remove(tempFolder().child(name));
    });
}

void frmManageFARs::search(int start) {
    const int found = findRow(mudtEdit, toGameText(ui->txtFind->text()), start);
    {
        const QSignalBlocker blocker(ui->lstFiles);
        ui->lstFiles->clearSelection();
        if (found >= 0) {
            ui->lstFiles->setCurrentRow(found, QItemSelectionModel::ClearAndSelect);
            ui->lstFiles->scrollToItem(ui->lstFiles->item(found));
        }
    }
    if (found >= 0) {
        lstFiles_Click();
    }
}

void frmManageFARs::cmdFind_Click() {
    ui->txtFind->setFocus();
    if (!mudtEdit.Rows.empty() && !ui->txtFind->text().isEmpty()) {
        search(0);
    }
}

void frmManageFARs::cmdNext_Click() {
    ui->txtFind->setFocus();
    if (!mudtEdit.Rows.empty() && !ui->txtFind->text().isEmpty()) {
        const std::vector<int> selected = selectedRows(ui->lstFiles);
        search(nextSearchStart(mudtEdit, selected.empty() ? -1 : selected.front()));
    }
}

void frmManageFARs::extractRow(const FarRow& row, FarExtraction& extraction) {
    const std::string name = gfstrFileNameOfPath(row.Text);
    const Path& folder = ui->dirFiles->path();
    if (isFileName(name) && files().fileExists(folder.child(name))) {
        setPointer(Pointer::Default);
        const bool wanted = confirmAction(QStringLiteral("The file ") + toDisplay(name) +
                                          QStringLiteral(" already exists.\nOverwrite file?"));
        setPointer(Pointer::Hourglass);
        if (!wanted) {
            return;
        }
    }
    extraction.extract(mudtEdit.mudtFarDir, row.Number);
}

void frmManageFARs::extractRows(const std::vector<int>& selected) {
    const InputGuard guard;
    FarExtraction extraction(mudtEdit.mstrFarFile, ui->dirFiles->path());
    const auto total = static_cast<int>(selected.size());
    const auto extract = [&] {
        int processed = 0;
        for (const int index : selected) {
            showProgress(processed++, total);
            const FarRow& row = mudtEdit.Rows[index];
            if (row.Number > 0) {
                extractRow(row, extraction);
            }
        }
    };
    workAndShow(extract, [this] { hideProgress(); });
}

void frmManageFARs::msExtract() {
    trapped("frmManageFARs", "msExtract", [&] {
        if (ui->dirFiles->path().empty()) {
            return;
        }
        extractRows(selectedRows(ui->lstFiles));
        showMessage(QStringLiteral("Marlowick"), MessageIcon::Information, MessageButtons::Ok,
                    QStringLiteral("Files extracted."));
    });
}

// The disk.

void frmManageFARs::addFiles(const std::vector<std::string>& names,
                             const std::function<void(const std::string&)>& tellDuplicate) {
    const int before = mudtEdit.Rows.count();
    QStringList leftOut;
    change([&] {
        FarAdder adder(mudtEdit, ui->dirFiles->path());
        for (const std::string& name : names) {
            const FarAddition addition = adder.add(name);
            if (addition == FarAddition::NoEntryName) {
                leftOut.append(toDisplay(name));
            } else if (addition == FarAddition::Duplicate && tellDuplicate) {
                tellDuplicate(name);
            }
        }
    });
    if (mudtEdit.Rows.count() > before) {
        ui->lstFiles->scrollToItem(ui->lstFiles->item(mudtEdit.Rows.count() - 1));
    }
    if (!leftOut.isEmpty()) {
        showMessage(
            QStringLiteral("Files Left Out"), MessageIcon::Exclamation, MessageButtons::Ok,
            QStringLiteral("Entries of a FAR file can not have the names of these files:\n") +
                leftOut.join(QLatin1Char('\n')));
    }
}

void frmManageFARs::msAddFile() {
    trapped("frmManageFARs", "msAddFile", [&] {
        std::vector<std::string> names;
        for (const int row : selectedRows(ui->lstBMPs)) {
            names.push_back(toGameText(ui->lstBMPs->item(row)->text()));
        }
        addFiles(names, [](const std::string& name) {
            showMessage(QStringLiteral("Duplicate File"), MessageIcon::Exclamation,
                        MessageButtons::Ok,
                        QStringLiteral("The file:\n") + toDisplay(upperCase(name)) +
                            QStringLiteral("\nalready exists in this FAR file."));
        });
    });
}

void frmManageFARs::msAddFolder() {
    trapped("frmManageFARs", "msAddFolder", [&] {
        const Path folder = ui->dirFiles->path();
        if (folder.empty()) {
            return;
        }
        const QString question = QStringLiteral("Add all of the BMP files in:\n") +
                                 toDisplay(folder) +
                                 QStringLiteral("\nto the current FAR file?\n\nAre you sure?");
        if (showMessage(QStringLiteral("Add All Files In Folder"), MessageIcon::Question,
                        MessageButtons::YesNo, question) == MessageReply::No) {
            return;
        }
        addFiles(searchFiles(folder, "*.BMP"), {});
    });
}

void frmManageFARs::lstBMPs_Click() {
    const QListWidgetItem* current = ui->lstBMPs->currentItem();
    if (current == nullptr) {
        return;
    }
    ui->picLooseBMP->setPicture(ui->picError->picture());
    ignoringErrors([&] {
        ui->picLooseBMP->load(toPath(ui->txtPath->text()).child(toGameText(current->text())));
    });
}

void frmManageFARs::drvFiles_Change(int index) {
    ui->dirFiles->setPath(toPath(ui->drvFiles->itemText(index)));
}

void frmManageFARs::dirFiles_Change() {
    showText(ui->txtPath, toDisplay(ui->dirFiles->path()));
    fillDiskSide();
}

void frmManageFARs::fillDiskSide() {
    const QSignalBlocker blocker(ui->lstBMPs);
    ui->lstBMPs->clear();
    ui->picLooseBMP->setPicture({});
    const std::vector<std::string> names = searchFiles(toPath(ui->txtPath->text()), "*.bmp");
    if (names.empty()) {
        return;
    }
    setPointer(Pointer::Hourglass);
    ui->lstBMPs->setLines(names);
    widenRows(ui->lstBMPs);
    setPointer(Pointer::Default);
}

}  // namespace marlowick
