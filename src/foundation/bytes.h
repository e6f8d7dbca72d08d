// Byte strings: texts of which each character is one byte, with zero bytes anywhere.
// All file formats are read and written through these helpers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "system/runtime_error.h"

namespace marlowick {

// Four bytes as a signed 32-bit number, the lowest one first.
constexpr std::int32_t numberOfBytes(char lowest, char second, char third, char highest) {
    const auto bits = [](char byte) { return std::uint32_t{static_cast<unsigned char>(byte)}; };
    return static_cast<std::int32_t>(bits(lowest) | bits(second) << 8U | bits(third) << 16U |
                                     bits(highest) << 24U);
}

// Signed 32-bit number from the first four bytes, the first byte the lowest (little-endian) or the
// highest (big-endian). 5 if there are fewer than four. In line, since archives and meshes are made
// of such numbers.
inline std::int32_t gflngLittleEndianToLong(std::string_view bytes) {
    if (bytes.size() < 4) {
        throw RuntimeError(error::kInvalidArgument);
    }
    return numberOfBytes(bytes[0], bytes[1], bytes[2], bytes[3]);
}
inline std::int32_t gflngBigEndianToLong(std::string_view bytes) {
    if (bytes.size() < 4) {
        throw RuntimeError(error::kInvalidArgument);
    }
    return numberOfBytes(bytes[3], bytes[2], bytes[1], bytes[0]);
}

// The number as four bytes.
std::string gfstrLongToLittleEndian(std::int32_t number);
std::string gfstrLongToBigEndian(std::int32_t number);

// The text before the first zero byte, or the whole text if it holds none.
std::string gfstrTrimAtNull(std::string_view bytes);

// Four bytes in reverse order; four blanks for a text of any other length.
std::string gfstrReverseFour(std::string_view bytes);

// One or two hexadecimal digits to 0 to 255; -1 for any other length. digits is upper-cased in
// place. A wrong first digit counts 0, a wrong last digit adds nothing.
int gfintHexToByte(std::string& digits);

// Four blank-separated pieces such as "00 C8 00 10" to four bytes. 5 for fewer than three blanks
// or a piece of the wrong length.
std::string gfstrHexToBytes(std::string_view text);

// The letters a to z and A to Z, digits, "-" and "_" of a text. 6 past 32767 characters.
std::string gfstrCleanName(std::string_view text);

// What follows the last backslash; the whole text if there is none.
std::string gfstrFileNameOfPath(std::string_view path);

}  // namespace marlowick
