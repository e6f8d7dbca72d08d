// The two options "Worn" and "Skin", and the figure (a control "wornView" of the same window) that
// covers a flat picture of clothes while the first one is chosen. All windows share one setting.
#pragma once

#include <QRadioButton>
#include <QWidget>
#include <optional>

#include "preview/worn.h"
#include "preview/worn_view.h"

namespace marlowick {

class WornOptions : public QWidget {
    Q_OBJECT
  public:
    explicit WornOptions(QWidget* parent = nullptr);

    // Marks and gaps for a window with little room.
    void makeSmall();

    // Tab leads from a control to the options, to the figure and on to what followed the control.
    void putBehind(QWidget* control);

    // The setting may have changed in another window: true if it has.
    bool readSetting();

    // Shows what flat shows as it is worn, if that is chosen and flat shows a bitmap, not a card;
    // else flat is seen, and its accessible description says why. Nothing for worn: there are no
    // clothes. The view stands over flat from now on.
    void show(PictureBox& flat, const std::optional<Worn>& worn);

  Q_SIGNALS:
    // The other option was chosen, and the setting tells so.
    void switched();

  private:
    void choose(bool worn);
    Scene sceneOf(const PictureBox& flat, const std::optional<Worn>& worn) const;

    QRadioButton* optWorn_;
    QRadioButton* optSkin_;
    WornView* view_;
};

}  // namespace marlowick
