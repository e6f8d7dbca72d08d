#include "platform/registry.h"

namespace marlowick {

std::string GetRegistryString(std::uint32_t /*keyRoot*/, const std::string& /*subKey*/,
                              const std::string& /*valueName*/, int /*length*/) {
    return "ERROR";
}

}  // namespace marlowick
