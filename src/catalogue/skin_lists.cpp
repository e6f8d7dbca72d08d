#include "catalogue/skin_lists.h"

#include "catalogue/names.h"
#include "far/archives.h"
#include "far/far_directory.h"
#include "system/files.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

// An archive's skins belong to a model by so many leading characters.
constexpr std::size_t kPersonTest = 12;
constexpr std::size_t kPetTest = 7;

// Hands, by the letters that they begin with. The mask of the "g" family is narrower in the
// folder than the two letters in an archive.
struct HandFamily {
    const char* mask;
    std::string_view prefix;
};

constexpr HandFamily kHandFamilies[] = {
    {"hm*.bmp", "HM"},    {"hf*.bmp", "HF"},    {"hu*.bmp", "HU"},
    {"gm??_*.bmp", "GM"}, {"gf??_*.bmp", "GF"}, {"gu??_*.bmp", "GU"},
};

void addCandidates(SkinFolder folder, std::string_view mask,
                   std::vector<SkinCandidate>& candidates) {
    for (std::string& name : searchFiles(skinFolder(folder), mask)) {
        candidates.push_back({folder, std::move(name)});
    }
}

std::string toneOf(const SkinQuery& query) {
    return query.pet ? std::string() : charactersAt(query.skinData, 3, 3);
}

// An archive's directory and the bare upper-case names of its entries, entry number 1 first.
std::vector<std::string> baseNames(const Path& archive) {
    FarDirectory directory;
    gsReadFARdir(directory, archive);
    std::vector<std::string> names;
    const int count = farEntryCount(directory);
    names.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number) {
        names.push_back(gfstrFarBaseName(directory.Entries[number].FileName));
    }
    return names;
}

// Takes the bitmaps whose first characters, length of them, are the wanted text.
void takeEntries(const Path& archive, const std::vector<std::string>& names,
                 std::string_view wanted, std::size_t length, List<FarSkinEntry>& skins) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        if (std::string_view(name).substr(0, length) == wanted && name.ends_with(".BMP")) {
            skins.appendCounted({archive, static_cast<std::int32_t>(i) + 1, name});
        }
    }
}

}  // namespace

std::vector<SkinCandidate> skinCandidates(const SkinQuery& query) {
    std::vector<SkinCandidate> candidates;
    const std::string mask = skinMask(query.model, toneOf(query));
    if (!mask.empty()) {
        for (const SkinFolder folder : skinFolders()) {
            addCandidates(folder, mask + ".bmp", candidates);
        }
    }
    return candidates;
}

std::vector<SkinCandidate> handCandidates() {
    std::vector<SkinCandidate> candidates;
    for (const HandFamily& family : kHandFamilies) {
        addCandidates(SkinFolder::Game, family.mask, candidates);
    }
    return candidates;
}

void sortOutFiles(const std::vector<SkinCandidate>& candidates, const PictureTest& loads,
                  List<Path>& skins, std::vector<std::string>& badFiles) {
    for (const SkinCandidate& candidate : candidates) {
        const Path folder = skinFolder(candidate.folder);
        if (isFileName(candidate.name) && loads(folder.child(candidate.name))) {
            skins.appendCounted(folder.child(candidate.name));
        } else {
            badFiles.push_back(candidate.name);
        }
    }
}

void listSkinEntries(const SkinQuery& query, List<FarSkinEntry>& skins) {
    skins.reset();
    // A pet's model isn't upper-cased: one that a folder gave in another case has no skins here.
    const std::string prefix = modelPrefix(query.model);
    const std::string wanted = query.pet ? prefix : upperCase(prefix + toneOf(query));
    if (prefix.empty()) {
        return;
    }
    for (const Path& archive :
         existingArchives({ArchiveStage::Shared, ArchiveStage::FirstExpansion,
                           ArchiveStage::Expansions, ArchiveStage::AllTextures},
                          kLastSkinExpansion)) {
        takeEntries(archive, baseNames(archive), wanted, query.pet ? kPetTest : kPersonTest, skins);
    }
}

void listHandEntries(List<FarSkinEntry>& skins) {
    skins.reset();
    for (const Path& archive : existingArchives(
             {ArchiveStage::FirstExpansion, ArchiveStage::Expansions, ArchiveStage::AllTextures},
             kLastSkinExpansion)) {
        const std::vector<std::string> names = baseNames(archive);
        for (const HandFamily& family : kHandFamilies) {
            takeEntries(archive, names, family.prefix, family.prefix.size(), skins);
        }
    }
}

std::string badSkinReport(const std::vector<std::string>& badFiles) {
    std::string report = "The following files could not be loaded:\r\n\r\n";
    for (const std::string& name : badFiles) {
        report += name + "\r\n";
    }
    return report +
           "\r\nThese files may be \"fixed\" by loading them into\r\n"
           "a program like Paint Shop Pro and re-saving them.\r\n";
}

}  // namespace marlowick
