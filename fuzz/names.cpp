// Names and texts of the game: none leads out of its folder, and every byte survives a round trip.
#include "catalogue/names.h"

#include <string>

#include "bounds.h"
#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "foundation/history_places.h"
#include "system/game_text.h"
#include "system/path.h"
#include "system/runtime_error.h"

namespace {

using namespace marlowick;
using fuzz::require;

void checkPath(const std::string& name) {
    const Path folder("C:\\game\\folder");
    if (!isFileName(name)) {
        return;
    }
    const Path path = folder.child(name);
    require(path.folder() == folder, "a name leads into another folder");
    require(path.fileName() == name, "a name has changed");
    require(path.text().find_first_of("/*?\"<>|", 3) == std::string::npos, "a bad character");
    require(path.text().find(':', 2) == std::string::npos, "a name is a stream");
}

void checkPlace(const std::string& text) {
    const HistoryPlaces places{Path("H:\\h"), Path("C:\\game"), Path("D:\\saves"),
                               Path("P:\\program")};
    if (const std::optional<KeptPlace> place = keptPlace(text)) {
        const std::string target = placeInGame(places, *place).text();
        const std::string kept = placeInEntry(Path("H:\\h\\1"), *place).text();
        require(target.find("\\..\\") == std::string::npos, "a place leads up");
        require(kept.starts_with("H:\\h\\1\\"), "old bytes lie elsewhere");
        require(target.starts_with("C:\\game\\") || target.starts_with("D:\\saves\\") ||
                    target.starts_with("P:\\program\\"),
                "a place leads elsewhere");
    }
}

// Every name of the grammar, whatever it is given.
void askAll(const std::string& name) {
    for (const std::size_t position : {1U, 2U, 7U, 300U}) {
        charactersAt(name, position, 3);
    }
    cutAtDot(name);
    for (const auto ask : {modelPrefix, bodyType, modelMask, petModelMask, toneWord}) {
        try {
            ask(name);
        } catch (const RuntimeError&) {
        }
    }
    try {
        matchesMask(name, skinMask(name, "lgt"));
    } catch (const RuntimeError&) {
    }
    isPersonModel(upperCase(name));
    isPetModel(upperCase(name));
    gfstrFarBaseName(name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Bounds bounds(size);
    const std::string name(reinterpret_cast<const char*>(data), size);
    require(utf8ToGameText(gameTextToUtf8(name)) == name, "a byte is lost on its round trip");
    gameTextToUtf8(utf8ToGameText(name));
    require(upperCase(lowerCase(upperCase(name))) == upperCase(name), "a letter's case is lost");
    if (size <= 32767) {
        const std::string clean = gfstrCleanName(name);
        require(clean.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                        "0123456789-_") == std::string::npos,
                "a clean name isn't clean");
    }
    checkPath(name);
    checkPath(gfstrFileNameOfPath(name));
    checkPlace(name);
    const std::size_t half = size / 2;
    matchesMask(std::string_view(name).substr(0, half), std::string_view(name).substr(half));
    askAll(name);
    return 0;
}
