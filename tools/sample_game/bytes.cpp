#include "bytes.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace sample {
namespace {

char byteOf(std::uint32_t number, unsigned shift) {
    return static_cast<char>((number >> shift) & 0xFFU);
}

}  // namespace

std::string little16(unsigned number) {
    return {byteOf(number, 0), byteOf(number, 8)};
}

std::string little32(std::uint32_t number) {
    return {byteOf(number, 0), byteOf(number, 8), byteOf(number, 16), byteOf(number, 24)};
}

std::string big16(unsigned number) {
    return {byteOf(number, 8), byteOf(number, 0)};
}

std::string big32(std::uint32_t number) {
    return {byteOf(number, 24), byteOf(number, 16), byteOf(number, 8), byteOf(number, 0)};
}

std::string counted(std::string_view text) {
    return static_cast<char>(text.size()) + std::string(text);
}

void writeFile(const fs::path& path, std::string_view content) {
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "can't write %s\n", path.string().c_str());
        std::exit(EXIT_FAILURE);
    }
}

std::uint64_t Random::next() {
    state_ += 0x9E3779B97F4A7C15ULL;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31U);
}

}  // namespace sample
