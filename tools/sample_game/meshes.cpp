#include "meshes.h"

#include <bit>

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

}  // namespace

std::string bmfMesh(const std::string& name, const std::string& texture) {
    return counted(name) + counted(texture) + integers({1}) + counted("HEAD") +
           integers({2, 0, 1, 2, 0, 2, 3}) + integers({1, 0, 0, 4, 0, 0}) + integers({4}) +
           floats({0.0F, 0.0F, 1.0F, 0.0F, 0.5F, 1.0F, 0.01234567F, 0.00001F}) + integers({0}) +
           integers({4}) +
           floats({0.0F,  1.5F, 0.0F,  0.0F, 1.0F, 0.0F, -0.25F, 0.0F, 0.25F,  -1.0F, 0.0F, 0.0F,
                   0.25F, 0.0F, 0.25F, 1.0F, 0.0F, 0.0F, 0.0F,   0.0F, -0.25F, 0.0F,  0.0F, -1.0F});
}

std::string sknMesh(const std::string& name, const std::string& texture) {
    return name + "\r\n" + texture +
           "\r\n1\r\nHEAD\r\n1\r\n0 1 2\r\n1\r\n0 0 3 0 0\r\n3\r\n0.0 0.0\r\n1 0.0\r\n0.5 "
           "1\r\n0\r\n"
           "3\r\n0.0 1.5 0.0 0.0 1 0.0\r\n-0.25 0.0 0.25 -1 0.0 0.0\r\n0.25 0.0 0.25 1 0.0 0.0\r\n";
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
