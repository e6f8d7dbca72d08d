#include "bench/archive_file.h"

#include <cstdint>
#include <cstring>
#include <utility>

#include "bench/plain_disk.h"

namespace marlowick::bench {
namespace {

constexpr std::size_t kHead = 16;

void appendNumber(std::string& text, std::size_t number) {
    const auto value = static_cast<std::uint32_t>(number);
    for (unsigned shift = 0; shift < 32; shift += 8) {
        text += static_cast<char>(value >> shift & 0xFFU);
    }
}

std::size_t numberAt(const char* bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

}  // namespace

std::string entryName(int number) {
    const std::string digits = std::to_string(number);
    return "b001fafitlgt_" + std::string(6 - digits.size(), '0') + digits + ".bmp";
}

std::string archiveOf(const std::vector<std::pair<std::string, std::string>>& entries) {
    std::string content;
    std::string directory;
    appendNumber(directory, entries.size());
    for (const auto& [name, bytes] : entries) {
        appendNumber(directory, bytes.size());
        appendNumber(directory, bytes.size());
        appendNumber(directory, kHead + content.size());
        appendNumber(directory, name.size());
        directory += name;
        content += bytes;
    }
    std::string archive = "FAR!byAZ";
    appendNumber(archive, 1);
    appendNumber(archive, kHead + content.size());
    return archive + content + directory;
}

std::string archiveOf(int count, int size) {
    std::vector<std::pair<std::string, std::string>> entries;
    const std::string bytes(static_cast<std::size_t>(size), 'x');
    for (int number = 1; number <= count; ++number) {
        entries.emplace_back("Textures\\" + entryName(number), bytes);
    }
    return archiveOf(entries);
}

std::vector<std::string> plainDirectory(const std::string& file) {
    const Buffer archive = plainRead(file);
    const char* next = archive.bytes.get() + numberAt(archive.bytes.get() + 12);
    const std::size_t count = numberAt(next);
    next += 4;
    std::vector<std::string> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t length = numberAt(next + 12);
        names.emplace_back(next + 16, length);
        next += 16 + length;
    }
    return names;
}

}  // namespace marlowick::bench
