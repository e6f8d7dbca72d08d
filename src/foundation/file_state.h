// What a file holds, in so few bytes that it can be written down: enough to tell whether two
// contents are the same.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "foundation/sha256.h"
#include "system/path.h"

namespace marlowick {

struct FileState {
    std::int64_t size = 0;  // bytes
    Sha256 hash{};

    bool operator==(const FileState& other) const = default;
};

FileState stateOf(std::string_view content);

// Of a file, read in blocks; afterBlock runs behind each. Raises what opening and reading raise.
FileState stateOfFile(const Path& file, const std::function<void()>& afterBlock = {});

}  // namespace marlowick
