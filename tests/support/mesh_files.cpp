#include "support/mesh_files.h"

#include <bit>
#include <cstdint>

#include "support/user_file_builder.h"

namespace marlowick::test {

std::string counted(const std::string& text) {
    return static_cast<char>(text.size()) + text;
}

std::string integers(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) {
        bytes += little32(static_cast<unsigned>(value));
    }
    return bytes;
}

std::string floats(std::initializer_list<float> values) {
    std::string bytes;
    for (const float value : values) {
        bytes += little32(std::bit_cast<std::uint32_t>(value));
    }
    return bytes;
}

std::string suitFile(const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& rows) {
    std::string bytes =
        integers({11, 12}) + counted(name) + integers({13, 14, static_cast<int>(rows.size())});
    int number = 20;
    for (const auto& [bone, mesh] : rows) {
        bytes += counted(bone) + counted(mesh) + integers({number, -number});
        ++number;
    }
    return bytes + integers({15});
}

}  // namespace marlowick::test
