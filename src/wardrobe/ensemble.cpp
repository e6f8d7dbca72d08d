#include "wardrobe/ensemble.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/file_state.h"
#include "foundation/open_game.h"
#include "system/files.h"
#include "system/replace_file.h"
#include "system/runtime_error.h"
#include "system/streams.h"
#include "wardrobe/row_changes.h"

namespace marlowick {
namespace {

using F = WardrobeFields;

struct Line {
    Field field;
    const char* name;  // for a person
};

// Line 1 first.
constexpr Line kLines[] = {
    {&F::txtNormalBody, "Normal"},
    {&F::txtNormalSkin, "Normal, skin"},
    {&F::txtSwimsuitBody, "Swimsuit"},
    {&F::txtSwimsuitSkin, "Swimsuit, skin"},
    {&F::txtFormalBody, "Formal"},
    {&F::txtFormalSkin, "Formal, skin"},
    {&F::txtPajamasBody, "Pajamas"},
    {&F::txtPajamasSkin, "Pajamas, skin"},
    {&F::txtNudeBody, "Nude"},
    {&F::txtNudeSkin, "Nude, skin"},
    {&F::txtHandFormalLeft, "Left formal hand"},
    {&F::txtHandFormalRight, "Right formal hand"},
    {&F::txtHandClosedLeft, "Left closed hand"},
    {&F::txtHandClosedRight, "Right closed hand"},
    {&F::txtHandOpenLeft, "Left open hand"},
    {&F::txtHandOpenRight, "Right open hand"},
    {&F::txtHandPointLeft, "Left pointing hand"},
    {&F::txtHandPointRight, "Right pointing hand"},
    {&F::txtWinterBody, "Winter"},
    {&F::txtWinterSkin, "Winter, skin"},
    {&F::txtFashionBody, "High fashion"},
    {&F::txtFashionSkin, "High fashion, skin"},
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
    for (const Line& line : kLines) {
        if (text.empty() && (taken == kFirstLines || taken == kWinterLines)) {
            return;
        }
        fields.*line.field = nextLine(text);
        ++taken;
    }
}

// No line of a name comes near this; a file that is larger is no ensemble, and reading stops.
constexpr std::size_t kLargestFile = 1U << 20U;

std::string startOf(File& file) {
    std::string content(std::min<std::size_t>(kLargestFile, static_cast<std::size_t>(file.size())),
                        '\0');
    content.resize(file.read(content.data(), content.size()));
    return content;
}

// How the fields differ from what the file at path holds, if it can be read.
std::string changesInWords(const Path& path, const WardrobeFields& fields) {
    std::vector<RowChange> changes;
    ignoringErrors([&] {
        WardrobeFields old = fields;
        takeLines(startOf(*files().open(path, OpenMode::Input)), old);
        for (const Line& line : kLines) {
            if (old.*line.field != fields.*line.field) {
                changes.push_back({line.name, old.*line.field, fields.*line.field});
            }
        }
    });
    return inWords(changes);
}

}  // namespace

void loadEnsemble(const Path& path, WardrobeFields& fields) {
    const Slot slot = streams().freeSlot();
    File& file = streams().open(slot, path, OpenMode::Input);
    takeLines(startOf(file), fields);
    streams().close(slot);
}

bool saveEnsemble(const Path& path, const WardrobeFields& fields, HistoryCommand& history) {
    std::string content;
    for (const Line& line : kLines) {
        content += fields.*line.field + "\r\n";
    }
    refuseTemplate(path);
    const std::string changes = changesInWords(path, fields);
    return replaceFileContent(path, content, ReadOnlyTarget::Refuse, [&](const Path& beside) {
        return history.keepOrAsk(path, stateOfFile(beside), changes);
    });
}

bool deleteEnsemble(const Path& path, HistoryCommand& history) {
    refuseTemplate(path.folder());
    if (!history.keepOrAsk(path, std::nullopt)) {
        return false;
    }
    files().remove(path);
    return true;
}

}  // namespace marlowick
