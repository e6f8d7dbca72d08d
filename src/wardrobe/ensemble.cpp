#include "wardrobe/ensemble.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "foundation/bytes.h"
#include "foundation/open_game.h"
#include "system/files.h"
#include "system/replace_file.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using F = WardrobeFields;

// The field of each line, line 1 first.
constexpr Field kLines[] = {
    &F::txtNormalBody,     &F::txtNormalSkin,      &F::txtSwimsuitBody,   &F::txtSwimsuitSkin,
    &F::txtFormalBody,     &F::txtFormalSkin,      &F::txtPajamasBody,    &F::txtPajamasSkin,
    &F::txtNudeBody,       &F::txtNudeSkin,        &F::txtHandFormalLeft, &F::txtHandFormalRight,
    &F::txtHandClosedLeft, &F::txtHandClosedRight, &F::txtHandOpenLeft,   &F::txtHandOpenRight,
    &F::txtHandPointLeft,  &F::txtHandPointRight,  &F::txtWinterBody,     &F::txtWinterSkin,
    &F::txtFashionBody,    &F::txtFashionSkin,
};

// Behind so many lines a file may end: those of the first generation, and those with winter wear.
constexpr int kFirstLines = 18;
constexpr int kWinterLines = 20;

// Takes the next line off the front of the text. No name holds a zero byte: it ends its line.
std::string nextLine(std::string_view& text) {
    if (text.empty()) {
        throw RuntimeError(error::kInputPastEnd);
    }
    const std::size_t end = text.find_first_of("\r\n");
    std::string line = gfstrTrimAtNull(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
    if (text.starts_with("\r\n")) {
        text.remove_prefix(2);
    } else if (!text.empty()) {
        text.remove_prefix(1);
    }
    return line;
}

void takeLines(std::string_view text, WardrobeFields& fields) {
    int taken = 0;
    for (const Field field : kLines) {
        if (text.empty() && (taken == kFirstLines || taken == kWinterLines)) {
            return;
        }
        fields.*field = nextLine(text);
        ++taken;
    }
}

// No line of a name comes near this; a file that is larger is no ensemble, and reading stops.
constexpr std::size_t kLargestFile = 1U << 20U;

}  // namespace

void loadEnsemble(const Path& path, WardrobeFields& fields) {
    const Slot slot = streams().freeSlot();
    File& file = streams().open(slot, path, OpenMode::Input);
    std::string content(std::min<std::size_t>(kLargestFile, static_cast<std::size_t>(file.size())),
                        '\0');
    content.resize(file.read(content.data(), content.size()));
    takeLines(content, fields);
    streams().close(slot);
}

void saveEnsemble(const Path& path, const WardrobeFields& fields) {
    std::string content;
    for (const Field field : kLines) {
        content += fields.*field + "\r\n";
    }
    refuseTemplate(path);
    replaceFileContent(path, content, ReadOnlyTarget::Refuse);
}

}  // namespace marlowick
