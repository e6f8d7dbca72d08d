#include "widgets/shell.h"

#include <utility>

#include "widgets/shell_system.h"

namespace marlowick {
namespace {

ShellSeam& seam() {
    static ShellSeam shell;
    return shell;
}

}  // namespace

void setShell(ShellSeam shell) {
    seam() = std::move(shell);
}

int shellOpen(QWidget* owner, const QString& address) {
    return seam() ? seam()(QStringLiteral("open"), {address}) : systemShellOpen(owner, address);
}

int findProgramFor(const QString& document, QString& program) {
    if (seam()) {
        program = QStringLiteral("browser");
        return seam()(QStringLiteral("find"), {document});
    }
    return systemFindProgramFor(document, program);
}

int shellStart(QWidget* owner, const QString& program, const QString& argument) {
    return seam() ? seam()(QStringLiteral("start"), {program, argument})
                  : systemShellStart(owner, program, argument);
}

}  // namespace marlowick
