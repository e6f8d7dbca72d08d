#include <functional>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/iff_file.h"
#include "iff/sim_names.h"
#include "iff/string_segment.h"

namespace marlowick {
namespace {

bool anySegment(const IffFile& iff, const std::function<bool(const IffSegment&)>& test) {
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        if (test(iff.Segments[i])) {
            return true;
        }
    }
    return false;
}

bool isSegment(const IffSegment& segment, std::string_view type, std::string_view id) {
    return segment.Type == type && segment.ID == id;
}

}  // namespace

bool gfblnVerifyUserIFF(IffFile& iff) {
    bool valid = false;
    // No module bears this name. A report from here has always shown it, and whoever looks a
    // report up by its module must go on finding it.
    trapped("BrindleMain", "gfblnVerifyUserIFF", [&] {
        const std::string wardrobe = gfstrHexToBytes(kWardrobeId);
        const std::string name("\x07\xD0\x00\x10", 4);
        valid =
            anySegment(iff, [&](const IffSegment& s) { return isSegment(s, "STR#", wardrobe); }) &&
            anySegment(iff, [&](const IffSegment& s) { return isSegment(s, "CTSS", name); }) &&
            anySegment(iff, isUserObject);
    });
    return valid;
}

}  // namespace marlowick
