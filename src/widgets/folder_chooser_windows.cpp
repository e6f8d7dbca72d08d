#include <windows.h>
// After windows.h.
#include <shlobj.h>

#include <array>

#include "widgets/folder_chooser_system.h"
#include "widgets/native_window.h"

namespace marlowick {
namespace {

constexpr std::size_t kPathLength = 260;

}  // namespace

QString systemChooseFolder(QWidget* owner, const QString& title) {
    const std::wstring caption = title.toStdWString();
    BROWSEINFOW info{};
    info.hwndOwner = nativeWindow(owner);
    info.lpszTitle = caption.c_str();
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_DONTGOBELOWDOMAIN;
    PIDLIST_ABSOLUTE chosen = ::SHBrowseForFolderW(&info);
    if (chosen == nullptr) {
        return {};
    }
    std::array<wchar_t, kPathLength> path{};
    const bool isFolder = ::SHGetPathFromIDListW(chosen, path.data()) != FALSE;
    ::CoTaskMemFree(chosen);
    return isFolder ? QString::fromWCharArray(path.data()) : QString();
}

}  // namespace marlowick
