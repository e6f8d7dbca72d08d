#include "preview/head_files.h"

#include <gtest/gtest.h>

#include "foundation/game.h"
#include "support/faulty_files.h"
#include "support/game_files.h"
#include "support/mesh_files.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::counted;
using test::integers;
using test::suitFile;

constexpr const char* kAnimation = "GameData/Animation/Animation.far";
constexpr const char* kSharedArchive = "ExpansionShared/ExpansionShared.far";

// A mesh with that name and nothing in it, and its text.
std::string emptyBmf(const std::string& name) {
    return counted(name) + counted("x") + integers({0, 0, 0, 0, 0, 0});
}
std::string emptySkn(const std::string& name) {
    return name + "\r\nx\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n";
}

// Notes what is opened for reading or writing.
class OpenedFiles : public test::FaultyFiles {
  public:
    OpenedFiles() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        opened.push_back(path.fileName());
        return FaultyFiles::open(path, mode);
    }

    std::vector<std::string> opened;
};

class HeadFilesTest : public test::GameFilesTest {
  protected:
    // An archive with the head's suit and its mesh in text form.
    void packWithHead(const std::string& name, const std::string& mesh) const {
        archive(name, {{"head.cmx.bcf", suitFile("head", {{"HEAD", mesh}})},
                       {mesh + ".skn", "text of " + mesh}});
    }

    // What the finders give, as text.
    std::string findMesh(std::string name = "head") const { return gfstrFindMeshFile(name).text(); }
    std::string findSkin(std::string name = "face") const { return gfstrFindSkinFile(name).text(); }
    int failureOfMesh(const std::string& name = "head") const {
        return test::errorOf([&] { findMesh(name); });
    }

    std::string sknTemp() const { return ProgramFolder.text() + "\\temp\\skntemp.skn"; }
    std::string skinTemp() const { return ProgramFolder.text() + "\\temp\\skintemp.bmp"; }
};

using MeshFileTest = HeadFilesTest;
using SkinFileTest = HeadFilesTest;

TEST_F(MeshFileTest, ALooseSuitNamesTheMeshAndNoArchiveIsOpened) {
    packWithHead(kAnimation, "wrong");
    packWithHead(packName(""), "wrong");
    folder.write("game/GameData/Skins/HEAD.cmx", "// suit\r\nHEAD\r\nxskin-Head\r\nmore\r\n");
    std::string name = "Head";
    OpenedFiles files;
    EXPECT_EQ(gfstrFindMeshFile(name).text(),
              SimsPath.text() + "\\gamedata\\skins\\xskin-Head.skn");
    EXPECT_EQ(name, "Head");
    ASSERT_EQ(files.opened.size(), 1U);
    EXPECT_EQ(files.opened[0], "Head.cmx");
}

TEST_F(MeshFileTest, ALooseSuitWithoutAHeadIsAFailureOfTheCaller) {
    folder.write("game/GameData/Skins/head.cmx", "PELVIS\r\nmesh\r\n");
    EXPECT_EQ(failureOfMesh(), 62);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(MeshFileTest, AMeshNameOutOfAFileNeverLeavesTheFolder) {
    folder.write("game/GameData/Skins/head.cmx", "HEAD\r\n..\\..\\secret\r\n");
    EXPECT_EQ(failureOfMesh(), 52);
    EXPECT_EQ(failureOfMesh("..\\head"), 52);
    EXPECT_EQ(failureOfMesh("../head"), 52);
}

TEST_F(MeshFileTest, AMeshOfTheGameIsConverted) {
    archive(kAnimation,
            {{"Suits\\HEAD.CMX.BCF",
              suitFile("head", {{"PELVIS", "body"}, {"head", "low"}, {"HEAD", "xSkin"}})},
             {"xskin.skn", "not here"},
             {"Meshes\\XSkin.bmf", emptyBmf("the mesh")}});
    std::string name = "Head";
    EXPECT_EQ(gfstrFindMeshFile(name).text(), sknTemp());
    EXPECT_EQ(name, "HEAD");
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), emptySkn("the mesh"));
    EXPECT_EQ(folder.read("program/temp/skntemp.bmf"), emptyBmf("the mesh"));
    EXPECT_EQ(folder.read("program/temp/bcftemp.bcf"),
              suitFile("head", {{"PELVIS", "body"}, {"head", "low"}, {"HEAD", "xSkin"}}));
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(MeshFileTest, AMeshOfAnExpansionIsText) {
    archive(packName(""), {{"head.cmx.bcf", suitFile("head", {{"HEAD", "xskin"}})},
                           {"xskin.bmf", "not here"},
                           {"Meshes\\xSkin.SKN", "the text"}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "the text");
    EXPECT_FALSE(folder.exists("program/temp/skntemp.bmf"));
}

// The last of the search first; each further one is found before it.
TEST_F(MeshFileTest, TheArchivesComeInTheirOrder) {
    packWithHead(kSharedArchive, "shared");
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "text of shared");
    for (int n = 9; n >= 2; --n) {
        const std::string number = std::to_string(n);
        packWithHead(packName(number), "pack " + number);
        EXPECT_EQ(findMesh(), sknTemp());
        EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "text of pack " + number);
    }
    packWithHead(packName(""), "first pack");
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "text of first pack");
    archive(kAnimation, {{"head.cmx.bcf", suitFile("head", {{"HEAD", "game"}})},
                         {"game.bmf", emptyBmf("game")}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), emptySkn("game"));
}

