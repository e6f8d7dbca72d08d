// String tables: what is read and written unchanged is the same bytes, and a changed row changes
// only its row.
#include <string>

#include "bounds.h"
#include "foundation/bytes.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"

namespace {

using namespace marlowick;
using fuzz::require;

IffFile fileWith(std::string data) {
    IffFile iff;
    iff.Segments.append({1, "STR#", std::string(4, '\0'), gfstrHexToBytes(kWardrobeId),
                         std::string(64, '\0'), std::move(data)});
    return iff;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Bounds bounds(size);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    IffFile iff = fileWith(bytes);
    StrSegment rows;
    if (!readWardrobeTable(iff, rows) || rows.Entries.bound() < 1) {
        return 0;
    }
    require(writeWardrobeTable(iff, rows), "a table that was read can't be written");
    const std::string written = iff.Segments[1].Data;
    // A row without an end reads as a blank one, and a table of such rows grows; a whole one is the
    // same bytes.
    StrSegment again;
    require(readWardrobeTable(iff, again), "a table that was written can't be read");
    require(writeWardrobeTable(iff, again), "it can't be written again");
    if (written.size() == bytes.size()) {
        require(written == bytes, "a byte has changed");
    }
    if (written != bytes) {
        return 0;
    }
    const int changed = 1 + static_cast<int>(size) % rows.Entries.bound();
    again.Entries[changed].Text = "changed";
    require(writeWardrobeTable(iff, again), "a changed table can't be written");
    StrSegment after;
    require(readWardrobeTable(iff, after), "a changed table can't be read");
    require(after.Entries.bound() == rows.Entries.bound(), "rows have come or gone");
    require(after.Tail == rows.Tail, "the tail has changed");
    for (int row = 1; row <= rows.Entries.bound(); ++row) {
        const StrEntry& was = rows.Entries[row];
        const StrEntry& is = after.Entries[row];
        require(is.Language == was.Language && is.Comment == was.Comment, "a row has changed");
        require(is.Text == (row == changed ? "changed" : was.Text), "another row has changed");
    }
    return 0;
}
