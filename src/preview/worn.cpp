#include "preview/worn.h"

namespace marlowick {
namespace {

constexpr std::string_view kAdded = "ADDED";
constexpr std::string_view kNote = "***";
constexpr std::string_view kNone = "NONE";

struct Kind {
    std::string_view kind;
    std::string_view skeleton;
    bool isPet;
};

constexpr Kind kKinds[] = {{"adult", "adult-skeleton", false},
                           {"dog", "dog_skeleton", true},
                           {"kat", "kat_skeleton", true},
                           {"cat", "kat_skeleton", true}};
// Whatever is none of these.
constexpr Kind kChild = {"child", "child-skeleton", false};

const Kind& kindNamed(std::string_view name) {
    for (const Kind& row : kKinds) {
        if (row.kind == name) {
            return row;
        }
    }
    return kChild;
}

namespace row {
constexpr int kKind = 1;
constexpr int kNormal = 2;
constexpr int kHead = 3;
constexpr int kOpenLeft = 18;
constexpr int kOpenRight = 19;
}  // namespace row

std::string_view textOf(const StrSegment& wardrobe, int number) {
    return number <= wardrobe.Entries.bound() ? std::string_view(wardrobe.Entries[number].Text)
                                              : std::string_view();
}

bool isNoClothes(std::string_view text) {
    return text == kAdded || text.starts_with(kNote);
}

}  // namespace

SuitAndSkin splitRow(std::string_view row) {
    const std::size_t comma = row.find(',');
    const std::size_t equals = row.find('=');
    SuitAndSkin result;
    if (comma != std::string_view::npos) {
        result.suit = row.substr(0, comma);
    }
    if (equals != std::string_view::npos) {
        result.skin = row.substr(equals + 1);
    }
    return result;
}

std::optional<SuitAndSkin> clothes(const SuitAndSkin& outfit, const SuitAndSkin& normal) {
    if (isNoClothes(outfit.suit) || isNoClothes(outfit.skin) ||
        (outfit.suit.empty() && outfit.skin.empty())) {
        return std::nullopt;
    }
    return SuitAndSkin{outfit.suit.empty() ? normal.suit : outfit.suit, outfit.skin};
}

SuitAndSkin headOfRow(std::string_view row) {
    return row == kNone ? SuitAndSkin() : splitRow(row);
}

Worn wornBy(const Wearer& wearer, const SuitAndSkin& body) {
    Worn worn;
    worn.kind = wearer.kind;
    worn.body = body;
    if (!isPetKind(wearer.kind)) {
        worn.head = headOfRow(wearer.head);
        worn.leftHand = splitRow(wearer.leftHand);
        worn.rightHand = splitRow(wearer.rightHand);
    }
    return worn;
}

std::optional<Worn> normalClothes(const StrSegment& wardrobe) {
    const std::string_view whole = textOf(wardrobe, row::kNormal);
    const SuitAndSkin normal = splitRow(whole.substr(0, whole.find(';')));
    const std::optional<SuitAndSkin> body = clothes(normal, normal);
    if (!body) {
        return std::nullopt;
    }
    return wornBy(
        {std::string(textOf(wardrobe, row::kKind)), std::string(textOf(wardrobe, row::kHead)),
         std::string(textOf(wardrobe, row::kOpenLeft)),
         std::string(textOf(wardrobe, row::kOpenRight))},
        *body);
}

bool isPetKind(std::string_view kind) {
    return kindNamed(kind).isPet;
}

std::string_view skeletonOf(std::string_view kind) {
    return kindNamed(kind).skeleton;
}

}  // namespace marlowick
