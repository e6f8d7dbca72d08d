#include <windows.h>

#include "system/known_folders.h"
// After windows.h.
#include <knownfolders.h>
#include <shlobj.h>

#include "system/windows_text.h"

namespace marlowick {
namespace {

Path knownFolder(const KNOWNFOLDERID& which) {
    PWSTR path = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(which, KF_FLAG_DONT_VERIFY, nullptr, &path);
    Path folder;
    if (SUCCEEDED(result)) {
        folder = Path(utf8Text(path));
    }
    ::CoTaskMemFree(path);
    return folder;
}

}  // namespace

Path savedGamesFolder() {
    return knownFolder(FOLDERID_SavedGames);
}

Path documentsFolder() {
    return knownFolder(FOLDERID_Documents);
}

Path programDataFolder() {
    return knownFolder(FOLDERID_ProgramData);
}

Path homeFolder() {
    return {};
}

std::string loginName() {
    return {};
}

}  // namespace marlowick
