// Byte strings, numbers in them, and files: what every writer here needs.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace sample {

namespace fs = std::filesystem;

std::string little16(unsigned number);
std::string little32(std::uint32_t number);
std::string big16(unsigned number);
std::string big32(std::uint32_t number);

// One length byte and the text.
std::string counted(std::string_view text);

// Makes the folders above the file, then the file.
void writeFile(const fs::path& path, std::string_view content);

// The same numbers on every system for the same seed.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next();
    // 0 to bound less 1.
    unsigned below(unsigned bound) { return static_cast<unsigned>(next() % bound); }

  private:
    std::uint64_t state_;
};

}  // namespace sample
