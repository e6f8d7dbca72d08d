// The one registry value that the program reads.
#pragma once

#include <cstdint>
#include <string>

namespace marlowick {

inline constexpr std::uint32_t kRegistryLocalMachine = 0x80000002;

// A text value of a registry key, up to its first zero byte, as UTF-8. length is the size of the
// buffer in bytes; 0 means 255. The literal "ERROR" when the key can't be opened or the value
// can't be read, and on a system without a registry.
std::string GetRegistryString(std::uint32_t keyRoot, const std::string& subKey,
                              const std::string& valueName, int length);

}  // namespace marlowick
