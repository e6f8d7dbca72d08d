#include "start/startup.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QThread>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "start/frmErrorDialog.h"
#include "start/frmTitle.h"
#include "system/files.h"
#include "system/program_lock.h"
#include "widgets/display_text.h"
#include "widgets/look.h"
#include "widgets/messages.h"

// Pictures in a static library have to be asked for by name, and outside of any namespace.
static void loadResources() {
    Q_INIT_RESOURCE(marlowick);
}

namespace marlowick {
namespace {

void warnOfReadOnlyFolder() {
    if (files().canWriteInto(ProgramFolder)) {
        return;
    }
    showMessage(QStringLiteral("Program Folder Can Not Be Written"), MessageIcon::Exclamation,
                MessageButtons::Ok,
                QStringLiteral("Marlowick can not write into its own folder:\n%1\n"
                               "It keeps pictures, backups and the files that it saves there. "
                               "Please move the program to a folder that you can write into.")
                    .arg(toDisplay(ProgramFolder)));
}

}  // namespace

void prepareApplication() {
    keepSystemBoxesAway();
    loadResources();
    QApplication::setApplicationName(QStringLiteral("Marlowick"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setQuitOnLastWindowClosed(false);
    applyLook();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/marlowick-%1.png").arg(size));
    }
    QApplication::setWindowIcon(icon);
    installErrorWindow();
}

void installErrorWindow() {
    setErrorTrap([] { theWindow<frmErrorDialog>().showModal(); });
}

void findProgramFolder() {
    ProgramFolder = toPath(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
}

bool isOnlyCopy() {
    // One that is just ending, or being killed, lets go within a moment.
    constexpr int kTries = 10;
    constexpr unsigned long kPause = 100;  // milliseconds
    static LockedFolder held;
    held = {};
    for (int attempt = 1; attempt <= kTries; ++attempt) {
        held = lockFolder(ProgramFolder);
        if (held.answer != LockAnswer::HeldByOther) {
            return true;
        }
        QThread::msleep(kPause);
    }
    showMessage(QStringLiteral("Already Running"), MessageIcon::Information, MessageButtons::Ok,
                QStringLiteral("Marlowick is running already, from the folder\n%1\n"
                               "Two at a time would mix up their files. Please use the one that "
                               "is open.")
                    .arg(toDisplay(ProgramFolder)));
    return false;
}

void startProgram() {
    warnOfReadOnlyFolder();
    theWindow<frmTitle>().showModal();
}

}  // namespace marlowick
