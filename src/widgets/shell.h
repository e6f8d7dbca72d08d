// What the program asks of the system's shell.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace marlowick {

// Codes below this one are failures, as the shell of the game's platform counts them.
inline constexpr int kShellSuccess = 33;

// Opens an address ("mailto:..." or a file) with the program that the system has for it, verb
// "open", normal window, owned by owner.
int shellOpen(QWidget* owner, const QString& address);

// The program that opens a document. Below kShellSuccess there is none, and program stays empty.
int findProgramFor(const QString& document, QString& program);

// Starts a program with one argument, verb "open", owned by owner.
int shellStart(QWidget* owner, const QString& program, const QString& argument);

// Puts something else in the place of the shell, for tests: it gets the verb ("open", "find",
// "start") and the arguments, and gives the code. An empty function is the system again.
using ShellSeam = std::function<int(const QString& verb, const QStringList& arguments)>;
void setShell(ShellSeam shell);

// The file on the system drive that is made to learn the default browser.
QString browserProbeFile();

}  // namespace marlowick
