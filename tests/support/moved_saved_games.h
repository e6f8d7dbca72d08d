// Windows alone: "Saved Games" moved to another folder, as a person does in its properties.
#pragma once

#include <windows.h>

#include <string>

namespace marlowick::test {

// Moved as long as the object lives; then back where it was.
class MovedSavedGames {
  public:
    explicit MovedSavedGames(const std::wstring& folder) {
        std::wstring text(1000, L'\0');
        size_ = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        hadOne_ =
            ::RegGetValueW(HKEY_CURRENT_USER, kFolders, kSavedGames, RRF_RT_ANY | RRF_NOEXPAND,
                           &type_, text.data(), &size_) == ERROR_SUCCESS;
        before_ = text;
        ::RegSetKeyValueW(HKEY_CURRENT_USER, kFolders, kSavedGames, REG_SZ, folder.c_str(),
                          static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
    }
    ~MovedSavedGames() {
        if (hadOne_) {
            ::RegSetKeyValueW(HKEY_CURRENT_USER, kFolders, kSavedGames, type_, before_.c_str(),
                              size_);
        } else {
            ::RegDeleteKeyValueW(HKEY_CURRENT_USER, kFolders, kSavedGames);
        }
    }
    MovedSavedGames(const MovedSavedGames&) = delete;
    MovedSavedGames& operator=(const MovedSavedGames&) = delete;

  private:
    static constexpr const wchar_t* kFolders =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
    static constexpr const wchar_t* kSavedGames = L"{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}";

    bool hadOne_ = false;
    DWORD type_ = REG_SZ;
    DWORD size_ = 0;
    std::wstring before_;
};

}  // namespace marlowick::test
