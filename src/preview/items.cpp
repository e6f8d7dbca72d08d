#include "preview/items.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "foundation/bytes.h"
#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kSeparators = " \t|";
constexpr std::string_view kComment = "//";

std::string_view withoutLeading(std::string_view text, std::string_view characters) {
    return text.substr(std::min(text.find_first_not_of(characters), text.size()));
}

std::string_view trimmed(std::string_view text) {
    text = withoutLeading(text, kBlanks);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

float finite(float value) {
    if (!std::isfinite(value)) {
        throw RuntimeError(error::kOverflow);
    }
    return value;
}

std::string_view withoutPlus(std::string_view word) {
    return word.starts_with('+') ? word.substr(1) : word;
}

// Whether a number that fits no float is too small for one: its exponent is negative, or it has
// none and nothing but zeros before the point.
bool isTooSmall(std::string_view word) {
    const std::size_t exponent = word.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return word.substr(exponent + 1).starts_with('-');
    }
    return word.find_first_of("123456789") > word.find('.');
}

}  // namespace

std::size_t checkedCount(std::int32_t count, std::int32_t most) {
    if (count < 0 || count > most) {
        throw RuntimeError(error::kSubscript);
    }
    return static_cast<std::size_t>(count);
}

std::string_view BinaryItems::take(std::size_t size) {
    if (rest_.size() < size) {
        throw RuntimeError(error::kInputPastEnd);
    }
    const std::string_view bytes = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return bytes;
}

std::int32_t BinaryItems::number() {
    return gflngLittleEndianToLong(take(4));
}

float BinaryItems::real() {
    return finite(std::bit_cast<float>(number()));
}

std::string BinaryItems::text() {
    const auto length = static_cast<unsigned char>(take(1).front());
    return std::string(take(length));
}

std::string_view TextItems::nextLine() {
    for (;;) {
        if (rest_.empty()) {
            throw RuntimeError(error::kInputPastEnd);
        }
        const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
        const std::string_view line = rest_.substr(0, end);
        const std::size_t ending = rest_.substr(end, 2) == "\r\n" ? 2 : 1;
        rest_.remove_prefix(std::min(end + ending, rest_.size()));
        if (!withoutLeading(line, kBlanks).starts_with(kComment)) {
            return line;
        }
    }
}

std::string_view TextItems::nextWord() {
    line_ = withoutLeading(line_, kSeparators);
    while (line_.empty()) {
        line_ = withoutLeading(nextLine(), kSeparators);
    }
    const std::size_t end = std::min(line_.find_first_of(kSeparators), line_.size());
    const std::string_view word = line_.substr(0, end);
    line_.remove_prefix(end);
    return word;
}

std::int32_t TextItems::number() {
    const std::string_view word = withoutPlus(nextWord());
    std::int64_t value = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (failure != std::errc() || end != word.data() + word.size()) {
        throw RuntimeError(error::kTypeMismatch);
    }
    // Flags are written with or without a sign.
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::uint32_t>::max()) {
        throw RuntimeError(error::kOverflow);
    }
    return static_cast<std::int32_t>(value);
}

float TextItems::real() {
    const std::string_view word = withoutPlus(nextWord());
    float value = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (end != word.data() + word.size() || failure == std::errc::invalid_argument) {
        throw RuntimeError(error::kTypeMismatch);
    }
    if (failure == std::errc::result_out_of_range) {
        if (isTooSmall(word)) {
            return 0;
        }
        throw RuntimeError(error::kOverflow);
    }
    return finite(value);
}

std::string TextItems::text() {
    line_ = {};
    return std::string(trimmed(nextLine()));
}

void TextItems::skipVersion() {
    constexpr std::string_view kVersion = "version";
    while (!rest_.empty()) {
        const std::string_view before = rest_;
        const std::string line = lowerCase(trimmed(nextLine()));
        if (line.empty()) {
            continue;
        }
        if (!line.starts_with(kVersion)) {
            rest_ = before;
        }
        return;
    }
}

}  // namespace marlowick
