#include "system/block_copy.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

#include "system/runtime_error.h"

namespace marlowick {

std::int64_t copyBlocks(File& source, File& target, std::int64_t size,
                        const std::function<void()>& afterBlock) {
    if (size < 0) {
        throw RuntimeError(error::kInvalidArgument);
    }
    std::string block;
    std::int64_t copied = 0;
    while (copied < size) {
        const std::int64_t wanted = std::min<std::int64_t>(size - copied, kBlock);
        block.resize(static_cast<std::size_t>(wanted));
        const std::size_t count = source.read(block.data(), block.size());
        if (count == 0) {
            break;
        }
        target.write(std::string_view(block).substr(0, count));
        copied += static_cast<std::int64_t>(count);
        if (afterBlock) {
            afterBlock();
        }
    }
    return copied;
}

std::int64_t copyRest(File& source, File& target, const std::function<void()>& afterBlock) {
    return copyBlocks(source, target, std::numeric_limits<std::int64_t>::max(), afterBlock);
}

void copyFile(const Path& source, const Path& target) {
    const std::unique_ptr<File> from = files().open(source, OpenMode::Input);
    const std::unique_ptr<File> to = files().open(target, OpenMode::Output);
    copyRest(*from, *to);
}

}  // namespace marlowick
