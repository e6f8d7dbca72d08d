#include "browser/frmSetPath.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <filesystem>
#include <optional>

#include "foundation/game.h"
#include "foundation/game_surroundings.h"
#include "foundation/open_game.h"
#include "support/window_driver.h"
#include "system/places.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"
#include "widgets/settings.h"

namespace marlowick {
namespace {

using test::click;
using test::find;
using test::textOf;

class SetPathTest : public test::WindowTest {
  protected:
    // Opens the window and does something in it.
    void withWindow(std::function<void(QWidget&)> action) {
        script.whenShown("frmSetPath", std::move(action));
    }
    void show() {
        theWindow<frmSetPath>().showModal();
        EXPECT_TRUE(script.isDone());
    }
};

TEST_F(SetPathTest, ShowsTheRegistrysAndTheStoredPath) {
    writeSetting(setting::kSimsLocation, "/some/where");
    withWindow([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Set The Sims Path");
        EXPECT_EQ(textOf(window, "txtLocation"), "/some/where");
        EXPECT_EQ(textOf(window, "txtRegistry"), registeredSimsPath());
        click(window, "cmdCancel");
    });
    show();
}

TEST_F(SetPathTest, APathCanBeTypedAtOnce) {
    writeSetting(setting::kSimsLocation, "ERROR");
    withWindow([](QWidget& window) {
        QTest::keyClicks(window.focusWidget(), "/the/game");
        EXPECT_EQ(textOf(window, "txtLocation"), "/the/game");
        click(window, "cmdCancel");
    });
    show();
}

TEST_F(SetPathTest, AnInvalidRegistryValueIsNotTaken) {
    withWindow([this](QWidget& window) {
        find<QLineEdit>(window, "txtRegistry")->setText("ERROR");
        script.answer();
        click(window, "cmdUseReg");
        find<QLineEdit>(window, "txtRegistry")->clear();
        script.answer();
        click(window, "cmdUseReg");
        EXPECT_EQ(textOf(window, "txtLocation"), "");
        find<QLineEdit>(window, "txtRegistry")->setText("/the/game");
        click(window, "cmdUseReg");
        EXPECT_EQ(textOf(window, "txtLocation"), "/the/game");
        click(window, "cmdCancel");
    });
    show();
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].title, "Path Invalid");
    EXPECT_EQ(script.messages()[0].text, "Registry value invalid. Please find the path manually.");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
}

TEST_F(SetPathTest, AFolderWithTheGameIsStored) {
    folder.write("other/SIMS.exe", "");
    const QString location = toDisplay(folder.path("other"));
    withWindow([&](QWidget& window) {
        QTest::keyClicks(find<QLineEdit>(window, "txtLocation"), location);
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), location);
    EXPECT_EQ(toDisplay(SimsPath), location);
}

