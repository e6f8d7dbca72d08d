// What tests of the wardrobe window share: one sim, the window opened on it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "wardrobe/editor_test.h"
#include "wardrobe/frmEditSim.h"

namespace marlowick::test {

inline constexpr const char* kFile = "game/UserData/Characters/user00001.iff";

class EditSimTest : public EditorTest<frmEditSim> {
  protected:
    EditSimTest() : EditorTest("frmEditSim", "UserData", "user00001.iff") {}

    void makeSim(const SimRows& sim = {}) { makeSimOf(simRows(sim)); }
    void makeSimOf(const std::vector<std::string>& rows) { makeFile(simFile(rows)); }

    // The rows that a save has changed.
    std::map<int, std::string> changedRows(const std::vector<std::string>& before) {
        const std::vector<std::string> after = rowsOfFile(fileContent());
        EXPECT_EQ(after.size(), before.size());
        std::map<int, std::string> changed;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (after[i] != before[i]) {
                changed[static_cast<int>(i) + 1] = after[i];
            }
        }
        return changed;
    }
};

}  // namespace marlowick::test
