// The base of tests with hostile names: nothing is ever written outside of the folders meant.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "safety/hostile_names.h"
#include "support/error_recorder.h"
#include "support/quick_disk.h"
#include "support/test_folder.h"
#include "system/streams.h"

namespace marlowick::test {

inline constexpr const char* kSim = "game/UserData/Characters/user00001.iff";

class HostileNamesTest : private QuickDisk, public ::testing::Test {
  protected:
    HostileNamesTest() {
        folder.write(kSim, "a sim");
        folder.write("game/gamedata/textures/a.far", "an archive");
        folder.write("evil.bmp", "not to be touched");
        folder.write("game/evil.bmp", "not to be touched");
        folder.write("program/evil.bmp", "not to be touched");
        folder.write("program/meant/deep/here/evil.txt", "not to be touched");
    }

    static std::string nameOf(const std::filesystem::path& path) {
        const std::u8string text = path.generic_u8string();
        return {text.begin(), text.end()};
    }

    // All files below the test's folder but those in the folders given, with what they hold.
    std::map<std::string, std::string> outside(const std::vector<std::string>& meant) const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.root())) {
            const std::string name = nameOf(entry.path().lexically_relative(folder.root()));
            const bool isMeant =
                std::any_of(meant.begin(), meant.end(), [&](const std::string& inside) {
                    return name == inside ||
                           (name.starts_with(inside + "/") &&
                            // In the folder itself, not in one below it.
                            name.find('/', inside.size() + 1) == std::string::npos);
                });
            if (!isMeant) {
                found[name] = entry.is_regular_file() ? folder.read(name) : "a folder";
            }
        }
        return found;
    }

    // Does work with each name; only files in the folders given may be made or changed.
    template <class Work>
    void withEachName(const std::vector<std::string>& meant, Work work) {
        const auto before = outside(meant);
        int count = 0;
        for (const std::string& name : hostileNames()) {
            SCOPED_TRACE("\"" + name.substr(0, 60) + "\", " + std::to_string(name.size()) +
                         " bytes");
            work(name);
            streams().closeAll();
            EXPECT_EQ(outside(meant), before);
            ++count;
            if (HasFailure()) {
                return;
            }
        }
        std::cout << "[  NAMES   ] " << count << '\n';
    }

    TestFolder folder;
    ErrorRecorder recorder;
};

}  // namespace marlowick::test
