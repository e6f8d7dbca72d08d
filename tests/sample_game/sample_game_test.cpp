// The sample game against small readers of this test's own, and against the program's.
#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <map>

#include "browser/neighbourhoods.h"
#include "far/far_directory.h"
#include "foundation/game.h"
#include "foundation/game_search.h"
#include "foundation/open_game.h"
#include "iff/iff_file.h"
#include "iff/user_file_proof.h"
#include "preview/head_files.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/places.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

using Contents = std::map<std::string, std::string>;

class SampleGameTest : public ::testing::Test {
  protected:
    // Makes a small game in root()/name.
    void make(const QString& name, const QString& seed, const QStringList& more = {}) {
        const QString target =
            QString::fromStdString((folder.root() / name.toStdString()).string());
        ASSERT_EQ(QProcess::execute(
                      MAKE_SAMPLE_GAME,
                      QStringList{target, "--seed", seed, "--skins", "3", "--sims", "60"} + more),
                  0);
    }

    Contents contents(const std::string& name) {
        Contents all;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root() / name)) {
            if (entry.is_regular_file()) {
                const std::string relative =
                    fs::relative(entry.path(), folder.root()).generic_string();
                all[relative.substr(name.size())] = folder.read(relative);
            }
        }
        return all;
    }

    test::TestFolder folder;
};

unsigned little(const std::string& bytes, std::size_t position) {
    unsigned value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value |= static_cast<unsigned>(static_cast<unsigned char>(bytes.at(position + i)))
                 << (8 * i);
    }
    return value;
}

unsigned big(const std::string& bytes, std::size_t position) {
    unsigned value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes.at(position + i));
    }
    return value;
}

TEST_F(SampleGameTest, TheSameSeedGivesTheSameBytes) {
    make("one", "5");
    make("two", "5");
    make("three", "6");
    EXPECT_EQ(contents("one"), contents("two"));
    EXPECT_NE(contents("one"), contents("three"));
}

TEST_F(SampleGameTest, EveryUserFileIsProvenWhenItIsWrittenAgain) {
    make("game", "1");
    const Path in = folder.path("in.iff");
    const Path out = folder.path("out.iff");
    int files = 0;
    for (const auto& [name, bytes] : contents("game")) {
        if (lowerCase(name).find("characters/user") == std::string::npos) {
            continue;
        }
        folder.write("in.iff", bytes);
        IffFile record;
        if (!gfstrQuickReadIFF(record, in).empty()) {
            continue;  // there are broken ones
        }
        const IffFile loaded = record;
        StrSegment rows;
        ASSERT_TRUE(readWardrobeTable(record, rows)) << name;
        ASSERT_TRUE(writeWardrobeTable(record, rows)) << name;
        removeIfPresent(out);
        ASSERT_TRUE(gsWriteIFF(record, out)) << name;
        EXPECT_EQ(userFileDifference(loaded, {rows}, out), "") << name;
        ++files;
    }
    EXPECT_GT(files, 50);
}

TEST_F(SampleGameTest, EveryArchiveIsWhole) {
    make("game", "1");
    int archives = 0;
    for (const auto& [name, bytes] : contents("game")) {
        if (!name.ends_with(".far") && !name.ends_with(".FAR")) {
            continue;
        }
        ++archives;
        ASSERT_EQ(bytes.substr(0, 8), "FAR!byAZ") << name;
        std::size_t position = little(bytes, 12);
        const unsigned count = little(bytes, position);
        EXPECT_GT(count, 0U) << name;
        position += 4;
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_LE(little(bytes, position) + little(bytes, position + 8), little(bytes, 12));
            position += 16 + little(bytes, position + 12);
        }
        EXPECT_EQ(position, bytes.size()) << name;
    }
    EXPECT_GE(archives, 11);
}

