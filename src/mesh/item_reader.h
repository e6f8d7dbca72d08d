// Reads the items of a mesh or a suit from an open file: numbers of 32 bits, little-endian, and
// counted texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "system/buffered_reader.h"

namespace marlowick {

// Every item is error 62 if the file ends before it does.
class ItemReader {
  public:
    // Begins at the file's position. The file must outlive the reader; its own position runs ahead.
    explicit ItemReader(File& file);

    std::int32_t number();
    float singleFloat();
    // One byte of length and that many bytes.
    std::string countedText();

  private:
    // The next so many bytes; good until the next call.
    std::string_view take(std::size_t size);

    BufferedReader bytes_;
};

}  // namespace marlowick
