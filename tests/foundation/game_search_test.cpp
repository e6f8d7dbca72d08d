#include "foundation/game_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/made_up_machine.h"
#include "system/files.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::Pair;

class GameSearchTest : public ::testing::Test {
  protected:
    // The line of each game that is found, and its folder.
    std::vector<std::pair<std::string, Path>> found() {
        std::vector<std::pair<std::string, Path>> games;
        for (const FoundGame& game : findGames(machine.surroundings)) {
            games.emplace_back(foundGameText(game), game.folder);
        }
        return games;
    }

    void onLinux() {
        machine.surroundings.home = machine.at("home");
        machine.surroundings.login = "player";
    }

    void onWindows() {
        machine.surroundings.fixedDrives = {machine.at("c"), machine.at("d")};
        machine.surroundings.programData = machine.at("c/ProgramData");
        machine.surroundings.savedGames = machine.at("c/Users/x/Saved Games");
        machine.surroundings.documents = machine.at("c/Users/x/Documents");
    }

    static auto legacy(const std::string& from, const Path& folder) {
        return Pair("The Sims Legacy Collection (" + from + ")", folder);
    }

    test::MadeUpMachine machine;
};

const std::string kSteamGame = "/steamapps/common/The Sims Legacy Collection";
const std::string kEaGame = "/Program Files/EA Games/The Sims Legacy";

TEST_F(GameSearchTest, NothingIsFoundWhereNothingIs) {
    EXPECT_THAT(found(), ElementsAre());
    onLinux();
    EXPECT_THAT(found(), ElementsAre());
    onWindows();
    EXPECT_THAT(found(), ElementsAre());
}

// Linux.

TEST_F(GameSearchTest, SteamIsFoundInEveryPlaceOfLinux) {
    onLinux();
    for (const char* place :
         {".local/share/Steam", ".steam/steam", ".steam/root", ".steam/debian-installation",
          ".var/app/com.valvesoftware.Steam/data/Steam",
          ".var/app/com.valvesoftware.Steam/.local/share/Steam",
          "snap/steam/common/.local/share/Steam"}) {
        const std::string steam = std::string("home/") + place;
        machine.steamGame(steam);
        EXPECT_THAT(found(), ElementsAre(legacy("Steam", machine.at(steam + kSteamGame)))) << place;
        fs::remove_all(machine.folder.root() / "home");
    }
}

TEST_F(GameSearchTest, LibrariesAreLookedAtInTheOrderOfTheList) {
    onLinux();
    machine.libraries("home/.steam/steam", {"home/.steam/steam", "two", "one", "gone"});
    machine.steamGame("one");
    machine.steamGame("two");
    EXPECT_THAT(found(), ElementsAre(legacy("Steam", machine.at("two" + kSteamGame)),
                                     legacy("Steam", machine.at("one" + kSteamGame))));
}

TEST_F(GameSearchTest, AManifestWithoutTheProgramIsNoGame) {
    onLinux();
    machine.manifest("home/.steam/steam", "The Sims Legacy Collection");
    machine.folder.write("home/.steam/steam" + kSteamGame + "/readme", "");
    EXPECT_THAT(found(), ElementsAre());
}

TEST_F(GameSearchTest, EveryKindOfPrefixIsLookedInto) {
    onLinux();
    for (const char* name : {".wine", "Games/sims", ".local/share/bottles/bottles/sims",
                             ".var/app/com.usebottles.bottles/data/bottles/bottles/sims",
                             "Games/Heroic/Prefixes/sims", "Games/Heroic/Prefixes/default/sims"}) {
        const std::string prefix = std::string("home/") + name;
        machine.prefix(prefix, test::MadeUpMachine::installPath("C:\\\\Maxis\\\\The Sims"));
        machine.game(prefix + "/drive_c/Maxis/The Sims");
        machine.game(prefix + "/drive_c" + kEaGame);
        const std::string from = std::string("Wine prefix ~/") + name;
        EXPECT_THAT(found(), ElementsAre(Pair("The Sims (" + from + ")",
                                              machine.at(prefix + "/drive_c/Maxis/The Sims")),
                                         legacy(from, machine.at(prefix + "/drive_c" + kEaGame))));
        fs::remove_all(machine.folder.root() / "home");
    }
}

