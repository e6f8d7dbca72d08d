#include <windows.h>

#include <string_view>

#include "system/registry.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr REGSAM kAllAccess = 0xF003F;

}  // namespace

std::string GetRegistryString(std::uint32_t keyRoot, const std::string& subKey,
                              const std::string& valueName, int length) {
    std::string buffer(static_cast<std::size_t>(length > 0 ? length : kRegistryLength), ' ');
    // The system extends the sign of a root.
    const auto root =
        reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<std::int32_t>(keyRoot)));
    HKEY key = nullptr;
    // The game is a 32-bit program: its part of the registry is another than this program's.
    if (::RegOpenKeyExA(root, ansiText(subKey).c_str(), 0, kAllAccess | KEY_WOW64_32KEY, &key) !=
        ERROR_SUCCESS) {
        return "ERROR";
    }
    DWORD type = REG_SZ;
    auto size = static_cast<DWORD>(buffer.size());
    const LSTATUS status = ::RegQueryValueExA(key, ansiText(valueName).c_str(), nullptr, &type,
                                              reinterpret_cast<BYTE*>(buffer.data()), &size);
    ::RegCloseKey(key);
    if (status != ERROR_SUCCESS) {
        return "ERROR";
    }
    buffer.resize(size);
    return utf8TextOfAnsi(std::string_view(buffer).substr(0, buffer.find('\0')));
}

}  // namespace marlowick
