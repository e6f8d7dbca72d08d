#include "far/far_directory.h"

#include <algorithm>
#include <memory>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "platform/files.h"
#include "platform/game_text.h"
#include "platform/streams.h"

namespace marlowick {
namespace {

constexpr std::int64_t kManifestField = 12;
constexpr std::size_t kRecordHead = 16;

std::string readUpTo(File& file, std::int64_t position, std::int64_t size) {
    file.seek(position);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(file.read(bytes.data(), bytes.size()));
    return bytes;
}

// Takes the records that lie whole in the manifest.
void takeRecords(FarDirectory& directory, std::string_view manifest, std::int32_t count) {
    std::size_t position = 4;
    for (std::int32_t number = 1; number <= count; ++number) {
        if (position + kRecordHead > manifest.size()) {
            return;
        }
        FarEntry entry;
        entry.FileSize = manifest.substr(position, 4);
        entry.FileSize2 = manifest.substr(position + 4, 4);
        entry.FileOffset = manifest.substr(position + 8, 4);
        entry.NameLength = manifest.substr(position + 12, 4);
        const std::int32_t length = gflngLittleEndianToLong(entry.NameLength);
        if (length < 0) {
            throw RuntimeError(error::kInvalidArgument);
        }
        position += kRecordHead;
        if (static_cast<std::size_t>(length) > manifest.size() - position) {
            return;
        }
        entry.FileName = manifest.substr(position, static_cast<std::size_t>(length));
        position += static_cast<std::size_t>(length);
        directory.Entries.append(std::move(entry));
    }
}

void readDirectory(FarDirectory& directory, File& archive) {
    const std::string field = readUpTo(archive, kManifestField, 4);
    const std::int32_t manifestOffset = field.size() < 4 ? 0 : gflngLittleEndianToLong(field);
    if (manifestOffset == 0) {
        return;
    }
    const std::int64_t rest = std::max<std::int64_t>(0, archive.size() - manifestOffset);
    const std::string manifest = readUpTo(archive, manifestOffset, rest);
    if (manifest.size() < 4) {
        return;
    }
    directory.FileCount = manifest.substr(0, 4);
    const std::int32_t count = gflngLittleEndianToLong(directory.FileCount);
    if (count < 0) {
        throw RuntimeError(error::kSubscript);
    }
    takeRecords(directory, manifest, count);
}

void resetDirectory(FarDirectory& directory) {
    directory.Entries.reset();
    directory.FileCount.assign(4, '\0');
}

}  // namespace

bool gsReadFARdir(FarDirectory& directory, const Path& archive) {
    return trapped("modFARsupport", "gsReadFARdir", [&] {
        resetDirectory(directory);
        const int number = streams().freeSlot();
        readDirectory(directory, streams().open(number, archive, OpenMode::Binary));
        streams().close(number);
    });
}

void readFarDirectory(FarDirectory& directory, const Path& archive) {
    resetDirectory(directory);
    readDirectory(directory, *files().open(archive, OpenMode::Input));
}

int farEntryCount(const FarDirectory& directory) {
    return std::clamp<int>(gflngLittleEndianToLong(directory.FileCount), 0,
                           directory.Entries.bound());
}

std::string gfstrFarBaseName(std::string_view fileName) {
    return upperCase(gfstrFileNameOfPath(fileName));
}

}  // namespace marlowick
