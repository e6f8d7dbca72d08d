// The archive window: what lies in one archive, and the bitmaps of one folder that can go into it.
// Nothing reaches the archive before "Save Current FAR File".
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "far/far_edit.h"
#include "far/far_save.h"
#include "system/path.h"
#include "widgets/form.h"

namespace Ui {
class frmManageFARs;
}

namespace marlowick {

class frmManageFARs : public ModalForm {
    Q_OBJECT
  public:
    frmManageFARs();
    ~frmManageFARs() override;

    // The archive that was picked last; nothing empties it.
    Path OpenFile;

    void Form_Load() override;

  protected:
    void buildControls() override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void connectControls();
    void connectButton(QAbstractButton* button, const char* event,
                       void (frmManageFARs::*handler)());

    void msNewFile();
    void msOpenFile();
    void msSaveFile();
    void msAddFile();
    void msAddFolder();
    void msDelete();
    void msUndelete();
    void msExtract();

    void lstFiles_Click();
    void lstBMPs_Click();
    void cmdFind_Click();
    void cmdNext_Click();
    void drvFiles_Change(int index);
    void dirFiles_Change();

    // Adds files of the open folder, and tells in one message which names can't be entries.
    void addFiles(const std::vector<std::string>& names,
                  const std::function<void(const std::string&)>& tellDuplicate);
    // Changes the edit; the selection stays with its rows.
    void change(const std::function<void()>& work);
    // Fills lstFiles from the edit's rows, with these rows selected.
    void showRows(const std::vector<int>& selected, int current);
    void showArchive(const QString& name);
    void search(int start);
    void warnIfTooLarge() const;
    // Says what stands in the way of a save, or asks.
    bool mayBeSaved() const;
    // Saves the edit and shows what it is then. False if the reading back has failed.
    bool save(const Path& target);
    // The bar of a command that is under way; processed from 0 to total, which is above 0.
    void showProgress(int processed, int total);
    void hideProgress();
    void paintNowAndThen();
    void extractRows(const std::vector<int>& selected);
    void extractRow(const FarRow& row, FarExtraction& extraction);
    void fillDiskSide();

    std::unique_ptr<Ui::frmManageFARs> ui;
    FarEdit mudtEdit;
    QElapsedTimer painted_;
};

}  // namespace marlowick
