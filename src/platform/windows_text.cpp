#include "platform/windows_text.h"

#include <windows.h>

namespace marlowick {
namespace {

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

}  // namespace marlowick
