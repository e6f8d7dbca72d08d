#include <windows.h>
// After windows.h.
#include <shellapi.h>

#include <QWidget>
#include <array>
#include <string>

#include "system/windows_text.h"
#include "widgets/native_window.h"
#include "widgets/shell.h"
#include "widgets/shell_system.h"

namespace marlowick {
namespace {

std::string ansi(const QString& text) {
    return ansiText(text.toStdString());
}

// The system hides a small code in a handle.
int codeOf(HINSTANCE answer) {
    return static_cast<int>(reinterpret_cast<INT_PTR>(answer));
}

}  // namespace

int systemShellOpen(QWidget* owner, const QString& address) {
    return codeOf(::ShellExecuteA(nativeWindow(owner), "open", ansi(address).c_str(), nullptr,
                                  nullptr, SW_SHOWNORMAL));
}

int systemFindProgramFor(const QString& document, QString& program) {
    // The call takes no size: it writes as many characters as a path may have.
    std::array<char, MAX_PATH + 1> buffer{};
    const int code = codeOf(::FindExecutableA(ansi(document).c_str(), nullptr, buffer.data()));
    program =
        code >= kShellSuccess ? QString::fromStdString(utf8TextOfAnsi(buffer.data())) : QString();
    return code;
}

int systemShellStart(QWidget* owner, const QString& program, const QString& argument) {
    return codeOf(::ShellExecuteA(nativeWindow(owner), "open", ansi(program).c_str(),
                                  ansi(argument).c_str(), nullptr, SW_SHOWNORMAL));
}

QString browserProbeFile() {
    return QStringLiteral("C:\\temphtm.HTM");
}

}  // namespace marlowick
