#include "browser/neighbourhood_tools.h"

#include <memory>

#include "browser/neighbourhoods.h"
#include "catalogue/names.h"
#include "foundation/error_trap.h"
#include "foundation/open_game.h"
#include "iff/proven_rewrite.h"
#include "iff/safe_rewrite.h"
#include "iff/sim_names.h"
#include "iff/string_segment.h"
#include "system/files.h"
#include "wardrobe/row_changes.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {
namespace {

constexpr std::string_view kPinkHand = "guao_pinkg";
constexpr const char* kFormalHandLeft = "HfLO,HAND=gfao_bride";
constexpr const char* kFormalHandRight = "HfRO,HAND=gfao_bride";

// The outfits that the game got wrong, and how its own ones begin.
struct RepairedOutfit {
    int row;
    const char* femaleStem;
    const char* otherStem;
};

constexpr RepairedOutfit kRepairedOutfits[] = {
    {row::kFormal, "f100fa", "f100ma"},
    {row::kSwimsuit, "s100fa", "s100ma"},
    {row::kPajamas, "l100fa", "l100ma"},
};

// A file of the walk, and what it held when it was read.
struct ReadSim {
    const std::string& name;
    const Path& file;
    const std::string& bytes;
};

// Whether work is shown the bytes of each file.
enum class Bytes { Kept, Dropped };

// Goes through the sims that can be read; ends early, with false, when work gives false.
bool forEachSim(const SimWalk& walk, Bytes wanted,
                const std::function<bool(const ReadSim& sim)>& work) {
    std::string bytes;
    std::string* const read = wanted == Bytes::Kept ? &bytes : nullptr;
    const Path folder = charactersFolder(walk.userDataDir);
    for (int i = 1; i <= walk.simFiles.bound(); ++i) {
        const std::string& name = walk.simFiles[i];
        // A name that the game couldn't write has no path.
        if (isFileName(name)) {
            const Path file = folder.child(name);
            gsResetIFF(walk.iff);
            if (gfstrQuickReadIFF(walk.iff, file, read).empty() && !work({name, file, bytes})) {
                return false;
            }
        }
        walk.afterFile();
    }
    return true;
}

// Gives the file the record with the rows in it; what was written of it has to be that. False if
// the repair is to end.
bool rewrite(const SimWalk& walk, const ReadSim& sim, const StrSegment& strings, RepairWork& work) {
    const IffFile loaded = walk.iff;
    StrSegment before;
    if (!readWardrobeTable(loaded, before) || !writeWardrobeTable(walk.iff, strings) ||
        !writeUserTemp(walk.iff, SavedParts::All)) {
        return false;
    }
    try {
        return replaceUserFileProven(
            {sim.file, loaded, {strings}, work.history, inWords(rowChanges(before, strings))});
    } catch (const RuntimeError& failure) {
        if (failure.number() != error::kInvalidFormat) {
            throw;
        }
        work.passedOver.push_back(sim.name);
        return true;
    }
}

// Rewrites each file that change, which works on its rows, gives true for.
bool repair(const SimWalk& walk, RepairWork& work, bool (*change)(StrSegment& strings)) {
    StrSegment strings;
    return forEachSim(walk, Bytes::Kept, [&](const ReadSim& sim) {
        // A table that was read only in part must not be written.
        if (!readWardrobeTable(walk.iff, strings)) {
            return false;
        }
        if (!change(strings) ||
            (isChangedSince(sim.file, sim.bytes) && !work.maySaveOver(sim.file))) {
            return true;
        }
        return rewrite(walk, sim, strings, work);
    });
}

// A list of skins, which goes to the disk in one piece.
class SkinList {
  public:
    explicit SkinList(const Path& path) : file_(files().open(path, OpenMode::Rewrite)) {}

    void add(const std::string& line) { lines_ += line + "\r\n"; }
    void write() { file_->write(lines_); }

  private:
    std::unique_ptr<File> file_;
    std::string lines_;
};

bool isChild(const StrSegment& strings) {
    return strings.Entries[row::kAge].Text == "child";
}

bool isFemale(const StrSegment& strings) {
    return strings.Entries[row::kGender].Text == "female";
}

bool fixOutfits(StrSegment& strings) {
    if (isChild(strings) || strings.Entries.bound() <= kBaseRows) {
        return false;
    }
    const std::string type = bodyType(bodyOfRow(strings.Entries[row::kNormal].Text));
    for (const RepairedOutfit& outfit : kRepairedOutfits) {
        std::string& text = strings.Entries[outfit.row].Text;
        if (bodyType(bodyOfRow(text)) != type) {
            const std::string body =
                (isFemale(strings) ? outfit.femaleStem : outfit.otherStem) + type;
            const std::string& tone = strings.Entries[row::kSkinTone].Text;
            text = body + "_original,BODY=" + body + tone + "_original";
        }
    }
    return true;
}

bool takeOffPinkHands(StrSegment& strings) {
    if (isChild(strings)) {
        return false;
    }
    // The hands are a pair, and only the left one tells whether they are pink.
    std::string& left = strings.Entries[row::kFormalHandLeft].Text;
    std::string& right = strings.Entries[row::kFormalHandRight].Text;
    if (skinOfRow(left) != kPinkHand) {
        return false;
    }
    const bool female = isFemale(strings);
    left = female ? kFormalHandLeft : "";
    right = female ? kFormalHandRight : "";
    return true;
}

}  // namespace

Path headSkinsFile() {
    return ProgramFolder + "\\headskins.txt";
}

Path bodySkinsFile() {
    return ProgramFolder + "\\bodyskins.txt";
}

void exportSkinNames(const SimWalk& walk) {
    refuseTemplate(headSkinsFile());
    refuseTemplate(bodySkinsFile());
    SkinList heads(headSkinsFile());
    SkinList bodies(bodySkinsFile());
    try {
        StrSegment strings;
        std::string simName;
        forEachSim(walk, Bytes::Dropped, [&](const ReadSim& sim) {
            // A file without a name keeps that of the file before it.
            simName = lastCatalogueName(walk.iff).value_or(simName);
            readWardrobeTable(walk.iff, strings);
            const std::string start = sim.name + ";" + simName + ";";
            bodies.add(start + skinOfRow(strings.Entries[row::kNormal].Text));
            heads.add(start + skinOfRow(strings.Entries[row::kHead].Text));
            return true;
        });
    } catch (...) {
        ignoringErrors([&] { bodies.write(); });
        ignoringErrors([&] { heads.write(); });
        throw;
    }
    bodies.write();
    heads.write();
}

bool fixFitToSkinny(const SimWalk& walk, RepairWork& work) {
    return repair(walk, work, fixOutfits);
}

bool removePinkHands(const SimWalk& walk, RepairWork& work) {
    return repair(walk, work, takeOffPinkHands);
}

}  // namespace marlowick
