#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "widgets/shell.h"
#include "widgets/shell_system.h"

namespace marlowick {
namespace {

constexpr int kNoProgram = 31;  // no program is associated with the file

}  // namespace

int systemShellOpen(QWidget* /*owner*/, const QString& address) {
    return QDesktopServices::openUrl(QUrl(address)) ? kShellSuccess : kNoProgram;
}

int systemFindProgramFor(const QString& /*document*/, QString& program) {
    program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return program.isEmpty() ? kNoProgram : kShellSuccess;
}

int systemShellStart(QWidget* /*owner*/, const QString& program, const QString& argument) {
    return QProcess::startDetached(program, {argument}) ? kShellSuccess : kNoProgram;
}

// In the user's own folder for such files, since in the shared one the name could be somebody
// else's; and each running program has its own.
QString browserProbeFile() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
        .filePath(QStringLiteral("temphtm-%1.HTM").arg(QCoreApplication::applicationPid()));
}

}  // namespace marlowick
