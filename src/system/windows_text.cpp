#include "system/windows_text.h"

#include <windows.h>

namespace marlowick {
namespace {

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::wstring_view kNetworkPrefix = L"\\\\";
constexpr std::wstring_view kLongNetworkPrefix = L"\\\\?\\UNC\\";

std::wstring toWide(UINT codePage, std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(
                          ::MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    ::MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(),
                          static_cast<int>(wide.size()));
    return wide;
}

std::string fromWide(UINT codePage, std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    std::string bytes(static_cast<std::size_t>(::WideCharToMultiByte(codePage, 0, wide.data(), size,
                                                                     nullptr, 0, nullptr, nullptr)),
                      '\0');
    ::WideCharToMultiByte(codePage, 0, wide.data(), size, bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

}  // namespace

std::wstring wideText(std::string_view utf8) {
    return toWide(CP_UTF8, utf8);
}

std::string utf8Text(std::wstring_view wide) {
    return fromWide(CP_UTF8, wide);
}

std::string ansiText(std::string_view utf8) {
    return fromWide(CP_ACP, wideText(utf8));
}

std::string utf8TextOfAnsi(std::string_view ansi) {
    return utf8Text(toWide(CP_ACP, ansi));
}

std::wstring longForm(std::wstring_view full) {
    if (full.empty() || full.starts_with(kDevicePrefix)) {
        return {};
    }
    if (full.starts_with(kLongPrefix)) {
        return std::wstring(full);
    }
    if (full.starts_with(kNetworkPrefix)) {
        return std::wstring(kLongNetworkPrefix).append(full.substr(kNetworkPrefix.size()));
    }
    return std::wstring(kLongPrefix).append(full);
}

std::wstring plainForm(std::wstring_view native) {
    if (native.starts_with(kLongNetworkPrefix)) {
        return std::wstring(kNetworkPrefix).append(native.substr(kLongNetworkPrefix.size()));
    }
    return std::wstring(native.starts_with(kLongPrefix) ? native.substr(kLongPrefix.size())
                                                        : native);
}

}  // namespace marlowick
