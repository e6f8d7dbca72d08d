// Lets a person say where the game lies.
#pragma once

#include <memory>

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
    void cmdUseReg_Click();
    void cmdFindPath_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmSetPath> ui;
};

}  // namespace marlowick
