#include "system/wine_registry.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "system/files.h"
#include "system/folder_order.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr const char* kError = "ERROR";
constexpr std::string_view kSoftware = "Software\\";

// Both bounds are what the file's own writer keeps to.
constexpr int kMostHexDigits = 4;
constexpr int kMostOctalDigits = 3;

int digitOf(char c, int base) {
    int digit = -1;
    if (c >= '0' && c <= '9') {
        digit = c - '0';
    } else if (c >= 'a' && c <= 'f') {
        digit = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
        digit = c - 'A' + 10;
    }
    return digit < base ? digit : -1;
}

// The number at position, of at most so many digits; moves position behind it.
char16_t numberAt(std::string_view text, std::size_t& position, int base, int mostDigits) {
    unsigned number = 0;
    for (int i = 0; i < mostDigits && position < text.size(); ++i) {
        const int digit = digitOf(text[position], base);
        if (digit < 0) {
            break;
        }
        number = number * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
        ++position;
    }
    return static_cast<char16_t>(number);
}

// The code unit of what follows a backslash; moves position behind it.
char16_t escapeAt(std::string_view text, std::size_t& position) {
    struct Row {
        char letter;
        char16_t unit;
    };
    static constexpr std::array<Row, 8> kRows = {{{'a', 0x07},
                                                  {'b', 0x08},
                                                  {'e', 0x1B},
                                                  {'f', 0x0C},
                                                  {'n', 0x0A},
                                                  {'r', 0x0D},
                                                  {'t', 0x09},
                                                  {'v', 0x0B}}};
    const char letter = text[position];
    if (digitOf(letter, 8) >= 0) {
        return numberAt(text, position, 8, kMostOctalDigits);
    }
    ++position;
    if (letter == 'x' && position < text.size() && digitOf(text[position], 16) >= 0) {
        return numberAt(text, position, 16, kMostHexDigits);
    }
    for (const Row& row : kRows) {
        if (row.letter == letter) {
            return row.unit;
        }
    }
    return static_cast<unsigned char>(letter);
}

// The code units from position to the closing character; moves position behind that. Nothing if
// the line ends first. Bytes that aren't escaped stand for themselves.
std::optional<std::u16string> unitsUpTo(char closing, std::string_view line,
                                        std::size_t& position) {
    std::u16string units;
    while (position < line.size()) {
        const char c = line[position++];
        if (c == closing) {
            return units;
        }
        if (c == '\\' && position < line.size()) {
            units.push_back(escapeAt(line, position));
        } else {
            units.push_back(static_cast<unsigned char>(c));
        }
    }
    return std::nullopt;
}

// Half of a surrogate pair becomes U+FFFD.
std::string toUtf8(const std::u16string& units) {
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        const bool isHigh = c >= 0xD800 && c < 0xDC00;
        const bool isPair =
            isHigh && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
        if (isPair) {
            c = 0x10000 + ((c - 0xD800) << 10U) + (units[++i] - 0xDC00U);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD;
        }
        appendUtf8(text, c);
    }
    return text;
}

std::optional<std::string> textUpTo(char closing, std::string_view line, std::size_t& position) {
    const std::optional<std::u16string> units = unitsUpTo(closing, line, position);
    return units ? std::optional(toUtf8(*units)) : std::nullopt;
}

// The next line without its end; moves position behind it.
std::string_view nextLine(std::string_view text, std::size_t& position) {
    const std::size_t end = std::min(text.find('\n', position), text.size());
    std::string_view line = text.substr(position, end - position);
    position = end + 1;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

// True if a name, up to its closing character, differs from a wanted one in the letters that both
// have of ASCII: nearly all names of a registry do, and nothing has to be kept to tell.
bool differsAtOnce(char closing, const std::u16string& wanted, std::string_view line) {
    std::size_t position = 1;
    for (const char16_t wantedUnit : wanted) {
        if (position == line.size() || line[position] == closing) {
            return true;
        }
        const char c = line[position++];
        const char16_t unit = c == '\\' && position < line.size() ? escapeAt(line, position)
                                                                  : static_cast<unsigned char>(c);
        if (unit >= 0x80 || wantedUnit >= 0x80) {
            return false;
        }
        if (upperByte(static_cast<char>(unit)) != static_cast<char>(wantedUnit)) {
            return true;
        }
    }
    return false;
}

bool isLineOf(char opening, char closing, const std::u16string& wanted, std::string_view line,
              std::size_t& position) {
    position = 1;
    if (!line.starts_with(opening) || differsAtOnce(closing, wanted, line)) {
        return false;
    }
    const std::optional<std::string> name = textUpTo(closing, line, position);
    return name && foldedName(*name) == wanted;
}

// What read finds under the key's 32-bit form or else under the key itself.
template <class Read>
auto in32BitView(std::string_view key, const Read& read) {
    const auto found = read(keyOf32Bit(key));
    return found ? found : read(key);
}

bool isDriveLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// The folder "dosdevices" has a link for each drive.
Path driveLink(const Path& prefix, char letter) {
    return prefix + ("\\dosdevices\\" + std::string(1, lowerByte(letter)) + ":");
}

bool isPathWithDrive(std::string_view text) {
    return text.size() >= 2 && isDriveLetter(text[0]) && text[1] == ':' &&
           (text.size() == 2 || text[2] == '\\' || text[2] == '/');
}

// A path of the prefix, such as "C:\Games", as a path of this machine.
std::optional<std::string> onThisMachine(const Path& prefix, const std::string& text) {
    if (!isPathWithDrive(text)) {
        return std::nullopt;
    }
    const Path link = driveLink(prefix, text[0]);
    if (!files().folderExists(link)) {
        return std::nullopt;
    }
    std::string folder = files().followLinks(link).text();
    if (text.size() > 2 && folder.ends_with('\\')) {
        folder.pop_back();
    }
    folder += text.substr(2);
    std::replace(folder.begin(), folder.end(), '/', '\\');
    return folder;
}

}  // namespace

