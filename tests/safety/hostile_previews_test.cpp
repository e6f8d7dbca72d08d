// Whatever names the files of strangers give to clothes, meshes and textures: a preview reads them
// where the game keeps such files and nowhere else, and writes nothing but its scratch files.
#include <gtest/gtest.h>

#include <set>

#include "catalogue/skin_image.h"
#include "far/archives.h"
#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/picture_target.h"
#include "preview/head_files.h"
#include "preview/scene.h"
#include "safety/hostile_names_test.h"
#include "support/archive_builder.h"
#include "support/faulty_files.h"
#include "support/mesh_files.h"
#include "system/game_text.h"
#include "system/kept_files.h"

namespace marlowick {
namespace {

using test::counted;
using test::floats;
using test::integers;

const std::string kSkins = "game/gamedata/skins/";
const std::string kAnimation = "game/gamedata/animation/Animation.far";
const std::string kTextures = "game/gamedata/textures/Textures.far";

// A file's folder, or the file itself where it is one of the game's archives, as they compare.
std::string homeOf(const Path& file) {
    const std::string text = upperCase(file.text());
    return text.ends_with(".FAR") ? text : upperCase(file.folder().text());
}

// Notes where files are opened that aren't where they should be.
class OpenWatch : public test::FaultyFiles {
  public:
    OpenWatch(std::set<std::string> toRead, std::set<std::string> toWrite)
        : FaultyFiles(0, Fault::Fail), toRead_(std::move(toRead)), toWrite_(std::move(toWrite)) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        const std::string home = homeOf(path);
        const bool reads = mode == OpenMode::Input || mode == OpenMode::Binary;
        if (!toWrite_.contains(home) && !(reads && toRead_.contains(home))) {
            elsewhere += path.text() + "\n";
        }
        ++opened;
        return FaultyFiles::open(path, mode);
    }
    void remove(const Path& path) override {
        if (!toWrite_.contains(homeOf(path))) {
            elsewhere += "removed " + path.text() + "\n";
        }
        FaultyFiles::remove(path);
    }

    std::string elsewhere;
    int opened = 0;

  private:
    std::set<std::string> toRead_;
    std::set<std::string> toWrite_;
};

std::string skeleton() {
    return integers({1}) + counted("adult") + integers({1}) + counted("ROOT") + counted("NULL") +
           integers({0}) + floats({0, 0, 0, 0, 0, 0, 1}) + integers({1, 1, 1}) + floats({0, 0}) +
           integers({0, 0});
}

// A suit of these meshes; of each name as much as there is room for.
std::string suit(const std::vector<std::string>& meshes) {
    std::string bytes =
        integers({0, 1}) + counted("suit") + integers({0, 0, static_cast<int>(meshes.size())});
    for (const std::string& mesh : meshes) {
        bytes += counted("HEAD") + counted(mesh.substr(0, 255)) + integers({0, 0});
    }
    return bytes + integers({0});
}

// One triangle in a texture.
std::string mesh(const std::string& texture) {
    return counted("mesh") + counted(texture.substr(0, 255)) + integers({1}) + counted("ROOT") +
           integers({1, 0, 1, 2, 1, 0, 0, 3, -1, 0, 3}) + floats({0, 0, 1, 0, 0, 1}) +
           integers({0, 3}) + floats({0, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 1});
}

class HostilePreviewsTest : public test::HostileNamesTest {
  protected:
    HostilePreviewsTest() {
        folder.write(kSkins + "adult-skeleton.cmx.bcf", skeleton());
        writeSuit("good", {"first", "second"});
        writeMesh("first", "x");
        writeMesh("second", "texture");
        folder.write(kSkins + "skin.bmp", "a picture");
        folder.write(kSkins + "texture.bmp", "a picture");
        // What a name that leads elsewhere would find.
        for (const char* place : {"", "game/", "game/gamedata/", "program/", "program/temp/"}) {
            for (const char* name : {"evil", "evil.bmp"}) {
                const std::string evil = std::string(place) + name;
                folder.write(evil + ".cmx.bcf", suit({"first"}));
                folder.write(evil + ".bmf", mesh("x"));
                folder.write(evil + ".bmp", "a picture");
            }
        }
        folder.write(kAnimation, test::archiveFile({{"none.bmf", "", {}}}));
        folder.write(kTextures, test::archiveFile({{"none.bmp", "", {}}}));
    }

