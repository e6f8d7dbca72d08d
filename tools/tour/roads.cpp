#include "roads.h"

#include "catalogue/thumbnail_page.h"

namespace marlowick::tour {

QPoint cellCentre(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + page::kPitch / 2, corner.y + page::kPitch / 2};
}

void addEnd(Driver& driver) {
    driver.add("end", whenShown("frmMain"), closeWindow("frmMain"));
    driver.add("exit-question", whenAsked("Confirm Action"), answer("Yes"));
}

}  // namespace marlowick::tour
