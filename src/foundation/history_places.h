// The files of which earlier versions are kept, and where they lie: the sims and pets of the open
// game, its archives of textures, and the ensembles. A path of any other form is never kept and
// never written to, whoever asks for it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick {

// The folders without a backslash behind them.
struct HistoryPlaces {
    Path history;         // the folder of the earlier versions, made with the first of them
    Path game;            // the archives lie below it
    Path neighbourhoods;  // the folders "UserData..." lie in it; not always the game's own
    Path program;         // the ensembles lie below it

    bool operator==(const HistoryPlaces& other) const = default;
};

// Those of the open game and the running program, with its folder "\History".
HistoryPlaces historyPlaces();

enum class KeptKind {
    UserFile,  // UserData*\characters\user*.iff below the neighbourhoods
    Archive,   // gamedata\textures\*.far below the game
    Ensemble,  // ENS\*.ens below the program
};

struct KeptPlace {
    KeptKind kind = KeptKind::UserFile;
    std::string path;  // UTF-8, with backslashes, in the letter case in which it is written

    bool operator==(const KeptPlace& other) const = default;
};

// What a text means, which may come from anybody; "/" counts as "\". Nothing for a text of another
// form, or with a piece that no file can be named.
std::optional<KeptPlace> keptPlace(std::string_view utf8);

// The place of a file by its full path; nothing for a file anywhere else.
std::optional<KeptPlace> keptPlaceOf(const HistoryPlaces& places, const Path& file);

// True for a sim or pet of the open game under a name that can't be kept: Windows takes the folder
// "UserData4 " for "UserData4".
bool isUnkeepableSim(const HistoryPlaces& places, const Path& file);

// Where the file itself lies, and where its old bytes lie in the folder of a command. The forms of
// the three kinds begin with different folders, so that no two files meet there.
Path placeInGame(const HistoryPlaces& places, const KeptPlace& place);
Path placeInEntry(const Path& entry, const KeptPlace& place);

// The same text for places that differ only in letter case.
std::u16string placeKey(const KeptPlace& place);

// True if both are the same folder, blind to letter case and to backslashes behind it. No link is
// followed and no disk is asked.
bool isSameFolder(const Path& left, const Path& right);

}  // namespace marlowick
