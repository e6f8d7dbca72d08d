// Reading texts out of the registry, with the right to read alone. Any part of it, unlike
// GetRegistryString (registry.h), which asks as the game's own programs do.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marlowick {

enum class RegistryHive {
    CurrentUser,
    LocalMachine,
};

// Which programs' half of the registry.
enum class RegistryView {
    Of32Bit,
    Of64Bit,
};

// A text value, as UTF-8; names of the environment between percent signs are filled in where the
// value is of that type. Nothing if there is no such value, it is no text, holds a zero byte
// within, or is longer than any path; nothing on a system without a registry.
std::optional<std::string> registryValue(RegistryHive hive, RegistryView view, std::string_view key,
                                         std::string_view name);

}  // namespace marlowick
