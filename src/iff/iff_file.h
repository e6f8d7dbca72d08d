// A user file in memory: one IFF file a sim or pet. The file is read whole into a
// list of opaque segments, so that every byte the program doesn't mean to change
// goes back as it came. The resource map alone is taken out of the list, since it
// holds the offsets of all the other segments. docs/file-formats.md draws the bytes.
#pragma once

#include <cstdint>
#include <string>

#include "foundation/list.h"
#include "system/path.h"

namespace marlowick {

class ByteReader;

// Bytes of a segment before its data: type, size, id and label.
inline constexpr std::int32_t kSegmentHead = 76;

struct IffSegment {
    std::int32_t Offset = 0;  // of the segment's first byte, from 1
    std::string Type;         // 4 bytes
    std::string Size;         // 4 bytes, big-endian, as in the file
    std::string ID;           // 4 bytes: resource id and flags, as in the file
    std::string Label;        // 64 bytes
    std::string Data;         // Size less kSegmentHead bytes
};

struct RsmpEntry {
    std::string EntryOffset;  // 4 bytes, little-endian, from 0
    std::string EntryID;      // 4 bytes: resource id little-endian, two bytes kept
    std::string EntryLabel;   // with its terminator and pad byte
};

struct RsmpType {
    std::string TypeCode;  // 4 bytes: the type read backwards
    std::int32_t EntryCount = 0;
    List<RsmpEntry> Entries;
};

struct IffFile {
    std::string Header;      // 60 bytes
    std::string RsmpOffset;  // 4 bytes, big-endian
    List<IffSegment> Segments;
    std::string RsmpHeader;  // 88 bytes
    std::int32_t RsmpSize = 0;
    std::int32_t RsmpTypeCount = 0;
    List<RsmpType> RsmpTypes;
    bool HasRsmp = false;
};

// Empties both lists; touches no other field. Before every reading into a reused record.
void gsResetIFF(IffFile& iff);

// Reads a user file; a missing file is made, empty. bytes takes what the file held, if it is given
// and nothing failed. Trapped (modIFFsupport, gsReadIFF); false after a failure, and the stream
// slot of user files then stays taken.
bool gsReadIFF(IffFile& iff, const Path& path, std::string* bytes = nullptr);

// Writes the record over what stands at path, without emptying it: callers delete an old file
// first. Renews the segments' Offset and the map's offsets. Trapped; false after a failure.
bool gsWriteIFF(IffFile& iff, const Path& path);

// The same, less the "BMP_" segments and the map; the record keeps both. Trapped
// (modMarlowickMain); false after a failure.
bool gsWriteIFF_NoBMPs(IffFile& iff, const Path& path);

// Sets EntryOffset in the map from the Offset of the segments: each segment renews the first row
// of its type and id. Trapped (modIFFsupport); false after a failure.
bool gsUpdateRsmp(IffFile& iff);

// The guarded reading: an empty text, and the record is filled; any other text is the reason of
// the failure in words for a person, and the record holds what was read until then. Shows no
// window, leaves no file open. bytes as above.
std::string gfstrQuickReadIFF(IffFile& iff, const Path& path, std::string* bytes = nullptr);

// True if the record is a user file: it has the wardrobe table, the name table and an "OBJD"
// segment labelled "user...".
bool gfblnVerifyUserIFF(IffFile& iff);

// Writes every "BMP_" segment into the program folder, as its label, cleaned, and ".BMP". One whose
// label makes no file's name ("con", "aux" ...) is passed over.
// gsDumpBMPs traps (modIFFsupport); false after a failure. dumpBitmaps raises instead, for
// callers that pass over its failures.
bool gsDumpBMPs(const IffFile& iff);
void dumpBitmaps(const IffFile& iff);

// Reading of the map, from the reader's position on; used by the readers above. gsReadRSMP traps
// (modIFFsupport); false after a failure, and its caller goes on where the reader then stands.
// gfstrQuickReadRSMP gives the reason of a failure instead.
bool gsReadRSMP(IffFile& iff, ByteReader& reader);
std::string gfstrQuickReadRSMP(IffFile& iff, ByteReader& reader);

}  // namespace marlowick
