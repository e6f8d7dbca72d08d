#include "catalogue/thumbnail_page_view.h"

#include "catalogue/thumbnail_page.h"

namespace marlowick {

QRect cellBox(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x, corner.y, page::kPitch, page::kPitch};
}

}  // namespace marlowick
