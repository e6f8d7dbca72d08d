#include "preview/suit.h"

#include <algorithm>

#include "preview/skeleton.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::int32_t kMostSuits = 1024;
constexpr std::int32_t kMostParts = 64;

template <class Items>
Suit readSuit(Items& items) {
    Suit suit;
    suit.name = items.text();
    items.number();  // type
    skipProperties(items);
    for (std::size_t count = readCount(items, kMostParts); count > 0; --count) {
        SuitPart part;
        part.bone = items.text();
        part.mesh = items.text();
        items.number();  // flags
        skipProperties(items);
        suit.parts.push_back(std::move(part));
    }
    return suit;
}

template <class Items>
std::vector<Suit> readAll(Items items) {
    readSkeletons(items);
    std::vector<Suit> suits;
    for (std::size_t count = readCount(items, kMostSuits); count > 0; --count) {
        suits.push_back(readSuit(items));
    }
    return suits;
}

}  // namespace

std::vector<Suit> readSuits(std::string_view bytes, FileForm form) {
    return form == FileForm::Binary ? readAll(BinaryItems(bytes)) : readAll(TextItems(bytes));
}

const Suit* suitNamed(const std::vector<Suit>& suits, std::string_view name) {
    const auto found = std::find_if(suits.begin(), suits.end(), [&](const Suit& suit) {
        return equalsIgnoringCase(suit.name, name);
    });
    if (found != suits.end()) {
        return &*found;
    }
    return suits.empty() ? nullptr : suits.data();
}

}  // namespace marlowick
