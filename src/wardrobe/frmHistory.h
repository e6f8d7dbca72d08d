// The earlier versions of the player's files: what each command changed, the newest first, and the
// way back. The sims' names and faces are read out of the kept files, in memory alone.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/history.h"
#include "foundation/history_restore.h"
#include "system/path.h"
#include "widgets/form.h"

class QListWidget;
class QListWidgetItem;

namespace Ui {
class frmHistory;
}

namespace marlowick {

class frmHistory : public ModalForm {
    Q_OBJECT
  public:
    frmHistory();
    ~frmHistory() override;

    // A window behind this one that has a file open.
    struct Editor {
        Path file;
        // Asks about changes that aren't saved; false if they are to stay.
        std::function<bool()> mayDropChanges;
        // The file has other content now.
        std::function<void()> loadAnew;
    };

    // What is to be painted anew when a file has been restored.
    std::function<void()> Restored;

    // Shows all earlier versions; or those of one file, which is open in an editor behind. False if
    // that file was removed: it hasn't been loaded anew then, since reading it would make an empty
    // one, which the game would find.
    void showAll();
    void showOf(const Path& userFile);
    bool showOf(const Editor& editor);

    void Form_Load() override;

  protected:
    void buildControls() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fillBounds();
    void storeShownBounds();
    void readEntries();
    void showEntries();
    void showFiles();
    void addEntry(std::size_t index);
    void showFaces(QListWidget* list);
    void showState();
    const HistoryEntry* chosenEntry() const;
    // The records of the chosen line; empty for all of the entry.
    std::vector<std::size_t> chosenRecords() const;

    void cmdRestore_Click();
    bool mayTakeOnMovedGame(const HistoryEntry& entry) const;
    std::vector<RestoreItem> planFor(const HistoryEntry& entry) const;
    bool mayRestore(const HistoryEntry& entry, const std::vector<RestoreItem>& plan);
    bool restore(const HistoryEntry& entry, const std::vector<RestoreItem>& plan);
    void tellRestored();

    std::unique_ptr<Ui::frmHistory> ui;
    std::string filter_;  // UTF-8
    std::optional<Editor> editor_;
    std::vector<HistoryEntry> entries_;
    bool isEditorsRestored_ = false;
    bool isEditorsGone_ = false;
};

// Shows the earlier versions of the file that an editor has open, and closes the editor if it was
// removed.
void showEarlierVersions(QWidget& window, const frmHistory::Editor& editor);

}  // namespace marlowick
