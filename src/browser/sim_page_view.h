// The page of sims as it is painted: portraits, the names under them, the frame of the chosen cell.
#pragma once

#include <QStringList>
#include <array>
#include <string>

#include "catalogue/thumbnail_page.h"
#include "widgets/picture_box.h"

class QFontMetrics;
class QLabel;

namespace marlowick {

// A name as it stands under a portrait: a long one breaks at its first blank, and a line that is
// too wide even so ends in an ellipsis.
QStringList nameLines(const QString& name, const QFontMetrics& metrics);

class SimPageView : public PictureBox {
    Q_OBJECT
  public:
    explicit SimPageView(QWidget* parent = nullptr);

    // Without sims.
    void clearPage();
    // Cells are those of the page, from 0 to 48.
    void paintPortrait(int cell, const QImage& portrait);
    // The label under a portrait holds the whole name.
    void setName(int cell, const QString& name);
    // The frame of a cell, which may lie outside of the 49.
    void frameCell(int cell, bool visible);
    // The tool tip of the cell under the pointer; empty for none.
    void tellFile(const std::string& fileName);

  private:
    std::array<QLabel*, page::kCells> names_{};
};

}  // namespace marlowick
