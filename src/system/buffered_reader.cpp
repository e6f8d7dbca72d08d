#include "system/buffered_reader.h"

#include <algorithm>

namespace marlowick {

BufferedReader::BufferedReader(File& file, std::size_t pieceSize)
    : file_(file),
      pieceSize_(pieceSize),
      unread_(std::max<std::int64_t>(0, file.size() - file.position())) {}

std::optional<std::string_view> BufferedReader::take(std::size_t size) {
    const std::size_t held = piece_.size() - next_;
    if (size > held) {
        const auto missing = static_cast<std::int64_t>(size - held);
        if (missing > unread_) {
            return std::nullopt;
        }
        fill(static_cast<std::size_t>(
            std::min(std::max(missing, static_cast<std::int64_t>(pieceSize_)), unread_)));
        if (size > piece_.size()) {
            return std::nullopt;
        }
    }
    next_ += size;
    return std::string_view(piece_).substr(next_ - size, size);
}

void BufferedReader::fill(std::size_t size) {
    piece_.erase(0, next_);
    next_ = 0;
    const std::size_t held = piece_.size();
    piece_.resize(held + size);
    const std::size_t count = file_.read(piece_.data() + held, size);
    piece_.resize(held + count);
    unread_ = count < size ? 0 : unread_ - static_cast<std::int64_t>(count);
}

}  // namespace marlowick
