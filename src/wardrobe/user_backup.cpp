#include "wardrobe/user_backup.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/open_game.h"
#include "system/block_copy.h"
#include "system/clock.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/places.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::size_t kLongestFileName = 255;  // bytes
constexpr std::size_t kLongestName = 32767;    // that can be cleaned

// From the second character behind the first "-": the object label reads "user00012 - name".
std::string nameInLabel(const std::string& simName) {
    const std::size_t dash = simName.find('-');
    const std::size_t start = dash == std::string::npos ? 1 : dash + 2;
    return start < simName.size() ? simName.substr(start) : std::string();
}

// The piece of the path that begins with "Userdata".
std::string neighbourhoodFolder(const Path& userFile) {
    const std::string path = utf8ToGameText(userFile.text());
    const std::size_t found = lowerCase(path).find("\\userdata");
    const std::size_t start = found == std::string::npos ? 0 : found + 1;
    return path.substr(start, path.find('\\', start) - start);
}

// The name as it stands in the folder; as it is written where the folder can't be listed.
std::string nameOnDisk(const Path& userFile) {
    const auto names = searchFiles(userFile.folder(), userFile.fileName());
    return names.empty() ? userFile.fileName() : names.front();
}

// The backups that this run of the program has made, and the folders that their files came from.
std::map<std::string, Path>& madeBackups() {
    static std::map<std::string, Path> made;
    return made;
}

// number: what stands behind the name, or nothing. Where the whole is too long for a file's name,
// the sim's name is shortened.
std::string numberedName(const Path& userFile, const std::string& simName, const std::tm& time,
                         const std::string& number) {
    std::array<char, 32> stamp{};
    std::strftime(stamp.data(), stamp.size(), "%Y%m%d_%H%M%M", &time);
    const std::string front = gfstrCleanName(nameOnDisk(userFile) + "_");
    const std::string back =
        gfstrCleanName("_" + neighbourhoodFolder(userFile) + "_" + stamp.data() + number);
    const std::size_t taken = std::min(front.size() + back.size(), kLongestFileName);
    const std::string name = gfstrCleanName(nameInLabel(simName).substr(0, kLongestName));
    return front + name.substr(0, kLongestFileName - taken) + back;
}

// The path for a backup. Two games have sims of the same names, in neighbourhoods of the same
// names.
Path placeForBackup(const Path& userFile, const std::string& simName, const std::tm& time) {
    Path place = backupFolder().child(numberedName(userFile, simName, time, ""));
    for (int number = 2; files().fileExists(place); ++number) {
        const auto made = madeBackups().find(place.text());
        // Nobody changes the game and saves again within a minute across two runs of the program:
        // a backup of another run is an earlier one of this sim.
        if (made == madeBackups().end() || isSamePlace(made->second, userFile.folder())) {
            break;
        }
        place = backupFolder().child(
            numberedName(userFile, simName, time, "_" + std::to_string(number)));
    }
    return place;
}

// Copies a file to a place that may be taken. The copy is whole and on the disk before it takes its
// name there, so that no backup is ever the beginning of one. Its name on the way is always the
// same: a backup's own may leave no room for an ending, and the next backup clears what is left.
void copyWhole(const Path& source, const Path& place) {
    if (files().fileExists(place) && files().isReadOnly(place)) {
        throw RuntimeError(error::kPathFileAccess);
    }
    const Path onTheWay = place.folder() + "\\backup" + kNewFileEnding;
    clearAndRemove(onTheWay);
    try {
        {
            const std::unique_ptr<File> from = files().open(source, OpenMode::Input);
            const std::unique_ptr<File> to = files().open(onTheWay, OpenMode::CreateNew);
            copyRest(*from, *to);
            to->flush();
        }
        files().rename(onTheWay, place);
    } catch (...) {
        const RuntimeError failure = currentError();
        ignoringErrors([&] { clearAndRemove(onTheWay); });
        throw RuntimeError(failure);
    }
}

}  // namespace

std::string backupName(const Path& userFile, const std::string& simName, const std::tm& time) {
    return numberedName(userFile, simName, time, "");
}

bool msMakeUserBackup(const Path& userFile, const std::string& simName) {
    return trapped("frmEditSim", "msMakeUserBackup", [&] {
        CheckpointNumber = 1000;
        const Path folder = backupFolder();
        if (!files().folderExists(folder)) {
            files().makeFolder(folder);
        }
        CheckpointNumber = 2000;
        const Path place = placeForBackup(userFile, simName, localTime());
        CheckpointNumber = 3000;
        refuseTemplate(place);
        copyWhole(userFile, place);
        madeBackups()[place.text()] = userFile.folder();
    });
}

}  // namespace marlowick
