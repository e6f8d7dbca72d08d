// Whatever names the files of strangers hold: nothing is written outside the folder meant.
#include "safety/hostile_names_test.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>

#include "browser/neighbourhoods.h"
#include "far/far_directory.h"
#include "far/far_edit.h"
#include "far/far_save.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/history.h"
#include "foundation/history_command.h"
#include "foundation/history_places.h"
#include "iff/iff_file.h"
#include "support/archive_builder.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/streams.h"
#include "wardrobe/user_backup.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using test::hostileNames;
using test::HostileNamesTest;
using test::kSim;

TEST_F(HostileNamesTest, OfArchivesReachNoFolderButTheOneTheyAreExtractedTo) {
    const Path archive = folder.path("game/a.far");
    withEachName({"program/meant"}, [&](const std::string& name) {
        for (const char* before : {"", "skins\\", "..\\", "C:\\", "/"}) {
            folder.write("game/a.far", test::archiveFile({{before + name, "evil"}}));
            FarDirectory directory;
            ASSERT_TRUE(gsReadFARdir(directory, archive));
            ASSERT_EQ(farEntryCount(directory), 1);
            gsExtractFile(archive, folder.path("program/meant"), directory, 1);
            streams().closeAll();
            gsExtractFileEx(archive, folder.path("program/meant"), name, directory, 1);
            streams().closeAll();
            ignoringErrors([&] {
                extractFarEntry(archive, folder.path("program/meant"), name, directory, 1);
            });
        }
        fs::remove(folder.game() / "a.far");
    });
}

TEST_F(HostileNamesTest, AreAddedToAnArchiveOnlyIfTheyCanLeaveItAgain) {
    const Path meant = folder.path("program/meant");
    withEachName({}, [&](const std::string& name) {
        FarEdit edit;
        FarAdder adder(edit, meant);
        if (adder.add(name) == FarAddition::Done) {
            ASSERT_TRUE(isFileName(name));
            EXPECT_EQ(edit.mudtAddedFiles[1].AddedPath.folder(), meant);
            EXPECT_EQ(edit.mudtAddedFiles[1].AddedPath.fileName(), name);
        } else {
            EXPECT_FALSE(isFileName(name));
            EXPECT_EQ(edit.mudtAddedFiles.bound(), 0);
        }
    });
}

TEST_F(HostileNamesTest, OfEnsemblesStayInTheirFolder) {
    fs::create_directories(folder.program() / "ENS");
    withEachName({"program/ENS"}, [&](const std::string& name) {
        ignoringErrors([&] { writeWholeFile(ensembleFolder().child(name), "an ensemble"); });
        ignoringErrors([&] { writeWholeFile(ensembleFolder().child(name + ".ENS"), "one"); });
    });
}

TEST_F(HostileNamesTest, OfPicturesStayInTheProgramFolder) {
    withEachName({"program"}, [&](const std::string& name) {
        IffFile iff;
        iff.Segments.append({0, "BMP_", test::big32(76 + 4), "", test::padded(name, 64), "evil"});
        EXPECT_TRUE(gsDumpBMPs(iff));
        for (const auto& entry : fs::directory_iterator(folder.program())) {
            const std::string made = nameOf(entry.path().filename());
            EXPECT_TRUE(entry.is_directory() || made == "evil.bmp" || made.ends_with(".BMP"))
                << made;
        }
        EXPECT_EQ(folder.read("program/meant/deep/here/evil.txt"), "not to be touched");
        folder.write("program/evil.bmp", "not to be touched");
    });
}

TEST_F(HostileNamesTest, OfSimsStayInTheFolderOfBackups) {
    withEachName({"program/Backup"}, [&](const std::string& name) {
        EXPECT_TRUE(msMakeUserBackup(folder.path(kSim), name));
        EXPECT_TRUE(msMakeUserBackup(folder.path(kSim), "user00001 - " + name));
        // A name for Explorer and the game alike: nothing but letters, digits, "-" and "_".
        for (const auto& entry : fs::directory_iterator(folder.program() / "Backup")) {
            const std::string made = nameOf(entry.path().filename());
            EXPECT_LE(made.size(), 255U);
            EXPECT_EQ(made.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                             "0123456789-_"),
                      std::string::npos)
                << made;
        }
    });
}

TEST_F(HostileNamesTest, OfSimsStayInTheFolderOfEarlierVersions) {
    History history({folder.path("program/History"), folder.path("game"), folder.path("game"),
                     folder.path("program")});
    const auto before = outside({});
    int count = 0;
    for (const std::string& name : hostileNames()) {
        SCOPED_TRACE(name.substr(0, 60));
        HistoryCommand command(history, "Save", name, {});
        ASSERT_EQ(command.keep(folder.path(kSim), FileState{}).answer, KeepAnswer::Kept);
        command.end();
        ++count;
    }
    std::size_t made = 0;
    for (const auto& entry : fs::directory_iterator(folder.program() / "History")) {
        const std::string name = nameOf(entry.path().filename());
        EXPECT_TRUE(entry.is_directory());
        EXPECT_TRUE(isFileName(utf8ToGameText(name))) << name;
        EXPECT_FALSE(name.ends_with('.') || name.ends_with(' ')) << name;
        EXPECT_EQ(folder.read("program/History/" + name + "/UserData/Characters/user00001.iff"),
                  "a sim");
        ++made;
    }
    EXPECT_EQ(made, static_cast<std::size_t>(count));
    fs::remove_all(folder.program() / "History");
    EXPECT_EQ(outside({}), before);
    std::cout << "[  NAMES   ] " << count << '\n';
}

TEST_F(HostileNamesTest, InARecordOfEarlierVersionsLeadNowhereElse) {
    const HistoryPlaces places{folder.path("program/History"), folder.path("game"),
                               folder.path("game"), folder.path("program")};
    for (const std::string& name : hostileNames()) {
        for (const char* before :
             {"", "UserData\\", "UserData\\Characters\\", "UserData\\Characters\\user", "ENS\\",
              "gamedata\\textures\\", "UserData"}) {
            for (const char* end : {"", ".iff", ".far", ".ens", "\\user1.iff", "\\x.far"}) {
                const std::string text = before + gameTextToUtf8(name) + end;
                const std::optional<KeptPlace> place = keptPlace(text);
                if (!place) {
                    continue;
                }
                const std::string meant = placeInGame(places, *place).text();
                EXPECT_TRUE(isFileName(placeInGame(places, *place).fileName())) << text;
                EXPECT_TRUE(meant.starts_with(folder.path("game").text() + "\\UserData") ||
                            meant.starts_with(texturesFolder().text() + "\\") ||
                            meant.starts_with(ensembleFolder().text() + "\\"))
                    << text;
                EXPECT_EQ(meant.find("\\..\\"), std::string::npos) << text;
                EXPECT_EQ(meant.find(':', 2), std::string::npos) << text;
            }
        }
    }
}

TEST_F(HostileNamesTest, OfNeighbourhoodsAndSimsAreNeverOpenedElsewhere) {
    withEachName({}, [&](const std::string& name) {
        IffFile iff;
        EXPECT_NE(readSimFile(iff, "UserData", name + "\\..\\user00001.iff"), "");
        ignoringErrors([&] {
            const Path characters = charactersFolder(name);
            EXPECT_EQ(characters.folder().folder(), folder.path("game"));
        });
    });
}

}  // namespace
}  // namespace marlowick
