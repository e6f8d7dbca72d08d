#include "system/places.h"

#include <algorithm>

#include "system/folder_order.h"
#include "system/game_text.h"
#include "system/places_system.h"

namespace marlowick {
namespace {

// Links that lead to links.
constexpr int kDeepestLink = 40;

std::string withBackslashes(std::string text) {
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

std::string_view nextPiece(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('\\'), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

}  // namespace

std::optional<Path> childNamed(const Path& folder, std::string_view utf8Name) {
    // Looked at in both forms: device names have letters of the game's alphabet.
    std::string gameName = utf8ToGameText(utf8Name);
    std::replace(gameName.begin(), gameName.end(), '?', '_');
    if (!isFileName(utf8Name) || !isFileName(gameName)) {
        return std::nullopt;
    }
    return folder + ("\\" + std::string(utf8Name));
}

LocalPlaces::LocalPlaces(const std::vector<Path>& remote) {
    for (const Path& folder : remote) {
        std::string text = folder.text();
        if (text.ends_with('\\')) {
            text.pop_back();
        }
        remote_.push_back(foldedName(text));
    }
}

bool LocalPlaces::isRemote(const std::string& place) const {
    return std::find(remote_.begin(), remote_.end(), foldedName(place)) != remote_.end();
}

std::optional<Path> LocalPlaces::place(const Path& path) {
    const std::optional<std::string> found = walk(withBackslashes(path.text()), 0);
    if (!found) {
        return std::nullopt;
    }
    return Path(found->find('\\') == std::string::npos ? *found + "\\" : *found);
}

// From the root down: a folder is asked for only after the one above it.
std::optional<std::string> LocalPlaces::walk(const std::string& text, int depth) {
    const std::optional<std::string> root = rootOf(text);
    if (!root || text.find('\0') != std::string::npos || isRemote(*root)) {
        return std::nullopt;
    }
    std::string place = *root;
    for (std::string_view rest = std::string_view(text).substr(root->size()); !rest.empty();) {
        const std::string piece(nextPiece(rest));
        if (piece == "..") {
            place.resize(std::max(root->size(), std::min(place.rfind('\\'), place.size())));
        } else if (!piece.empty() && piece != ".") {
            const std::optional<std::string> next = step(place, piece, depth);
            if (!next) {
                return std::nullopt;
            }
            place = *next;
        }
    }
    return place;
}

std::optional<std::string> LocalPlaces::step(const std::string& folder, const std::string& piece,
                                             int depth) {
    if (isRemote(folder + "\\" + piece)) {
        return std::nullopt;
    }
    const std::optional<PlaceStep> found = stepInto(folder, piece);
    if (!found) {
        return std::nullopt;
    }
    std::string place = folder + "\\" + found->name;
    if (!found->target) {
        return place;
    }
    // A link that is met again while it is being followed leads to itself: nothing.
    const auto [entry, isNew] = followed_.try_emplace(place, std::nullopt);
    if (isNew && depth < kDeepestLink) {
        const std::string target = withBackslashes(*found->target);
        entry->second = walk(rootOf(target) ? target : folder + "\\" + target, depth + 1);
    }
    return entry->second;
}

std::vector<std::string> namesIn(const Path& folder, std::size_t most) {
    std::string text = withBackslashes(folder.text());
    if (text.ends_with('\\')) {
        text.pop_back();
    }
    std::vector<std::pair<std::u16string, std::string>> keyed;
    for (std::string& name : unorderedNames(text, kMostEntries)) {
        std::u16string key = foldedName(name);
        keyed.emplace_back(std::move(key), std::move(name));
    }
    std::sort(keyed.begin(), keyed.end());
    keyed.resize(std::min(keyed.size(), most));
    std::vector<std::string> names;
    names.reserve(keyed.size());
    for (auto& [key, name] : keyed) {
        names.push_back(std::move(name));
    }
    return names;
}

}  // namespace marlowick
