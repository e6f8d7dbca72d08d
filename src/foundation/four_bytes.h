// A field of four bytes as it stands in a file, such as the size of an entry in an archive. It is
// read and given like a text. A text takes eight times the room, and an archive with nothing but a
// directory may have a million of these fields.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace marlowick {

class FourBytes;

// What such a field can be given, compared with and put behind.
template <class Text>
concept FieldText =
    !std::same_as<Text, FourBytes> && std::convertible_to<const Text&, std::string_view>;

class FourBytes {
  public:
    // Empty, as a field that was never read.
    FourBytes() = default;

    // Of a longer text the first four bytes.
    template <FieldText Text>
    FourBytes(const Text& text) {
        const std::string_view bytes(text);
        size_ = static_cast<std::uint8_t>(std::min(bytes.size(), bytes_.size()));
        std::copy_n(bytes.data(), size_, bytes_.begin());
    }

    // Good as long as the field stands and doesn't change.
    operator std::string_view() const { return {bytes_.data(), size_}; }
    operator std::string() const { return std::string(view()); }

    const char* data() const { return bytes_.data(); }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    // index: from 0, below size().
    char operator[](std::size_t index) const { return bytes_[index]; }

    friend bool operator==(const FourBytes& left, const FourBytes& right) {
        return left.view() == right.view();
    }
    template <FieldText Text>
    friend bool operator==(const FourBytes& left, const Text& right) {
        return left.view() == std::string_view(right);
    }

    friend std::string operator+(const FourBytes& left, const FourBytes& right) {
        return std::string(left.view()).append(right.view());
    }
    template <FieldText Text>
    friend std::string operator+(const FourBytes& left, const Text& right) {
        return std::string(left.view()).append(std::string_view(right));
    }
    template <FieldText Text>
    friend std::string operator+(const Text& left, const FourBytes& right) {
        return std::string(left).append(right.view());
    }

  private:
    std::string_view view() const { return *this; }

    std::array<char, 4> bytes_{};
    std::uint8_t size_ = 0;
};

}  // namespace marlowick
