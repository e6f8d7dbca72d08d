#include "preview/scene.h"

#include <gtest/gtest.h>

#include <map>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/mesh_files.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

using test::counted;
using test::floats;
using test::integers;

constexpr const char* kAnimation = "GameData/Animation/Animation.far";
constexpr const char* kTextures = "GameData/Textures/Textures.far";
const std::string kSkins = "GameData/Skins/";
const std::string kThird = "ExpansionPack3/SkinsBuy/";
const std::string kShared = "ExpansionShared/SkinsBuy/";

std::string packName(const std::string& number) {
    return "ExpansionPack" + number + "/ExpansionPack" + number + ".far";
}

std::string skeletonText(const std::string& bone = "ROOT") {
    return "version 300\n1\nadult\n1\n" + bone +
           "\nNULL\n0\n| 0 0 0 |\n| 0 0 0 1 |\n1\n1\n1\n0.0\n0.0\n0\n0\n";
}

std::string skeletonBinary() {
    return integers({1}) + counted("adult") + integers({1}) + counted("ROOT") + counted("NULL") +
           integers({0}) + floats({0, 0, 0, 0, 0, 0, 1}) + integers({1, 1, 1}) + floats({0, 0}) +
           integers({0, 0});
}

std::string suitText(const std::vector<std::string>& meshes) {
    std::string text = "0\n1\nsuit\n0\n0\n" + std::to_string(meshes.size()) + "\n";
    for (const std::string& mesh : meshes) {
        text += "PELVIS\n" + mesh + "\n0\n0\n";
    }
    return text + "0\n";
}

std::string suitBinary(const std::string& mesh) {
    return integers({0, 1}) + counted("suit") + integers({0, 0, 1}) + counted("PELVIS") +
           counted(mesh) + integers({0, 0, 0});
}

// A triangle at a height of its own, by which it is known again.
std::string meshText(int height, const std::string& texture = "x") {
    const std::string y = std::to_string(height);
    return "mesh\n" + texture + "\n1\nROOT\n1\n0 1 2\n1\n0 0 3 -1 0\n3\n0 0\n1 0\n0 1\n0\n3\n0 " +
           y + " 0 0 0 1\n1 " + y + " 0 0 0 1\n0 " + y + " 1 0 0 1\n";
}

std::string meshBinary(float height) {
    return counted("mesh") + counted("x") + integers({1}) + counted("ROOT") +
           integers({1, 0, 1, 2, 1, 0, 0, 3, -1, 0, 3}) + floats({0, 0, 1, 0, 0, 1}) +
           integers({0, 3}) +
           floats({0, height, 0, 0, 0, 1, 1, height, 0, 0, 0, 1, 0, height, 1, 0, 0, 1});
}

// A bitmap is a word here, and its colour that word's first letter.
std::optional<Texture> decodeWord(const std::string& bytes) {
    if (bytes.empty() || bytes.starts_with("bad")) {
        return std::nullopt;
    }
    if (bytes == "raise") {
        throw RuntimeError(error::kInvalidPicture);
    }
    if (bytes == "hollow") {
        return Texture{2, 2, {1}};
    }
    return Texture{1, 1, {static_cast<unsigned char>(bytes.front())}};
}

class SceneTest : public ::testing::Test {
  protected:
    void write(const std::string& name, const std::string& content) const {
        folder.write("game/" + name, content);
    }
    void archive(const std::string& name, const std::vector<test::ArchiveEntry>& entries) const {
        write(name, test::archiveFile(entries));
    }

    // A body, a head and hands; of heights 1 to 4, in skins b, h, l and r.
    void writeSim() const {
        write(kSkins + "adult-skeleton.cmx", skeletonText());
        writePiece("body", 1, "brown");
        writePiece("head", 2, "hazel");
        writePiece("HfLO", 3, "lilac");
        writePiece("HfRO", 4, "red");
    }
    void writePiece(const std::string& name, int height, const std::string& colour) const {
        write(kSkins + name + ".cmx", suitText({"xskin-" + name}));
        write(kSkins + "xskin-" + name + ".skn", meshText(height));
        write(kSkins + name + "skin.bmp", colour);
    }

