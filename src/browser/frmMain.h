// The main window: the neighbourhoods, a page of 49 sims, the chosen sim's pictures.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "browser/sim_page.h"
#include "foundation/list.h"
#include "foundation/running_game.h"
#include "iff/iff_file.h"
#include "preview/worn.h"
#include "widgets/form.h"

class QAction;

namespace Ui {
class frmMain;
}

namespace marlowick {

class frmHistory;

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
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void connectControls();
    void connectMenu(QAction* action, const char* event, void (frmMain::*handler)());
    void storeLocation();
    void listAnew();
    void lookAtGame();
    void showPathMessages();
    void activateWithGame();
    void listNeighbourhoods();
    void tellOfMissingChoice();
    void tellOfMissingSaves();
    static bool isGameThere();

    void msGetUserDataDirs();
    void msFillUserDataList();
    void msGetFileNames();
    void msReportBadFiles();
    void msLoadSimImages();
    void msDisplaySim(const std::string& fileName);

    void paintCell(int cell);
    void clearSim();
    // Shows the chosen sim as it is worn; nothing for a sim that isn't.
    void showWorn(const std::optional<Worn>& worn);
    // As its file tells now.
    void showWornAnew(const std::string& fileName);
    void showUnreadable(const std::string& fileName, const std::string& reason);
    Path simPath(const std::string& fileName) const;
    void turnPage(bool (SimPage::*turn)());
    bool walkSims(const std::function<bool(const SimWalk&)>& tool);
    // command: its name among the earlier versions.
    void repairSims(const QString& question, const char* command,
                    bool (*tool)(const SimWalk&, RepairWork&));
    bool repairAndTell(const char* command, bool (*tool)(const SimWalk&, RepairWork&));

    void lstUserDataDir_Click();
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
    void smenuHistory_Click();

    // The menu of the chosen face, at a position of the page.
    void showFaceMenu(QPoint position);
    // The window of earlier versions, which paints the page anew when it has restored something.
    frmHistory& historyWindow();
    void paintPageAnew();

    std::unique_ptr<Ui::frmMain> ui;
    QTimer* Timer1;

    // What the lists and the catalogue were made of.
    Path listedGame_;
    Path listedNeighbourhoods_;
    bool toldOfMissingSaves_ = false;
    bool toldOfMissingChoice_ = false;
    RunningGameNotice runningGame_;

    List<std::string> masUserDataDirs;
    std::string mstrUserDataDir;
    List<BadFile> mudtBadFiles;
    SimPage page_;
    bool mblnIsPet = false;
    bool mblnBlink = false;
    IffFile mudtIff;
};

}  // namespace marlowick
