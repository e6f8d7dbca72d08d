// What tests of the wardrobe window share: one sim, the window opened on it.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "system/clock.h"
#include "wardrobe/frmEditSim.h"
#include "widgets/picture_box.h"

namespace marlowick::test {

inline constexpr const char* kFile = "game/UserData/Characters/user00001.iff";

class EditSimTest : public WindowTest {
  protected:
    EditSimTest() {
        std::tm noon{};
        noon.tm_year = 126;
        noon.tm_mday = 1;
        noon.tm_hour = 12;
        setClock([noon] { return noon; });
    }
    ~EditSimTest() override { setClock({}); }

    void makeSim(const SimRows& sim = {}) { makeSimOf(simRows(sim)); }
    void makeSimOf(const std::vector<std::string>& rows) {
        content = simFile(rows);
        folder.write(kFile, content);
    }

    // A skin in the game's folder, as a picture of one colour.
    void makeSkin(const std::string& name, unsigned rgb) {
        folder.write("game/GameData/Skins/" + name + ".bmp", bitmapFile(8, 8, rgb));
    }

    // Opens the window on the sim and does something in it.
    void open(std::function<void(QWidget&)> action) {
        auto& editor = theWindow<frmEditSim>();
        editor.LoadUserFile = folder.path("game\\UserData\\characters\\user00001.iff");
        editor.BackupWanted = backupWanted;
        script.whenShown("frmEditSim", std::move(action));
        editor.showModal();
        EXPECT_TRUE(script.isDone());
    }

    static QRgb colourOf(QWidget& window, const char* picture) {
        const QImage image = find<PictureBox>(window, picture)->picture();
        return image.isNull() ? 0 : image.pixel(image.width() / 2, image.height() / 2) & 0xFFFFFF;
    }

    static bool shows(QWidget& window, const char* picture, const char* stock) {
        return find<PictureBox>(window, picture)->picture() ==
               find<PictureBox>(window, stock)->picture();
    }

    // The rows that a save has changed.
    std::map<int, std::string> changedRows(const std::vector<std::string>& before) {
        const std::vector<std::string> after = rowsOfFile(folder.read(kFile));
        EXPECT_EQ(after.size(), before.size());
        std::map<int, std::string> changed;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (after[i] != before[i]) {
                changed[static_cast<int>(i) + 1] = after[i];
            }
        }
        return changed;
    }

    void saveAndAgree(QWidget& window) {
        script.answer(QMessageBox::Yes);
        script.answer();
        click(window, "cmdSave");
    }

    std::string content;
    bool backupWanted = false;
};

}  // namespace marlowick::test
