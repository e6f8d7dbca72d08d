// Texts on their way into calls of Windows and back.
#pragma once

#include <string>
#include <string_view>

namespace marlowick {

// UTF-8 to what the wide calls take. A byte that isn't UTF-8 becomes U+FFFD.
std::wstring wideText(std::string_view utf8);

// What the wide calls give to UTF-8. Half a surrogate pair becomes U+FFFD.
std::string utf8Text(std::wstring_view wide);

// UTF-8 to the code page of the calls that end in "A", and back.
std::string ansiText(std::string_view utf8);
std::string utf8TextOfAnsi(std::string_view ansi);

// A full path as the system takes it without the limit of 260 characters: "C:\x" as "\\?\C:\x",
// "\\server\x" as "\\?\UNC\server\x". Empty for one that leads to a device.
std::wstring longForm(std::wstring_view full);

// The same the other way round: as a person writes it.
std::wstring plainForm(std::wstring_view native);

}  // namespace marlowick
