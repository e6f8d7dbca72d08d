// The report of a failure that the program didn't expect. Its only closing button
// ends the program; closing it by its frame lets the failed routine's caller go on.
#pragma once

#include <memory>

#include "widgets/form.h"

namespace Ui {
class frmErrorDialog;
}

namespace marlowick {

class frmErrorDialog : public ModalForm {
    Q_OBJECT
  public:
    frmErrorDialog();
    ~frmErrorDialog() override;

    // Writes the report to "\errorlog.txt" and shows it. A failure here ends the program at once:
    // a failing report must not start a second one.
    void Form_Load() override;
    void Form_Activate() override;

  protected:
    void buildControls() override;

  private:
    void cmdCopy_Click();
    void cmdWebPage_Click();
    void cmdMailTo_Click();

    std::unique_ptr<Ui::frmErrorDialog> ui;
};

}  // namespace marlowick
