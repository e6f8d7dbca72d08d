// Walks through the content of a file that was read in one piece. What lies behind
// the end reads as zeros, as a record filled from a file that ends too early has it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace marlowick {

class ByteReader {
  public:
    ByteReader(std::string_view content, std::size_t position)
        : content_(content), position_(position) {}

    std::size_t position() const { return position_; }
    std::size_t left() const { return content_.size() - std::min(position_, content_.size()); }
    // What hasn't been taken yet.
    std::string_view rest() const { return content_.substr(content_.size() - left()); }

    // Exactly count bytes, zeros behind the end; moves behind them.
    std::string take(std::size_t count) {
        std::string bytes;
        take(bytes, count);
        return bytes;
    }
    // The same into a text that stands already, in the memory that it has.
    void take(std::string& bytes, std::size_t count) {
        bytes.assign(content_, std::min(position_, content_.size()), count);
        if (bytes.size() < count) {
            bytes.resize(count, '\0');
        }
        position_ += count;
    }

  private:
    std::string_view content_;
    std::size_t position_;  // bytes from 0
};

}  // namespace marlowick
