#include "system/folder_order.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kLongestPlain = 256;

bool isPlain(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char upperPlain(char c) {
    return static_cast<char>(c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c);
}

}  // namespace

std::u16string foldedName(std::string_view utf8) {
    std::u16string folded;
    folded.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t c = upperCodePoint(nextCodePoint(utf8, position));
        if (c >= 0x10000) {
            folded.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            folded.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
        } else {
            folded.push_back(static_cast<char16_t>(c));
        }
    }
    return folded;
}

std::size_t foldedHash(std::string_view utf8) {
    // Few names have other letters, and these need no text of their own.
    if (utf8.size() <= kLongestPlain && std::all_of(utf8.begin(), utf8.end(), isPlain)) {
        std::array<char, kLongestPlain> upper;
        std::transform(utf8.begin(), utf8.end(), upper.begin(), upperPlain);
        return std::hash<std::string_view>()({upper.data(), utf8.size()});
    }
    const std::u16string folded = foldedName(utf8);
    // Other letters may have plain ones for their upper case.
    if (folded.size() <= kLongestPlain &&
        std::all_of(folded.begin(), folded.end(), [](char16_t unit) { return unit < 0x80; })) {
        return std::hash<std::string>()(std::string(folded.begin(), folded.end()));
    }
    return std::hash<std::u16string>()(folded);
}

std::vector<FolderEntry> inFolderOrder(std::vector<NativeEntry> entries) {
    struct Keyed {
        std::u16string key;
        NativeEntry entry;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(entries.size());
    for (NativeEntry& entry : entries) {
        std::u16string key = foldedName(entry.name);
        keyed.push_back({std::move(key), std::move(entry)});
    }
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& left, const Keyed& right) {
        return left.key != right.key ? left.key < right.key : left.entry.name < right.entry.name;
    });
    std::vector<FolderEntry> ordered;
    ordered.reserve(keyed.size());
    for (const Keyed& item : keyed) {
        ordered.push_back({utf8ToGameText(item.entry.name), item.entry.isFolder});
    }
    return ordered;
}

}  // namespace marlowick
