// What each system says of the way to a place, for places.cpp alone.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "system/path.h"

namespace marlowick {

// Entries of one folder that are looked at.
inline constexpr std::size_t kMostEntries = 10000;

// What a full path begins with, without a backslash behind it: nothing of it where the system has
// one root, "C:" where it has drives. No value for a path that isn't a full one.
std::optional<std::string> rootOf(const std::string& path);

struct PlaceStep {
    std::string name;  // as it stands in the folder
    std::optional<std::string>
        target;  // of a link: what it leads to, a full path or one from the folder
};

// What stands in a folder (without a trailing backslash) under a name, blind to letter case.
std::optional<PlaceStep> stepInto(const std::string& folder, const std::string& name);

// At most so many names of a folder, in no order.
std::vector<std::string> unorderedNames(const std::string& folder, std::size_t most);

}  // namespace marlowick