TEST_F(SampleGameTest, TheMapsOfTheUserFilesPointAtTheirSegments) {
    make("game", "1");
    int maps = 0;
    for (const auto& [name, bytes] : contents("game")) {
        const unsigned mapOffset =
            name.ends_with(".iff") || name.ends_with(".IFF") ? big(bytes, 60) : 0;
        // Files that are damaged on purpose have their own test.
        if (mapOffset == 0 || mapOffset == 0x30303030 || big(bytes, 68) == 75 ||
            mapOffset + 104 > bytes.size() || little(bytes, mapOffset + 100) == 1001 ||
            bytes.find("OBJD") != 64 || bytes.size() == mapOffset + 96 + 8 + 8 + 3) {
            continue;
        }
        ++maps;
        ASSERT_EQ(bytes.substr(mapOffset, 4), "rsmp") << name;
        EXPECT_EQ(little(bytes, mapOffset + 88) + 1, big(bytes, mapOffset + 4)) << name;
        const std::string type = bytes.substr(mapOffset + 96, 4);
        const unsigned first = little(bytes, mapOffset + 104);
        EXPECT_EQ(bytes.substr(first, 4), std::string(type.rbegin(), type.rend())) << name;
    }
    EXPECT_GE(maps, 60);
}

TEST_F(SampleGameTest, TheProgramReadsWhatItShould) {
    make("game", "1");
    IffFile iff;
    std::map<std::string, std::string> reasons;
    for (const char* neighbourhood : {"UserData", "UserData2", "UserData3", "UserDataOld"}) {
        const List<std::string> sims = findSimFiles(neighbourhood);
        EXPECT_GT(sims.bound(), 0) << neighbourhood;
        for (int i = 1; i <= sims.bound(); ++i) {
            gsResetIFF(iff);
            const std::string reason =
                gfstrQuickReadIFF(iff, charactersFolder(neighbourhood).child(sims[i]));
            if (!reason.empty()) {
                reasons[sims[i]] = reason;
            }
        }
    }
    EXPECT_EQ(reasons.size(), 3U);
    EXPECT_EQ(reasons["User00034.iff"], "Error 5 - Invalid procedure call or argument");
    EXPECT_EQ(reasons["USER00047.IFF"], "RSMP UNREADABLE (RSMP)");
    EXPECT_EQ(reasons["User00055.iff"], "Error 62 - Input past end of file (RSMP)");
    EXPECT_EQ(findSimFiles("UserData10").bound(), 0);
    EXPECT_EQ(findUserDataDirs().bound(), 5);
}

// What the program writes back of an undamaged file is what it read.
TEST_F(SampleGameTest, TheProgramHandsFilesBackByteForByte) {
    make("game", "1");
    IffFile iff;
    int same = 0;
    const List<std::string> sims = findSimFiles("UserData");
    for (int i = 1; i <= sims.bound(); ++i) {
        const Path path = charactersFolder("UserData").child(sims[i]);
        gsResetIFF(iff);
        if (!gfstrQuickReadIFF(iff, path).empty()) {
            continue;
        }
        removeIfPresent(folder.path("program\\out.iff"));
        ASSERT_TRUE(gsWriteIFF(iff, folder.path("program\\out.iff")));
        same += readWholeFile(path) == readWholeFile(folder.path("program\\out.iff")) ? 1 : 0;
    }
    // All but the three damaged ones, the map in the middle and "0000".
    EXPECT_EQ(same, 55);
}

TEST_F(SampleGameTest, HeadsLieLooseInTheGamesArchiveAndInAnExpansion) {
    make("game", "1");
    const auto find = [](std::string name) { return gfstrFindMeshFile(name).text(); };
    const std::string converted = ProgramFolder.text() + "\\temp\\skntemp.skn";
    EXPECT_EQ(find("C001FA_Face"),
              SimsPath.text() + "\\gamedata\\skins\\xskin-c001fa_face-HEAD.skn");
    EXPECT_TRUE(files().fileExists(Path(find("C001FA_Face"))));
    EXPECT_EQ(find("C003FA_Face"), converted);
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"),
              "xskin-c003fa-HEAD\r\nx\r\n1\r\nHEAD\r\n2\r\n0 1 2\r\n0 2 3\r\n1\r\n0 0 4 0 0\r\n"
              "4\r\n0.0 0.0\r\n1 0.0\r\n0.5 1\r\n0.01234567 0.00001\r\n0\r\n4\r\n"
              "0.0 1.5 0.0 0.0 1 0.0\r\n-0.25 0.0 0.25 -1 0.0 0.0\r\n"
              "0.25 0.0 0.25 1 0.0 0.0\r\n0.0 0.0 -0.25 0.0 0.0 -1\r\n");
    EXPECT_EQ(find("C004MA_Face"), converted);
    EXPECT_TRUE(folder.read("program/temp/skntemp.skn").starts_with("xskin-c004ma-HEAD\r\n"));
    EXPECT_EQ(find("C009FA_Face"), "");
    EXPECT_FALSE(folder.exists("program/temp/skntemp.skn"));
}

