#include <QApplication>

#include "foundation/error_trap.h"
#include "start/startup.h"
#include "widgets/form.h"

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    marlowick::prepareApplication();
    marlowick::findProgramFolder();
    if (!marlowick::isOnlyCopy()) {
        return 0;
    }
    marlowick::startProgram();
    const int code = QApplication::exec();
    marlowick::setErrorTrap({});
    marlowick::destroyWindows();
    return code;
}
