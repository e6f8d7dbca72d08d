// Reads an open file from front to back in large pieces and hands it out in small ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "system/files.h"

namespace marlowick {

class BufferedReader {
  public:
    // Begins at the file's position and asks the disk for so many bytes at a time, or for more
    // where more is taken at once. The file must outlive the reader; its own position runs ahead.
    BufferedReader(File& file, std::size_t pieceSize);

    // The next bytes, good until the next call; none if the file holds fewer: a size that no file
    // could fill asks for no memory. Raises 57 for a read that the system refuses.
    std::optional<std::string_view> take(std::size_t size) {
        if (size > size_ - next_ && !fetch(size)) {
            return std::nullopt;
        }
        next_ += size;
        return std::string_view(piece_.get() + next_ - size, size);
    }

    // Bytes from here to the end of the file.
    std::int64_t left() const { return unread_ + static_cast<std::int64_t>(size_ - next_); }

  private:
    // Puts so many bytes into the piece, which holds fewer; false if the file does too.
    bool fetch(std::size_t size);
    void fill(std::size_t size);

    File& file_;
    std::size_t pieceSize_;
    std::int64_t unread_;  // bytes of the file behind the piece
    std::unique_ptr<char[]> piece_;
    std::size_t room_ = 0;  // bytes that fit into the piece
    std::size_t size_ = 0;  // bytes in it
    std::size_t next_ = 0;  // the first of them that hasn't been taken
};

}  // namespace marlowick
