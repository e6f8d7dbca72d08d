#include "browser/neighbourhoods.h"

#include <algorithm>
#include <cstddef>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "system/files.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kStem = 8;  // "UserData"

List<std::string> counted(std::vector<std::string> names) {
    List<std::string> list;
    for (std::string& name : names) {
        list.appendCounted(std::move(name));
    }
    return list;
}

// A number with at least two digits; any other text as it stands.
std::string twoDigits(std::string_view tail) {
    const bool number =
        std::all_of(tail.begin(), tail.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!number) {
        return std::string(tail);
    }
    std::string digits(tail.substr(std::min(tail.find_first_not_of('0'), tail.size())));
    return digits.size() < 2 ? std::string(2 - digits.size(), '0') + digits : digits;
}

}  // namespace

List<std::string> findUserDataDirs() {
    return counted(searchFilesAndFolders(neighbourhoodsPath(), "Userdata*"));
}

std::string neighbourhoodLine(std::string_view folder) {
    const std::string number = folder.size() == kStem ? "01" : twoDigits(folder.substr(kStem));
    return "Neighborhood " + number + "   (" + std::string(folder) + ")";
}

std::string folderOfLine(std::string_view line) {
    const std::size_t bracket = upperCase(line).find("(USERDATA");
    const std::string_view rest = line.substr(bracket == std::string_view::npos ? 0 : bracket + 1);
    return std::string(rest.substr(0, rest.find(')')));
}

Path charactersFolder(std::string_view userDataDir) {
    return neighbourhoodFolder(userDataDir) + "\\characters";
}

List<std::string> findSimFiles(std::string_view userDataDir) {
    // A folder that was listed with "?", or a file's name that only this system allows, has no
    // path.
    return isFileName(userDataDir)
               ? counted(searchFiles(charactersFolder(userDataDir), "user*.iff"))
               : List<std::string>();
}

std::string readSimFile(IffFile& iff, std::string_view userDataDir, std::string_view name) {
    gsResetIFF(iff);
    try {
        return gfstrQuickReadIFF(iff, charactersFolder(userDataDir).child(name));
    } catch (const RuntimeError& failure) {
        return errorText(failure);
    }
}

void sortOutSimFile(IffFile& iff, std::string_view userDataDir, const std::string& name,
                    List<std::string>& simFiles, List<BadFile>& badFiles) {
    const std::string reason = readSimFile(iff, userDataDir, name);
    if (!reason.empty()) {
        badFiles.appendCounted({reason, name});
    } else if (gfblnVerifyUserIFF(iff)) {
        simFiles.appendCounted(name);
    } else {
        badFiles.appendCounted({"User IFF File Not Valid", name});
    }
}

std::string badFileReport(const List<BadFile>& badFiles) {
    std::string report = "The following sim files can not be loaded by Marlowick:\r\n\r\n";
    for (int i = 1; i <= badFiles.bound(); ++i) {
        report += badFiles[i].name + "\r\n" + badFiles[i].reason + "\r\n\r\n";
    }
    return report + "The files did not pass the data validation procedure.\r\n";
}

}  // namespace marlowick
