// Reading of user files: once with the error trap, for the editing windows, and
// once guarded, for everything that browses.
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/byte_reader.h"
#include "iff/iff_file.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::size_t kHeaderSize = 60;
constexpr std::size_t kLabelSize = 64;
constexpr std::int32_t kNoMapAsText = 0x30303030;  // the four characters "0000"

// How much a segment may claim beyond the end of its file: one that was cut short stays readable,
// and one that tells of far more isn't held in memory.
constexpr std::int64_t kLargestClaim = 1LL << 20U;

// Reads the map that the reader stands on, moves the reader behind it; false ends the reading of
// the file there.
using MapReader = std::function<bool(IffFile& iff, ByteReader& reader)>;

// What a file holds, in memory that wasn't cleared before: a sim is read in the time of a few
// copies of it.
class Content {
  public:
    // Positions in a user file are 32 bits wide: one that is larger (7) can't be a sim.
    explicit Content(File& file) {
        const std::int64_t size = file.size();
        if (size > std::numeric_limits<std::int32_t>::max()) {
            throw RuntimeError(error::kOutOfMemory);
        }
        bytes_ = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size));
        size_ = file.read(bytes_.get(), static_cast<std::size_t>(size));
    }

    std::string_view text() const { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

// Size as a number, less the head; 5 if it is below 76, 7 if it claims more than kLargestClaim.
std::size_t dataLength(const std::string& size, std::size_t left) {
    const std::int32_t length = gflngBigEndianToLong(size);
    if (length < kSegmentHead) {
        throw RuntimeError(error::kInvalidArgument);
    }
    const std::int64_t data = length - kSegmentHead;
    if (data - static_cast<std::int64_t>(left) > kLargestClaim) {
        throw RuntimeError(error::kOutOfMemory);
    }
    return static_cast<std::size_t>(data);
}

void readSegment(IffFile& iff, int number, ByteReader& reader) {
    checkCounter(number);
    if (iff.Segments.bound() < number) {
        iff.Segments.resize(number);
    }
    IffSegment& segment = iff.Segments[number];
    segment.Offset = static_cast<std::int32_t>(reader.position()) + 1;
    reader.take(segment.Type, 4);
    reader.take(segment.Size, 4);
    reader.take(segment.ID, 4);
    reader.take(segment.Label, kLabelSize);
    reader.take(segment.Data, dataLength(segment.Size, reader.left()));
}

void readSegments(IffFile& iff, std::string_view content, std::size_t start,
                  const MapReader& readMap) {
    ByteReader reader(content, start);
    int number = 0;
    // One lone byte at the end is no segment.
    while (reader.left() > 1) {
        if (content.substr(reader.position(), 4) == "rsmp") {
            const bool goesOn = readMap(iff, reader);
            if (!goesOn || reader.left() <= static_cast<std::size_t>(kSegmentHead)) {
                return;
            }
            // What follows a map is taken for a segment, even a second map.
        }
        readSegment(iff, ++number, reader);
    }
}

void readUserFile(IffFile& iff, const Path& path, const MapReader& readMap, std::string* bytes) {
    CheckpointNumber = 1000;
    iff.Segments.reset();
    iff.Segments.resize(1);
    iff.RsmpTypes.reset();
    iff.RsmpTypes.resize(1);
    const Content content(streams().open(slot::kUserFile, path, OpenMode::Binary));
    ByteReader head(content.text(), 0);
    iff.Header = head.take(kHeaderSize);
    iff.RsmpOffset = head.take(4);
    const std::int32_t mapOffset = gflngBigEndianToLong(iff.RsmpOffset);
    iff.HasRsmp = mapOffset != 0 && mapOffset != kNoMapAsText;
    CheckpointNumber = 2000;
    readSegments(iff, content.text(), head.position(), readMap);
    streams().close(slot::kUserFile);
    if (bytes != nullptr) {
        *bytes = content.text();
    }
}

}  // namespace

void gsResetIFF(IffFile& iff) {
    iff.Segments.reset();
    iff.RsmpTypes.reset();
}

bool gsReadIFF(IffFile& iff, const Path& path, std::string* bytes) {
    bool mapRead = true;
    const bool read = trapped("modIFFsupport", "gsReadIFF", [&] {
        const auto readMap = [&](IffFile& file, ByteReader& reader) {
            mapRead = gsReadRSMP(file, reader) && mapRead;
            return true;
        };
        readUserFile(iff, path, readMap, bytes);
    });
    return read && mapRead;
}

std::string gfstrQuickReadIFF(IffFile& iff, const Path& path, std::string* bytes) {
    std::string reason;
    try {
        const auto readMap = [&](IffFile& file, ByteReader& reader) {
            const std::string unreadable = gfstrQuickReadRSMP(file, reader);
            if (!unreadable.empty()) {
                reason = unreadable + " (RSMP)";
            }
            return reason.empty();
        };
        readUserFile(iff, path, readMap, bytes);
    } catch (...) {
        reason = errorText(currentError());
    }
    streams().close(slot::kUserFile);
    return reason;
}

}  // namespace marlowick
