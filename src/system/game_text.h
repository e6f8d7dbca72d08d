// Game texts: bytes as the game stores them, one byte a character,
// Windows-1252. The five bytes that Windows-1252 leaves unassigned stand for
// the code points of the same value, so that every byte survives a round trip.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace marlowick {

// Game text to UTF-8. Never fails.
std::string gameTextToUtf8(std::string_view gameText);

// UTF-8 to game text; a character without a Windows-1252 form, and a byte that
// isn't UTF-8, becomes "?".
std::string utf8ToGameText(std::string_view utf8);

// Upper and lower case by one fixed Windows-1252 table, the same on every system.
extern const std::array<char, 256> kUpperBytes;
inline char upperByte(char byte) {
    return kUpperBytes[static_cast<unsigned char>(byte)];
}
char lowerByte(char byte);
std::string upperCase(std::string_view gameText);
std::string lowerCase(std::string_view gameText);

// Below 0, 0 or above 0 as left sorts before, equals or sorts behind right:
// upper-cased bytes are compared as unsigned numbers.
int compareIgnoringCase(std::string_view left, std::string_view right);
bool equalsIgnoringCase(std::string_view left, std::string_view right);

// True if name fits a directory mask: "*" any run, "?" any one character,
// blind to case. Both are game texts.
bool matchesMask(std::string_view name, std::string_view mask);

// Code point of a game text byte, and the upper case of a code point (Latin,
// Greek, Cyrillic) as the order of a folder listing needs it.
char32_t codePointOfByte(unsigned char byte);
char32_t upperCodePoint(char32_t codePoint);

// Next code point of a UTF-8 text; moves position (bytes from 0) behind it. A byte
// that isn't UTF-8 gives U+FFFD and moves one byte. position must lie inside the text.
char32_t nextCodePoint(std::string_view utf8, std::size_t& position);
void appendUtf8(std::string& utf8, char32_t codePoint);

}  // namespace marlowick