TEST_F(MeshFileTest, PacksOneAndTenAreNotAsked) {
    for (const char* number : {"1", "10", "0", "02"}) {
        packWithHead(packName(number), "mesh");
    }
    packWithHead("GameData/Textures/Textures.far", "mesh");
    EXPECT_EQ(findMesh(), "");
    EXPECT_FALSE(folder.exists("program/temp/bcftemp.bcf"));
}

TEST_F(MeshFileTest, TheMeshMustLieInTheArchiveOfItsSuit) {
    archive(packName("3"), {{"head.cmx.bcf", suitFile("head", {{"HEAD", "xskin"}})}});
    archive(kSharedArchive, {{"xskin.skn", "far away"}});
    EXPECT_EQ(findMesh(), "");
    EXPECT_FALSE(folder.exists("program/temp/skntemp.skn"));
    packWithHead(kSharedArchive, "own");
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "text of own");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(MeshFileTest, WithoutItsMeshTheGamesOwnArchiveIsPassedOver) {
    archive(kAnimation, {{"head.cmx.bcf", suitFile("head", {{"HEAD", "xskin"}})}});
    archive(packName("3"),
            {{"head.cmx.bcf", suitFile("head", {{"HEAD", "xskin"}})}, {"xskin.skn", "the pack's"}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "the pack's");
    EXPECT_FALSE(folder.exists("program/temp/skntemp.bmf"));
    EXPECT_TRUE(recorder.reports().empty());
}

// Without a head row the mesh name is that of the archive before.
TEST_F(MeshFileTest, ASuitWithoutAHeadKeepsTheMeshNameOfTheOneBefore) {
    archive(packName("2"), {{"head.cmx.bcf", suitFile("head", {{"HEAD", "xskin"}})}});
    archive(packName("3"), {{"head.cmx.bcf", suitFile("head", {{"HANDS", "hands"}})},
                            {"hands.skn", "hands"},
                            {"XSKIN.SKN", "the mesh before"}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "the mesh before");
}

TEST_F(MeshFileTest, TheFirstSuitAndTheFirstHeadRowCount) {
    archive(packName(""), {{"a\\head.cmx.bcf", suitFile("a", {{"HEAD", "one"}, {"HEAD", "two"}})},
                           {"b\\head.cmx.bcf", suitFile("b", {{"HEAD", "three"}})},
                           {"three.skn", "3"},
                           {"two.skn", "2"},
                           {"one.skn", "first"},
                           {"one.skn", "second"}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "first");
}

TEST_F(MeshFileTest, TheWholeNameMustMatch) {
    archive(packName(""), {{"head2.cmx.bcf", "x"},
                           {"ahead.cmx.bcf", "x"},
                           {"head.bcf", "x"},
                           {"head.cmx", "x"},
                           {"head.cmx.bcf.bak", "x"}});
    EXPECT_EQ(findMesh(), "");
}

TEST_F(MeshFileTest, ABareSuffixMatchesNoSuit) {
    for (const std::string& name : {std::string(kAnimation), packName("")}) {
        archive(name, {{".CMX.BCF", suitFile("bare", {{"HEAD", "m"}})},
                       {"m.bmf", emptyBmf("m")},
                       {"m.skn", "m"}});
    }
    EXPECT_EQ(findMesh(""), "");
    EXPECT_FALSE(folder.exists("program/temp/bcftemp.bcf"));
}

TEST_F(MeshFileTest, AShortNameBeforeTheMeshFailsInTheGamesArchive) {
    archive(kAnimation, {{"head.cmx.bcf", suitFile("head", {{"HEAD", "m"}})},
                         {"Folder\\abc", "short"},
                         {"m.bmf", emptyBmf("m")}});
    EXPECT_EQ(failureOfMesh(), 5);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(MeshFileTest, AShortNameBehindTheMeshIsNeverReached) {
    archive(kAnimation, {{"head.cmx.bcf", suitFile("head", {{"HEAD", "m"}})},
                         {".bmf", "four characters"},
                         {"m.bmf", emptyBmf("m")},
                         {"abc", "short"}});
    EXPECT_EQ(findMesh(), sknTemp());
}

// The search for the suit has its guard, and without a suit the mesh isn't looked for.
TEST_F(MeshFileTest, AShortNameWithoutASuitDoesNoHarm) {
    archive(kAnimation, {{"abc", "short"}, {"m.bmf", emptyBmf("m")}});
    EXPECT_EQ(findMesh(), "");
}

TEST_F(MeshFileTest, AShortNameInAnotherArchiveIsSkipped) {
    archive(packName(""), {{"", "empty"},
                           {"abc", "short"},
                           {".skn", "bare"},
                           {"head.cmx.bcf", suitFile("head", {{"HEAD", "m"}})},
                           {"m.skn", "found"}});
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "found");
}

TEST_F(MeshFileTest, OldFilesAreDeletedFirst) {
    for (const char* name : {"bcftemp.bcf", "skntemp.bmf", "skntemp.skn", "skintemp.bmp"}) {
        folder.write(std::string("program/temp/") + name, "old");
    }
    EXPECT_EQ(findMesh(), "");
    EXPECT_FALSE(folder.exists("program/temp/bcftemp.bcf"));
    EXPECT_FALSE(folder.exists("program/temp/skntemp.bmf"));
    EXPECT_FALSE(folder.exists("program/temp/skntemp.skn"));
    EXPECT_TRUE(folder.exists("program/temp/skintemp.bmp"));
}

TEST_F(MeshFileTest, AnOldFileThatCantBeDeletedIsPassedOver) {
    folder.write("program/temp/skntemp.bmf", "old");
    folder.makeReadOnly("program/temp/skntemp.bmf");
    folder.write("program/temp/skntemp.skn", "old and longer than the new one");
    packWithHead(packName(""), "m");
    EXPECT_EQ(findMesh(), sknTemp());
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "text of m");
    EXPECT_TRUE(folder.exists("program/temp/skntemp.bmf"));
}

TEST_F(MeshFileTest, ADamagedSuitIsAFailureOfTheCaller) {
    archive(packName(""), {{"head.cmx.bcf", suitFile("head", {{"HEAD", "m"}}).substr(0, 20)}});
    packWithHead(packName("2"), "m");
    EXPECT_EQ(failureOfMesh(), 62);
    EXPECT_TRUE(recorder.reports().empty());
}

// The reader's own trap reports it; its stream stays open, so that the suit is read from there.
TEST_F(MeshFileTest, AfterADamagedArchiveTheSearchGoesOn) {
    folder.write("game/" + std::string(kAnimation),
                 "FAR!byAZ" + test::little32(1) + test::little32(0xFFFFFFFF));
    EXPECT_EQ(findMesh(), "");
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 63);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadFARdir");
    EXPECT_TRUE(streams().isOpen(Slot::free(1)));
    packWithHead(packName(""), "m");
    EXPECT_NE(failureOfMesh(), 0);
}

TEST_F(MeshFileTest, AMeshThatCantBeConvertedIsReportedAndItsPathGiven) {
    archive(kAnimation, {{"head.cmx.bcf", suitFile("head", {{"HEAD", "m"}})},
                         {"m.bmf", counted("cut") + counted("off")}});
    EXPECT_EQ(findMesh(), sknTemp());
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "modBMFconvert");
    EXPECT_EQ(folder.read("program/temp/skntemp.skn"), "cut\r\noff\r\n");
}

