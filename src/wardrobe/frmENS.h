// The list of ensembles: one is saved, loaded or deleted.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "system/path.h"
#include "wardrobe/wardrobe_fields.h"
#include "widgets/form.h"

namespace Ui {
class frmENS;
}

namespace marlowick {

// Values of mode.
inline constexpr std::int32_t kEnsembleSave = 1;
inline constexpr std::int32_t kEnsembleLoad = 2;

class frmENS : public ModalForm {
    Q_OBJECT
  public:
    frmENS();
    ~frmENS() override;

    // 1 saves, any other value loads; set before the window is shown.
    std::int32_t mode = kEnsembleLoad;

    // Shows the window over the wardrobe's fields: saving reads them, loading fills them.
    void showFor(WardrobeFields& fields);

    void Form_Load() override;

  protected:
    void buildControls() override;

  private:
    void refreshList();
    void flbENS_Click();
    void cmdSaveLoad_Click();
    bool save();
    void load();
    void cmdDelete_Click();
    std::string fileName() const;

    std::unique_ptr<Ui::frmENS> ui;
    WardrobeFields* fields_ = nullptr;
};

}  // namespace marlowick
