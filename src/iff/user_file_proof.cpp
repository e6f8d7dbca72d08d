#include "iff/user_file_proof.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::int64_t kFileHead = 64;
constexpr std::size_t kLabelWidth = 64;
constexpr std::int64_t kMapHead = 96;
constexpr std::int64_t kTypeRowHead = 8;

// Puts CheckpointNumber back at the end.
class CheckpointKept {
  public:
    CheckpointKept() = default;
    ~CheckpointKept() { CheckpointNumber = before_; }
    CheckpointKept(const CheckpointKept&) = delete;
    CheckpointKept& operator=(const CheckpointKept&) = delete;

  private:
    std::int32_t before_ = CheckpointNumber;
};

std::string expected(const char* what, std::int64_t found, std::int64_t wanted) {
    return std::string(what) + " " + std::to_string(found) + " instead of " +
           std::to_string(wanted) + ".";
}

std::int64_t sizeOf(const IffSegment& segment) {
    return kSegmentHead + static_cast<std::int64_t>(segment.Data.size());
}

bool isWardrobe(const IffSegment& segment) {
    static const std::string id = gfstrHexToBytes(kWardrobeId);
    return segment.Type == "STR#" && segment.ID == id;
}

std::string padded(const std::string& label) {
    std::string text = label.substr(0, label.find('\0'));
    text.resize(kLabelWidth, ' ');
    return text;
}

std::int64_t sizeOf(const StrSegment& table) {
    constexpr std::int64_t kRow = 3;  // language and the ends of text and comment
    std::int64_t size = 4 + static_cast<std::int64_t>(table.Tail.size());
    for (int row = 1; row <= table.Entries.bound(); ++row) {
        const StrEntry& entry = table.Entries[row];
        size += kRow + static_cast<std::int64_t>(entry.Text.size() + entry.Comment.size());
    }
    return size;
}

// A row that holds a zero byte reads as another one; a count that isn't that of the rows gives
// others.
std::string tableDifference(const std::string& data, const StrSegment& wanted) {
    StrSegment found;
    try {
        readStringTable(data, found);
    } catch (...) {
        return "The wardrobe can't be read again: " + errorText(currentError()) + ".";
    }
    if (found.Entries.bound() != wanted.Entries.bound()) {
        return expected("The number of the wardrobe's rows is", found.Entries.bound(),
                        wanted.Entries.bound());
    }
    for (int row = 1; row <= wanted.Entries.bound(); ++row) {
        const StrEntry& left = found.Entries[row];
        const StrEntry& right = wanted.Entries[row];
        if (left.Language != right.Language || left.Text != right.Text ||
            left.Comment != right.Comment) {
            return "Row " + std::to_string(row) + " of the wardrobe differs.";
        }
    }
    // Without rows the reader leaves what lies behind them alone.
    const bool hasTail = wanted.Entries.bound() > 0;
    const bool same = found.Format == wanted.Format && found.Count == wanted.Count &&
                      (!hasTail || found.Tail == wanted.Tail) &&
                      static_cast<std::int64_t>(data.size()) == sizeOf(wanted) &&
                      (hasTail || data.substr(4) == wanted.Tail);
    return same ? "" : "The wardrobe differs beside its rows.";
}

// found and the segment that was loaded in its place.
std::string segmentDifference(const IffSegment& found, const IffSegment& loaded,
                              const UserFileChange& change) {
    const std::string& label = loaded.Label;
    if (found.Type != loaded.Type || found.ID != loaded.ID) {
        return "is another one";
    }
    if (found.Label != (change.labelsArePadded ? padded(label) : label)) {
        return "has another label";
    }
    if (isWardrobe(loaded)) {
        return gflngBigEndianToLong(found.Size) == sizeOf(found) ? "" : "tells another size";
    }
    if (found.Size != loaded.Size) {
        return "tells another size";
    }
    return found.Data == loaded.Data ? "" : "has other data";
}

std::string segmentsDifference(const IffFile& found, const IffFile& loaded,
                               const UserFileChange& change) {
    int number = 0;
    std::int64_t position = kFileHead;
    bool hasWardrobe = false;
    for (int i = 1; i <= loaded.Segments.bound(); ++i) {
        if (change.picturesAreDropped && loaded.Segments[i].Type == "BMP_") {
            continue;
        }
        if (++number > found.Segments.bound()) {
            return expected("The number of segments is", found.Segments.bound(), number);
        }
        const IffSegment& segment = found.Segments[number];
        const std::string why = segment.Offset - 1 != position
                                    ? "lies elsewhere"
                                    : segmentDifference(segment, loaded.Segments[i], change);
        if (!why.empty()) {
            return "Segment " + std::to_string(number) + " " + why + ".";
        }
        if (isWardrobe(segment)) {
            hasWardrobe = true;
            std::string difference = tableDifference(segment.Data, change.rows);
            if (!difference.empty()) {
                return difference;
            }
        }
        position += sizeOf(segment);
    }
    if (number != found.Segments.bound()) {
        return expected("The number of segments is", found.Segments.bound(), number);
    }
    return hasWardrobe || change.rows.Entries.bound() == 0 ? "" : "It has no wardrobe.";
}