TEST_F(SkinFileTest, ALooseBitmapIsGivenWhereItLies) {
    archive(packName(""), {{"face.bmp", "archive"}});
    folder.write("game/GAMEDATA/skins/FACE.bmp", "loose");
    std::string name = "Face";
    OpenedFiles files;
    EXPECT_EQ(gfstrFindSkinFile(name).text(), SimsPath.text() + "\\gamedata\\skins\\Face.BMP");
    EXPECT_EQ(name, "Face");
    EXPECT_TRUE(files.opened.empty());
}

// The last of the search first; each further one is found before it. The file isn't emptied, so
// that each text is longer than the one before.
TEST_F(SkinFileTest, TheArchivesComeInTheirOrder) {
    std::vector<std::string> names = {kSharedArchive};
    for (int n = 9; n >= 2; --n) {
        names.push_back(packName(std::to_string(n)));
    }
    names.push_back(packName(""));
    names.push_back("GameData/Textures/_a.far");
    names.push_back("GameData/Textures/zz.FAR");
    names.push_back("GameData/Textures/Textures.far");
    names.push_back("GameData/Textures/aa.far");
    std::string content = "skin";
    for (const std::string& name : names) {
        content += " " + name;
        archive(name, {{"other.bmp", "other"}, {"Skins\\Face.Bmp", content}, {"face.bmp", "late"}});
        std::string wanted = "face";
        EXPECT_EQ(gfstrFindSkinFile(wanted).text(), skinTemp()) << name;
        EXPECT_EQ(wanted, "FACE");
        EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), content);
    }
}