    Scene make(std::shared_ptr<const Texture> skin = {}) {
        return makeScene(worn, std::move(skin), decodeWord, kept);
    }

    // Height and colour of each part: "1b 2h".
    static std::string partsOf(const Scene& scene) {
        std::string parts;
        for (const FigurePart& part :
             scene.figure ? scene.figure->parts : std::vector<FigurePart>()) {
            parts += (parts.empty() ? "" : " ") +
                     std::to_string(static_cast<int>(part.vertices.at(0).position.y)) +
                     static_cast<char>(part.texture->pixels.at(0));
        }
        return parts;
    }
    std::string parts() { return partsOf(make()); }

    test::TestFolder folder;
    std::optional<Worn> worn = Worn{"adult",
                                    {"body", "bodyskin"},
                                    {"head", "headskin"},
                                    {"HfLO", "HfLOskin"},
                                    {"HfRO", "HfROskin"}};
    // What was written just now is kept, too.
    KeptFiles kept{kMostKept, [] { return stampClock() + 60'000'000'000; }};
};

TEST_F(SceneTest, AWholeSim) {
    writeSim();
    const Scene scene = make();
    EXPECT_EQ(partsOf(scene), "1b 2h 3l 4r");
    EXPECT_TRUE(scene.hasHead && scene.hasLeftHand && scene.hasRightHand);
    // In the figure's space, with room told.
    EXPECT_EQ(scene.figure->parts[0].vertices[1].position.x, -1);
    EXPECT_GT(scene.figure->bounds.size, 1.5F);
}

TEST_F(SceneTest, WithoutClothesThereIsNoFigure) {
    writeSim();
    worn.reset();
    EXPECT_FALSE(make().figure);
    EXPECT_EQ(make().why, NoFigure::NotWorn);
}

TEST_F(SceneTest, SkeletonBodyAndSkinAreNeeded) {
    writeSim();
    const auto whyWithout = [&](const std::string& name, const std::string& content = "") {
        const std::string before = folder.read("game/" + kSkins + name);
        if (content.empty()) {
            fs::remove(folder.game() / (kSkins + name));
        } else {
            write(kSkins + name, content);
        }
        const Scene scene = make();
        EXPECT_FALSE(scene.figure) << name;
        write(kSkins + name, before);
        return scene.why;
    };
    EXPECT_EQ(whyWithout("adult-skeleton.cmx"), NoFigure::NoSkeleton);
    EXPECT_EQ(whyWithout("adult-skeleton.cmx", "1\nadult\n99\n"), NoFigure::NoSkeleton);
    EXPECT_EQ(whyWithout("adult-skeleton.cmx", skeletonText("OTHER")), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("body.cmx"), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("body.cmx", "0\n1\nbody\n0\n0\n5\n"), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("body.cmx", suitText({})), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("body.cmx", "0\n0\n0\n"), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("xskin-body.skn"), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("xskin-body.skn", meshText(1).substr(0, 60)), NoFigure::NoBody);
    EXPECT_EQ(whyWithout("bodyskin.bmp"), NoFigure::NoSkin);
    EXPECT_EQ(whyWithout("bodyskin.bmp", "bad"), NoFigure::NoSkin);
    EXPECT_EQ(whyWithout("bodyskin.bmp", "raise"), NoFigure::NoSkin);
    EXPECT_EQ(whyWithout("bodyskin.bmp", "hollow"), NoFigure::NoSkin);
    EXPECT_EQ(parts(), "1b 2h 3l 4r");
}

TEST_F(SceneTest, AHeadOrAHandThatIsMissingIsLeftOutAlone) {
    writeSim();
    write(kSkins + "xskin-head.skn", meshText(2).substr(0, 60));
    fs::remove(folder.game() / (kSkins + "HfLOskin.bmp"));
    Scene scene = make();
    EXPECT_EQ(partsOf(scene), "1b 4r");
    EXPECT_TRUE(!scene.hasHead && !scene.hasLeftHand && scene.hasRightHand);
    worn->head = {};
    worn->leftHand = {"HfLO", ""};
    worn->rightHand = {"", "HfROskin"};
    EXPECT_EQ(parts(), "1b");
}

TEST_F(SceneTest, SkeletonsAreNamedEitherWay) {
    writeSim();
    fs::remove(folder.game() / (kSkins + "adult-skeleton.cmx"));
    EXPECT_EQ(make().why, NoFigure::NoSkeleton);
    archive(packName("4"), {{"Adult_Skeleton.CMX.BCF", skeletonBinary()}});
    EXPECT_EQ(parts(), "1b 2h 3l 4r");
    worn->kind = "kat";
    EXPECT_EQ(make().why, NoFigure::NoSkeleton);
    write(kShared + "KAT-skeleton.cmx", skeletonText());
    EXPECT_EQ(parts(), "1b 2h 3l 4r");
    worn->kind = "dog";
    archive(packName("5"), {{"animation\\dog_skeleton.cmx", skeletonText()}});
    EXPECT_EQ(parts(), "1b 2h 3l 4r");
    worn->kind = "child";
    write(kThird + "child-skeleton.cmx.bcf", skeletonBinary());
    EXPECT_EQ(parts(), "1b 2h 3l 4r");
}

// The last place of the search first; each further one is found before it.
TEST_F(SceneTest, SuitsAndTheirMeshesAreLookedForInOrder) {
    worn->head = worn->leftHand = worn->rightHand = {};
    write(kSkins + "adult-skeleton.cmx", skeletonText());
    write(kSkins + "bodyskin.bmp", "brown");
    archive(packName("10"), {{"body.cmx", suitText({"m"})}, {"m.skn", meshText(99)}});
    archive(kTextures, {{"body.cmx", suitText({"m"})}, {"m.skn", meshText(99)}});
    EXPECT_EQ(make().why, NoFigure::NoBody);
    int height = 10;
    const auto found = [&] { return parts() == std::to_string(height) + "b"; };
    const auto archived = [&](const std::string& name) {
        ++height;
        archive(name, {{"Suits\\BODY.cmx.bcf", suitBinary("M")},
                       {"m.bmf", meshBinary(static_cast<float>(height))}});
        return found();
    };
    EXPECT_TRUE(archived("ExpansionShared/ExpansionShared.far"));
    for (int pack = 9; pack >= 2; --pack) {
        EXPECT_TRUE(archived(packName(std::to_string(pack)))) << pack;
    }
    EXPECT_TRUE(archived(packName("")));
    EXPECT_TRUE(archived(kAnimation));
    for (const std::string& place : {kShared, kThird, kSkins}) {
        ++height;
        write(place + "Body.CMX.bcf", suitBinary("m"));
        write(place + "m.bmf", meshBinary(static_cast<float>(height)));
        EXPECT_TRUE(found()) << place;
        // In one place text comes first, of the suit as of the mesh.
        ++height;
        write(place + "body.cmx", suitText({"t"}));
        write(place + "t.SKN", meshText(height));
        write(place + "t.bmf", meshBinary(99));
        EXPECT_TRUE(found()) << place;
    }
}

TEST_F(SceneTest, TheMeshBesideItsSuitGoesFirst) {
    writeSim();
    worn->head = worn->leftHand = worn->rightHand = {};
    archive(packName("7"), {{"far.cmx", suitText({"mesh"})}, {"mesh.bmf", meshBinary(7)}});
    archive(packName("2"), {{"mesh.skn", meshText(2)}, {"lone.skn", meshText(3)}});
    write(kSkins + "mesh.skn", meshText(5));
    worn->body.suit = "FAR";
    EXPECT_EQ(parts(), "7b");
    // One that lies nowhere near is found elsewhere, in a folder before an archive.
    archive(packName("7"), {{"far.cmx", suitText({"mesh"})}});
    EXPECT_EQ(parts(), "5b");
    write(kShared + "buy.cmx", suitText({"lone"}));
    worn->body.suit = "buy";
    EXPECT_EQ(parts(), "3b");
    write(kShared + "lone.skn", meshText(4));
    EXPECT_EQ(parts(), "4b");
}

TEST_F(SceneTest, FurtherPartsWearTheirOwnTexture) {
    writeSim();
    worn->head = worn->leftHand = worn->rightHand = {};
    write(kSkins + "body.cmx", suitText({"first", "own", "none", "lost", "missing", "broken"}));
    write(kSkins + "first.skn", meshText(1, "owntex"));
    write(kSkins + "own.skn", meshText(2, "OwnTex"));
    write(kSkins + "none.skn", meshText(3, "X"));
    write(kSkins + "lost.skn", meshText(4, "nowhere"));
    write(kSkins + "broken.skn", "broken\n");
    archive(kTextures, {{"owntex.bmp", "orange"}});
    EXPECT_EQ(parts(), "1b 2o 3b 4b");
    // A name that only begins like it is another texture.
    archive(kTextures, {{"owntex_other.bmp", "purple"}});
    EXPECT_EQ(parts(), "1b 2b 3b 4b");
}

TEST_F(SceneTest, TheBodysBitmapIsTheFlatPictures) {
    writeSim();
    worn->head = worn->leftHand = worn->rightHand = {};
    // What can't be decoded loose is passed over; in an archive the first hit ends the search.
    write(kSkins + "bodyskin.bmp", "bad");
    archive(packName("13"), {{"bodyskin.bmp", "m"}});
    EXPECT_EQ(parts(), "1m");
    archive(packName("2"),
            {{"x.bmp", "x"}, {"Skins\\BodySkin_Long.BMP", "n"}, {"bodyskin.bmp", "o"}});
    EXPECT_EQ(parts(), "1n");
    archive("ExpansionShared/ExpansionShared.far", {{"bodyskin.bmp", "p"}});
    EXPECT_EQ(parts(), "1p");
    archive(kTextures, {{"bodyskinny.txt", "bad"}});
    EXPECT_EQ(make().why, NoFigure::NoSkin);
    write(kShared + "BodySkin.BMP", "q");
    EXPECT_EQ(parts(), "1q");
    write(kThird + "bodyskin.bmp", "s");
    EXPECT_EQ(parts(), "1s");
    write(kSkins + "bodyskin.bmp", "t");
    EXPECT_EQ(parts(), "1t");
    worn->body.skin = "*** VACATION ONLY ***";
    EXPECT_EQ(make().why, NoFigure::NoSkin);
}

TEST_F(SceneTest, HeadsAndHandsAreFoundByTheWholeNameFirst) {
    writeSim();
    fs::remove(folder.game() / (kSkins + "headskin.bmp"));
    archive(kTextures, {{"headskin_other.bmp", "prefix"}});
    EXPECT_EQ(parts(), "1b 2p 3l 4r");
    archive("GameData/Textures/more.far", {{"HeadSkin.BMP", "whole"}});
    EXPECT_EQ(parts(), "1b 2w 3l 4r");
}

TEST_F(SceneTest, ABitmapThatIsShownIsWornWhereverItLies) {
    writeSim();
    worn->head = worn->leftHand = worn->rightHand = {};
    worn->body.skin = "nowhere";
    const auto shown = std::make_shared<const Texture>(Texture{1, 1, {'s'}});
    EXPECT_EQ(partsOf(make(shown)), "1s");
    EXPECT_EQ(make().why, NoFigure::NoSkin);
    // One that isn't whole.
    EXPECT_EQ(make(std::make_shared<const Texture>(Texture{2, 2, {1}})).why, NoFigure::NoSkin);
}

TEST_F(SceneTest, NamesNeverLeadElsewhere) {
    writeSim();
    write("outside.cmx", suitText({"xskin-body"}));
    write("outside.skn", meshText(9));
    write("outside.bmp", "outside");
    write("GameData/outside.cmx", suitText({"xskin-body"}));
    for (const char* name :
         {"..\\..\\outside", "../../outside", "..\\outside", "", ".", "NUL", "a:b"}) {
        worn->body = {name, "bodyskin"};
        EXPECT_EQ(make().why, NoFigure::NoBody) << name;
    }
    worn->body = {"body", "..\\..\\outside"};
    EXPECT_EQ(make().why, NoFigure::NoSkin);
    worn->body = {"body", "bodyskin"};
    write(kSkins + "body.cmx", suitText({"..\\..\\outside"}));
    EXPECT_EQ(make().why, NoFigure::NoBody);
}

TEST_F(SceneTest, TheDiskStaysAsItIs) {
    writeSim();
    archive(kTextures, {{"headskin2.bmp", "archived"}});
    worn->head.skin = "headskin2";
    const auto contents = [&] {
        std::map<std::string, std::pair<std::string, fs::file_time_type>> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder.root())) {
            const std::string name = fs::relative(entry.path(), folder.root()).generic_string();
            all[name] = {entry.is_regular_file() ? folder.read(name) : "", entry.last_write_time()};
        }
        return all;
    };
    const auto before = contents();
    const test::ErrorRecorder recorder;
    EXPECT_EQ(parts(), "1b 2a 3l 4r");
    worn->body.suit = "missing";
    make();
    EXPECT_EQ(contents(), before);
    EXPECT_TRUE(recorder.reports().empty());
}

