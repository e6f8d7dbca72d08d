// sims_location [FOLDER]: prints the stored setting "Sims Location", and succeeds if the game lies
// there; with a folder, stores it.
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "system/files.h"
#include "widgets/display_text.h"
#include "widgets/settings.h"

int main(int argc, char** argv) {
    using namespace marlowick;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1) {
        writeSetting(setting::kSimsLocation,
                     toDisplay(toPath(QDir(arguments.at(1)).absolutePath())));
    }
    const Path location = toPath(readSetting(setting::kSimsLocation));
    std::puts(toDisplay(location).toUtf8().constData());
    return !location.empty() && files().fileExists(location + "\\sims.exe") ? 0 : 1;
}
