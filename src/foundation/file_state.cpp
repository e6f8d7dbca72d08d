#include "foundation/file_state.h"

#include <string>

#include "system/files.h"

namespace marlowick {
namespace {

constexpr std::size_t kBlock = 1U << 18U;

}  // namespace

FileState stateOf(std::string_view content) {
    return {static_cast<std::int64_t>(content.size()), sha256(content)};
}

FileState stateOfFile(const Path& file, const std::function<void()>& afterBlock) {
    const std::unique_ptr<File> stream = files().open(file, OpenMode::Input);
    Sha256Stream hash;
    FileState state;
    std::string block(kBlock, '\0');
    for (;;) {
        const std::size_t count = stream->read(block.data(), block.size());
        if (count == 0) {
            break;
        }
        hash.add(std::string_view(block).substr(0, count));
        state.size += static_cast<std::int64_t>(count);
        if (afterBlock) {
            afterBlock();
        }
    }
    state.hash = hash.finish();
    return state;
}

}  // namespace marlowick
