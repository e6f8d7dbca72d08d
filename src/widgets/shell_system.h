// The system's own shell, as shell.h describes it. Only shell.cpp and tests call it.
#pragma once

#include <QString>

class QWidget;

namespace marlowick {

int systemShellOpen(QWidget* owner, const QString& address);
int systemFindProgramFor(const QString& document, QString& program);
int systemShellStart(QWidget* owner, const QString& program, const QString& argument);

}  // namespace marlowick
