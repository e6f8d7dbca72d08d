// The game from Epic: its launcher keeps a JSON text for each game that it has installed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/bounded_look.h"
#include "system/path.h"

namespace marlowick {

// The folder of a game by its manifest (".item"), as it stands there; nothing if the text is no
// JSON or tells none. The text may be anything.
std::optional<std::string> installLocationOfItem(std::string_view item);

// The folders of the launcher's games that are there, in the order of the manifests' names.
// programData: Windows' folder of that name.
std::vector<Path> epicInstalls(const Path& programData, BoundedLook& look);

}  // namespace marlowick
