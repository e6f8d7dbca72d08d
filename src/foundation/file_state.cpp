#include "foundation/file_state.h"

#include <algorithm>
#include <memory>
#include <string>

#include "system/files.h"

namespace marlowick {
namespace {

constexpr std::int64_t kBlock = 1 << 18;  // bytes

}  // namespace

FileState stateOf(std::string_view content) {
    return {static_cast<std::int64_t>(content.size()), sha256(content)};
}

FileState stateOfFile(const Path& file, const std::function<void()>& afterBlock) {
    const std::unique_ptr<File> stream = files().open(file, OpenMode::Input);
    Sha256Stream hash;
    FileState state;
    // Most files fit into one block; the byte more tells their end without another reading.
    const std::int64_t size = stream->size();
    std::string block(static_cast<std::size_t>(std::clamp<std::int64_t>(size, 0, kBlock)) + 1,
                      '\0');
    for (;;) {
        const std::size_t count = stream->read(block.data(), block.size());
        hash.add(std::string_view(block).substr(0, count));
        state.size += static_cast<std::int64_t>(count);
        if (afterBlock && count > 0) {
            afterBlock();
        }
        if (count < block.size()) {
            state.hash = hash.finish();
            return state;
        }
    }
}

}  // namespace marlowick
