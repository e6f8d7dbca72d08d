// The wardrobe of one pet: its only outfit, with a picture. Nothing reaches the pet's
// file before Save. Error reports from here read like those of the sim's window.
#pragma once

#include <memory>
#include <string>

#include "catalogue/chosen_skin.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "preview/worn.h"
#include "system/path.h"
#include "wardrobe/pet_fields.h"
#include "widgets/form.h"

namespace Ui {
class frmEditPet;
}

namespace marlowick {

class WornOptions;

class frmEditPet : public ModalForm, public ChosenSkin {
    Q_OBJECT
  public:
    frmEditPet();
    ~frmEditPet() override;

    // The pet's file; set before the window is shown.
    Path LoadUserFile;
    // Whether a save copies the old file to the backups first; set likewise.
    bool BackupWanted = true;

    void Form_Load() override;
    void Form_Activate() override;

  protected:
    void buildControls() override;

  private:
    bool msDisplayPet();
    void showFields();
    void makeWornOptions();
    // Shows the pet worn or flat.
    void showWorn();
    // The pet without its coat.
    Wearer wearer() const;
    void cmdChangeNormal_Click();
    void loadPet();
    void cmdHistory_Click();
    void cmdSave_Click();
    bool save();

    std::unique_ptr<Ui::frmEditPet> ui;
    WornOptions* wornOptions_ = nullptr;
    Path UserFilePath;
    IffFile PetFile;
    IffFile loaded_;  // the same before anything changed in it
    std::string loadedBytes_;
    StrSegment PetStrings;
    PetFields fields_;
    PetFields loadedFields_;
    std::string loadFailure_;  // in words; a window whose load failed never saves
};

}  // namespace marlowick
