// sims_location [FOLDER]: prints where the program would find the game if it were started, and
// succeeds if the game lies there; with a folder, stores that as "Sims Location" first.
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

#include "browser/frmSetPath.h"
#include "foundation/game_search.h"
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
    const Path location =
        locationAtStart(toPath(readSetting(setting::kSimsLocation)), toPath(registeredSimsPath()),
                        [] { return findGames(gameSurroundings()); });
    std::puts(toDisplay(location).toUtf8().constData());
    return !location.empty() && files().fileExists(location + "\\sims.exe") ? 0 : 1;
}
