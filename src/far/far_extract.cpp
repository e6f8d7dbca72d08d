#include <algorithm>
#include <memory>
#include <string>

#include "far/block_copy.h"
#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::int64_t kBlock = 32768;

void copyEntry(File& archive, File& output, const FarEntry& entry) {
    archive.seek(gflngLittleEndianToLong(entry.FileOffset));
    copyBlocks(archive, output, gflngLittleEndianToLong(entry.FileSize));
}

void extractThroughSlots(const Path& archive, const Path& folder, std::string_view outputName,
                         const FarDirectory& directory, int number) {
    const Path output = folder.child(outputName);
    File& source = streams().open(slot::kExtractSource, archive, OpenMode::Binary);
    File& target = streams().open(slot::kExtractOutput, output, OpenMode::Binary);
    copyEntry(source, target, directory.Entries[number]);
    streams().close(slot::kExtractSource);
    streams().close(slot::kExtractOutput);
}

}  // namespace

std::int64_t copyBlocks(File& source, File& target, std::int64_t size,
                        const std::function<void()>& afterBlock) {
    if (size < 0) {
        throw RuntimeError(error::kInvalidArgument);
    }
    std::string block;
    std::int64_t copied = 0;
    while (copied < size) {
        block.resize(static_cast<std::size_t>(std::min(size - copied, kBlock)));
        const std::size_t count = source.read(block.data(), block.size());
        target.write(std::string_view(block).substr(0, count));
        copied += static_cast<std::int64_t>(count);
        if (afterBlock) {
            afterBlock();
        }
        if (count < block.size()) {
            break;
        }
    }
    return copied;
}

bool gsExtractFile(const Path& archive, const Path& folder, const FarDirectory& directory,
                   int number) {
    return trapped("modFARsupport", "gsExtractFile", [&] {
        const std::string name = gfstrFileNameOfPath(directory.Entries[number].FileName);
        extractThroughSlots(archive, folder, name, directory, number);
    });
}

bool gsExtractFileEx(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number) {
    return trapped("modFARsupport", "gsExtractFileEx",
                   [&] { extractThroughSlots(archive, folder, outputName, directory, number); });
}

void extractFarEntry(const Path& archive, const Path& folder, std::string_view outputName,
                     const FarDirectory& directory, int number) {
    const std::unique_ptr<File> source = files().open(archive, OpenMode::Input);
    const std::unique_ptr<File> target = files().open(folder.child(outputName), OpenMode::Binary);
    copyEntry(*source, *target, directory.Entries[number]);
}

}  // namespace marlowick