TEST_F(SetPathTest, AFolderWithoutTheGameIsRefusedAndTheWindowStays) {
    const Path before = SimsPath;
    withWindow([this](QWidget& window) {
        QTest::keyClicks(find<QLineEdit>(window, "txtLocation"), "/no/game");
        script.answer();
        click(window, "cmdOK");
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    show();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Selected Location Invalid");
    EXPECT_EQ(script.messages()[0].text,
              "The Sims was not found in:\n/no/game\nThe selected location was invalid");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(SimsPath, before);
    EXPECT_EQ(readSetting(setting::kSimsLocation), "");
}

TEST_F(SetPathTest, EnterPressesTheButtonThatHasTheFocusOrOk) {
    writeSetting(setting::kSimsLocation, "/some/where");
    const Path before = SimsPath;
    withWindow([this](QWidget& window) {
        find<QWidget>(window, "txtLocation")->setFocus();
        script.answer();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        find<QWidget>(window, "cmdCancel")->setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    show();
    EXPECT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(SimsPath, before);
}

TEST_F(SetPathTest, FindTakesTheChosenFolderAndACancelChangesNothing) {
    folder.write("other/Sims.exe", "");
    const QString place = toDisplay(folder.path("other")).replace('\\', '/');
    withWindow([&](QWidget& window) {
        setFolderChooser([&](QWidget* owner, const QString& title) {
            EXPECT_EQ(owner, &window);
            EXPECT_EQ(title, "Select the location of The Sims.");
            return QString();
        });
        click(window, "cmdFindPath");
        EXPECT_EQ(textOf(window, "txtLocation"), "");
        setFolderChooser([&](QWidget* /*owner*/, const QString& /*title*/) { return place; });
        click(window, "cmdFindPath");
        EXPECT_EQ(textOf(window, "txtLocation"), place);
        setFolderChooser({});
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), place);
}

// A machine with a classic game in the registry, and a Legacy one whose saves lie elsewhere.
class SetPathGamesTest : public SetPathTest {
  protected:
    SetPathGamesTest() {
        surroundings.fixedDrives = {folder.path("drive")};
        surroundings.savedGames = folder.path("Saved Games");
        surroundings.registry = [this](RegistryHive, RegistryView, std::string_view key,
                                       std::string_view name) -> std::optional<std::string> {
            if (key != "Software\\Maxis\\The Sims" || name != "InstallPath") {
                return std::nullopt;
            }
            return folder.path("game").text();
        };
        setGameSurroundings([this] { return surroundings; });
        test::installGame(folder);
        folder.write("game/UserData/Characters/x", "");
        folder.write(std::string(kInstall) + "/Sims.exe", "MZ");
        folder.write(std::string(kInstall) + "/eadpsdk.json", "{}");
        folder.write(std::string(kInstall) + "/UserData/Characters/x", "");
        folder.write(std::string(kSaves) + "/UserData/Characters/x", "");
        folder.write("copies/UserData5/Characters/x", "");
        openGame(folder.path("game"), Path());
    }

    QString shown(const std::string& name) const { return toDisplay(folder.path(name)); }

    // As the search hands a folder out, with links followed.
    QString found(const std::string& name) const { return toDisplay(*placeOf(folder.path(name))); }

    static QListWidget* games(QWidget& window) { return find<QListWidget>(window, "lstGames"); }

    static void clickGame(QWidget& window, int row) {
        auto* list = games(window);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(list->item(row)).center());
    }

    static constexpr const char* kInstall = "drive/Program Files/EA Games/The Sims Legacy";
    static constexpr const char* kSaves = "Saved Games/Electronic Arts/The Sims 25";

    GameSurroundings surroundings;
};

TEST_F(SetPathGamesTest, AClickOnAFoundGameFillsBothLocations) {
    withWindow([this](QWidget& window) {
        ASSERT_EQ(games(window)->count(), 2);
        EXPECT_EQ(games(window)->item(0)->text(),
                  "The Sims Legacy Collection (EA app)\n" + found(kInstall));
        EXPECT_EQ(games(window)->item(1)->text(), "The Sims (registry)\n" + found("game"));
        EXPECT_EQ(games(window)->item(0)->toolTip(), games(window)->item(0)->text());
        EXPECT_TRUE(games(window)->selectedItems().isEmpty());
        EXPECT_EQ(textOf(window, "txtLocation"), shown("game"));
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown("game"));
        clickGame(window, 0);
        EXPECT_EQ(textOf(window, "txtLocation"), found(kInstall));
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown(kSaves));
        EXPECT_EQ(find<QLineEdit>(window, "txtNeighborhoods")->toolTip(), shown(kSaves));
        QTest::keyClick(games(window), Qt::Key_Down);
        EXPECT_EQ(textOf(window, "txtLocation"), found("game"));
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), found("game"));
        clickGame(window, 0);
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), found(kInstall));
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(toDisplay(neighbourhoodsPath()), shown(kSaves));
}

TEST_F(SetPathGamesTest, TheListAndTheBoxHaveTheirLabelsAndTheNoteSpeaksOfTheNewPlaces) {
    withWindow([](QWidget& window) {
        EXPECT_EQ(find<QLabel>(window, "lblGames")->buddy(), games(window));
        EXPECT_EQ(find<QLabel>(window, "lblNeighborhoods")->text(),
                  "Location of the neighborhoods:");
        EXPECT_EQ(find<QLabel>(window, "lblNeighborhoods")->buddy(),
                  find<QWidget>(window, "txtNeighborhoods"));
        EXPECT_EQ(find<QAbstractButton>(window, "cmdFindNeighborhoods")->text(), "Find");
        EXPECT_EQ(find<QAbstractButton>(window, "cmdAutomatic")->text(), "Automatic");
        EXPECT_TRUE(find<QLabel>(window, "lblNote")->text().endsWith("at the desired copy."));
        EXPECT_TRUE(find<QLabel>(window, "lblLegacyNote")->text().contains("Saved Games"));
        click(window, "cmdCancel");
    });
    show();
}

TEST_F(SetPathGamesTest, ATypedLocationShowsItsOwnNeighbourhoodsOnceTheGameLiesThere) {
    withWindow([this](QWidget& window) {
        auto* location = find<QLineEdit>(window, "txtLocation");
        location->selectAll();
        QTest::keyClicks(location, shown(kInstall).chopped(1));
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), "");
        QTest::keyClicks(location, "y");
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown(kSaves));
        click(window, "cmdCancel");
    });
    show();
    EXPECT_EQ(readSetting(setting::kSimsLocation), shown("game"));
    EXPECT_EQ(SimsKind, GameKind::Classic);
}

