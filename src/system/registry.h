// The one registry value that the program reads.
#pragma once

#include <cstdint>
#include <string>

namespace marlowick {

inline constexpr std::uint32_t kRegistryLocalMachine = 0x80000002;

// Size of the buffer for a value, where the caller names none.
inline constexpr int kRegistryLength = 255;

// A text value of a registry key, up to its first zero byte, as UTF-8. length is the size of the
// buffer in bytes, which the value and its zero byte must fit into; 0 means kRegistryLength. The
// literal "ERROR" when the key can't be opened with all rights or the value can't be read. The
// game's own, 32-bit part of the registry is asked. A system without a registry gives what Wine
// keeps for the user, a path there as a path of this machine (wine_registry.h).
std::string GetRegistryString(std::uint32_t keyRoot, const std::string& subKey,
                              const std::string& valueName, int length);

}  // namespace marlowick
