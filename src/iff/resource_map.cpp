// The resource map of a user file: types, and for each the offset, id and label of
// its segments. Labels keep their terminator and pad byte, so that writing the map
// back needs no rule.
#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/byte_reader.h"
#include "iff/iff_file.h"

namespace marlowick {
namespace {

constexpr std::size_t kMapHead = 88;

// How many entries a row may claim: in a guarded reading, and in the other one.
constexpr std::int32_t kMostReadableEntries = 1000;
constexpr std::int32_t kAnyCount = std::numeric_limits<std::int32_t>::max();

// Room that is made for the entries of a type at once: a sim has few types of more.
constexpr std::int32_t kUsualEntries = 64;

// A sim's map has some dozens of rows. In memory a row takes ten times its bytes, so that a file
// made of nothing but rows would take more memory than a machine has.
constexpr std::int32_t kMostRows = 1 << 18;

// A list sized from 1 to 0, or to a negative number, is an error.
void checkCount(std::int32_t count) {
    if (count < 1) {
        throw RuntimeError(error::kSubscript);
    }
}

// A label that runs to the end of the file takes all that is left of it.
[[noreturn]] void failAtEnd(ByteReader& reader) {
    reader.take(reader.left());
    throw RuntimeError(error::kInputPastEnd);
}

// A label ends in a zero byte, and a pad byte where the row would end on an odd offset from the
// map's start; or in 0xA3, without any pad. Where the map's last row ends the file, some writers
// leave the pad out. lastType: the row is one of the map's last type; if it isn't the last of
// those, the next one fails at the end of the file.
std::string readLabel(ByteReader& reader, std::size_t mapStart, bool lastType) {
    CheckpointNumber = 4000;
    const std::string_view rest = reader.rest();
    const auto* const end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\0' || c == '\xA3'; });
    if (end == rest.end()) {
        failAtEnd(reader);
    }
    auto length = static_cast<std::size_t>(end - rest.begin()) + 1;
    const bool odd = (reader.position() + length - mapStart) % 2 == 1;
    if (*end == '\0' && odd) {
        if (length < rest.size()) {
            ++length;
        } else if (!lastType) {
            failAtEnd(reader);
        }
    }
    return reader.take(length);
}

struct MapReading {
    std::size_t mapStart;      // bytes from 0
    std::int32_t mostEntries;  // that a type row may claim
    std::int32_t rows = 0;     // read so far, of all types
};

// False, with no entry read, if the row claims too many.
bool readTypeRow(RsmpType& type, ByteReader& reader, MapReading& reading, bool lastType) {
    CheckpointNumber = 2000;
    type.TypeCode = reader.take(4);
    type.EntryCount = gflngLittleEndianToLong(reader.take(4));
    if (type.EntryCount > reading.mostEntries) {
        return false;
    }
    checkCount(type.EntryCount);
    type.Entries.reset();
    type.Entries.reserve(std::min(type.EntryCount, kUsualEntries));
    for (std::int32_t row = 1; row <= type.EntryCount; ++row) {
        CheckpointNumber = 3000;
        RsmpEntry entry;
        reader.take(entry.EntryOffset, 4);
        reader.take(entry.EntryID, 4);
        entry.EntryLabel = readLabel(reader, reading.mapStart, lastType);
        if (++reading.rows > kMostRows) {
            throw RuntimeError(error::kOutOfMemory);
        }
        type.Entries.appendCounted(std::move(entry));
    }
    return true;
}

// False if a type row claims more than mostEntries; reading ends there.
bool readMap(IffFile& iff, ByteReader& reader, std::int32_t mostEntries) {
    CheckpointNumber = 1000;
    MapReading reading{reader.position(), mostEntries};
    iff.RsmpHeader = reader.take(kMapHead);
    iff.RsmpSize = gflngLittleEndianToLong(reader.take(4));
    iff.RsmpTypeCount = gflngLittleEndianToLong(reader.take(4));
    checkCount(iff.RsmpTypeCount);
    iff.RsmpTypes.reset();
    // The lists grow with what the file holds, not with what it claims.
    for (std::int32_t row = 1; row <= iff.RsmpTypeCount; ++row) {
        iff.RsmpTypes.appendCounted({});
        const bool lastType = row == iff.RsmpTypeCount;
        if (!readTypeRow(iff.RsmpTypes[row], reader, reading, lastType)) {
            return false;
        }
    }
    return true;
}

// What a row and a segment share: the type in file order and the resource id, high byte first.
using MapKey = std::pair<std::string, std::string>;

std::map<MapKey, RsmpEntry*> firstRows(IffFile& iff) {
    std::map<MapKey, RsmpEntry*> rows;
    for (int t = 1; t <= iff.RsmpTypes.bound(); ++t) {
        RsmpType& type = iff.RsmpTypes[t];
        const std::string code = gfstrReverseFour(type.TypeCode);
        for (int e = 1; e <= type.Entries.bound(); ++e) {
            const std::string& id = type.Entries[e].EntryID;
            rows.emplace(MapKey{code, {id.at(1), id.at(0)}}, &type.Entries[e]);
        }
    }
    return rows;
}

}  // namespace

bool gsReadRSMP(IffFile& iff, ByteReader& reader) {
    return trapped("modIFFsupport", "gsReadRSMP", [&] { readMap(iff, reader, kAnyCount); });
}

std::string gfstrQuickReadRSMP(IffFile& iff, ByteReader& reader) {
    try {
        return readMap(iff, reader, kMostReadableEntries) ? "" : "RSMP UNREADABLE";
    } catch (...) {
        return errorText(currentError());
    }
}

bool gsUpdateRsmp(IffFile& iff) {
    return trapped("modIFFsupport", "gsUpdateRsmp", [&] {
        const std::map<MapKey, RsmpEntry*> rows = firstRows(iff);
        for (int i = 1; i <= iff.Segments.bound(); ++i) {
            const IffSegment& segment = iff.Segments[i];
            const auto row = rows.find({segment.Type, segment.ID.substr(0, 2)});
            if (row != rows.end()) {
                row->second->EntryOffset = gfstrLongToLittleEndian(segment.Offset - 1);
            }
        }
    });
}

}  // namespace marlowick
