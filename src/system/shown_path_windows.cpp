// People write backslashes here, and any letter case is right.

#include "system/shown_path.h"

namespace marlowick {

std::string shownPath(const Path& path) {
    return path.text();
}

Path typedPath(std::string_view text) {
    return Path(std::string(text));
}

}  // namespace marlowick
