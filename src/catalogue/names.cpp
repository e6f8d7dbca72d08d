#include "catalogue/names.h"

#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::string_view kOutfitLetters = "BFLSNWH";

struct Tone {
    std::string_view code;
    std::string_view word;
};

constexpr Tone kTones[] = {{"lgt", "light"}, {"med", "medium"}, {"drk", "dark"}};

constexpr std::string_view kModelEnding = ".BCF";

bool isModel(std::string_view upperName, std::size_t separator) {
    return charactersAt(upperName, separator, 1) == "_" && upperName.starts_with('B') &&
           upperName.ends_with(kModelEnding);
}

}  // namespace

std::string_view charactersAt(std::string_view name, std::size_t position, std::size_t length) {
    return position > name.size() ? std::string_view() : name.substr(position - 1, length);
}

std::string_view cutAtDot(std::string_view name) {
    return name.substr(0, name.find('.'));
}

std::string modelPrefix(std::string_view name) {
    const std::size_t separator = name.find('_');
    return separator == std::string_view::npos ? std::string()
                                               : std::string(name.substr(0, separator));
}

bool canBeModel(std::string_view name) {
    return name.size() > kModelEnding.size() && upperByte(name.front()) == 'B' &&
           equalsIgnoringCase(name.substr(name.size() - kModelEnding.size()), kModelEnding);
}

bool isPersonModel(std::string_view upperName) {
    return isModel(upperName, 10);
}

bool isPetModel(std::string_view upperName) {
    return isModel(upperName, 8);
}

std::string bodyType(std::string_view modelName) {
    return upperCase(charactersAt(modelName, 7, 3));
}

std::string skinMask(std::string_view modelName, std::string_view tone) {
    const std::string prefix = modelPrefix(modelName);
    return prefix.empty() ? std::string() : prefix + std::string(tone) + "_*";
}

std::string modelMask(std::string_view skinData) {
    const std::string letter = upperCase(charactersAt(skinData, 9, 1));
    if (letter.empty() || kOutfitLetters.find(letter) == std::string_view::npos) {
        return {};
    }
    return letter + "???" + std::string(charactersAt(skinData, 1, 2)) +
           std::string(charactersAt(skinData, 6, 3)) + "_*";
}

bool asksForDogs(std::string_view skinData) {
    return upperCase(skinData) == "DOG";
}

std::string petModelMask(std::string_view skinData) {
    return asksForDogs(skinData) ? "B???DOG_*" : "B???CAT_*";
}

std::string toneWord(std::string_view tone) {
    for (const Tone& row : kTones) {
        if (row.code == tone) {
            return std::string(row.word);
        }
    }
    return {};
}

}  // namespace marlowick
