// The registry as Wine keeps it: text files of the prefix, "system.reg" with the keys of
// HKEY_LOCAL_MACHINE and "user.reg" with those of HKEY_CURRENT_USER. Their bytes may be anything;
// nothing here raises an error.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "system/path.h"
#include "system/registry_values.h"

namespace marlowick {

// A plain text value ("name"="text") of a key, as UTF-8; the first one that fits if the file holds
// several. Key and name are UTF-8 and blind to case; the key starts below the root, as in
// "Software\\Wine". Nothing if the file has no such key, or the key no such value or one of
// another type, or if the text doesn't end.
std::optional<std::string> wineRegistryText(std::string_view systemReg, std::string_view key,
                                            std::string_view valueName);

// A text value of a key, and whether it holds names of the environment between percent signs that
// are to be filled in.
struct WineText {
    std::string text;  // UTF-8
    bool isExpandable = false;
};

// The same of a plain text and of one with names of the environment ("name"=str(2):"text").
std::optional<WineText> wineRegistryAnyText(std::string_view registry, std::string_view key,
                                            std::string_view valueName);

// The longest file of a registry that is read, in bytes. A real one has a few millions.
inline constexpr std::int64_t kLongestWineRegistry = std::int64_t{64} << 20U;

// The files of a prefix's registry.
Path wineRegistryFile(const Path& prefix, RegistryHive hive);

// A text value of HKEY_LOCAL_MACHINE ("system.reg") as a 32-bit program sees it: the key's 32-bit
// form is looked up first, then the key itself. Nothing if there is none such or it holds a zero
// byte.
std::optional<WineText> wineRegistryMachineText(std::string_view systemReg, std::string_view key,
                                                std::string_view valueName);

// A text value of HKEY_LOCAL_MACHINE as a 32-bit program sees it that runs in the default prefix
// (".wine") of the home folder: the key's 32-bit form is looked up first, then the key itself. A
// text that begins with a drive letter is turned into a path of this machine through the prefix's
// folder "dosdevices". length is the size of the caller's buffer in bytes with the zero byte, which
// the text must fit into as a game text; what follows a zero byte in the text is left out. "ERROR"
// if there is no such value, it is too long, it isn't empty and no path, its drive doesn't exist,
// or the registry is no file of an ordinary size.
std::string wineRegistryPath(const Path& home, std::string_view key, std::string_view valueName,
                             int length);

// A path of the prefix, such as "C:\Games", as the path that leads there through the prefix's
// folder "dosdevices"; nothing for a text that doesn't begin with a drive letter. The disk isn't
// looked at.
std::optional<Path> pathThroughDrives(const Path& prefix, std::string_view text);

// The key under which a 32-bit program finds what it asks for on a 64-bit system:
// "Software\\Maxis" becomes "Software\\Wow6432Node\\Maxis". Other keys stay.
std::string keyOf32Bit(std::string_view key);

}  // namespace marlowick