// Type in file order and resource id, low byte first, as a row of the map has it.
using MapKey = std::pair<std::string, std::string>;

// Where the rows of the map have to lead that lead to a segment: of several segments with one key
// to the last.
std::map<MapKey, std::int64_t> segmentPlaces(const IffFile& iff) {
    std::map<MapKey, std::int64_t> places;
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        const IffSegment& segment = iff.Segments[i];
        std::string id = segment.ID.substr(0, 2);
        std::reverse(id.begin(), id.end());
        places[{segment.Type, id}] = segment.Offset - 1;
    }
    return places;
}

class MapComparison {
  public:
    MapComparison(const IffFile& found, const IffFile& loaded)
        : found_(found), loaded_(loaded), places_(segmentPlaces(found)) {}

    std::string difference() {
        if (found_.RsmpHeader != loaded_.RsmpHeader ||
            found_.RsmpTypeCount != loaded_.RsmpTypeCount ||
            found_.RsmpTypes.bound() != loaded_.RsmpTypes.bound()) {
            return "The map's head differs.";
        }
        for (int type = 1; type <= loaded_.RsmpTypes.bound(); ++type) {
            std::string why = typeDifference(found_.RsmpTypes[type], loaded_.RsmpTypes[type]);
            if (!why.empty()) {
                return why;
            }
        }
        return found_.RsmpSize == size_ - 1 ? "" : "The map tells another size.";
    }

    // Bytes; of a map that doesn't differ.
    std::int64_t size() const { return size_; }

  private:
    std::string typeDifference(const RsmpType& found, const RsmpType& loaded) {
        size_ += kTypeRowHead;
        if (found.TypeCode != loaded.TypeCode || found.EntryCount != loaded.EntryCount ||
            found.Entries.bound() != loaded.Entries.bound()) {
            return "The map has other types.";
        }
        const std::string type(loaded.TypeCode.rbegin(), loaded.TypeCode.rend());
        for (int row = 1; row <= loaded.Entries.bound(); ++row) {
            const RsmpEntry& left = found.Entries[row];
            const RsmpEntry& right = loaded.Entries[row];
            size_ += static_cast<std::int64_t>(left.EntryOffset.size() + left.EntryID.size() +
                                               left.EntryLabel.size());
            if (left.EntryID != right.EntryID || left.EntryLabel != right.EntryLabel) {
                return "The map has other rows.";
            }
            if (!leadsWhereItShould(left, right, type)) {
                return "Row " + std::to_string(row) + " of type " + std::to_string(type_) +
                       " of the map leads elsewhere.";
            }
        }
        ++type_;
        return {};
    }

    // The first row of a key leads to its segment; the others, and those without a segment, lead
    // where they led.
    bool leadsWhereItShould(const RsmpEntry& found, const RsmpEntry& loaded,
                            const std::string& type) {
        const auto place = places_.find({type, loaded.EntryID.substr(0, 2)});
        if (place == places_.end()) {
            return found.EntryOffset == loaded.EntryOffset;
        }
        std::int64_t& wanted = place->second;
        const bool leads = wanted == kTaken ? found.EntryOffset == loaded.EntryOffset
                                            : gflngLittleEndianToLong(found.EntryOffset) == wanted;
        wanted = kTaken;
        return leads;
    }

    static constexpr std::int64_t kTaken = -1;

    const IffFile& found_;
    const IffFile& loaded_;
    std::map<MapKey, std::int64_t> places_;
    std::int64_t size_ = kMapHead;
    int type_ = 1;
};

std::string difference(const IffFile& found, const IffFile& loaded, const UserFileChange& change,
                       std::int64_t fileSize) {
    if (found.Header != loaded.Header) {
        return "The head of the file differs.";
    }
    std::string why = segmentsDifference(found, loaded, change);
    if (!why.empty()) {
        return why;
    }
    std::int64_t end = kFileHead;
    for (int i = 1; i <= found.Segments.bound(); ++i) {
        end += sizeOf(found.Segments[i]);
    }
    const bool hasMap = loaded.HasRsmp && !change.picturesAreDropped;
    if (gflngBigEndianToLong(found.RsmpOffset) != (hasMap ? end : 0)) {
        return "The file tells another place of its map.";
    }
    if (hasMap) {
        MapComparison map(found, loaded);
        why = map.difference();
        if (!why.empty()) {
            return why;
        }
        end += map.size();
    }
    return fileSize == end ? "" : expected("The length of the file is", fileSize, end);
}

}  // namespace

std::string userFileDifference(const IffFile& loaded, const UserFileChange& change,
                               const Path& file) {
    if (streams().isOpen(slot::kUserFile)) {
        throw RuntimeError(error::kFileAlreadyOpen);
    }
    const CheckpointKept kept;
    IffFile found;
    const std::string reason = gfstrQuickReadIFF(found, file);
    if (!reason.empty()) {
        return "It can't be read again: " + reason + ".";
    }
    return difference(found, loaded, change, files().length(file));
}

}  // namespace marlowick