    void writeSuit(const std::string& name, const std::vector<std::string>& meshes) {
        folder.write(kSkins + name + ".cmx.bcf", suit(meshes));
    }
    void writeMesh(const std::string& name, const std::string& texture) {
        folder.write(kSkins + name + ".bmf", mesh(texture));
    }

    // Clothes in archives, of that name in that folder.
    void writeArchives(const std::string& before, const std::string& name) {
        const std::string whole = before + name;
        folder.write(kAnimation, test::archiveFile({{whole + ".cmx.bcf", suit({name, whole}), {}},
                                                    {whole + ".bmf", mesh(name), {}}}));
        folder.write(kTextures, test::archiveFile({{whole + ".bmp", "a picture", {}}}));
    }

    // Where clothes lie.
    static std::set<std::string> homes() {
        std::set<std::string> found;
        for (const SkinFolder one : skinFolders()) {
            found.insert(upperCase(skinFolder(one).text()));
        }
        for (const ArchiveStage stage :
             {ArchiveStage::Animation, ArchiveStage::BaseTextures, ArchiveStage::AllTextures}) {
            for (const Path& archive : existingArchives({stage}, kLastSkinExpansion)) {
                found.insert(upperCase(archive.text()));
            }
        }
        return found;
    }

    // Nothing is kept from one question to the next: each reads anew.
    Scene sceneOf(const std::optional<Worn>& worn) {
        KeptFiles kept(0);
        OpenWatch watch(homes(), {});
        decoded = 0;
        Scene scene = makeScene(
            worn, nullptr,
            [this](const std::string&) {
                ++decoded;
                return Texture{1, 1, {0}};
            },
            kept);
        EXPECT_EQ(watch.elsewhere, "");
        opened = watch.opened;
        return scene;
    }

