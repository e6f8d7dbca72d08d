#include "system/buffered_reader.h"

#include <algorithm>
#include <utility>

namespace marlowick {

BufferedReader::BufferedReader(File& file, std::size_t pieceSize)
    : file_(file),
      pieceSize_(pieceSize),
      unread_(std::max<std::int64_t>(0, file.size() - file.position())) {}

bool BufferedReader::fetch(std::size_t size) {
    const auto missing = static_cast<std::int64_t>(size - (size_ - next_));
    if (missing > unread_) {
        return false;
    }
    fill(static_cast<std::size_t>(
        std::min(std::max(missing, static_cast<std::int64_t>(pieceSize_)), unread_)));
    return size <= size_;
}

// Moves what is left to the front and reads behind it.
void BufferedReader::fill(std::size_t size) {
    const std::size_t held = size_ - next_;
    if (held + size > room_) {
        auto larger = std::make_unique_for_overwrite<char[]>(held + size);
        std::copy_n(piece_.get() + next_, held, larger.get());
        piece_ = std::move(larger);
        room_ = held + size;
    } else {
        std::copy_n(piece_.get() + next_, held, piece_.get());
    }
    next_ = 0;
    size_ = held;
    const std::size_t count = file_.read(piece_.get() + held, size);
    size_ += count;
    unread_ = count < size ? 0 : unread_ - static_cast<std::int64_t>(count);
}

}  // namespace marlowick
