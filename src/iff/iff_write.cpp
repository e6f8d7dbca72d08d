#include <string>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/iff_file.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::size_t kMapOffsetField = 60;

std::string fixedWidth(std::string text, std::size_t width) {
    text.resize(width, '\0');
    return text;
}

std::string headOf(const IffFile& iff) {
    return fixedWidth(iff.Header, kMapOffsetField) + fixedWidth(iff.RsmpOffset, 4);
}

void appendSegment(std::string& content, const IffSegment& segment) {
    content += fixedWidth(segment.Type, 4);
    content += fixedWidth(segment.Size, 4);
    content += fixedWidth(segment.ID, 4);
    content += fixedWidth(segment.Label, 64);
    content += segment.Data;
}

// The size field behind the map's head is its length in bytes less one: so the game has it.
void appendMap(std::string& content, const IffFile& iff) {
    CheckpointNumber = 3000;
    const std::size_t start = content.size();
    content += fixedWidth(iff.RsmpHeader, 88);
    const std::size_t sizeField = content.size();
    content += gfstrLongToLittleEndian(iff.RsmpSize);
    content += gfstrLongToLittleEndian(iff.RsmpTypeCount);
    for (int t = 1; t <= iff.RsmpTypes.bound(); ++t) {
        const RsmpType& type = iff.RsmpTypes[t];
        content += fixedWidth(type.TypeCode, 4) + gfstrLongToLittleEndian(type.EntryCount);
        for (int e = 1; e <= type.Entries.bound(); ++e) {
            const RsmpEntry& entry = type.Entries[e];
            content += entry.EntryOffset + entry.EntryID + entry.EntryLabel;
        }
    }
    const auto length = static_cast<std::int32_t>(content.size() - start);
    content.replace(sizeField, 4, gfstrLongToLittleEndian(length - 1));
    CheckpointNumber = 4000;
    content.replace(kMapOffsetField, 4, gfstrLongToBigEndian(static_cast<std::int32_t>(start)));
}

// mapRenewed: false if the map's offsets couldn't be made true.
std::string wholeContent(IffFile& iff, bool& mapRenewed) {
    CheckpointNumber = 2000;
    std::string content = headOf(iff);
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        IffSegment& segment = iff.Segments[i];
        segment.Offset = static_cast<std::int32_t>(content.size()) + 1;
        appendSegment(content, segment);
    }
    if (iff.HasRsmp) {
        mapRenewed = gsUpdateRsmp(iff);
        appendMap(content, iff);
    } else {
        content.replace(kMapOffsetField, 4, std::string(4, '\0'));
    }
    return content;
}

std::string contentWithoutBitmaps(const IffFile& iff) {
    CheckpointNumber = 2000;
    std::string content = headOf(iff);
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        if (iff.Segments[i].Type != "BMP_") {
            appendSegment(content, iff.Segments[i]);
        }
    }
    content.replace(kMapOffsetField, 4, std::string(4, '\0'));
    return content;
}

template <class MakeContent>
void writeUserFile(const Path& path, MakeContent makeContent) {
    CheckpointNumber = 1000;
    File& file = streams().open(slot::kUserFile, path, OpenMode::Binary);
    file.write(makeContent());
    streams().close(slot::kUserFile);
}

}  // namespace

bool gsWriteIFF(IffFile& iff, const Path& path) {
    bool mapRenewed = true;
    const bool written = trapped("modIFFsupport", "gsWriteIFF", [&] {
        writeUserFile(path, [&] { return wholeContent(iff, mapRenewed); });
    });
    return written && mapRenewed;
}

bool gsWriteIFF_NoBMPs(IffFile& iff, const Path& path) {
    return trapped("modMarlowickMain", "gsWriteIFF_NoBMPs",
                   [&] { writeUserFile(path, [&] { return contentWithoutBitmaps(iff); }); });
}

}  // namespace marlowick
