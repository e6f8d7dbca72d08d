#include "iff/string_segment.h"

#include "foundation/bytes.h"
#include "foundation/error_trap.h"

namespace marlowick {
namespace {

std::string_view typeName(bool ctss) {
    return ctss ? "CTSS" : "STR#";
}

int rowCount(const std::string& count) {
    if (count.size() < 2) {
        throw RuntimeError(error::kInvalidArgument);
    }
    const int rows = static_cast<unsigned char>(count[0]) | static_cast<unsigned char>(count[1])
                                                                << 8;
    checkCounter(rows);
    return rows;
}

// Reads the row at a position (bytes from 0) of the data and moves behind it. A row whose text has
// no end stays blank, and the next one begins a byte further on.
void readRow(StrEntry& row, std::string_view data, std::size_t& position) {
    CheckpointNumber = 5000;
    row.Language = position < data.size() ? data[position] : '\0';
    ++position;
    const std::size_t textEnd =
        position < data.size() ? data.find('\0', position) : std::string_view::npos;
    if (textEnd == std::string_view::npos) {
        return;
    }
    CheckpointNumber = 6000;
    row.Text = data.substr(position, textEnd - position);
    CheckpointNumber = 7000;
    const std::size_t commentEnd = data.find('\0', textEnd + 1);
    if (commentEnd == std::string_view::npos) {
        throw RuntimeError(error::kInvalidArgument);
    }
    row.Comment = data.substr(textEnd + 1, commentEnd - textEnd - 1);
    position = commentEnd + 1;
}

std::string tableData(const StrSegment& strings) {
    std::string data = strings.Format + strings.Count;
    for (int row = 1; row <= strings.Entries.bound(); ++row) {
        const StrEntry& entry = strings.Entries[row];
        data.push_back(entry.Language);
        data += gfstrTrimAtNull(entry.Text) + '\0' + gfstrTrimAtNull(entry.Comment) + '\0';
    }
    return data + strings.Tail;
}

void readSegment(const IffFile& iff, StrSegment& strings, std::string_view id, bool ctss) {
    CheckpointNumber = 1000;
    strings.Entries.reset();
    CheckpointNumber = 2000;
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        const IffSegment& segment = iff.Segments[i];
        if (segment.Type == typeName(ctss) && segment.ID == id) {
            readStringTable(segment.Data, strings);
            return;
        }
    }
}

}  // namespace

void readStringTable(std::string_view data, StrSegment& strings) {
    strings.Format = data.substr(0, 2);
    strings.Count = data.substr(std::min<std::size_t>(2, data.size()), 2);
    CheckpointNumber = 3000;
    const int rows = rowCount(strings.Count);
    if (rows < 1) {
        return;
    }
    CheckpointNumber = 4000;
    strings.Entries.resize(rows);
    std::size_t position = 4;
    for (int row = 1; row <= rows; ++row) {
        readRow(strings.Entries[row], data, position);
    }
    CheckpointNumber = 8000;
    strings.Tail = position < data.size() ? data.substr(position) : std::string_view();
}

bool gsReadSTRSegment(const IffFile& iff, StrSegment& strings, std::string_view id, bool ctss) {
    return trapped("modIFFsupport", "gsReadSTRSegment",
                   [&] { readSegment(iff, strings, id, ctss); });
}

bool gsWriteSTRSegment(IffFile& iff, const StrSegment& strings, std::string_view id, bool ctss) {
    return trapped("modIFFsupport", "gsWriteSTRSegment", [&] {
        const std::string data = tableData(strings);
        for (int i = 1; i <= iff.Segments.bound(); ++i) {
            IffSegment& segment = iff.Segments[i];
            if (segment.Type == typeName(ctss) && segment.ID == id) {
                segment.Data = data;
                segment.Size =
                    gfstrLongToBigEndian(static_cast<std::int32_t>(data.size()) + kSegmentHead);
            }
        }
    });
}

bool readWardrobeTable(const IffFile& iff, StrSegment& strings) {
    return gsReadSTRSegment(iff, strings, gfstrHexToBytes(kWardrobeId), false);
}

void lookAtWardrobeTable(const IffFile& iff, StrSegment& strings) {
    const std::int32_t stage = CheckpointNumber;
    try {
        readSegment(iff, strings, gfstrHexToBytes(kWardrobeId), false);
    } catch (...) {
        CheckpointNumber = stage;
        throw;
    }
    CheckpointNumber = stage;
}

bool writeWardrobeTable(IffFile& iff, const StrSegment& strings) {
    return gsWriteSTRSegment(iff, strings, gfstrHexToBytes(kWardrobeId), false);
}

}  // namespace marlowick
