// What a body mesh or a skin is for stands only in its name: by fixed character
// positions (counted from 1), by masks, and by small letter codes. No file is
// opened to classify it. All names are game texts.
#pragma once

#include <string>
#include <string_view>

namespace marlowick {

// Characters from a position (from 1), as many as there are up to length. This and cutAtDot show
// into the name that they are given.
std::string_view charactersAt(std::string_view name, std::size_t position, std::size_t length);

// What stands before the first "." or "_"; the whole text (cutAtDot) or nothing (modelPrefix) if
// there is none.
std::string_view cutAtDot(std::string_view name);
std::string modelPrefix(std::string_view name);

// A name from an archive, upper-cased: the tests for a person's and for a pet's body model. One
// that can't be either, in whatever case, needs no upper-casing.
bool canBeModel(std::string_view name);
bool isPersonModel(std::string_view upperName);
bool isPetModel(std::string_view upperName);

// The body type of a model name: positions 7 to 9, in upper case.
std::string bodyType(std::string_view modelName);

// The mask of the skins of a model, for folders: the prefix, the tone (empty for a pet) and "_*".
// Empty for a model name without a "_".
std::string skinMask(std::string_view modelName, std::string_view tone);

// The mask of the models that fit a request of nine characters ("falgtfitB"); empty for a letter
// that names no outfit.
std::string modelMask(std::string_view skinData);

// The mask of a pet's models: a request of "Dog", in any case, means dogs, all else cats.
bool asksForDogs(std::string_view skinData);
std::string petModelMask(std::string_view skinData);

// The word for a skin tone ("light" for "lgt"); empty for any other text.
std::string toneWord(std::string_view tone);

}  // namespace marlowick