std::optional<WineText> wineRegistryAnyText(std::string_view registry, std::string_view key,
                                            std::string_view valueName) {
    constexpr std::string_view kPlain = "=\"";
    constexpr std::string_view kExpandable = "=str(2):\"";
    const std::u16string wantedKey = foldedName(key);
    const std::u16string wantedName = foldedName(valueName);
    bool inKey = false;
    for (std::size_t start = 0; start < registry.size();) {
        const std::string_view line = nextLine(registry, start);
        std::size_t position = 0;
        if (line.starts_with('[')) {
            inKey = isLineOf('[', ']', wantedKey, line, position);
        } else if (inKey && isLineOf('"', '"', wantedName, line, position)) {
            const std::string_view rest = line.substr(position);
            const bool expandable = rest.starts_with(kExpandable);
            if (!expandable && !rest.starts_with(kPlain)) {
                return std::nullopt;
            }
            position += expandable ? kExpandable.size() : kPlain.size();
            const std::optional<std::string> text = textUpTo('"', line, position);
            return text ? std::optional(WineText{*text, expandable}) : std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<std::string> wineRegistryText(std::string_view systemReg, std::string_view key,
                                            std::string_view valueName) {
    const std::optional<WineText> found = wineRegistryAnyText(systemReg, key, valueName);
    return found && !found->isExpandable ? std::optional(found->text) : std::nullopt;
}

Path wineRegistryFile(const Path& prefix, RegistryHive hive) {
    return prefix + (hive == RegistryHive::LocalMachine ? "\\system.reg" : "\\user.reg");
}

std::optional<WineText> wineRegistryMachineText(std::string_view systemReg, std::string_view key,
                                                std::string_view valueName) {
    const std::optional<WineText> found = in32BitView(key, [&](std::string_view form) {
        return wineRegistryAnyText(systemReg, form, valueName);
    });
    return found && found->text.find('\0') == std::string::npos ? found : std::nullopt;
}

std::string wineRegistryPath(const Path& home, std::string_view key, std::string_view valueName,
                             int length) {
    const Path prefix = home + "\\.wine";
    std::optional<std::string> text;
    const std::optional<std::string> systemReg = readUntrustedFile(
        wineRegistryFile(prefix, RegistryHive::LocalMachine), kLongestWineRegistry);
    if (systemReg) {
        text = in32BitView(key, [&](std::string_view form) {
            return wineRegistryText(*systemReg, form, valueName);
        });
    }
    if (!text || utf8ToGameText(*text).size() >= static_cast<std::size_t>(std::max(length, 0))) {
        return kError;
    }
    text->resize(std::min(text->find('\0'), text->size()));
    return text->empty() ? std::string() : onThisMachine(prefix, *text).value_or(kError);
}

std::optional<Path> pathThroughDrives(const Path& prefix, std::string_view text) {
    if (!isPathWithDrive(text)) {
        return std::nullopt;
    }
    std::string rest(text.substr(2));
    std::replace(rest.begin(), rest.end(), '/', '\\');
    return driveLink(prefix, text[0]) + rest;
}

std::string keyOf32Bit(std::string_view key) {
    if (foldedName(key.substr(0, kSoftware.size())) != foldedName(kSoftware)) {
        return std::string(key);
    }
    return std::string(kSoftware) + "Wow6432Node\\" + std::string(key.substr(kSoftware.size()));
}

}  // namespace marlowick
