#include "foundation/bytes.h"

#include <algorithm>
#include <cstddef>

#include "foundation/list.h"
#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

int hexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    return 0;
}

bool isCleanCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_';
}

}  // namespace

std::string gfstrLongToLittleEndian(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((bits >> shift) & 0xFFU));
    }
    return bytes;
}

std::string gfstrLongToBigEndian(std::int32_t number) {
    return gfstrReverseFour(gfstrLongToLittleEndian(number));
}

std::string gfstrTrimAtNull(std::string_view bytes) {
    return std::string(bytes.substr(0, bytes.find('\0')));
}

std::string gfstrReverseFour(std::string_view bytes) {
    if (bytes.size() != 4) {
        return "    ";
    }
    std::string reversed(bytes);
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}

int gfintHexToByte(std::string& digits) {
    digits = upperCase(digits);
    if (digits.empty() || digits.size() > 2) {
        return -1;
    }
    const int high = digits.size() == 2 ? hexDigit(digits.front()) : 0;
    return high * 16 + hexDigit(digits.back());
}

std::string gfstrHexToBytes(std::string_view text) {
    std::string bytes;
    for (int piece = 0; piece < 4; ++piece) {
        const std::size_t blank = piece < 3 ? text.find(' ') : text.size();
        if (blank == std::string_view::npos) {
            throw RuntimeError(error::kInvalidArgument);
        }
        std::string digits(text.substr(0, blank));
        const int value = gfintHexToByte(digits);
        if (value < 0) {
            throw RuntimeError(error::kInvalidArgument);
        }
        bytes.push_back(static_cast<char>(value));
        text.remove_prefix(std::min(blank + 1, text.size()));
    }
    return bytes;
}

std::string gfstrCleanName(std::string_view text) {
    checkCounter(static_cast<long long>(text.size()));
    std::string clean;
    std::copy_if(text.begin(), text.end(), std::back_inserter(clean), isCleanCharacter);
    return clean;
}

std::string gfstrFileNameOfPath(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

}  // namespace marlowick
