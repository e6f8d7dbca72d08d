// The wardrobe of one sim: every outfit and every hand, with a picture of each.
// Nothing reaches the sim's file before Save.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "catalogue/chosen_skin.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "system/path.h"
#include "wardrobe/hands.h"
#include "wardrobe/wardrobe_fields.h"
#include "widgets/form.h"

class QRadioButton;

namespace Ui {
class frmEditSim;
}

namespace marlowick {

class PictureBox;
class SkinImages;
class WornOptions;

class frmEditSim : public ModalForm, public ChosenSkin {
    Q_OBJECT
  public:
    frmEditSim();
    ~frmEditSim() override;

    // The sim's file; set before the window is shown.
    Path LoadUserFile;
    // Whether a save copies the old file to the backups first; set likewise.
    bool BackupWanted = true;
    bool ConfirmDelete = false;

    void Form_Load() override;
    void Form_Activate() override;

  protected:
    void buildControls() override;

  private:
    struct ChangeCommand;
    struct DefaultCommand;
    static const ChangeCommand kChangeCommands[];
    static const DefaultCommand kDefaultCommands[];

    void makeStockPictures();
    void makeWornOptions();
    void connectOutfitCommands();
    void connectHandCommands();
    void connectBodyTypes();
    // Runs a command at each click of the button of that name; its failures are reported under the
    // button's name and "_Click".
    void onButton(const char* button, std::function<void()> command);

    void msLoadUserData();
    void msClearUserData();
    bool msDisplayUserData();
    void showFields();
    // Fills the pictures of all outfits and hands; a child's adult outfits show the card for
    // children if childCards is set.
    void showPictures(bool childCards);
    void showHands(const HandPair& pair, SkinImages& images);
    // Shows the outfit of the tab in front worn or flat.
    void showWorn();
    void showSkin(const char* picture, const std::string& skin, SkinImages& images);

    void changeOutfit(const ChangeCommand& command);
    void changeHand(const Hand& hand);
    // Puts what the chooser has handed back into a picture.
    void showChoice(const char* picture);
    void cmdEnsLoad_Click();
    void cmdEnsSave_Click();
    void defaultOutfit(const DefaultCommand& command);
    void showDefault(const DefaultCommand& command);
    void copyLeftHand(const HandPair& pair);
    void defaultHands(const HandPair& pair);
    void cmdNormalFormalHands_Click();
    void cmdHistory_Click();
    bool mayDropChanges() const;
    void cmdSave_Click();
    bool save();

    PictureBox& picture(const char* name) const;
    QRadioButton* option(const BodyTypeOption& choice) const;
    void takeFocus();

    std::unique_ptr<Ui::frmEditSim> ui;
    WornOptions* wornOptions_ = nullptr;
    IffFile userFile_;
    IffFile loaded_;  // the same before anything changed in it
    std::string loadedBytes_;
    StrSegment wardrobe_;
    WardrobeFields fields_;
    WardrobeFields loadedFields_;
    std::string loadFailure_;  // in words; a window whose load failed never saves
};

}  // namespace marlowick
