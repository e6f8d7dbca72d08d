// User files: a head, segments, and the resource map that lists them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sample {

struct Segment {
    std::string type;  // 4 characters
    unsigned id = 0;
    unsigned flags = 0x0010;
    std::string label;  // up to 64 bytes; zeros follow
    std::string data;
    char labelEnd = '\0';  // what ends the label in the map: a zero byte or 0xA3
};

enum class MapPlace { End, Middle, None, NoneAsText };

// The bytes of a file with these segments.
std::string userFile(const std::vector<Segment>& segments, MapPlace place);

// One segment's bytes.
std::string segmentBytes(const Segment& segment);

// The data of a string table: rows in language 1 without comments, then the tail.
std::string stringTable(const std::vector<std::string>& rows, std::string_view tail);

}  // namespace sample
