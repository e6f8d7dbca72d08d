// The first window of the program: its name, its version and a notice.
#pragma once

#include <memory>

#include "widgets/form.h"

namespace Ui {
class frmTitle;
}

namespace marlowick {

class frmTitle : public ModalForm {
    Q_OBJECT
  public:
    frmTitle();
    ~frmTitle() override;

    void Form_Load() override;
    // Shows the main window: the only way to it.
    void Form_Unload() override;

  protected:
    void buildControls() override;

  private:
    std::unique_ptr<Ui::frmTitle> ui;
};

}  // namespace marlowick
