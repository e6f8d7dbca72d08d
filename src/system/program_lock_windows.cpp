#include <windows.h>

#include <cstdint>
#include <string>

#include "system/game_text.h"
#include "system/program_lock.h"

namespace marlowick {
namespace {

// A named object of the system, which goes with the last copy that holds it.
class NamedLock : public ProgramLock {
  public:
    explicit NamedLock(HANDLE handle) : handle_(handle) {}
    ~NamedLock() override { ::CloseHandle(handle_); }
    NamedLock(const NamedLock&) = delete;
    NamedLock& operator=(const NamedLock&) = delete;

  private:
    HANDLE handle_;
};

// Of 260 characters at most, without a backslash: the folder goes in as a number.
std::wstring nameOf(const Path& folder) {
    std::uint64_t number = 0xCBF29CE484222325U;
    for (const char c : upperCase(utf8ToGameText(folder.text()))) {
        number = (number ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    std::wstring name = L"Global\\Marlowick-";
    for (int digit = 0; digit < 16; ++digit) {
        name += L"0123456789ABCDEF"[number & 0xFU];
        number >>= 4U;
    }
    return name;
}

}  // namespace

LockedFolder lockFolder(const Path& folder) {
    const HANDLE handle = ::CreateMutexW(nullptr, FALSE, nameOf(folder).c_str());
    const DWORD code = ::GetLastError();
    if (handle == nullptr) {
        // Another person's copy may be asked for and not be had.
        return {code == ERROR_ACCESS_DENIED ? LockAnswer::HeldByOther : LockAnswer::NoLock,
                nullptr};
    }
    if (code == ERROR_ALREADY_EXISTS) {
        ::CloseHandle(handle);
        return {LockAnswer::HeldByOther, nullptr};
    }
    return {LockAnswer::Taken, std::make_unique<NamedLock>(handle)};
}

}  // namespace marlowick
