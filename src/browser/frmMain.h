// The main window: the neighbourhoods, a page of 49 sims, the chosen sim's pictures.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "foundation/list.h"
#include "iff/iff_file.h"
#include "widgets/form.h"

class QAction;
class QLabel;

namespace Ui {
class frmMain;
}

namespace marlowick {

class frmMain : public QMainWindow, public FormEvents {
    Q_OBJECT
  public:
    frmMain();
    ~frmMain() override;

    // Runs Form_Load, shows the window without blocking and runs Form_Activate.
    void showMain();

    void Form_Load() override;
    void Form_Activate() override;

    // The check mark of "Create Backup File".
    bool backupWanted() const;

    // The strict form of the listing: only files that pass verification, and a report of the
    // others. No control leads to it.
    void msGetSimFileNames();

    // Puts the mesh and the skin of the chosen sim's head on the disk: what a drawn preview in
    // picRender would begin with. No control leads to it either, and nothing is drawn.
    void msPrepareSimPreview();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void connectControls();
    void connectMenu(QAction* action, const char* event, void (frmMain::*handler)());
    void makeNameLabels();
    void showPathMessages();
    void activateWithGame();

    void msGetUserDataDirs();
    void msFillUserDataList();
    void msGetFileNames();
    void msReportBadFiles();
    void msLoadSimImages();
    void msDisplaySim(const std::string& fileName);

    void paintCell(int cell, const std::string& fileName);
    void clearSim();
    void showUnreadable(const std::string& fileName, const std::string& reason);
    void showPortraits();
    void showObjectName(const std::string& fileName);
    void outlineCell(int cell, bool visible);
    void setName(int cell, const QString& name);
    std::string fileInCell(int cell) const;
    Path simPath(const std::string& fileName) const;
    void goToPage(int pageNumber);
    bool walkSims(const std::function<bool(const SimWalk&)>& tool);
    void repairSims(const QString& question, bool (*tool)(const SimWalk&));

    void lstUserDataDir_Click();
    void cmdFirst_Click();
    void cmdPrevious_Click();
    void cmdNext_Click();
    void cmdLast_Click();
    void cmdSelect_Click();
    void picThumbs_MouseDown(QPoint position);
    void picThumbs_MouseMove(QPoint position);
    void moveSelection(int columns, int rows);
    void Timer1_Timer();
    void smenuExit_Click();
    void smenuBackup_Click();
    void smenuSetPath_Click();
    void menuFARs_Click();
    void smenuExport_Click();
    void smenuFix_Click();
    void smenuPinkHands_Click();

    std::unique_ptr<Ui::frmMain> ui;
    QTimer* Timer1;
    std::array<QLabel*, 49> lblSimName{};

    List<std::string> masUserDataDirs;
    std::string mstrUserDataDir;
    List<std::string> masSimFiles;
    List<BadFile> mudtBadFiles;
    int mlngPage = 0;
    int mlngSelected = 0;
    bool mblnIsPet = false;
    bool mblnBlink = false;
    IffFile mudtIff;
};

}  // namespace marlowick
