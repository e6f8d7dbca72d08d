#include "browser/head_names.h"

#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

HeadNames headNames(const StrSegment& wardrobe) {
    const bool hasHead = wardrobe.Entries[row::kHead].Text != "NONE";
    const std::string& text = wardrobe.Entries[hasHead ? row::kHead : row::kNormal].Text;
    return {bodyOfRow(text), skinOfRow(text)};
}

}  // namespace marlowick
