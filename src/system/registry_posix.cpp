// A system without a registry of its own: the game runs under Wine there, which keeps one.

#include <algorithm>
#include <cstdlib>

#include "system/registry.h"
#include "system/wine_registry.h"

namespace marlowick {

std::string GetRegistryString(std::uint32_t keyRoot, const std::string& subKey,
                              const std::string& valueName, int length) {
    const char* home = std::getenv("HOME");
    if (keyRoot != kRegistryLocalMachine || home == nullptr) {
        return "ERROR";
    }
    std::string folder = home;
    std::replace(folder.begin(), folder.end(), '/', '\\');
    return wineRegistryPath(Path(folder), subKey, valueName, length > 0 ? length : kRegistryLength);
}

}  // namespace marlowick