    int decoded = 0;
    int opened = 0;
};

TEST_F(HostilePreviewsTest, OrdinaryNamesAreSeen) {
    const Scene scene = sceneOf(Worn{"adult", {"good", "skin"}, {"good", "skin"}, {}, {}});
    ASSERT_NE(scene.figure, nullptr);
    EXPECT_TRUE(scene.hasHead);
    EXPECT_EQ(scene.figure->parts.size(), 4U);
    // The skin once for the body and once for the head, and the second mesh's own.
    EXPECT_EQ(decoded, 3);
    EXPECT_GE(opened, 7);
}

TEST_F(HostilePreviewsTest, OrdinaryNamesOfArchivesAreSeen) {
    writeArchives("skins\\", "far");
    const Scene scene = sceneOf(Worn{"adult", {"far", "far"}, {"far", "far"}, {}, {}});
    ASSERT_NE(scene.figure, nullptr);
    EXPECT_TRUE(scene.hasHead);
    const HeadFiles head = findHeadFiles("far", "far");
    EXPECT_EQ(head.mesh, tempFolder().child("skntemp.skn"));
    EXPECT_EQ(head.skin, tempFolder().child("skintemp.bmp"));
}

TEST_F(HostilePreviewsTest, OfTheRowsOfAWardrobeLeadNowhereElse) {
    withEachName({}, [&](const std::string& name) {
        for (const char* before : {"", "..\\", "/"}) {
            const std::string whole = before + name;
            sceneOf(Worn{name, {whole, whole}, {whole, whole}, {whole, whole}, {whole, whole}});
            sceneOf(Worn{"adult", {"good", "skin"}, {whole, "skin"}, {"good", whole}, {}});
            sceneOf(
                wornBy({name, whole + "," + whole + "=" + whole, whole, whole}, {whole, "skin"}));
        }
    });
}

TEST_F(HostilePreviewsTest, OfMeshesInASuitLeadNowhereElse) {
    withEachName({"game/gamedata/skins"}, [&](const std::string& name) {
        for (const char* before : {"", "..\\", "/"}) {
            writeSuit("good", {before + name});
            sceneOf(Worn{"adult", {"good", "skin"}, {}, {}, {}});
            writeSuit("good", {"first", before + name});
            const Scene scene = sceneOf(Worn{"adult", {"good", "skin"}, {}, {}, {}});
            EXPECT_NE(scene.figure, nullptr);
        }
    });
}

TEST_F(HostilePreviewsTest, OfTexturesInAMeshLeadNowhereElse) {
    withEachName({"game/gamedata/skins"}, [&](const std::string& name) {
        for (const char* before : {"", "..\\", "/"}) {
            writeMesh("second", before + name);
            const Scene scene = sceneOf(Worn{"adult", {"good", "skin"}, {}, {}, {}});
            ASSERT_NE(scene.figure, nullptr);
            EXPECT_EQ(scene.figure->parts.size(), 2U);
        }
    });
}

TEST_F(HostilePreviewsTest, OfAnArchivesEntriesLeadNowhereElse) {
    withEachName({"game/gamedata/animation", "game/gamedata/textures"},
                 [&](const std::string& name) {
                     for (const char* before : {"", "..\\..\\"}) {
                         const std::string whole = before + name;
                         writeArchives(before, name);
                         sceneOf(Worn{"adult", {name, name}, {whole, whole}, {}, {}});
                     }
                 });
}

// Takes whatever it is told to load.
class AnyPicture : public PictureTarget {
  public:
    void load(const Path& path, std::int64_t /*length*/) override {
        (void)files().open(path, OpenMode::Input);
    }
};

// The flat picture of a skin, and a head's files, go by way of the folder of scratch files.
TEST_F(HostilePreviewsTest, OfSkinsAndHeadsReachTheScratchFolderAlone) {
    withEachName({"program/temp", "game/gamedata/animation", "game/gamedata/textures"},
                 [&](const std::string& name) {
                     for (const char* before : {"", "..\\..\\"}) {
                         const std::string whole = before + name;
                         writeArchives(before, name);
                         OpenWatch watch(homes(), {upperCase(tempFolder().text())});
                         for (const std::string& wanted : {name, whole}) {
                             AnyPicture picture;
                             gsFetchSkinImage(picture, wanted);
                             ignoringErrors([&] { findHeadFiles(wanted, wanted); });
                             streams().closeAll();
                         }
                         EXPECT_EQ(watch.elsewhere, "");
                         for (const auto& entry :
                              std::filesystem::directory_iterator(folder.program() / "temp")) {
                             const std::string made = nameOf(entry.path().filename());
                             EXPECT_TRUE(made.starts_with("evil") || made == "bcftemp.bcf" ||
                                         made == "skntemp.bmf" || made == "skntemp.skn" ||
                                         made == "skintemp.bmp")
                                 << made;
                         }
                     }
                 });
}

// A suit of a loose file names the mesh beside it.
TEST_F(HostilePreviewsTest, OfAHeadsMeshStayBesideItsSuit) {
    withEachName({"game/gamedata/skins"}, [&](const std::string& name) {
        for (const char* before : {"", "..\\"}) {
            folder.write(kSkins + "head.cmx", "0\r\n1\r\nhead\r\n0\r\n0\r\n1\r\nHEAD\r\n" +
                                                  (before + name) + "\r\n0\r\n0\r\n0\r\n");
            OpenWatch watch(homes(), {upperCase(tempFolder().text())});
            std::string head = "head";
            ignoringErrors([&] {
                const Path found = gfstrFindMeshFile(head);
                EXPECT_EQ(upperCase(found.folder().text()),
                          upperCase(skinFolder(SkinFolder::Game).text()));
            });
            streams().closeAll();
            EXPECT_EQ(watch.elsewhere, "");
        }
    });
}

}  // namespace
}  // namespace marlowick
