#include "iff/sim_names.h"

#include "foundation/bytes.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kNameStart = 5;  // behind format, count and language

}  // namespace

bool isUserObject(const IffSegment& segment) {
    return segment.Type == "OBJD" &&
           lowerCase(gfstrTrimAtNull(segment.Label).substr(0, 4)) == "user";
}

std::string catalogueName(const IffSegment& segment) {
    return segment.Data.size() <= kNameStart ? std::string()
                                             : gfstrTrimAtNull(segment.Data.substr(kNameStart));
}

std::optional<std::string> firstUserLabel(const IffFile& iff) {
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        if (isUserObject(iff.Segments[i])) {
            return gfstrTrimAtNull(iff.Segments[i].Label);
        }
    }
    return std::nullopt;
}

std::optional<std::string> firstCatalogueName(const IffFile& iff) {
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        if (iff.Segments[i].Type == "CTSS") {
            return catalogueName(iff.Segments[i]);
        }
    }
    return std::nullopt;
}

std::optional<std::string> lastUserLabel(const IffFile& iff) {
    for (int i = iff.Segments.bound(); i >= 1; --i) {
        if (isUserObject(iff.Segments[i])) {
            std::string label = gfstrTrimAtNull(iff.Segments[i].Label);
            label.erase(label.find_last_not_of(' ') + 1);
            return label;
        }
    }
    return std::nullopt;
}

std::optional<std::string> lastCatalogueName(const IffFile& iff) {
    for (int i = iff.Segments.bound(); i >= 1; --i) {
        if (iff.Segments[i].Type == "CTSS") {
            return catalogueName(iff.Segments[i]);
        }
    }
    return std::nullopt;
}

}  // namespace marlowick
