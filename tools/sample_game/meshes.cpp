#include "meshes.h"

#include <bit>
#include <charconv>
#include <utility>

#include "bytes.h"

namespace sample {
namespace {

std::string floats(std::initializer_list<float> values) {
    std::string bytes;
    for (const float value : values) {
        bytes += little32(std::bit_cast<std::uint32_t>(value));
    }
    return bytes;
}

std::string integers(std::initializer_list<std::uint32_t> values) {
    std::string bytes;
    for (const std::uint32_t value : values) {
        bytes += little32(value);
    }
    return bytes;
}

constexpr const char* kLineEnd = "\r\n";

std::string number(std::size_t value) {
    return little32(static_cast<std::uint32_t>(value));
}

std::string binary(int value) {
    return little32(static_cast<std::uint32_t>(value));
}
std::string binary(float value) {
    return little32(std::bit_cast<std::uint32_t>(value));
}

std::string text(int value) {
    return std::to_string(value);
}
std::string text(float value) {
    return floatText(value);
}

template <class Row>
std::string binaryRows(const std::vector<Row>& rows) {
    std::string bytes = number(rows.size());
    for (const Row& row : rows) {
        for (const auto value : row) {
            bytes += binary(value);
        }
    }
    return bytes;
}

template <class Row>
std::string textRows(const std::vector<Row>& rows) {
    std::string lines = std::to_string(rows.size()) + kLineEnd;
    for (const Row& row : rows) {
        std::string line;
        for (const auto value : row) {
            line += (line.empty() ? "" : " ") + text(value);
        }
        lines += line + kLineEnd;
    }
    return lines;
}

}  // namespace

std::string bmfMesh(const std::string& name, const std::string& texture) {
    return counted(name) + counted(texture) + integers({1}) + counted("HEAD") +
           integers({2, 0, 1, 2, 0, 2, 3}) + integers({1, 0, 0, 4, 0, 0}) + integers({4}) +
           floats({0.0F, 0.0F, 1.0F, 0.0F, 0.5F, 1.0F, 0.01234567F, 0.00001F}) + integers({0}) +
           integers({4}) +
           floats({0.0F,  1.5F, 0.0F,  0.0F, 1.0F, 0.0F, -0.25F, 0.0F, 0.25F,  -1.0F, 0.0F, 0.0F,
                   0.25F, 0.0F, 0.25F, 1.0F, 0.0F, 0.0F, 0.0F,   0.0F, -0.25F, 0.0F,  0.0F, -1.0F});
}

std::string bmfFile(const MeshRows& rows) {
    std::string file = counted(rows.name) + counted(rows.texture) + number(rows.bones.size());
    for (const std::string& bone : rows.bones) {
        file += counted(bone);
    }
    return file + binaryRows(rows.faces) + binaryRows(rows.bindings) + binaryRows(rows.sheet) +
           binaryRows(rows.blends) + binaryRows(rows.vertices);
}

std::string sknFile(const MeshRows& rows, bool vertexFirst) {
    std::string file = rows.name + kLineEnd + rows.texture + kLineEnd +
                       std::to_string(rows.bones.size()) + kLineEnd;
    for (const std::string& bone : rows.bones) {
        file += bone + kLineEnd;
    }
    std::vector<std::array<int, 2>> blends = rows.blends;
    if (vertexFirst) {
        for (auto& [weight, vertex] : blends) {
            std::swap(weight, vertex);
        }
    }
    return file + textRows(rows.faces) + textRows(rows.bindings) + textRows(rows.sheet) +
           textRows(blends) + textRows(rows.vertices);
}

std::string floatText(float value) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string suitBcf(const std::string& suit, const std::string& bone, const std::string& mesh) {
    return integers({0, 1}) + counted(suit) + integers({0, 0, 1}) + counted(bone) + counted(mesh) +
           integers({0, 0}) + integers({0});
}

std::string suitCmx(const std::string& suit, const std::string& bone, const std::string& mesh) {
    return "// A suit of the sample game\r\nversion 300\r\n0\r\n1\r\n" + suit +
           "\r\n0\r\n0\r\n1\r\n" + bone + "\r\n" + mesh + "\r\n0\r\n0\r\n0\r\n";
}

}  // namespace sample
