#include "foundation/startup.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QStyleFactory>

#include "foundation/error_trap.h"
#include "foundation/frmErrorDialog.h"
#include "foundation/frmTitle.h"
#include "foundation/game.h"
#include "platform/display_text.h"
#include "platform/files.h"
#include "platform/messages.h"

// Pictures in a static library have to be asked for by name, and outside of any namespace.
static void loadResources() {
    Q_INIT_RESOURCE(marlowick);
}

namespace marlowick {
namespace {

constexpr int kFontPixels = 12;

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
    loadResources();
    QApplication::setApplicationName(QStringLiteral("Marlowick"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setQuitOnLastWindowClosed(false);
#ifndef _WIN32
    // One look on every desktop: the windows' sizes are made for it.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kFontPixels);
    QApplication::setFont(font);
#endif
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
    ProgramFolder = toPath(QDir(QCoreApplication::applicationDirPath()).absolutePath());
}

void startProgram() {
    warnOfReadOnlyFolder();
    theWindow<frmTitle>().showModal();
}

}  // namespace marlowick
