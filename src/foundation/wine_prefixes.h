// The game under Wine: prefixes, each a folder with the drives of one Windows in it, and where in
// one the game and its saves may lie.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bounded_look.h"
#include "system/path.h"

namespace marlowick {

struct WinePrefix {
    Path folder;        // that "drive_c" lies in
    std::string shown;  // as a person of that system names it: "~/.wine"
};

// The prefixes that a person's programs have made, in order: Wine's own, then those of Lutris, of
// Bottles and of Heroic, each kind by name.
std::vector<WinePrefix> winePrefixes(const Path& home, BoundedLook& look);

// The prefix whose drive C: a folder lies on, by the path alone.
std::optional<Path> prefixAround(const Path& folder);

// The folder that the prefix's registry names as that of the classic game, if it is there.
std::optional<Path> registeredGame(const Path& prefix, BoundedLook& look);

// A person's folders in a prefix, moved or not, there or not.
struct PrefixFolders {
    Path savedGames;
    Path documents;
};

// Those of everybody in the prefix: first of "steamuser", then of the login name, then of others by
// name. At least one.
std::vector<PrefixFolders> prefixFolders(const Path& prefix, const std::string& login,
                                         BoundedLook& look);

}  // namespace marlowick
