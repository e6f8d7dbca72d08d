#include "user_file.h"

#include <algorithm>
#include <map>

#include "bytes.h"

namespace sample {
namespace {

constexpr std::size_t kFileHead = 64;

std::string fileHead(std::uint32_t mapOffset) {
    std::string head = "IFF FILE 2.5:TYPE FOLLOWED BY SIZE";
    head += '\0';
    head += " SAMPLE GAME MAKER";
    head.resize(60, '\0');
    return head + big32(mapOffset);
}

std::string mapRow(const Segment& segment, std::uint32_t offset, std::size_t rowStart) {
    std::string row = little32(offset) + little16(segment.id) + little16(segment.flags) +
                      segment.label + segment.labelEnd;
    // Rows of zero-ended labels are padded to an even offset from the map's start.
    if (segment.labelEnd == '\0' && (rowStart + row.size()) % 2 == 1) {
        row += '\xA3';
    }
    return row;
}

std::string mapBytes(const std::vector<Segment>& segments,
                     const std::vector<std::uint32_t>& offsets) {
    std::vector<std::string> types;
    for (const Segment& segment : segments) {
        if (std::find(types.begin(), types.end(), segment.type) == types.end()) {
            types.push_back(segment.type);
        }
    }
    std::string map(96, '\0');
    for (const std::string& type : types) {
        std::string rows;
        std::uint32_t count = 0;
        for (std::size_t i = 0; i < segments.size(); ++i) {
            if (segments[i].type == type) {
                rows += mapRow(segments[i], offsets[i], map.size() + 8 + rows.size());
                ++count;
            }
        }
        map += std::string(type.rbegin(), type.rend()) + little32(count) + rows;
    }
    const auto size = static_cast<std::uint32_t>(map.size());
    map.replace(0, 12, "rsmp" + big32(size) + big16(0) + big16(0));
    map.replace(76, 4, little32(0));
    map.replace(80, 4, little32(1));
    map.replace(84, 4, "pmsr");
    map.replace(88, 4, little32(size - 1));
    map.replace(92, 4, little32(static_cast<std::uint32_t>(types.size())));
    return map;
}

}  // namespace

std::string segmentBytes(const Segment& segment) {
    std::string label = segment.label;
    label.resize(64, '\0');
    return segment.type + big32(76 + static_cast<std::uint32_t>(segment.data.size())) +
           big16(segment.id) + big16(segment.flags) + label + segment.data;
}

std::string userFile(const std::vector<Segment>& segments, MapPlace place) {
    const std::size_t mapAfter = place == MapPlace::Middle ? segments.size() / 2 : segments.size();
    const bool hasMap = place == MapPlace::End || place == MapPlace::Middle;
    // The map's length doesn't depend on the offsets in it: make it twice.
    const std::size_t mapSize =
        mapBytes(segments, std::vector<std::uint32_t>(segments.size())).size();
    std::vector<std::uint32_t> offsets;
    std::size_t position = kFileHead;
    std::size_t mapOffset = 0;
    for (std::size_t i = 0; i <= segments.size(); ++i) {
        if (i == mapAfter && hasMap) {
            mapOffset = position;
            position += mapSize;
        }
        if (i < segments.size()) {
            offsets.push_back(static_cast<std::uint32_t>(position));
            position += 76 + segments[i].data.size();
        }
    }
    std::string file = fileHead(
        place == MapPlace::NoneAsText ? 0x30303030U : static_cast<std::uint32_t>(mapOffset));
    for (std::size_t i = 0; i <= segments.size(); ++i) {
        if (i == mapAfter && hasMap) {
            file += mapBytes(segments, offsets);
        }
        if (i < segments.size()) {
            file += segmentBytes(segments[i]);
        }
    }
    return file;
}

std::string stringTable(const std::vector<std::string>& rows, std::string_view tail) {
    std::string data = "\xFD\xFF" + little16(static_cast<unsigned>(rows.size()));
    for (const std::string& row : rows) {
        data += '\x01';
        data += row;
        data += '\0';
        data += '\0';
    }
    return data + std::string(tail);
}

}  // namespace sample