// A damaged archive or mesh that is only looked at leaves no number taken and no report behind.
TEST_F(SceneTest, SlotsAndTheErrorStateStayAsTheyAre) {
    writeSim();
    write(packName("2"), "FAR!byAZ and no directory");
    write(kSkins + "xskin-head.skn", "mesh\nx\n-1\n");
    write(kSkins + "HfLO.cmx", "0\n1\n");
    worn->rightHand.skin = "nowhere";
    CheckpointNumber = 1234;
    glngErrorNumber = 57;
    gstrErrorDescription = "before";
    gstrErrorModule = "frmMain";
    gstrErrorProc = "msDisplaySim";
    const Slot free = streams().freeSlot();
    const Slot fixed[] = {slot::kUserFile, slot::kExtractSource, slot::kExtractOutput};
    for (const Slot slot : fixed) {
        streams().open(slot, folder.path("game/" + kSkins + "body.cmx"), OpenMode::Input);
    }
    EXPECT_EQ(parts(), "1b");
    worn->kind = "dog";
    EXPECT_EQ(make().why, NoFigure::NoSkeleton);
    for (const Slot slot : fixed) {
        EXPECT_TRUE(streams().isOpen(slot));
        streams().close(slot);
    }
    EXPECT_EQ(streams().freeSlot(), free);
    EXPECT_EQ(CheckpointNumber, 1234);
    EXPECT_EQ(glngErrorNumber, 57);
    EXPECT_EQ(gstrErrorDescription + gstrErrorModule + gstrErrorProc, "beforefrmMainmsDisplaySim");
}

