#include "system/block_copy.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>

#include "system/runtime_error.h"

namespace marlowick {

std::int64_t copyBlocks(File& source, File& target, std::int64_t size,
                        const std::function<void()>& afterBlock) {
    if (size < 0) {
        throw RuntimeError(error::kInvalidArgument);
    }
    const auto most = static_cast<std::size_t>(std::min(size, std::int64_t{kCopyBlock}));
    const auto block = std::make_unique_for_overwrite<char[]>(most);
    std::int64_t copied = 0;
    while (copied < size) {
        const std::int64_t wanted = std::min(size - copied, std::int64_t{kCopyBlock});
        const std::size_t count = source.read(block.get(), static_cast<std::size_t>(wanted));
        if (count == 0) {
            break;
        }
        target.write({block.get(), count});
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
