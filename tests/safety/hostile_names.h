// Names that files of strangers hold where the name of a file is expected.
#pragma once

#include <string>
#include <vector>

namespace marlowick::test {

// Game texts. Those that no file may be given, and those that look odd and harm nobody.
inline std::vector<std::string> hostileNames() {
    using std::string_literals::operator""s;
    std::vector<std::string> names = {
        "",
        ".",
        "..",
        "...",
        ". .",
        " ",
        "  ",
        ".. ",
        " ..",
        "\\",
        "/",
        ":",
        "\\\\",
        "//",
        "..\\evil.bmp",
        "../evil.bmp",
        "..\\..\\evil.bmp",
        "a\\..\\..\\evil.bmp",
        "a/../../evil.bmp",
        "\\evil.bmp",
        "/evil.bmp",
        "C:evil.bmp",
        "C:\\evil.bmp",
        "evil.bmp:s",
        "evil.bmp::$DATA",
        "\\\\.\\C:\\evil.bmp",
        "\\\\?\\C:\\evil.bmp",
        "\\\\server\\x\\evil.bmp",
        "evil\0.bmp"s,
        "\0"s,
        "\0evil.bmp"s,
        "..\0"s,
        "evil\n.bmp",
        "evil\r\n.bmp",
        "\x1F",
        "\x7F",
        "a*b.bmp",
        "a?b.bmp",
        "a<b.bmp",
        "a>b.bmp",
        "a|b.bmp",
        "a\"b.bmp",
        // Of the case and the spelling of other files of the program.
        "evil.bmp.",
        "evil.bmp..",
        "evil.bmp ",
        "evil.bmp. ",
        " evil.bmp",
        "evil .bmp",
        "evil..bmp",
        ".evil",
        "~",
        "~root",
        "$HOME",
        "%TEMP%",
        "`x`",
        "-rf",
        "desktop.ini",
        "x.marlowick-new",
        // Bytes above 127: half of a character and whole ones, of Windows-1252 and of UTF-8.
        "\x80\x81\x8D\x8F\x90\x9D.bmp",
        "\xA0",
        "\xFF\xFE",
        "\xE9vil.bmp",
        "\xC3\xA9.bmp",
        "\xC0\xAE\xC0\xAE\xC0\xAF",
        "\xEF\xBC\x8E\xEF\xBC\x8E",
        std::string(300, 'x'),
        std::string(300, 'x') + ".bmp",
        std::string(300, '\xE9'),
        std::string(300, '.'),
        std::string(40000, 'x'),
        std::string(300, 'x') + "\\evil.bmp",
    };
    for (const char* device : {"con", "PRN", "Aux", "NUL", "com1", "COM9", "LPT1", "lpt9",
                               "COM\xB9", "LPT\xB2", "CONIN$", "conout$", "CLOCK$"}) {
        for (const char* end : {"", ".", " ", ".bmp", " .bmp", ".tar.gz", ":", ":x"}) {
            names.push_back(std::string(device) + end);
        }
    }
    return names;
}

}  // namespace marlowick::test
