#include "widgets/history_messages.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

#include "foundation/error_trap.h"
#include "system/files.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

constexpr std::int64_t kMiB = 1 << 20;
constexpr std::int64_t kMostMiB = 1 << 20;
constexpr int kMostVersions = 1000;

std::int64_t storedNumber(const char* key, std::int64_t own, std::int64_t most) {
    const double value = readSettingAsNumber(key);
    return value >= 1 && value <= static_cast<double>(most)
               ? static_cast<std::int64_t>(std::floor(value))
               : own;
}

// A question in the middle of work that shows the hourglass.
bool ask(const QString& question) {
    const bool wasBusy = pointerIsBusy();
    setPointer(Pointer::Default);
    const bool isYes = showMessage(QStringLiteral("Confirm Action"), MessageIcon::Question,
                                   MessageButtons::NoYes, question) != MessageReply::No;
    if (wasBusy) {
        setPointer(Pointer::Hourglass);
    }
    return isYes;
}

}  // namespace

History& earlierVersions() {
    static std::optional<History> history;
    HistoryPlaces places = historyPlaces();
    if (!history || !(history->places() == places)) {
        history.emplace(std::move(places));
    }
    history->setBounds(storedBounds());
    return *history;
}

HistoryBounds storedBounds() {
    const HistoryBounds own;
    return {storedNumber(setting::kHistorySize, own.files / kMiB, kMostMiB) * kMiB,
            storedNumber(setting::kHistoryArchiveSize, own.archives / kMiB, kMostMiB) * kMiB,
            static_cast<int>(storedNumber(setting::kHistoryArchiveVersions, own.versionsOfAnArchive,
                                          kMostVersions))};
}

void storeBounds(const HistoryBounds& bounds) {
    writeSetting(setting::kHistorySize, QString::number(bounds.files / kMiB));
    writeSetting(setting::kHistoryArchiveSize, QString::number(bounds.archives / kMiB));
    writeSetting(setting::kHistoryArchiveVersions, QString::number(bounds.versionsOfAnArchive));
}

bool mayGoOnWithout(const KeepResult& result) {
    return result.answer != KeepAnswer::CantWrite ||
           ask(QStringLiteral("The old file can not be kept among the earlier versions:\n%1\nIf "
                              "you go on, this step can not be taken back. Go on anyway?")
                   .arg(QString::fromStdString(errorText(result.failure))));
}

bool mayBeOverwritten(const Path& archive) {
    if (!files().fileExists(archive)) {
        return true;
    }
    const History& history = earlierVersions();
    if (!keptPlaceOf(history.places(), archive)) {
        return ask(QStringLiteral("Earlier versions are kept of archives in the game's own folder "
                                  "of textures alone. Saving\n%1\ncan not be taken back. Save "
                                  "anyway?")
                       .arg(toDisplay(archive)));
    }
    return !history.isAboveBound(archive) ||
           ask(QStringLiteral("The file:\n%1\nis larger than all that is kept of earlier "
                              "archives. Saving it can not be taken back. Save anyway?")
                   .arg(toDisplay(archive)));
}

bool maySaveOver(const Path& userFile) {
    return ask(QStringLiteral("The file %1 is not as it was when it was loaded: the game may have "
                              "saved it meanwhile.\nSave anyway?")
                   .arg(toDisplay(userFile.fileName())));
}

}  // namespace marlowick
