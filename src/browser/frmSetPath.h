// Lets a person say where the game lies, and where its neighbourhoods do.
#pragma once

#include <memory>
#include <vector>

#include "foundation/game_search.h"
#include "system/path.h"
#include "widgets/form.h"

namespace Ui {
class frmSetPath;
}

namespace marlowick {

// The registry's text for the game's folder, as it is shown, or "ERROR".
QString registeredSimsPath();

class frmSetPath : public ModalForm {
    Q_OBJECT
  public:
    frmSetPath();
    ~frmSetPath() override;

    void Form_Load() override;

  protected:
    void buildControls() override;

  private:
    void listGames();
    void showNeighbourhoods(const Path& folder, bool isChosen);
    void showAutomatic();

    void lstGames_Click();
    void txtLocation_Change();
    void txtLocation_LostFocus();
    void cmdUseReg_Click();
    void cmdFindPath_Click();
    void cmdFindNeighborhoods_Click();
    void cmdAutomatic_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmSetPath> ui;
    std::vector<FoundGame> games_;  // as lstGames lists them
    bool isChosen_ = false;         // the folder of the neighbourhoods, by a person
};

}  // namespace marlowick