// Notes what is opened.
class OpenedFiles : public test::FaultyFiles {
  public:
    OpenedFiles() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        EXPECT_EQ(mode, OpenMode::Input) << path.text();
        opened.push_back(path.fileName());
        return FaultyFiles::open(path, mode);
    }

    std::vector<std::string> opened;
};

TEST_F(SceneTest, TheSecondSceneReadsBitmapsAlone) {
    writeSim();
    archive(packName("2"), {{"bodyskin2.bmp", "two"}});
    worn->body.skin = "bodyskin2";
    EXPECT_EQ(parts(), "1t 2h 3l 4r");
    OpenedFiles opened;
    EXPECT_EQ(parts(), "1t 2h 3l 4r");
    EXPECT_EQ(opened.opened, (std::vector<std::string>{"ExpansionPack2.far", "headskin.bmp",
                                                       "HfLOskin.bmp", "HfROskin.bmp"}));
}

TEST_F(SceneTest, WhatChangesOnTheDiskIsSeenAtOnce) {
    writeSim();
    worn->head = worn->leftHand = worn->rightHand = {};
    archive(packName("2"), {{"packed.cmx", suitText({"m"})}, {"m.skn", meshText(5)}});
    EXPECT_EQ(parts(), "1b");
    write(kSkins + "body.cmx", suitText({"xskin-head", "xskin-head"}));
    EXPECT_EQ(parts(), "2b 2b");
    write(kSkins + "xskin-head.skn", meshText(17));
    EXPECT_EQ(parts(), "17b 17b");
    worn->body.suit = "packed";
    EXPECT_EQ(parts(), "5b");
    archive(packName("2"),
            {{"more", ""}, {"packed.cmx", suitText({"m"})}, {"m.skn", meshText(66)}});
    EXPECT_EQ(parts(), "66b");
    write(kSkins + "packed.cmx", suitText({"xskin-body"}));
    EXPECT_EQ(parts(), "1b");
    fs::remove(folder.game() / packName("2"));
    fs::remove(folder.game() / (kSkins + "packed.cmx"));
    EXPECT_EQ(make().why, NoFigure::NoBody);
}

