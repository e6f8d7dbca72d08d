#include <windows.h>
// After windows.h.
#include <tlhelp32.h>

#include "system/processes_system.h"
#include "system/windows_text.h"

namespace marlowick {

std::vector<RunningProgram> systemRunningPrograms() {
    std::vector<RunningProgram> programs;
    const HANDLE list = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (list == INVALID_HANDLE_VALUE) {
        return programs;
    }
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(list, &entry); more != FALSE;
         more = ::Process32NextW(list, &entry)) {
        programs.push_back({entry.th32ProcessID, programName(utf8Text(entry.szExeFile), "")});
    }
    ::CloseHandle(list);
    return programs;
}

}  // namespace marlowick