TEST_F(SetPathGamesTest, ChosenNeighbourhoodsAreStoredAndShownAgain) {
    withWindow([this](QWidget& window) {
        setFolderChooser([&](QWidget* owner, const QString& title) {
            EXPECT_EQ(owner, &window);
            EXPECT_EQ(title, "Select the location of the neighborhoods.");
            return QString();
        });
        click(window, "cmdFindNeighborhoods");
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown("game"));
        setFolderChooser([this](QWidget*, const QString&) { return shown("copies"); });
        click(window, "cmdFindNeighborhoods");
        setFolderChooser({});
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown("copies"));
        EXPECT_EQ(textOf(window, "txtLocation"), shown("game"));
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kNeighborhoods), shown("copies"));
    EXPECT_EQ(SimsPath, folder.path("game"));
    EXPECT_EQ(neighbourhoodsPath(), folder.path("copies"));
    // An OK alone keeps them.
    withWindow([this](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown("copies"));
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kNeighborhoods), shown("copies"));
    withWindow([this](QWidget& window) {
        click(window, "cmdAutomatic");
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown("game"));
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    EXPECT_EQ(neighbourhoodsPath(), folder.path("game"));
}

TEST_F(SetPathGamesTest, AChoiceThatIsAwayIsShownAndNotForgottenByAnOk) {
    const QString chosen = shown("copies");
    writeSetting(setting::kNeighborhoods, chosen);
    std::filesystem::rename(folder.root() / "copies", folder.root() / "unplugged");
    withWindow([&](QWidget& window) {
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), chosen);
        script.answer();
        click(window, "cmdOK");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
    show();
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Selected Location Invalid");
    EXPECT_EQ(readSetting(setting::kNeighborhoods), chosen);
}

TEST_F(SetPathGamesTest, AnotherLocationOrAnEmptyBoxMeansAutomatic) {
    const auto choose = [this] {
        writeSetting(setting::kNeighborhoods, shown("copies"));
        openGame(folder.path("game"), folder.path("copies"));
    };
    choose();
    withWindow([this](QWidget& window) {
        clickGame(window, 0);
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), shown(kSaves));
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    choose();
    withWindow([](QWidget& window) {
        auto* box = find<QLineEdit>(window, "txtNeighborhoods");
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        click(window, "cmdOK");
    });
    show();
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    EXPECT_EQ(toDisplay(neighbourhoodsPath()), shown(kSaves));
}

TEST_F(SetPathGamesTest, AFolderWithoutNeighbourhoodsOrWithTemplatesAloneIsRefused) {
    withWindow([this](QWidget& window) {
        auto* box = find<QLineEdit>(window, "txtNeighborhoods");
        for (const std::string& refused : {std::string("drive"), std::string(kInstall)}) {
            box->selectAll();
            QTest::keyClicks(box, shown(refused));
            script.answer();
            click(window, "cmdOK");
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(script.messages().back().title, "Selected Location Invalid");
            EXPECT_EQ(script.messages().back().text,
                      "No neighborhoods that the game plays with were found in:\n" +
                          shown(refused) + "\nThe selected location was invalid");
            EXPECT_EQ(script.messages().back().icon, QMessageBox::Warning);
        }
        click(window, "cmdCancel");
    });
    show();
    EXPECT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(readSetting(setting::kNeighborhoods), "");
    EXPECT_EQ(neighbourhoodsPath(), folder.path("game"));
}

#ifndef _WIN32
TEST_F(SetPathGamesTest, ALinkToTemplatesIsRefusedToo) {
    std::filesystem::create_directory_symlink(folder.root() / kInstall, folder.root() / "link");
    std::filesystem::create_directories(folder.root() / "links");
    std::filesystem::create_directory_symlink(folder.root() / kInstall / "UserData",
                                              folder.root() / "links" / "UserData");
    withWindow([this](QWidget& window) {
        for (const char* refused : {"link", "links"}) {
            find<QLineEdit>(window, "txtNeighborhoods")->setText(shown(refused));
            script.answer();
            click(window, "cmdOK");
            EXPECT_TRUE(window.isVisible()) << refused;
        }
        click(window, "cmdCancel");
    });
    show();
    EXPECT_EQ(script.messages().size(), 2U);
}

// A place in a network begins like this one, and each look at such a place can take seconds.
TEST_F(SetPathGamesTest, ATypedPlaceInANetworkIsLookedAtWhenTheBoxIsLeft) {
    QString place = shown("game");
    place = "\\" + place.replace('/', '\\');
    withWindow([&](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        auto* location = find<QLineEdit>(window, "txtLocation");
        location->selectAll();
        QTest::keyClicks(location, place);
        EXPECT_EQ(textOf(window, "txtNeighborhoods"), "");
        find<QWidget>(window, "txtRegistry")->setFocus();
        EXPECT_NE(textOf(window, "txtNeighborhoods"), "");
        click(window, "cmdCancel");
    });
    show();
}
#endif

}  // namespace
}  // namespace marlowick