// A game of the Legacy Collection in a Wine prefix.
class LegacySampleGameTest : public SampleGameTest {
  protected:
    LegacySampleGameTest() { make("prefix", "1", {"--legacy", "--sims", "5"}); }

    // The files of a neighbourhood.
    Contents inInstall(const std::string& town) { return contents(install + "/" + town); }
    Contents inSaves(const std::string& town) { return contents(saves + "/" + town); }

    const std::string install = "prefix/drive_c/Program Files/EA Games/The Sims Legacy";
    const std::string saves = "prefix/drive_c/users/player/Saved Games/Electronic Arts/The Sims 25";
};

TEST_F(LegacySampleGameTest, EverySimOfTheSavesDiffersFromItsTemplate) {
    int sims = 0;
    for (const char* town : {"UserData", "UserData2", "UserData3"}) {
        const Contents templates = inInstall(town);
        const Contents own = inSaves(town);
        ASSERT_EQ(templates.size(), own.size());
        for (const auto& [name, bytes] : own) {
            ASSERT_TRUE(templates.contains(name)) << town << name;
            if (name != "/Neighborhood.iff") {
                EXPECT_NE(templates.at(name), bytes) << town << name;
                ++sims;
            }
        }
    }
    EXPECT_EQ(sims, 5 + 18 + 4);
}

TEST_F(LegacySampleGameTest, OneNeighbourhoodIsATemplateAloneAndOneThePlayersAlone) {
    EXPECT_EQ(inInstall("UserData4").size(), 4U);
    EXPECT_EQ(inSaves("UserData8").size(), 4U);
    EXPECT_FALSE(folder.exists(saves + "/UserData4"));
    EXPECT_FALSE(folder.exists(install + "/UserData8"));
}

TEST_F(LegacySampleGameTest, TheSavesAreTheNeighbourhoodsOfTheClassicGame) {
    make("game", "1", {"--sims", "5"});
    for (const char* town : {"UserData", "UserData2", "UserData3"}) {
        Contents own = inSaves(town);
        EXPECT_EQ(own.erase("/Neighborhood.iff"), 1U);
        EXPECT_EQ(own, contents(std::string("game/") + town)) << town;
    }
    EXPECT_EQ(contents(install + "/GameData"), contents("game/GameData"));
}

TEST_F(LegacySampleGameTest, TheProgramFindsTheSavesThroughThePrefix) {
    EXPECT_TRUE(folder.exists(install + "/eadpsdk.json"));
    openGame(folder.path(install), Path());
    EXPECT_EQ(SimsKind, GameKind::Legacy);
    EXPECT_EQ(neighbourhoodsPath().text(), placeOf(folder.path(saves))->text());
    EXPECT_FALSE(waitsForSaves());
    EXPECT_TRUE(isTemplate(folder.path(install + "/UserData/Characters/User00001.iff")));
    EXPECT_FALSE(isTemplate(folder.path(saves + "/UserData/Characters/User00001.iff")));
}

TEST_F(LegacySampleGameTest, TheSearchFindsTheGameWhereItIsThePersonsOwnPrefix) {
    GameSurroundings surroundings;
    surroundings.home = folder.path("home");
    surroundings.login = "player";
    fs::create_directories(folder.root() / "home/Games");
    fs::rename(folder.root() / "prefix", folder.root() / "home/Games/sims");
    const std::vector<FoundGame> games = findGames(surroundings);
    ASSERT_EQ(games.size(), 1U);
    EXPECT_EQ(foundGameText(games.front()),
              "The Sims Legacy Collection (Wine prefix ~/Games/sims)");
}

}  // namespace
}  // namespace marlowick
