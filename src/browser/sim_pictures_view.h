// The pictures of the chosen sim: portrait, faces and relationship pictures one below the other, or
// what is wrong with its file.
#pragma once

#include <QStringList>

#include "iff/iff_file.h"
#include "widgets/picture_box.h"

namespace marlowick {

class SimPicturesView : public PictureBox {
    Q_OBJECT
  public:
    explicit SimPicturesView(QWidget* parent = nullptr);

    // Without a sim; no tool tip stays either.
    void clearSim();
    // Unpacks the pictures of a file that was read into the program folder and paints them by way
    // of load. One that the file hasn't, or that can't be shown, is the stock picture missing.
    void showPictures(const IffFile& iff, PictureBox& load, const QImage& missing);
    // A card and lines of text below it in the place of the pictures; the last line, which may be
    // wider than the box, is the tool tip too.
    void showUnreadable(const QImage& card, const QStringList& lines);
};

}  // namespace marlowick