TEST_F(SceneTest, ADamagedArchiveHoldsNothing) {
    writeSim();
    write(kAnimation, "FAR!byAZ\x01");
    write(packName("2"), std::string(5000, '\xFF'));
    write(packName("3"), "");
    write(kTextures, std::string("FAR!byAZ\x01\0\0\0\x10\0\0\0\xFF\xFF\xFF\x7F", 20));
    worn->head.skin = "nowhere";
    EXPECT_EQ(parts(), "1b 3l 4r");
    // An entry that lies outside of its archive.
    std::string far = test::archiveFile({{"body2.cmx", suitText({"xskin-body"})}});
    const std::size_t record = far.size() - 16 - 9;
    write(packName("2"), std::string(far).replace(record, 4, integers({0x7FFFFFFF})));
    worn->body.suit = "body2";
    EXPECT_EQ(parts(), "1b 3l 4r");  // what is there is enough
    write(packName("2"), std::string(far).replace(record + 8, 4, integers({0x7FFFFFF0})));
    EXPECT_EQ(make().why, NoFigure::NoBody);
    write(packName("2"), std::string(far).replace(record + 8, 4, integers({-16})));
    EXPECT_EQ(make().why, NoFigure::NoBody);
    write(packName("2"), std::string(far).replace(record, 4, integers({-16})));
    EXPECT_EQ(make().why, NoFigure::NoBody);
}

