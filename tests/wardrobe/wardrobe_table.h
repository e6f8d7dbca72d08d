// A wardrobe table in memory.
#pragma once

#include <string>
#include <vector>

#include "iff/string_segment.h"

namespace marlowick::test {

inline StrSegment tableOf(const std::vector<std::string>& rows) {
    StrSegment strings;
    for (const std::string& row : rows) {
        strings.Entries.append({'\1', row, {}});
    }
    return strings;
}

}  // namespace marlowick::test