TEST_F(SkinFileTest, OtherArchivesAreNotAsked) {
    for (const std::string& name : {packName("1"), packName("10"), std::string(kAnimation)}) {
        archive(name, {{"face.bmp", "skin"}});
    }
    EXPECT_EQ(findSkin(), "");
    EXPECT_FALSE(folder.exists("program/temp/skintemp.bmp"));
}

TEST_F(SkinFileTest, NamesShorterThanTheSuffixAreSkipped) {
    archive("GameData/Textures/Textures.far",
            {{"", "x"}, {"bmp", "x"}, {".bmp", "x"}, {"xface.bmp", "x"}, {"face.bmpx", "x"}});
    EXPECT_EQ(findSkin(), "");
    EXPECT_EQ(findSkin(""), "");
}

// What is deleted and what is written differ by a letter.
TEST_F(SkinFileTest, TheOldSkinIsWrittenOverAndNotDeleted) {
    folder.write("program/temp/skntemp.bmp", "deleted");
    folder.write("program/temp/skintemp.bmp", "0123456789");
    EXPECT_EQ(findSkin(), "");
    EXPECT_FALSE(folder.exists("program/temp/skntemp.bmp"));
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "0123456789");
    archive(packName(""), {{"face.bmp", "skin"}});
    EXPECT_EQ(findSkin(), skinTemp());
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "skin456789");
}

TEST_F(SkinFileTest, ANameThatIsNoFileNameIsAFailure) {
    EXPECT_THROW(findSkin("..\\face"), RuntimeError);
    EXPECT_THROW(findSkin("a/face"), RuntimeError);
}

TEST_F(HeadFilesTest, FindsTheMeshAndTheSkinOfAHead) {
    packWithHead(packName(""), "m");
    archive("GameData/Textures/Textures.far", {{"face.bmp", "skin"}});
    const HeadFiles found = findHeadFiles("head", "face");
    EXPECT_EQ(found.mesh.text(), sknTemp());
    EXPECT_EQ(found.skin.text(), skinTemp());
}

TEST_F(HeadFilesTest, LooseFilesAreFoundWhereTheyLie) {
    folder.write("game/GameData/Skins/body.cmx", "HEAD\r\nmesh\r\n");
    folder.write("game/GameData/Skins/bodyskin;x.bmp", "skin");
    const HeadFiles found = findHeadFiles("body", "bodyskin;x");
    EXPECT_EQ(found.mesh.text(), SimsPath.text() + "\\gamedata\\skins\\mesh.skn");
    EXPECT_EQ(found.skin.text(), SimsPath.text() + "\\gamedata\\skins\\bodyskin;x.BMP");
}

TEST_F(HeadFilesTest, WithoutAGameBothAreEmptyAndSilent) {
    for (const Path& game : {Path(), Path("ERROR"), folder.path("nowhere"), SimsPath}) {
        SimsPath = game;
        std::string head = "head";
        std::string face = "face";
        EXPECT_TRUE(gfstrFindMeshFile(head).empty());
        EXPECT_TRUE(gfstrFindSkinFile(face).empty());
        EXPECT_EQ(head, "HEAD");
        EXPECT_EQ(face, "FACE");
    }
    EXPECT_TRUE(recorder.reports().empty());
}

}  // namespace
}  // namespace marlowick
