#include "user_file_report.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string_view>

namespace marlowick::tour {
namespace {

constexpr std::size_t kFileHead = 64;
constexpr std::size_t kSegmentHead = 76;
constexpr std::string_view kWardrobeId("\x00\xC8\x00\x10", 4);

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(0, 4)) {
        value = value << 8U | static_cast<unsigned char>(byte);
    }
    return value;
}

std::string upTo(std::string_view data, std::size_t& position) {
    const std::size_t zero = data.find('\0', position);
    std::string text(data.substr(position, zero - position));
    position = zero == std::string_view::npos ? data.size() : zero + 1;
    return text;
}

// Rows into the map; languages, comments and tail into the rest.
void takeRows(std::string_view data, UserFileContent& content) {
    const int count =
        static_cast<unsigned char>(data[2]) + 256 * static_cast<unsigned char>(data[3]);
    content.rest.append(data.substr(0, 4));
    std::size_t position = 4;
    for (int row = 1; row <= count; ++row) {
        content.rest.push_back(data[position++]);
        content.rows[row] = upTo(data, position);
        content.rest += upTo(data, position);
    }
    content.rest.append(data.substr(position));
}

// The map without its size field and its rows' offsets.
void takeMap(std::string_view map, std::string& rest) {
    rest.append(map.substr(0, 88));
    rest.append(map.substr(92, 4));
    std::size_t position = 96;
    while (position + 8 <= map.size()) {
        const std::string_view head = map.substr(position, 8);
        rest.append(head);
        position += 8;
        const auto count =
            static_cast<unsigned char>(head[4]) + 256U * static_cast<unsigned char>(head[5]);
        for (unsigned i = 0; i < count && position + 8 < map.size(); ++i) {
            const std::size_t start = position + 4;
            position += 8;
            while (map[position] != '\0' && map[position] != '\xA3') {
                ++position;
            }
            position += map[position] == '\0' && position % 2 == 0 ? 2 : 1;
            rest.append(map.substr(start, position - start));
        }
    }
}

}  // namespace

UserFileContent takeApart(const std::string& file) {
    UserFileContent content;
    const std::string_view bytes(file);
    content.rest.append(bytes.substr(0, 60));
    std::size_t position = kFileHead;
    while (position + kSegmentHead <= bytes.size()) {
        const std::size_t size = bigEndian(bytes.substr(position + 4));
        const std::string_view segment = bytes.substr(position, size);
        if (segment.starts_with("rsmp")) {
            takeMap(bytes.substr(position), content.rest);
            break;
        }
        const bool wardrobe = segment.starts_with("STR#") && segment.substr(8, 4) == kWardrobeId;
        content.rest.append(segment.substr(0, 4));
        content.rest.append(segment.substr(8, 4));
        // A label counts up to its first zero byte; a save pads it with blanks.
        std::string label(
            segment.substr(12, std::min<std::size_t>(64, segment.find('\0', 12) - 12)));
        label.erase(label.find_last_not_of(' ') + 1);
        content.rest += label;
        if (wardrobe) {
            takeRows(segment.substr(kSegmentHead), content);
        } else {
            content.rest.append(segment.substr(4, 4));
            content.rest.append(segment.substr(kSegmentHead));
        }
        position += size;
    }
    return content;
}

Rows printChanges(const UserFileContent& before, const UserFileContent& after) {
    Rows changed;
    for (const auto& [number, text] : after.rows) {
        const auto old = before.rows.find(number);
        if (old == before.rows.end() || old->second != text) {
            std::printf("  row %2d: \"%s\"\n      now \"%s\"\n", number,
                        old == before.rows.end() ? "" : old->second.c_str(), text.c_str());
            changed[number] = text;
        }
    }
    return changed;
}

}  // namespace marlowick::tour
