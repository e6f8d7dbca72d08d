#include "catalogue/skin_image.h"

#include <gtest/gtest.h>

#include "support/game_files.h"
#include "support/kept_at_once.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::little32;

// A picture that shows what it was loaded from; a file that begins with "bad" can't be decoded.
class FakePicture : public PictureTarget {
  public:
    void load(const Path& path, std::int64_t length) override {
        ++tries;
        std::string content = readWholeFile(path);
        content.resize(std::min(content.size(), static_cast<std::size_t>(length)));
        if (content.starts_with("bad")) {
            throw RuntimeError(error::kInvalidPicture);
        }
        shown = content;
    }

    int tries = 0;
    std::string shown = "not found";
};

class SkinImageTest : public test::GameFilesTest {
  protected:
    ~SkinImageTest() override { EXPECT_TRUE(recorder.reports().empty()); }

    std::string fetched(const std::string& name) {
        picture = {};
        gsFetchSkinImage(picture, name);
        return picture.shown;
    }

    FakePicture picture;
};

TEST_F(SkinImageTest, TheFoldersComeFirstInTheirOrder) {
    archive("GameData/Textures/Textures.far", {{"skin.bmp", "archive"}});
    folder.write("game/ExpansionShared/SkinsBuy/Skin.BMP", "shared");
    EXPECT_EQ(fetched("SKIN"), "shared");
    folder.write("game/ExpansionPack3/SkinsBuy/Skin.bmp", "third");
    EXPECT_EQ(fetched("skin"), "third");
    folder.write("game/GameData/Skins/sKIN.bmp", "game");
    EXPECT_EQ(fetched("skin"), "game");
}

TEST_F(SkinImageTest, AFileThatCantBeDecodedIsPassedOver) {
    folder.write("game/GameData/Skins/skin.bmp", "bad");
    folder.write("game/ExpansionShared/SkinsBuy/skin.bmp", "shared");
    EXPECT_EQ(fetched("skin"), "shared");
}

TEST_F(SkinImageTest, TheArchivesComeInTheirOrderWithTheTexturesFirst) {
    struct Row {
        const char* archive;
        const char* content;
    };
    // The last of the search first; each further one is found before it.
    for (const Row& row :
         {Row{"GameData/Textures/zz.far", "zz"}, Row{"GameData/Textures/aa.FAR", "aa"},
          Row{"ExpansionPack13/ExpansionPack13.far", "pack 13"},
          Row{"ExpansionPack2/ExpansionPack2.far", "pack 2"},
          Row{"ExpansionPack/ExpansionPack.far", "pack"},
          Row{"ExpansionShared/ExpansionShared.far", "shared"},
          Row{"GameData/Textures/Textures.far", "textures"}}) {
        archive(row.archive, {{"other.bmp", "other"}, {"Folder\\Skin.bmp", row.content}});
        EXPECT_EQ(fetched("skin"), row.content);
    }
}

TEST_F(SkinImageTest, PackFourteenIsNotAsked) {
    archive("ExpansionPack14/ExpansionPack14.far", {{"skin.bmp", "pack 14"}});
    archive("ExpansionPack1/ExpansionPack1.far", {{"skin.bmp", "pack 1"}});
    EXPECT_EQ(fetched("skin"), "not found");
}

// What stands in the scratch file behind it is left from another skin.
TEST_F(SkinImageTest, OfAnEntryOnlyItsOwnBytesCount) {
    archive("GameData/Textures/Textures.far", {{"long.bmp", "a long skin"}, {"skin.bmp", "short"}});
    EXPECT_EQ(fetched("long"), "a long skin");
    EXPECT_EQ(fetched("skin"), "short");
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "shortg skin");
    // An entry of 900 bytes at byte 44, of which the archive has the last six.
    folder.write("game/GameData/Textures/Textures.far",
                 "FAR!byAZ" + little32(1) + little32(16) + little32(1) + little32(900) +
                     little32(900) + little32(44) + little32(8) + "skin.bmp" + "at end");
    EXPECT_EQ(fetched("skin"), "at end");
}

