#include "catalogue/skin_lists.h"

#include <algorithm>

#include "catalogue/names.h"
#include "far/archive_directory.h"
#include "far/archives.h"
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
    return std::string(query.pet ? std::string_view() : charactersAt(query.skinData, 3, 3));
}

bool isBitmap(std::string_view name) {
    constexpr std::string_view kEnding = ".BMP";
    return name.size() >= kEnding.size() &&
           equalsIgnoringCase(name.substr(name.size() - kEnding.size()), kEnding);
}

void takeEntry(const Path& archive, const ArchiveDirectory& directory, int number,
               List<FarSkinEntry>& skins) {
    skins.appendCounted({archive, number, upperCase(directory.baseName(number))});
}

// Takes the bitmaps whose first characters, length of them, are the wanted text when they are
// upper-cased: that text is not.
void takeSkins(const Path& archive, std::string_view wanted, std::size_t length,
               List<FarSkinEntry>& skins) {
    const auto directory = readArchiveDirectory(archive);
    for (int number = 1; number <= directory->count(); ++number) {
        const std::string_view name = directory->baseName(number);
        const std::string_view beginning = name.substr(0, length);
        const bool fits =
            std::equal(beginning.begin(), beginning.end(), wanted.begin(), wanted.end(),
                       [](char c, char upper) { return upperByte(c) == upper; });
        if (fits && isBitmap(name)) {
            takeEntry(archive, *directory, number, skins);
        }
    }
}

// Takes the bitmaps of hands, family by family.
void takeHands(const Path& archive, List<FarSkinEntry>& skins) {
    const auto directory = readArchiveDirectory(archive);
    for (const HandFamily& family : kHandFamilies) {
        for (int number = 1; number <= directory->count(); ++number) {
            const std::string_view name = directory->baseName(number);
            if (equalsIgnoringCase(name.substr(0, family.prefix.size()), family.prefix) &&
                isBitmap(name)) {
                takeEntry(archive, *directory, number, skins);
            }
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
    // One listing serves all masks.
    const std::vector<std::string> names = searchFiles(skinFolder(SkinFolder::Game), "*");
    std::vector<SkinCandidate> candidates;
    for (const HandFamily& family : kHandFamilies) {
        for (const std::string& name : names) {
            if (matchesMask(name, family.mask)) {
                candidates.push_back({SkinFolder::Game, name});
            }
        }
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
        takeSkins(archive, wanted, query.pet ? kPetTest : kPersonTest, skins);
    }
}

void listHandEntries(List<FarSkinEntry>& skins) {
    skins.reset();
    for (const Path& archive : existingArchives(
             {ArchiveStage::FirstExpansion, ArchiveStage::Expansions, ArchiveStage::AllTextures},
             kLastSkinExpansion)) {
        takeHands(archive, skins);
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
