// Picks one of the archives in the game's folder of textures for the archive window.
#pragma once

#include <memory>

#include "widgets/form.h"

namespace Ui {
class frmOpenFAR;
}

namespace marlowick {

class frmOpenFAR : public ModalForm {
    Q_OBJECT
  public:
    frmOpenFAR();
    ~frmOpenFAR() override;

    void Form_Load() override;

  protected:
    void buildControls() override;

  private:
    void cmdSelect_Click();

    std::unique_ptr<Ui::frmOpenFAR> ui;
};

}  // namespace marlowick
