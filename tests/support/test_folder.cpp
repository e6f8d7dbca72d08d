#include "support/test_folder.h"

#include <QString>
#include <algorithm>
#include <atomic>
#include <fstream>
#include <sstream>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "system/processes.h"
#include "system/streams.h"
#include "widgets/settings.h"

namespace marlowick::test {
namespace fs = std::filesystem;
namespace {

// Names are UTF-8 on both systems; a path made of a std::string isn't.
fs::path fromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

std::string toUtf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

Path toProgramPath(const fs::path& path) {
    std::string text = toUtf8(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return Path(text);
}

fs::path freshFolder() {
    static std::atomic<unsigned> count = 0;
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    fs::path folder = fs::temp_directory_path() /
                      ("marlowick-test-" + std::to_string(stamp) + "-" + std::to_string(count++));
    fs::create_directories(folder);
    return folder;
}

}  // namespace

TestFolder::TestFolder() : root_(freshFolder()) {
    fs::create_directories(program() / "temp");
    fs::create_directories(game());
    ProgramFolder = toProgramPath(program());
    SimsPath = toProgramPath(game());
    SimsKind = GameKind::Classic;
    NeighbourhoodsElsewhere = Path();
    setGameSurroundings([] { return GameSurroundings(); });
    setRunningPrograms([] { return std::vector<RunningProgram>(); });
    useSettingsFile(QString::fromStdString(toUtf8(root_ / "settings.ini")));
    streams().closeAll();
    CheckpointNumber = 0;
    glngErrorNumber = 0;
    gstrErrorDescription.clear();
    gstrErrorModule.clear();
    gstrErrorProc.clear();
}

TestFolder::~TestFolder() {
    setGameSurroundings({});
    setRunningPrograms({});
    streams().closeAll();
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(root_, ignored)) {
        fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(root_, ignored);
}

Path TestFolder::path(const std::string& name) const {
    return toProgramPath(root_ / fromUtf8(name));
}

void TestFolder::write(const std::string& name, std::string_view content) const {
    const fs::path path = root_ / fromUtf8(name);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(content.data(), static_cast<std::streamsize>(content.size()));
}

std::string TestFolder::read(const std::string& name) const {
    std::ifstream file(root_ / fromUtf8(name), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool TestFolder::exists(const std::string& name) const {
    return fs::exists(root_ / fromUtf8(name));
}

void TestFolder::makeReadOnly(const std::string& name) const {
    fs::permissions(root_ / fromUtf8(name),
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

}  // namespace marlowick::test
