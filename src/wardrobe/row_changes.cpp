#include "wardrobe/row_changes.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "system/game_text.h"
#include "wardrobe/hands.h"
#include "wardrobe/wardrobe_fields.h"

namespace marlowick {
namespace {

struct OutfitRow {
    int row;
    const char* name;
    // Another row tells of the outfit in files of later generations, and then this one only goes
    // along.
    bool isFirstGeneration;
};

constexpr OutfitRow kOutfitRows[] = {
    {row::kNormal, "Normal", false},         {row::kNude, "Nude", false},
    {row::kFirstSwimsuit, "Swimsuit", true}, {row::kFirstFormal, "Formal", true},
    {row::kFormal, "Formal", false},         {row::kSwimsuit, "Swimsuit", false},
    {row::kPajamas, "Pajamas", false},       {row::kWinter, "Winter", false},
    {row::kFashion, "High fashion", false},
};

struct PlainRow {
    int row;
    const char* name;
};

constexpr PlainRow kPlainRows[] = {
    {row::kAge, "Age"},
    {row::kHead, "Head"},
    {row::kGender, "Gender"},
    {row::kSkinTone, "Skin tone"},
};

constexpr const char* kPoseNames[] = {"open", "closed", "pointing", "formal"};

const std::string& textOf(const StrSegment& table, int row) {
    static const std::string none;
    return row <= table.Entries.bound() ? table.Entries[row].Text : none;
}

bool isOutfit(std::string_view text) {
    return text.find(',') != std::string_view::npos && text.find('=') != std::string_view::npos;
}

// What of two texts of an outfit differs to a person's eye.
RowChange outfitChange(std::string name, const std::string& before, const std::string& after) {
    const auto part = [](const std::string& text, std::string (*of)(std::string_view)) {
        return isOutfit(text) ? of(text) : text;
    };
    for (const auto of : {bodyOfRow, skinOfRow}) {
        std::string left = part(before, of);
        std::string right = part(after, of);
        if (left != right) {
            return {std::move(name), std::move(left), std::move(right)};
        }
    }
    return {std::move(name), before, after};
}

RowChange handChange(std::string name, const std::string& before, const std::string& after) {
    std::string left = skinOfRow(before);
    std::string right = skinOfRow(after);
    return left == right ? RowChange{std::move(name), before, after}
                         : RowChange{std::move(name), std::move(left), std::move(right)};
}

// "Left open hand"; nothing for a row that is no hand's.
std::optional<std::string> handName(int row) {
    for (const HandPair& pair : kHandPairs) {
        const std::string pose = kPoseNames[static_cast<std::size_t>(pair.pose)];
        if (row == pair.left.row) {
            return "Left " + pose + " hand";
        }
        if (row == pair.right.row) {
            return "Right " + pose + " hand";
        }
    }
    return std::nullopt;
}

// True if the sim wears what the rows of the first generation tell.
bool isOfFirstGeneration(const StrSegment& table) {
    const int count = table.Entries.bound();
    return count <= kBaseRows || (count <= kHotDateRows && textOf(table, row::kAge) != "adult");
}

RowChange changeOf(int row, const std::string& before, const std::string& after,
                   bool isFirstGeneration) {
    const auto* const outfit = std::find_if(std::begin(kOutfitRows), std::end(kOutfitRows),
                                            [&](const OutfitRow& o) { return o.row == row; });
    if (outfit != std::end(kOutfitRows)) {
        const bool goesAlong = outfit->isFirstGeneration && !isFirstGeneration;
        return outfitChange(outfit->name + std::string(goesAlong ? " (base game)" : ""), before,
                            after);
    }
    if (std::optional<std::string> hand = handName(row)) {
        return handChange(*std::move(hand), before, after);
    }
    const auto* const plain = std::find_if(std::begin(kPlainRows), std::end(kPlainRows),
                                           [&](const PlainRow& p) { return p.row == row; });
    return {plain != std::end(kPlainRows) ? plain->name : "Row " + std::to_string(row), before,
            after};
}

// Takes out what goes along with an outfit that is told in the same words.
void dropDoubles(std::vector<RowChange>& changes) {
    constexpr std::string_view kAlong = " (base game)";
    const std::vector<RowChange> all = changes;
    std::erase_if(changes, [&](const RowChange& change) {
        return change.name.ends_with(kAlong) &&
               std::any_of(all.begin(), all.end(), [&](const RowChange& other) {
                   return other.name + std::string(kAlong) == change.name &&
                          other.before == change.before && other.after == change.after;
               });
    });
}

std::string worn(const std::string& text) {
    return text.empty() ? "nothing" : gameTextToUtf8(text);
}

}  // namespace

std::vector<RowChange> rowChanges(const StrSegment& before, const StrSegment& after) {
    std::vector<RowChange> changes;
    const int count = std::max(before.Entries.bound(), after.Entries.bound());
    const bool isFirstGeneration = isOfFirstGeneration(after);
    for (int row = 1; row <= count; ++row) {
        const std::string& left = textOf(before, row);
        const std::string& right = textOf(after, row);
        if (left != right) {
            changes.push_back(changeOf(row, left, right, isFirstGeneration));
        }
    }
    dropDoubles(changes);
    return changes;
}

std::string inWords(const std::vector<RowChange>& changes) {
    std::string words;
    for (const RowChange& change : changes) {
        words += (words.empty() ? "" : "\n") + change.name + ": " + worn(change.before) +
                 " \xE2\x86\x92 " + worn(change.after);
    }
    return words;
}

}  // namespace marlowick