// No file of that size is a suit or a mesh of the game.
TEST_F(SceneTest, HugeFilesAreNotRead) {
    writeSim();
    write(kSkins + "body.cmx", suitText({"xskin-body"}) + std::string(2U << 20U, '\n'));
    EXPECT_EQ(make().why, NoFigure::NoBody);
    write(kSkins + "body.cmx", suitText({"xskin-body"}));
    write(kSkins + "xskin-body.skn", meshText(1) + std::string(17U << 20U, '\n'));
    EXPECT_EQ(make().why, NoFigure::NoBody);
}

// A suit may name one large mesh again and again.
TEST_F(SceneTest, FacesAreBoundedInAll) {
    writeSim();
    std::string mesh = "mesh\nx\n1\nROOT\n65536\n";
    for (int i = 0; i < 65536; ++i) {
        mesh += "0 1 2\n";
    }
    mesh += "1\n0 0 3 -1 0\n3\n0 0\n1 0\n0 1\n0\n3\n0 0 0 0 0 1\n1 0 0 0 0 1\n0 0 1 0 0 1\n";
    write(kSkins + "large.skn", mesh);
    write(kSkins + "body.cmx", suitText(std::vector<std::string>(64, "large")));
    const Scene scene = make();
    ASSERT_TRUE(scene.figure);
    EXPECT_EQ(scene.figure->parts.size(), 4U);
    EXPECT_FALSE(scene.hasHead);
}

}  // namespace
}  // namespace marlowick
