#include "system/path.h"

#include <algorithm>
#include <array>

#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

bool isDeviceName(std::string_view name) {
    std::string stem = upperCase(name.substr(0, name.find('.')));
    while (!stem.empty() && stem.back() == ' ') {
        stem.pop_back();
    }
    constexpr std::array<std::string_view, 4> kPlain = {"CON", "PRN", "AUX", "NUL"};
    if (std::find(kPlain.begin(), kPlain.end(), stem) != kPlain.end()) {
        return true;
    }
    // To Windows the raised digits 1, 2 and 3 are digits too.
    constexpr std::string_view kDigits = "123456789\xB9\xB2\xB3";
    const bool numbered = stem.starts_with("COM") || stem.starts_with("LPT");
    return numbered && stem.size() == 4 && kDigits.find(stem[3]) != std::string_view::npos;
}

}  // namespace

bool isFileName(std::string_view gameName) {
    if (gameName.find_first_not_of(". ") == std::string_view::npos) {
        return false;
    }
    const bool badCharacter = std::any_of(gameName.begin(), gameName.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 ||
               std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
    });
    return !badCharacter && !isDeviceName(gameName);
}

Path pathOfText(std::string utf8) {
    std::replace(utf8.begin(), utf8.end(), '/', '\\');
    // What is left of the root, or of a drive's, needs the one behind it.
    while (utf8.size() > 1 && utf8.ends_with('\\') && !utf8.ends_with(":\\")) {
        utf8.pop_back();
    }
    return Path(std::move(utf8));
}

Path Path::operator+(std::string_view literal) const {
    return Path(text_ + std::string(literal));
}

Path Path::child(std::string_view gameName) const {
    if (!isFileName(gameName)) {
        throw RuntimeError(error::kBadFileName);
    }
    std::string joined = text_;
    if (!joined.ends_with('\\')) {
        joined.push_back('\\');
    }
    return Path(joined + gameTextToUtf8(gameName));
}

std::string Path::fileName() const {
    const std::size_t slash = text_.rfind('\\');
    return utf8ToGameText(
        std::string_view(text_).substr(slash == std::string::npos ? 0 : slash + 1));
}

Path Path::folder() const {
    const std::size_t slash = text_.rfind('\\');
    return Path(slash == std::string::npos ? std::string() : text_.substr(0, slash));
}

}  // namespace marlowick
