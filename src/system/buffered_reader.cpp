#include "system/buffered_reader.h"

#include <algorithm>
#include <utility>

namespace marlowick {

BufferedReader::BufferedReader(File& file, std::size_t pieceSize)
    : file_(file),
      pieceSize_(pieceSize),
      unread_(std::max<std::int64_t>(0, file.size() - file.position())) {}

std::optional<std::string_view> BufferedReader::take(std::size_t size) {
    const std::size_t held = size_ - next_;
    if (size > held) {
        const auto missing = static_cast<std::int64_t>(size - held);
        if (missing > unread_) {
            return std::nullopt;
        }
        fill(static_cast<std::size_t>(
            std::min(std::max(missing, static_cast<std::int64_t>(pieceSize_)), unread_)));
        if (size > size_) {
            return std::nullopt;
        }
    }
    next_ += size;
    return std::string_view(piece_.get() + next_ - size, size);
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
