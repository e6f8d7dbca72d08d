// The chooser: models on the left, a page of 49 thumbnails of the skins that fit on
// the right. The windows that open it set its three properties and take its reply.
#pragma once

#include <QRect>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/chosen_skin.h"
#include "catalogue/skin_lists.h"
#include "foundation/list.h"
#include "preview/worn.h"
#include "widgets/form.h"

namespace Ui {
class frmSelectSkin;
}

namespace marlowick {

class PictureBox;
class WornOptions;

// Values of SelectMode.
inline constexpr std::int32_t kSelectHand = 1;
inline constexpr std::int32_t kSelectSimSkin = 2;
inline constexpr std::int32_t kSelectPetSkin = 3;

// What a page of thumbnails shows, and thereby which of the three painters is at work.
enum class SkinPage {
    Skins,     // bitmaps of a body's or a pet's skins
    Hands,     // bitmaps of hands
    Archives,  // entries of archives
};

class frmSelectSkin : public ModalForm {
    Q_OBJECT
  public:
    frmSelectSkin();
    ~frmSelectSkin() override;

    // The request: "falgtfitB", or "Dog" or "Cat" for a pet; not read for a hand.
    std::string SkinData;
    // A hand is chosen: Select needs no line of the model list then.
    bool HandMode = false;
    std::int32_t SelectMode = kSelectSimSkin;
    // Who tries the clothes on; not read for a hand.
    Wearer WornBy;

    // Shows the window; reply takes what was chosen, and its SelectedSkin is empty if nothing was.
    void choose(ChosenSkin& reply);

    void Form_Load() override;
    void Form_Activate() override;

  protected:
    void buildControls() override;

  private:
    void connectControls();
    void showCaption();

    void msGetFilteredModelList();
    void msGetPetModelList();
    void msFillModelList();

    void msGetSkinFileNames();
    void msGetHandFileNames();
    void msGetSkinFARNames();
    void msGetHandFARNames();
    // Lists the bitmaps of skins or hands that can be loaded and tells of the others.
    void listFiles(SkinPage kind);
    SkinQuery query(const std::string& model) const;

    void msFillThumbs();
    void msFillHandBMPs();
    void msFillThumbsFAR();
    void paintPage();
    void paint(SkinPage kind);
    void paintCells(SkinPage kind, int first, int last, Path& file);
    static bool tellsFile(SkinPage kind);
    const Path& fileOf(SkinPage kind, int entry) const;
    const QImage& loadThumb(SkinPage kind, int entry);
    void showFirst(SkinPage kind, int entry);
    void chooseFile(const Path& file);
    void chooseArchiveSkin(const FarSkinEntry& skin, const std::string& name);
    // Gives the entry's name.
    static std::string loadOrShowCard(PictureBox& box, const FarSkinEntry& skin);
    QString emptyPageText() const;
    void makeWornOptions();
    // Shows the chosen skin worn or flat.
    void showWorn();
    void showSkinName(const std::string& fileName);
    void showPageCount(int entries);

    void lstModels_Click();
    void optMode_Click(int index);
    void cmdNext_Click();
    void cmdPrevious_Click();
    void cmdSelect_Click();
    void picThumbs_MouseDown(QPoint position);
    void picThumbs_MouseMove(QPoint position);
    void moveSelection(int columns, int rows);
    void Timer1_Timer();
    void frameCell(bool visible);
    int entryCount() const;

    std::unique_ptr<Ui::frmSelectSkin> ui;
    WornOptions* wornOptions_ = nullptr;
    QTimer* Timer1 = nullptr;
    ChosenSkin* caller_ = nullptr;

    List<Path> SkinFiles;
    List<FarSkinEntry> FarSkins;
    List<std::string> ModelList;
    bool FarMode = false;
    std::int32_t PageNumber = 0;
    std::int32_t SelectedCell = 0;
    Path ChosenFile;
    std::int32_t ChosenIndex = 0;
    bool BlinkPhase = false;
    bool activated_ = false;  // in this showing
};

}  // namespace marlowick