TEST_F(GameSearchTest, SteamComesBeforePrefixesAndTheseByName) {
    onLinux();
    machine.game("home/Games/b/drive_c" + kEaGame);
    machine.game("home/Games/A/drive_c" + kEaGame);
    machine.steamGame("home/.steam/steam");
    EXPECT_THAT(
        found(),
        ElementsAre(legacy("Steam", machine.at("home/.steam/steam" + kSteamGame)),
                    legacy("Wine prefix ~/Games/A", machine.at("home/Games/A/drive_c" + kEaGame)),
                    legacy("Wine prefix ~/Games/b", machine.at("home/Games/b/drive_c" + kEaGame))));
}

// Windows, with its disks in a folder.

TEST_F(GameSearchTest, SteamIsFoundThroughTheRegistry) {
    onWindows();
    machine.libraries("c/Steam", {"d/Games/Steam"});
    machine.steamGame("d/Games/Steam");
    const auto expected = ElementsAre(legacy("Steam", machine.at("d/Games/Steam" + kSteamGame)));
    std::string slashes = machine.at("c/Steam").text();
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    machine.value("HKCU64 Software\\Valve\\Steam\\SteamPath", slashes);
    EXPECT_THAT(found(), expected);
    machine.value("HKCU64 Software\\Valve\\Steam\\SteamPath", "");
    EXPECT_THAT(found(), ElementsAre());
    machine.value("HKLM32 Software\\Valve\\Steam\\InstallPath", machine.at("c/Steam").text());
    EXPECT_THAT(found(), expected);
}

TEST_F(GameSearchTest, TheEaAppsFoldersAreOnEveryFixedDrive) {
    onWindows();
    for (const char* install :
         {"c/Program Files/EA Games/The Sims Legacy", "c/EA Games/The Sims Legacy",
          "d/Program Files/EA Games/The Sims Legacy Collection", "d/EA Games/The Sims Legacy"}) {
        machine.game(install);
        EXPECT_THAT(found(), ElementsAre(legacy("EA app", machine.at(install)))) << install;
        fs::remove_all(machine.folder.root() / install);
    }
    machine.game("e/EA Games/The Sims Legacy");
    EXPECT_THAT(found(), ElementsAre());
    machine.game("d/EA Games/The Sims");
    EXPECT_THAT(found(), ElementsAre(Pair("The Sims (EA app)", machine.at("d/EA Games/The Sims"))));
}

TEST_F(GameSearchTest, EpicsManifestsTellOfItsGames) {
    onWindows();
    machine.game("d/Epic/TheSims");
    fs::create_directories(machine.folder.root() / "d/Epic/Other");
    machine.epicItem("c/ProgramData", "a.item", "d/Epic/Other");
    machine.epicItem("c/ProgramData", "b.item", "d/Epic/TheSims");
    EXPECT_THAT(found(), ElementsAre(legacy("Epic", machine.at("d/Epic/TheSims"))));
}

TEST(RegisteredPathsTest, AnEmptyValueNamesNoFolder) {
    GameSurroundings machine;
    machine.registry = [](RegistryHive /*hive*/, RegistryView view, std::string_view /*key*/,
                          std::string_view /*name*/) {
        return std::optional<std::string>(view == RegistryView::Of32Bit ? "" : "C:/Sims");
    };
    EXPECT_EQ(registeredPaths(machine), (std::vector{Path("C:\\Sims"), Path("C:\\Sims")}));
    EXPECT_EQ(steamFolders(machine), (std::vector{Path("C:\\Sims"), Path("C:\\Sims")}));
}

TEST_F(GameSearchTest, TheRegistryIsReadInAllItsParts) {
    onWindows();
    for (const char* part : {"HKLM32", "HKLM64", "HKCU32", "HKCU64"}) {
        const std::string install = std::string("d/") + part;
        machine.game(install);
        machine.value(std::string(part) + " Software\\Maxis\\The Sims\\InstallPath",
                      machine.at(install).text() + "\\");
    }
    EXPECT_THAT(found(), ElementsAre(Pair("The Sims (registry)", machine.at("d/HKLM32")),
                                     Pair("The Sims (registry)", machine.at("d/HKLM64")),
                                     Pair("The Sims (registry)", machine.at("d/HKCU32")),
                                     Pair("The Sims (registry)", machine.at("d/HKCU64"))));
}

