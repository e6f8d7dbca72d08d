// Reads the items of a mesh or a suit from an open file, which it takes from the disk in blocks:
// numbers of 32 bits, little-endian, and counted texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "system/files.h"

namespace marlowick {

// Every item is error 62 if the file ends before it does.
class BlockReader {
  public:
    // Begins at the file's position. The file must outlive the reader; its own position runs ahead.
    explicit BlockReader(File& file) : file_(file) {}

    std::int32_t number();
    float singleFloat();
    // One byte of length and that many bytes.
    std::string countedText();

  private:
    // The next so many bytes, at most a block; good until the next call.
    std::string_view take(std::size_t size);

    File& file_;
    std::string block_;
    std::size_t next_ = 0;  // of the block's bytes, from 0
};

}  // namespace marlowick
