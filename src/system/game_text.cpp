#include "system/game_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace marlowick {
namespace {

// Code points of the bytes 0x80 to 0x9F; the five unassigned ones stand for themselves.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char, 256> makeUpperTable() {
    std::array<char, 256> table{};
    for (unsigned i = 0; i < 256; ++i) {
        unsigned upper = i;
        if ((i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE && i != 0xF7)) {
            upper = i - 0x20;
        } else if (i == 0x9A || i == 0x9C || i == 0x9E) {
            upper = i - 0x10;
        } else if (i == 0xFF) {
            upper = 0x9F;
        }
        table[i] = static_cast<char>(upper);
    }
    return table;
}

constexpr unsigned char byteOf(char character) {
    return static_cast<unsigned char>(character);
}

constexpr std::array<char, 256> makeLowerTable() {
    const std::array<char, 256> upper = makeUpperTable();
    std::array<char, 256> table{};
    for (unsigned i = 0; i < 256; ++i) {
        table[i] = static_cast<char>(i);
    }
    for (unsigned i = 0; i < 256; ++i) {
        if (byteOf(upper[i]) != i) {
            table[byteOf(upper[i])] = static_cast<char>(i);
        }
    }
    return table;
}

constexpr std::array<char, 256> kLowerBytes = makeLowerTable();

}  // namespace

char32_t codePointOfByte(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : byte;
}

void appendUtf8(std::string& utf8, char32_t c) {
    const auto push = [&](char32_t value) { utf8.push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        push(c);
    } else if (c < 0x800) {
        push(0xC0 | (c >> 6));
        push(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        push(0xE0 | (c >> 12));
        push(0x80 | ((c >> 6) & 0x3F));
        push(0x80 | (c & 0x3F));
    } else {
        push(0xF0 | (c >> 18));
        push(0x80 | ((c >> 12) & 0x3F));
        push(0x80 | ((c >> 6) & 0x3F));
        push(0x80 | (c & 0x3F));
    }
}

char32_t nextCodePoint(std::string_view utf8, std::size_t& position) {
    const unsigned char first = byteOf(utf8[position]);
    std::size_t length = 1;
    char32_t value = first;
    char32_t smallest = 0;
    if (first >= 0xF0 && first < 0xF5) {
        length = 4;
        value = first & 0x07U;
        smallest = 0x10000;
    } else if (first >= 0xE0 && first < 0xF0) {
        length = 3;
        value = first & 0x0FU;
        smallest = 0x800;
    } else if (first >= 0xC2 && first < 0xE0) {
        length = 2;
        value = first & 0x1FU;
        smallest = 0x80;
    } else if (first >= 0x80) {
        ++position;
        return 0xFFFD;
    }
    if (position + length > utf8.size()) {
        ++position;
        return 0xFFFD;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = byteOf(utf8[position + i]);
        if ((next & 0xC0U) != 0x80U) {
            ++position;
            return 0xFFFD;
        }
        value = (value << 6) | (next & 0x3FU);
    }
    if (value < smallest || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) {
        ++position;
        return 0xFFFD;
    }
    position += length;
    return value;
}

std::string gameTextToUtf8(std::string_view gameText) {
    std::string utf8;
    utf8.reserve(gameText.size());
    for (const char character : gameText) {
        appendUtf8(utf8, codePointOfByte(byteOf(character)));
    }
    return utf8;
}

std::string utf8ToGameText(std::string_view utf8) {
    std::string gameText;
    gameText.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t c = nextCodePoint(utf8, position);
        if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
            gameText.push_back(static_cast<char>(c));
            continue;
        }
        const auto* found = std::find(kHighControls.begin(), kHighControls.end(), c);
        gameText.push_back(found == kHighControls.end()
                               ? '?'
                               : static_cast<char>(0x80 + (found - kHighControls.begin())));
    }
    return gameText;
}

constinit const std::array<char, 256> kUpperBytes = makeUpperTable();

char lowerByte(char byte) {
    return kLowerBytes[byteOf(byte)];
}

std::string upperCase(std::string_view gameText) {
    std::string result(gameText);
    std::transform(result.begin(), result.end(), result.begin(), upperByte);
    return result;
}

std::string lowerCase(std::string_view gameText) {
    std::string result(gameText);
    std::transform(result.begin(), result.end(), result.begin(), lowerByte);
    return result;
}

int compareIgnoringCase(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = static_cast<int>(byteOf(upperByte(left[i]))) -
                               static_cast<int>(byteOf(upperByte(right[i])));
        if (difference != 0) {
            return difference;
        }
    }
    if (left.size() == right.size()) {
        return 0;
    }
    return left.size() < right.size() ? -1 : 1;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && compareIgnoringCase(left, right) == 0;
}

bool matchesMask(std::string_view name, std::string_view mask) {
    // Greedy matching with one remembered "*": linear in practice, never exponential.
    std::size_t n = 0;
    std::size_t m = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == '*') {
            star = m++;
            starName = n;
        } else if (m < mask.size() &&
                   (mask[m] == '?' || upperByte(mask[m]) == upperByte(name[n]))) {
            ++m;
            ++n;
        } else if (star != std::string_view::npos) {
            m = star + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (m < mask.size() && mask[m] == '*') {
        ++m;
    }
    return m == mask.size();
}

char32_t upperCodePoint(char32_t c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7) ||
        (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F)) {
        return c - 0x20;
    }
    if (c == 0xFF) {
        return 0x178;
    }
    if (c >= 0x450 && c <= 0x45F) {
        return c - 0x50;
    }
    // Latin Extended-A: pairs, upper case first; the parity of the pairs changes twice.
    const bool evenPairs = (c >= 0x100 && c <= 0x137 && c != 0x131) || (c >= 0x14A && c <= 0x177);
    const bool oddPairs = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if ((evenPairs && c % 2 == 1) || (oddPairs && c % 2 == 0)) {
        return c - 1;
    }
    return c;
}

}  // namespace marlowick
