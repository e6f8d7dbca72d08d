#include "roads.h"

#include "catalogue/thumbnail_page.h"
#include "catalogue/thumbnail_page_view.h"
#include "widgets/picture_box.h"

namespace marlowick::tour {

QPoint cellCentre(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + page::kPitch / 2, corner.y + page::kPitch / 2};
}

std::function<bool()> whenChosen(const QString& window, int cell) {
    return [window, cell] {
        if (shownWindow(window) == nullptr) {
            return false;
        }
        const auto* const page = qobject_cast<PictureBox*>(control(window, "picThumbs"));
        return page != nullptr && page->outlineAt(cellBox(cell)).isValid();
    };
}

void addEnd(Driver& driver) {
    driver.add("end", whenShown("frmMain"), closeWindow("frmMain"));
    driver.add("exit-question", whenAsked("Confirm Action"), answer("Yes"));
}

}  // namespace marlowick::tour
