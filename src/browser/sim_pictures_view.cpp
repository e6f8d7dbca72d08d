#include "browser/sim_pictures_view.h"

#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "system/files.h"
#include "widgets/display_text.h"

namespace marlowick {
namespace {

constexpr int kTextPixels = 10;
constexpr int kFirstLine = 48;
constexpr int kLineHeight = 12;

// Where the sim's unpacked pictures are looked for, and the height at which each is painted.
struct Portrait {
    Path (*file)();
    int y;
};

constexpr Portrait kPortraits[] = {{webImageFile, 0}, {facesFile, 64}, {relationImagesFile, 128}};

}  // namespace

SimPicturesView::SimPicturesView(QWidget* parent) : PictureBox(parent) {
    QFont small = font();
    small.setPixelSize(kTextPixels);
    setFont(small);
}

void SimPicturesView::clearSim() {
    clear();
    setToolTip(QString());
}

void SimPicturesView::showPictures(const IffFile& iff, PictureBox& load, const QImage& missing) {
    for (const Portrait& portrait : kPortraits) {
        ignoringErrors([&] { removeIfPresent(portrait.file()); });
    }
    ignoringErrors([&] { dumpBitmaps(iff); });
    for (const Portrait& portrait : kPortraits) {
        load.setPicture(missing);
        ignoringErrors([&] { load.load(portrait.file()); });
        paint(load.picture(), {0, portrait.y});
    }
}

void SimPicturesView::showUnreadable(const QImage& card, const QStringList& lines) {
    paint(card, {0, 0});
    int y = kFirstLine;
    for (const QString& line : lines) {
        print(line, {2, y});
        y += kLineHeight;
    }
    setToolTip(toToolTip(lines.last()));
}

}  // namespace marlowick
