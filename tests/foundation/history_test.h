// A game and a program folder with earlier versions, for the tests of them.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <vector>

#include "foundation/history.h"
#include "foundation/history_command.h"
#include "support/test_folder.h"
#include "system/clock.h"
#include "system/files.h"
#include "system/replace_file.h"

namespace marlowick::test {

inline std::tm timeOf(int day, int hour) {
    std::tm time{};
    time.tm_year = 2026 - 1900;
    time.tm_mon = 10;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = 15;
    time.tm_sec = 33;
    return time;
}

class HistoryTest : public ::testing::Test {
  protected:
    HistoryTest() {
        setClock([] { return timeOf(21, 14); });
        setUniversalClock([] { return timeOf(21, 13); });
    }
    ~HistoryTest() override {
        setClock({});
        setUniversalClock({});
    }

    Path simPath(int number) const { return folder.path(simName(number)); }
    static std::string simName(int number) {
        return "saves/UserData/Characters/user0000" + std::to_string(number) + ".iff";
    }
    Path archivePath(const std::string& name) const {
        return folder.path("game\\gamedata\\textures\\" + name);
    }

    // Gives a file new content as a command does; false if the command ended.
    static bool replaceKept(HistoryCommand& command, const Path& file, std::string_view content,
                            std::string_view changes = {}) {
        return replaceFileContent(file, content, ReadOnlyTarget::Refuse, [&](const Path& beside) {
            return command.keepOrAsk(file, stateOfFile(beside), changes);
        });
    }

    // One command over one file.
    void saveOver(const Path& file, std::string_view content, const char* command = "Save") {
        HistoryCommand save(history, command, "", {});
        ASSERT_TRUE(replaceKept(save, file, content));
    }

    // The names of the commands' folders, as the machine lists them.
    std::vector<std::string> folders() const {
        std::vector<std::string> names;
        if (folder.exists("program/History")) {
            for (const auto& entry :
                 std::filesystem::directory_iterator(folder.program() / "History")) {
                const std::u8string name = entry.path().filename().u8string();
                names.emplace_back(name.begin(), name.end());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string inHistory(const std::string& name) const {
        return folder.read("program/History/" + name);
    }

    TestFolder folder;
    History history{{folder.path("program\\History"), folder.path("game"), folder.path("saves"),
                     folder.path("program")}};
};

}  // namespace marlowick::test
