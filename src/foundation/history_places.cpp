#include "foundation/history_places.h"

#include <algorithm>
#include <array>
#include <vector>

#include "foundation/game.h"
#include "system/folder_order.h"
#include "system/game_text.h"
#include "system/places.h"

namespace marlowick {
namespace {

// Bytes. No file system has longer names, and no such path more pieces than three.
constexpr std::size_t kLongestPiece = 255;
constexpr std::size_t kMostPieces = 3;

// How a piece of a path must look, blind to letter case: all of it, or how it begins and ends.
struct Piece {
    std::string_view start;
    std::string_view end;
    bool open;  // anything may stand between
};

struct Form {
    KeptKind kind;
    std::array<Piece, kMostPieces> pieces;
    std::size_t count;
};

constexpr Form kForms[] = {
    {KeptKind::UserFile,
     {{{"userdata", "", true}, {"characters", "", false}, {"user", ".iff", true}}},
     3},
    {KeptKind::Archive,
     {{{"gamedata", "", false}, {"textures", "", false}, {"", ".far", true}}},
     3},
    {KeptKind::Ensemble, {{{"ens", "", false}, {"", ".ens", true}, {}}}, 2},
};
constexpr const Form& kUserFiles = kForms[0];

bool fits(std::string_view name, const Piece& piece) {
    const std::string lower = lowerCase(name);
    if (!piece.open) {
        return lower == piece.start;
    }
    return lower.size() >= piece.start.size() + piece.end.size() &&
           lower.starts_with(piece.start) && lower.ends_with(piece.end);
}

bool fits(const std::vector<std::string>& pieces, const Form& form) {
    if (pieces.size() != form.count) {
        return false;
    }
    for (std::size_t i = 0; i < form.count; ++i) {
        if (!fits(utf8ToGameText(pieces[i]), form.pieces[i])) {
            return false;
        }
    }
    return true;
}

// Whether each piece can be a file's name, and means that file alone.
bool areNames(const std::vector<std::string>& pieces) {
    return std::all_of(pieces.begin(), pieces.end(), [](const std::string& piece) {
        const std::string name = utf8ToGameText(piece);
        return piece.size() <= kLongestPiece && isFileName(name) && isNameToItsEnd(name);
    });
}

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

// The names in a path. What stands before the first one, such as the two backslashes of a network
// path, is a piece of its own.
std::vector<std::string> piecesOf(std::string_view path) {
    std::vector<std::string> pieces;
    const auto isName = [](char c) { return !isSeparator(c); };
    auto start = std::find_if(path.begin(), path.end(), isName);
    if (start != path.begin()) {
        pieces.emplace_back(static_cast<std::size_t>(start - path.begin()), '\\');
    }
    while (start != path.end()) {
        const auto end = std::find_if(start, path.end(), isSeparator);
        pieces.emplace_back(start, end);
        start = std::find_if(end, path.end(), isName);
    }
    return pieces;
}

std::string joined(const std::vector<std::string>& pieces) {
    std::string text;
    for (const std::string& piece : pieces) {
        text += (text.empty() ? "" : "\\") + piece;
    }
    return text;
}

bool areSame(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(),
        [](const std::string& a, const std::string& b) { return foldedName(a) == foldedName(b); });
}

const Path& folderOf(const HistoryPlaces& places, KeptKind kind) {
    switch (kind) {
        case KeptKind::UserFile:
            return places.neighbourhoods;
        case KeptKind::Archive:
            return places.game;
        case KeptKind::Ensemble:
            break;
    }
    return places.program;
}

Path below(Path folder, const KeptPlace& place) {
    for (const std::string& piece : piecesOf(place.path)) {
        folder = folder.child(utf8ToGameText(piece));
    }
    return folder;
}

// The last pieces of a file's path, if the file lies where those of a form do, whatever its name;
// else none.
std::vector<std::string> piecesBelow(const HistoryPlaces& places, const Form& form,
                                     const Path& file) {
    const std::vector<std::string> pieces = piecesOf(file.text());
    if (pieces.size() < form.count) {
        return {};
    }
    const auto split = pieces.end() - static_cast<std::ptrdiff_t>(form.count);
    const std::vector<std::string> name(split, pieces.end());
    const bool isBelow =
        areSame({pieces.begin(), split}, piecesOf(folderOf(places, form.kind).text()));
    return isBelow && fits(name, form) ? name : std::vector<std::string>();
}

}  // namespace

HistoryPlaces historyPlaces() {
    return {ProgramFolder + "\\History", SimsPath, neighbourhoodsPath(), ProgramFolder};
}

std::optional<KeptPlace> keptPlace(std::string_view utf8) {
    if (utf8.size() > (kLongestPiece + 1) * kMostPieces) {
        return std::nullopt;
    }
    const std::vector<std::string> pieces = piecesOf(utf8);
    for (const Form& form : kForms) {
        if (fits(pieces, form) && areNames(pieces)) {
            return KeptPlace{form.kind, joined(pieces)};
        }
    }
    return std::nullopt;
}

std::optional<KeptPlace> keptPlaceOf(const HistoryPlaces& places, const Path& file) {
    for (const Form& form : kForms) {
        const std::vector<std::string> pieces = piecesBelow(places, form, file);
        if (!pieces.empty() && areNames(pieces)) {
            return KeptPlace{form.kind, joined(pieces)};
        }
    }
    return std::nullopt;
}

bool isUnkeepableSim(const HistoryPlaces& places, const Path& file) {
    const std::vector<std::string> pieces = piecesBelow(places, kUserFiles, file);
    return !pieces.empty() && !areNames(pieces);
}

Path placeInGame(const HistoryPlaces& places, const KeptPlace& place) {
    return below(folderOf(places, place.kind), place);
}

Path placeInEntry(const Path& entry, const KeptPlace& place) {
    return below(entry, place);
}

std::u16string placeKey(const KeptPlace& place) {
    return foldedName(place.path);
}

bool isSameFolder(const Path& left, const Path& right) {
    return areSame(piecesOf(left.text()), piecesOf(right.text()));
}

}  // namespace marlowick
