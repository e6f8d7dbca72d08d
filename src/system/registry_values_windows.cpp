#include <windows.h>

#include "system/registry_values.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr DWORD kLongestText = 32767;

HKEY openKey(RegistryHive hive, RegistryView view, std::string_view key) {
    HKEY opened = nullptr;
    const REGSAM half = view == RegistryView::Of32Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const LSTATUS status =
        ::RegOpenKeyExW(hive == RegistryHive::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE,
                        wideText(key).c_str(), 0, KEY_READ | half, &opened);
    return status == ERROR_SUCCESS ? opened : nullptr;
}

}  // namespace

std::optional<std::string> registryValue(RegistryHive hive, RegistryView view, std::string_view key,
                                         std::string_view name) {
    const HKEY opened = openKey(hive, view, key);
    if (opened == nullptr) {
        return std::nullopt;
    }
    std::wstring text(kLongestText, L'\0');
    DWORD size = kLongestText * sizeof(wchar_t);
    // An expandable text is filled in and counts as a text too. Sees to the zero at the end.
    const LSTATUS status = ::RegGetValueW(opened, nullptr, wideText(name).c_str(), RRF_RT_REG_SZ,
                                          nullptr, text.data(), &size);
    ::RegCloseKey(opened);
    if (status != ERROR_SUCCESS || size < sizeof(wchar_t)) {
        return std::nullopt;
    }
    text.resize(size / sizeof(wchar_t) - 1);
    if (text.find(L'\0') != std::wstring::npos) {
        return std::nullopt;
    }
    return utf8Text(text);
}

}  // namespace marlowick
