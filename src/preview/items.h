// A mesh, a suit or a skeleton is a row of items: numbers, floats and texts, in one order, whether
// its file is binary or text. Two readers of one shape, one for each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "preview/vector.h"

namespace marlowick {

enum class FileForm { Binary, Text };

// Every item is error 62 if the bytes end before it does, and error 6 for a float that is no number
// or has no end. The bytes must outlive the reader.
class BinaryItems {
  public:
    explicit BinaryItems(std::string_view bytes) : rest_(bytes) {}

    // Of 32 bits, little-endian.
    std::int32_t number();
    float real();
    // One byte of length and that many bytes.
    std::string text();
    // A binary file begins with its first item.
    void skipVersion() {}

  private:
    std::string_view take(std::size_t size);

    std::string_view rest_;
};

// Lines end in CR LF, CR or LF; those that begin with "//" are comments. Numbers are parted by
// blanks, tabs, bars and ends of lines; a text is a line of its own, without blanks around it. What
// is no number is error 13.
class TextItems {
  public:
    explicit TextItems(std::string_view bytes) : rest_(bytes) {}

    std::int32_t number();
    // The nearest float; what is too small for one is 0.
    float real();
    std::string text();
    // Passes over a line such as "version 300", if one comes next.
    void skipVersion();

  private:
    std::string_view nextLine();
    std::string_view nextWord();

    std::string_view rest_;
    std::string_view line_;  // what is left of the line that was begun
};

template <class Items>
Vector readVector(Items& items) {
    Vector result;
    result.x = items.real();
    result.y = items.real();
    result.z = items.real();
    return result;
}

// A number of things, 0 to most; any other is error 9.
std::size_t checkedCount(std::int32_t count, std::int32_t most);
template <class Items>
std::size_t readCount(Items& items, std::int32_t most) {
    return checkedCount(items.number(), most);
}

// Passes over a number of property lists, each a number of pairs of texts.
template <class Items>
void skipProperties(Items& items) {
    // Each list and each pair takes bytes of its own: a count that lies ends with the file.
    constexpr std::int32_t kAny = 0x7FFFFFFF;
    for (std::size_t list = readCount(items, kAny); list > 0; --list) {
        for (std::size_t pair = readCount(items, kAny); pair > 0; --pair) {
            items.text();
            items.text();
        }
    }
}

}  // namespace marlowick
