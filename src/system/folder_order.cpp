#include "system/folder_order.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "system/game_text.h"

namespace marlowick {
namespace {

// Of the hash FNV-1a.
constexpr std::uint64_t kHashStart = 0xCBF29CE484222325U;
constexpr std::uint64_t kHashFactor = 0x100000001B3U;

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
    const bool isPlain = std::all_of(utf8.begin(), utf8.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    std::uint64_t hash = kHashStart;
    const auto mix = [&](char16_t unit) { hash = (hash ^ unit) * kHashFactor; };
    if (isPlain) {
        for (const char c : utf8) {
            mix(static_cast<char16_t>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c));
        }
    } else {
        for (const char16_t unit : foldedName(utf8)) {
            mix(unit);
        }
    }
    return static_cast<std::size_t>(hash);
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
