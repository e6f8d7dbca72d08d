#include "system/registry_values.h"

namespace marlowick {

std::optional<std::string> registryValue(RegistryHive /*hive*/, RegistryView /*view*/,
                                         std::string_view /*key*/, std::string_view /*name*/) {
    return std::nullopt;
}

}  // namespace marlowick
