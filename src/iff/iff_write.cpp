#include <string>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/iff_file.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::size_t kMapOffsetField = 60;
constexpr std::size_t kHeadSize = 64;

// The text in a field of so many bytes: cut, or with zeros behind it.
void appendField(std::string& content, std::string_view text, std::size_t width) {
    const std::size_t end = content.size() + width;
    content += text.substr(0, width);
    content.resize(end, '\0');
}

// The head, and room for all the segments behind it.
std::string headOf(const IffFile& iff) {
    std::size_t size = kHeadSize;
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        size += kSegmentHead + iff.Segments[i].Data.size();
    }
    std::string content;
    content.reserve(size);
    appendField(content, iff.Header, kMapOffsetField);
    appendField(content, iff.RsmpOffset, 4);
    return content;
}

void appendSegment(std::string& content, const IffSegment& segment) {
    appendField(content, segment.Type, 4);
    appendField(content, segment.Size, 4);
    appendField(content, segment.ID, 4);
    appendField(content, segment.Label, 64);
    content += segment.Data;
}

// The size field behind the map's head is its length in bytes less one: so the game has it.
std::string mapContent(const IffFile& iff) {
    std::string content;
    appendField(content, iff.RsmpHeader, 88);
    const std::size_t sizeField = content.size();
    content += gfstrLongToLittleEndian(iff.RsmpSize);
    content += gfstrLongToLittleEndian(iff.RsmpTypeCount);
    for (int t = 1; t <= iff.RsmpTypes.bound(); ++t) {
        const RsmpType& type = iff.RsmpTypes[t];
        appendField(content, type.TypeCode, 4);
        content += gfstrLongToLittleEndian(type.EntryCount);
        for (int e = 1; e <= type.Entries.bound(); ++e) {
            const RsmpEntry& entry = type.Entries[e];
            content.append(entry.EntryOffset).append(entry.EntryID).append(entry.EntryLabel);
        }
    }
    const auto length = static_cast<std::int32_t>(content.size());
    content.replace(sizeField, 4, gfstrLongToLittleEndian(length - 1));
    return content;
}

// The head and the segments, whose Offset is renewed. Without a map the head says so.
std::string headAndSegments(IffFile& iff) {
    std::string content = headOf(iff);
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        IffSegment& segment = iff.Segments[i];
        segment.Offset = static_cast<std::int32_t>(content.size()) + 1;
        appendSegment(content, segment);
    }
    if (!iff.HasRsmp) {
        content.replace(kMapOffsetField, 4, std::string(4, '\0'));
    }
    return content;
}

std::string contentWithoutBitmaps(const IffFile& iff) {
    std::string content = headOf(iff);
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        if (iff.Segments[i].Type != "BMP_") {
            appendSegment(content, iff.Segments[i]);
        }
    }
    content.replace(kMapOffsetField, 4, std::string(4, '\0'));
    return content;
}

// Behind head and segments: the map, then its place in the head. False if the map's offsets
// couldn't be made true.
bool writeMap(IffFile& iff, File& file) {
    const bool renewed = gsUpdateRsmp(iff);
    CheckpointNumber = 3000;
    const std::int64_t start = file.position();
    file.write(mapContent(iff));
    CheckpointNumber = 4000;
    file.seek(kMapOffsetField);
    file.write(gfstrLongToBigEndian(static_cast<std::int32_t>(start)));
    return renewed;
}

// Opens the file and closes it again; a failure between leaves it open.
template <class Write>
void writeUserFile(const Path& path, Write write) {
    CheckpointNumber = 1000;
    File& file = streams().open(slot::kUserFile, path, OpenMode::Binary);
    CheckpointNumber = 2000;
    write(file);
    streams().close(slot::kUserFile);
}

}  // namespace

bool gsWriteIFF(IffFile& iff, const Path& path) {
    bool mapRenewed = true;
    const bool written = trapped("modIFFsupport", "gsWriteIFF", [&] {
        writeUserFile(path, [&](File& file) {
            file.write(headAndSegments(iff));
            if (iff.HasRsmp) {
                mapRenewed = writeMap(iff, file);
            }
        });
    });
    return written && mapRenewed;
}

bool gsWriteIFF_NoBMPs(IffFile& iff, const Path& path) {
    return trapped("modMarlowickMain", "gsWriteIFF_NoBMPs", [&] {
        writeUserFile(path, [&](File& file) { file.write(contentWithoutBitmaps(iff)); });
    });
}

}  // namespace marlowick