TEST_F(GameSearchTest, ShopsComeInTheirOrderAndAGameOnce) {
    onWindows();
    machine.game("d/classic");
    machine.value("HKLM32 Software\\Maxis\\The Sims\\InstallPath", machine.at("d/classic").text());
    machine.game("c/epic");
    machine.epicItem("c/ProgramData", "1.item", "c/epic");
    machine.epicItem("c/ProgramData", "2.item", "c" + kEaGame);
    machine.game("c" + kEaGame);
    machine.steamGame("d/Steam");
    machine.value("HKLM32 Software\\Valve\\Steam\\InstallPath", machine.at("d/Steam").text());
    EXPECT_THAT(found(), ElementsAre(legacy("Steam", machine.at("d/Steam" + kSteamGame)),
                                     legacy("EA app", machine.at("c" + kEaGame)),
                                     legacy("Epic", machine.at("c/epic")),
                                     Pair("The Sims (registry)", machine.at("d/classic"))));
}

// Limits.

TEST_F(GameSearchTest, NothingBehindARemoteRootIsLookedAt) {
    onLinux();
    machine.libraries("home/.steam/steam", {"nas", "disk"});
    machine.steamGame("nas");
    machine.steamGame("disk");
    machine.surroundings.remoteRoots = {machine.at("nas")};
    EXPECT_THAT(found(), ElementsAre(legacy("Steam", machine.at("disk" + kSteamGame))));
}

// Counts the files that are opened.
class CountingFiles : public FileSystem {
  public:
    CountingFiles() : before_(setFileSystem(this)) {}
    ~CountingFiles() override { setFileSystem(before_); }
    CountingFiles(const CountingFiles&) = delete;
    CountingFiles& operator=(const CountingFiles&) = delete;

    int opened = 0;

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        ++opened;
        return nativeFileSystem().open(path, mode);
    }
    std::vector<FolderEntry> list(const Path& p) override { return nativeFileSystem().list(p); }
    bool fileExists(const Path& path) override { return nativeFileSystem().fileExists(path); }
    bool folderExists(const Path& path) override { return nativeFileSystem().folderExists(path); }
    std::int64_t length(const Path& path) override { return nativeFileSystem().length(path); }
    void remove(const Path& /*path*/) override { FAIL(); }
    void makeFolder(const Path& /*path*/) override { FAIL(); }
    void removeFolder(const Path& /*path*/) override { FAIL(); }
    bool isReadOnly(const Path& path) override { return nativeFileSystem().isReadOnly(path); }
    void clearAttributes(const Path& /*path*/) override { FAIL(); }
    void copyAttributes(const Path& /*from*/, const Path& /*to*/) override { FAIL(); }
    Path followLinks(const Path& path) override { return nativeFileSystem().followLinks(path); }
    Path asOnDisk(const Path& path) override { return nativeFileSystem().asOnDisk(path); }
    void rename(const Path& /*from*/, const Path& /*to*/) override { FAIL(); }
    bool canWriteInto(const Path& folder) override {
        return nativeFileSystem().canWriteInto(folder);
    }

  private:
    FileSystem* before_;
};

TEST_F(GameSearchTest, OpensABoundedNumberOfFiles) {
    onWindows();
    onLinux();
    machine.surroundings.clock = [] { return std::chrono::steady_clock::time_point(); };
    for (int i = 0; i < 210; ++i) {
        machine.epicItem("c/ProgramData", std::to_string(i) + ".item", "c");
        fs::create_directories(machine.folder.root() / "home/Games" / std::to_string(i) /
                               "drive_c");
    }
    machine.steamGame("game");
    machine.libraries("home/.steam/steam", std::vector<std::string>(5000, "game"));
    CountingFiles counting;
    EXPECT_EQ(found().size(), 1U);
    // Steam's list, the game's manifest, 200 of Epic's; no prefix has a registry.
    EXPECT_EQ(counting.opened, 202);
}