TEST_F(SkinImageTest, TheBeginningOfANameMatchesWithAnyExtension) {
    archive("GameData/Textures/Textures.far", {{"skinned.txt", "longer"}, {"skin.bmp", "exact"}});
    EXPECT_EQ(fetched("SKIN"), "longer");
}

TEST_F(SkinImageTest, TheFirstHitEndsTheSearchEvenIfItIsNoPicture) {
    archive("GameData/Textures/Textures.far", {{"skin.bmp", "bad"}});
    archive("ExpansionPack/ExpansionPack.far", {{"skin.bmp", "good"}});
    EXPECT_EQ(fetched("skin"), "not found");
}

TEST_F(SkinImageTest, AnEmptyNameHitsTheFirstEntryOfTheFirstArchive) {
    archive("ExpansionPack/ExpansionPack.far", {{"anything.bmp", "first entry"}, {"b", "second"}});
    EXPECT_EQ(fetched(""), "first entry");
}

TEST_F(SkinImageTest, ANoteTouchesNothing) {
    archive("ExpansionPack/ExpansionPack.far", {{"anything.bmp", "first entry"}});
    EXPECT_EQ(fetched("*** ADULT SIMS ONLY ***"), "not found");
    EXPECT_EQ(picture.tries, 0);
    EXPECT_FALSE(folder.exists("program/temp/skintemp.bmp"));
}

TEST_F(SkinImageTest, DamagedArchivesAreSilent) {
    folder.write("game/GameData/Textures/Textures.far",
                 "FAR!byAZ" + little32(1) + little32(0xFFFFFFFF));
    archive("ExpansionPack/ExpansionPack.far", {{"skin.bmp", "good"}});
    EXPECT_EQ(fetched("skin"), "good");
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
}

TEST_F(SkinImageTest, ANameNeverReachesAnotherFolder) {
    folder.write("game/secret.bmp", "secret");
    folder.write("game/GameData/Skins/x.bmp", "x");
    EXPECT_EQ(fetched("..\\..\\secret"), "not found");
    EXPECT_EQ(fetched("../../secret"), "not found");
}

// Skins of one length, so that nothing but the directory tells that another archive stands there.
TEST_F(SkinImageTest, AnArchiveThatChangedAtOnceShowsWhatItHoldsNow) {
    const test::KeptAtOnce keptAtOnce;
    const std::string textures = "GameData/Textures/Textures.far";
    archive(textures, {{"skin.bmp", "one"}, {"coat.bmp", "two"}});
    EXPECT_EQ(fetched("skin"), "one");
    EXPECT_EQ(fetched("coat"), "two");
    test::letTheClockMove();
    archive(textures, {{"coat.bmp", "six"}, {"skin.bmp", "ten"}});
    EXPECT_EQ(fetched("skin"), "ten");
    EXPECT_EQ(fetched("coat"), "six");
    archive("GameData/Textures/new.tmp", {{"hat_.bmp", "new"}, {"skin.bmp", "hat"}});
    std::filesystem::rename(folder.game() / "GameData/Textures/new.tmp", folder.game() / textures);
    EXPECT_EQ(fetched("coat"), "not found");
    EXPECT_EQ(fetched("skin"), "hat");
    EXPECT_EQ(fetched("hat"), "new");
    std::filesystem::remove(folder.game() / textures);
    EXPECT_EQ(fetched("skin"), "not found");
    EXPECT_FALSE(folder.exists("game/" + textures));
}

TEST_F(SkinImageTest, AnEntryIsCopiedOutOfTheArchiveAsItIsNow) {
    const test::KeptAtOnce keptAtOnce;
    const Path file = folder.path("game/GameData/Textures/Textures.far");
    archive("GameData/Textures/Textures.far", {{"skin.bmp", "one"}, {"coat.bmp", "two"}});
    EXPECT_EQ(extractSkin(file, 2).name, "COAT.BMP");
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "two");
    test::letTheClockMove();
    archive("GameData/Textures/Textures.far", {{"coat.bmp", "six"}, {"skin.bmp", "ten"}});
    EXPECT_EQ(extractSkin(file, 2).name, "SKIN.BMP");
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "ten");
}

TEST_F(SkinImageTest, WithoutAGameThePictureStays) {
    EXPECT_EQ(fetched("skin"), "not found");
}

}  // namespace
}  // namespace marlowick
