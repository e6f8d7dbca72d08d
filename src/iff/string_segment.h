// String tables of a user file: the wardrobe ("STR#") and the names ("CTSS").
// Rows count from 1.
#pragma once

#include <string>
#include <string_view>

#include "foundation/list.h"
#include "iff/iff_file.h"

namespace marlowick {

// Address of the wardrobe table: resource id 200, flags 0x0010.
inline constexpr std::string_view kWardrobeId = "00 C8 00 10";

struct StrEntry {
    char Language = '\0';
    std::string Text;
    std::string Comment;
};

struct StrSegment {
    std::string Format;  // 2 bytes, never examined
    std::string Count;   // 2 bytes, little-endian; copied by the writer, not recounted
    List<StrEntry> Entries;
    std::string Tail;
};

// Fills the record from the data of such a segment; of a table without rows Tail stays. Entries
// must be empty. Sets CheckpointNumber from 3000 to 8000. Raises 5 for a table that ends within its
// count or within a comment, 6 for more than 32767 rows.
void readStringTable(std::string_view data, StrSegment& strings);

// Fills the record from the first segment with that type ("CTSS" if ctss, otherwise "STR#") and
// those four id bytes. Without such a segment nothing but Entries changes, which is emptied.
// Trapped (modIFFsupport); false after a failure.
bool gsReadSTRSegment(const IffFile& iff, StrSegment& strings, std::string_view id, bool ctss);

// Puts the record's rows into Data and Size of every segment with that type and id, a text up to
// its first zero byte, which would end it for every reader. Changes the record in memory only.
// Trapped; false after a failure.
bool gsWriteSTRSegment(IffFile& iff, const StrSegment& strings, std::string_view id, bool ctss);

// The same for the one table that this program works on: the wardrobe's rows.
bool readWardrobeTable(const IffFile& iff, StrSegment& strings);
bool writeWardrobeTable(IffFile& iff, const StrSegment& strings);

// The same, but not trapped: for a look at the wardrobe that nobody is told of. CheckpointNumber
// stays. Raises what a damaged table raises.
void lookAtWardrobeTable(const IffFile& iff, StrSegment& strings);

}  // namespace marlowick