TEST_F(GameSearchTest, StopsAfterTwoSecondsWithWhatItHas) {
    onLinux();
    machine.libraries("home/.steam/steam", {"one", "two", "three"});
    for (const char* library : {"one", "two", "three"}) {
        machine.steamGame(library);
    }
    EXPECT_EQ(found().size(), 3U);
    int asked = 0;
    machine.surroundings.clock = [&] {
        ++asked;
        return std::chrono::steady_clock::time_point();
    };
    EXPECT_EQ(found().size(), 3U);
    // Wherever it is when the time is over.
    const int whole = asked;
    std::size_t before = 0;
    for (int end = 1; end <= whole; ++end) {
        asked = 0;
        machine.surroundings.clock = [&] {
            ++asked;
            return std::chrono::steady_clock::time_point() +
                   (asked > end ? std::chrono::seconds(2) : std::chrono::seconds(0));
        };
        const std::size_t count = found().size();
        EXPECT_GE(count, before);
        EXPECT_LE(asked, whole);
        before = count;
    }
    EXPECT_EQ(before, 3U);
}

#ifndef _WIN32
TEST_F(GameSearchTest, SeveralPlacesOfSteamAreLinksToOne) {
    onLinux();
    machine.steamGame("home/.local/share/Steam");
    machine.libraries("home/.local/share/Steam", {"home/.steam/root", "home/.local/share/Steam"});
    fs::create_directories(machine.folder.root() / "home/.steam");
    fs::create_directory_symlink("../.local/share/Steam",
                                 machine.folder.root() / "home/.steam/steam");
    fs::create_directory_symlink(machine.folder.root() / "home/.steam/steam",
                                 machine.folder.root() / "home/.steam/root");
    CountingFiles counting;
    EXPECT_THAT(found(),
                ElementsAre(legacy("Steam", machine.at("home/.local/share/Steam" + kSteamGame))));
    // The list and the manifest, once each.
    EXPECT_EQ(counting.opened, 2);
}

TEST_F(GameSearchTest, LinksThatLeadInCirclesEndTheSearch) {
    onLinux();
    fs::create_directories(machine.folder.root() / "home/Games");
    fs::create_directory_symlink("Games", machine.folder.root() / "home/Games/Heroic");
    fs::create_directory_symlink(".", machine.folder.root() / "home/Games/Prefixes");
    fs::create_directory_symlink("self", machine.folder.root() / "home/Games/self");
    machine.game("home/Games/p/drive_c" + kEaGame);
    EXPECT_THAT(found(), ElementsAre(legacy("Wine prefix ~/Games/p",
                                            machine.at("home/Games/p/drive_c" + kEaGame))));
}
#endif

// The start.

class LocationAtStartTest : public GameSearchTest {
  protected:
    std::string start(const std::string& setting, const std::string& registered) {
        const auto path = [this](const std::string& name) {
            return name.empty() || name == "ERROR" ? Path(name) : machine.folder.path(name);
        };
        const std::string location = locationAtStart(path(setting), path(registered), [this] {
                                         ++searches;
                                         return games;
                                     }).text();
        const std::string root = machine.folder.path("").text();
        return location.starts_with(root) ? location.substr(root.size()) : location;
    }

    std::vector<FoundGame> games;
    int searches = 0;
};

TEST_F(LocationAtStartTest, AValidSettingWinsWithoutASearch) {
    machine.game("set");
    machine.game("registered");
    games = {{machine.folder.path("found"), GameKind::Legacy, "Steam"}};
    EXPECT_EQ(start("set", "registered"), "set");
    EXPECT_EQ(start("set", "ERROR"), "set");
    EXPECT_EQ(start("", "registered"), "registered");
    EXPECT_EQ(searches, 0);
}

TEST_F(LocationAtStartTest, ElseTheFirstGameThatIsFound) {
    machine.game("registered");
    games = {{machine.folder.path("found"), GameKind::Legacy, "Steam"},
             {machine.folder.path("other"), GameKind::Classic, "registry"}};
    EXPECT_EQ(start("ERROR", "registered"), "found");
    EXPECT_EQ(start("gone", "registered"), "found");
    EXPECT_EQ(start("", "ERROR"), "found");
    EXPECT_EQ(start("", ""), "found");
    EXPECT_EQ(start("", "gone"), "found");
}

TEST_F(LocationAtStartTest, WithNothingFoundAllStaysAsItWas) {
    EXPECT_EQ(start("ERROR", "ERROR"), "ERROR");
    EXPECT_EQ(start("gone", "ERROR"), "gone");
    EXPECT_EQ(start("", "ERROR"), "ERROR");
    EXPECT_EQ(start("", "gone"), "gone");
    EXPECT_EQ(start("", ""), "");
    EXPECT_EQ(searches, 5);
}

}  // namespace
}  // namespace marlowick
