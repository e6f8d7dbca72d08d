#include "platform/shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

namespace marlowick {
namespace {

constexpr int kNoProgram = 31;  // no program is associated with the file

ShellSeam& seam() {
    static ShellSeam shell;
    return shell;
}

}  // namespace

void setShell(ShellSeam shell) {
    seam() = std::move(shell);
}

int shellOpen(QWidget* /*owner*/, const QString& address) {
    if (seam()) {
        return seam()(QStringLiteral("open"), {address});
    }
    return QDesktopServices::openUrl(QUrl(address)) ? kShellSuccess : kNoProgram;
}

int findProgramFor(const QString& document, QString& program) {
    if (seam()) {
        program = QStringLiteral("browser");
        return seam()(QStringLiteral("find"), {document});
    }
    program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return program.isEmpty() ? kNoProgram : kShellSuccess;
}

int shellStart(QWidget* /*owner*/, const QString& program, const QString& argument) {
    if (seam()) {
        return seam()(QStringLiteral("start"), {program, argument});
    }
    return QProcess::startDetached(program, {argument}) ? kShellSuccess : kNoProgram;
}

QString browserProbeFile() {
    return QDir::temp().filePath(QStringLiteral("temphtm.HTM"));
}

}  // namespace marlowick
