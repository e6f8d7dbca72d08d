#include "far/far_directory.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "system/buffered_reader.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::size_t kRecordHead = 16;
constexpr std::size_t kPiece = 1 << 20;
constexpr std::int64_t kMostExpected = 100'000;  // entries

// The head of a record; the reader's own bytes move on with what is taken next.
std::array<char, kRecordHead> copied(std::string_view head) {
    std::array<char, kRecordHead> bytes{};
    std::copy(head.begin(), head.end(), bytes.begin());
    return bytes;
}

// Takes the records that lie whole in the file.
void takeRecords(FarDirectory& directory, BufferedReader& manifest, std::int32_t count) {
    // As many as the file has room for, whatever it claims; of more than games have, those beyond
    // get their room once the others were there.
    const auto most = std::min<std::int64_t>(count, manifest.left() / std::int64_t{kRecordHead});
    directory.Entries.reserve(static_cast<int>(std::min(most, kMostExpected)));
    for (std::int32_t number = 1; number <= count; ++number) {
        if (number == kMostExpected + 1) {
            directory.Entries.reserve(static_cast<int>(most));
        }
        const std::optional<std::string_view> head = manifest.take(kRecordHead);
        if (!head) {
            return;
        }
        const std::array<char, kRecordHead> fields = copied(*head);
        const std::string_view field(fields.data(), fields.size());
        const std::int32_t length = gflngLittleEndianToLong(field.substr(12));
        if (length < 0) {
            throw RuntimeError(error::kInvalidArgument);
        }
        const std::optional<std::string_view> name =
            manifest.take(static_cast<std::size_t>(length));
        if (!name) {
            return;
        }
        FarEntry& entry = directory.Entries.appendNew();
        entry.FileSize = field.substr(0, 4);
        entry.FileSize2 = field.substr(4, 4);
        entry.FileOffset = field.substr(8, 4);
        entry.NameLength = field.substr(12, 4);
        entry.FileName = std::string(*name);
    }
}

std::int32_t readManifestOffset(File& archive) {
    std::string field(4, '\0');
    archive.seek(kManifestField);
    return archive.read(field.data(), 4) < 4 ? 0 : gflngLittleEndianToLong(field);
}

void readDirectory(FarDirectory& directory, File& archive) {
    const std::int32_t manifestOffset = readManifestOffset(archive);
    if (manifestOffset == 0) {
        return;
    }
    // In pieces, so that what lies behind the directory is never held whole.
    archive.seek(manifestOffset);
    BufferedReader manifest(archive, kPiece);
    const std::optional<std::string_view> countField = manifest.take(4);
    if (!countField) {
        return;
    }
    directory.FileCount = *countField;
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
        const Slot slot = streams().freeSlot();
        readDirectory(directory, streams().open(slot, archive, OpenMode::Binary));
        streams().close(slot);
    });
}

void readFarDirectory(FarDirectory& directory, const Path& archive) {
    resetDirectory(directory);
    readDirectory(directory, *files().open(archive, OpenMode::Input));
}

int farEntryCount(const FarDirectory& directory) {
    return std::min(farAnnouncedCount(directory), directory.Entries.bound());
}

int farAnnouncedCount(const FarDirectory& directory) {
    return std::max<int>(gflngLittleEndianToLong(directory.FileCount), 0);
}

std::int64_t farEntryLength(const FarEntry& entry, const Path& archive) {
    const std::int64_t offset = gflngLittleEndianToLong(entry.FileOffset);
    const std::int64_t size = gflngLittleEndianToLong(entry.FileSize);
    return std::max<std::int64_t>(0, std::min(size, files().length(archive) - offset));
}

std::string gfstrFarBaseName(std::string_view fileName) {
    return upperCase(gfstrFileNameOfPath(fileName));
}

}  // namespace marlowick
