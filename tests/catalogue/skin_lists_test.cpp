#include "catalogue/skin_lists.h"

#include <gtest/gtest.h>

#include <map>

#include "support/counting_files.h"
#include "support/game_files.h"
#include "support/kept_at_once.h"
#include "system/files.h"

namespace marlowick {
namespace {

using test::Names;

class SkinListsTest : public test::GameFilesTest {
  protected:
    ~SkinListsTest() override { EXPECT_TRUE(recorder.reports().empty()); }

    void pack(int n, const Names& names) {
        archiveOf(packName(n == 1 ? "" : std::to_string(n)), names);
    }

    // Paths below the game's folder, as they are listed.
    Names shown(const List<Path>& list) const {
        Names paths;
        const std::size_t root = folder.path("game\\").text().size();
        for (int i = 1; i <= list.bound(); ++i) {
            paths.push_back(list[i].text().substr(root));
        }
        EXPECT_TRUE(list[0].empty());
        return paths;
    }

    Names sortedOut(const std::vector<SkinCandidate>& candidates) {
        skins.reset();
        badFiles.clear();
        const auto loads = [this](const Path& file) {
            ++tries[file.text()];
            return readWholeFile(file) != "bad";
        };
        sortOutFiles(candidates, loads, skins, badFiles);
        return shown(skins);
    }

    Names skinFiles(const SkinQuery& query) { return sortedOut(skinCandidates(query)); }

    Names handFiles() { return sortedOut(handCandidates()); }

    // "archive file:number:name" of each entry.
    static Names told(const List<FarSkinEntry>& list) {
        Names entries;
        for (int i = 1; i <= list.bound(); ++i) {
            entries.push_back(list[i].FarFile.fileName() + ":" + std::to_string(list[i].FileIndex) +
                              ":" + list[i].FileName);
        }
        return entries;
    }

    static Names skinEntries(const SkinQuery& query) {
        List<FarSkinEntry> list;
        listSkinEntries(query, list);
        return told(list);
    }

    static Names handEntries() {
        List<FarSkinEntry> list;
        listHandEntries(list);
        return told(list);
    }

    std::map<std::string, int> tries;
    Names badFiles;
    List<Path> skins;
};

TEST_F(SkinListsTest, AModelsSkinsComeFromThreeFoldersInTheirOrder) {
    files("ExpansionShared/SkinsBuy", {"b001fafitlgt_c.bmp"});
    files("ExpansionPack3/SkinsBuy", {"B001FAFITLGT_b.BMP", "b001fafitlgt_a.bmp"});
    files("GameData/Skins", {"b001fafitLGT_z.bmp", "b001fafitlgt_a.bmp", "b001fafitmed_a.bmp",
                             "b001fafitlgtx_a.bmp", "b001fafitlgt_a.bmpx", "b001fafit_a.bmp"});
    EXPECT_EQ(skinFiles({"B001FAFIT_01", "falgtfitB"}),
              Names({"gamedata\\skins\\b001fafitlgt_a.bmp", "gamedata\\skins\\b001fafitLGT_z.bmp",
                     "ExpansionPack3\\SkinsBuy\\b001fafitlgt_a.bmp",
                     "ExpansionPack3\\SkinsBuy\\B001FAFITLGT_b.BMP",
                     "ExpansionShared\\SkinsBuy\\b001fafitlgt_c.bmp"}));
    EXPECT_TRUE(badFiles.empty());
}

TEST_F(SkinListsTest, NothingIsTriedTwice) {
    files("GameData/Skins", {"b001fafitlgt_a.bmp", "b001fafitlgt_b.bmp"});
    folder.write("game/GameData/Skins/b001fafitlgt_c.bmp", "bad");
    skinFiles({"B001FAFIT_01", "falgtfitB"});
    EXPECT_EQ(tries.size(), 3U);
    for (const auto& [file, count] : tries) {
        EXPECT_EQ(count, 1) << file;
    }
}

TEST_F(SkinListsTest, APetsSkinsHaveNoTone) {
    files("GameData/Skins", {"b001dog_coat1.bmp", "b001dogg_coat.bmp", "b001cat_coat.bmp"});
    EXPECT_EQ(skinFiles({"B001DOG_01", "Dog", true}),
              Names({"gamedata\\skins\\b001dog_coat1.bmp"}));
}

TEST_F(SkinListsTest, AModelWithoutASkinOrWithoutASeparatorHasNone) {
    files("GameData/Skins", {"b001fafitlgt_a.bmp", "_lgt.bmp", ".bmp", "lgt_a.bmp"});
    archiveOf("GameData/Textures/Textures.far", {"B001FAFITLGT_A.BMP", "LGT.BMP", ".BMP"});
    for (const char* model : {"B999FAFIT_01", "B001FAFIT", ""}) {
        EXPECT_EQ(skinFiles({model, "falgtfitB"}), Names()) << model;
        EXPECT_EQ(skinEntries({model, "falgtfitB"}), Names()) << model;
        EXPECT_EQ(skinEntries({model, "Dog", true}), Names()) << model;
    }
}

TEST_F(SkinListsTest, BadFilesAreListedByTheirBareNamesInTheOrderOfTheSearch) {
    folder.write("game/ExpansionPack3/SkinsBuy/b001fafitlgt_a.bmp", "bad");
    folder.write("game/GameData/Skins/b001fafitlgt_z.bmp", "bad");
    files("ExpansionShared/SkinsBuy", {"b001fafitlgt_a.bmp"});
    EXPECT_EQ(skinFiles({"B001FAFIT_01", "falgtfitB"}),
              Names({"ExpansionShared\\SkinsBuy\\b001fafitlgt_a.bmp"}));
    EXPECT_EQ(badFiles, Names({"b001fafitlgt_z.bmp", "b001fafitlgt_a.bmp"}));
}

TEST_F(SkinListsTest, TheMessageReadsTheSameForOneFile) {
    EXPECT_EQ(badSkinReport({"a.bmp"}),
              "The following files could not be loaded:\r\n\r\na.bmp\r\n\r\n"
              "These files may be \"fixed\" by loading them into\r\n"
              "a program like Paint Shop Pro and re-saving them.\r\n");
    EXPECT_EQ(badSkinReport({"a.bmp", "b.bmp"}),
              "The following files could not be loaded:\r\n\r\na.bmp\r\nb.bmp\r\n\r\n"
              "These files may be \"fixed\" by loading them into\r\n"
              "a program like Paint Shop Pro and re-saving them.\r\n");
}

TEST_F(SkinListsTest, HandsComeByTheirSixMasksFromTheGamesFolderAlone) {
    files("GameData/Skins",
          {"guao_pink.bmp", "gfao_bride.bmp", "gmxx_a.bmp", "gmxxx_a.bmp", "huaolgt.bmp", "hf.bmp",
           "hmanything at all.bmp", "HMAO.BMP", "haao.bmp", "gf1_a.bmp"});
    files("ExpansionPack3/SkinsBuy", {"hmshop.bmp"});
    files("ExpansionShared/SkinsBuy", {"hushop.bmp"});
    EXPECT_EQ(handFiles(),
              Names({"gamedata\\skins\\hmanything at all.bmp", "gamedata\\skins\\HMAO.BMP",
                     "gamedata\\skins\\hf.bmp", "gamedata\\skins\\huaolgt.bmp",
                     "gamedata\\skins\\gmxx_a.bmp", "gamedata\\skins\\gfao_bride.bmp",
                     "gamedata\\skins\\guao_pink.bmp"}));
}

class CountedListings : public test::CountingFiles {
  public:
    std::vector<FolderEntry> list(const Path& folder) override {
        ++listings;
        return CountingFiles::list(folder);
    }
    int listings = 0;
};

TEST_F(SkinListsTest, TheFolderOfHandsIsListedOnceForOneQuestionAndAnewForTheNext) {
    files("GameData/Skins", {"hm1.bmp", "gfao_x.bmp"});
    {
        CountedListings counted;
        EXPECT_EQ(handCandidates().size(), 2U);
        EXPECT_EQ(counted.listings, 1);
    }
    files("GameData/Skins", {"hf2.bmp"});
    EXPECT_EQ(handCandidates().size(), 3U);
}

TEST_F(SkinListsTest, SkinsInArchivesComeInTheirOwnOrder) {
    archiveOf("ExpansionShared/ExpansionShared.far", {"b001fafitlgt_s.bmp"});
    for (const int n : {1, 2, 9, 10, 13, 14}) {
        pack(n, {"x.bmp", "Skins\\B001FAFITLGT_" + std::to_string(n) + ".bmp"});
    }
    archiveOf("GameData/Textures/Textures.far", {"b001fafitlgt_t.bmp", "b001fafitlgt_t.bmp",
                                                 "b001fafitmed_t.bmp", "b001fafitlgt_t.tga"});
    archiveOf("GameData/Textures/aaa.FAR", {"b001fafitlgtX.bmp"});
    EXPECT_EQ(
        skinEntries({"b001fafit_01", "falgtfitB"}),
        Names({"ExpansionShared.far:1:B001FAFITLGT_S.BMP", "ExpansionPack.far:2:B001FAFITLGT_1.BMP",
               "ExpansionPack2.far:2:B001FAFITLGT_2.BMP", "ExpansionPack9.far:2:B001FAFITLGT_9.BMP",
               "ExpansionPack10.far:2:B001FAFITLGT_10.BMP",
               "ExpansionPack13.far:2:B001FAFITLGT_13.BMP", "aaa.FAR:1:B001FAFITLGTX.BMP",
               "Textures.far:1:B001FAFITLGT_T.BMP", "Textures.far:2:B001FAFITLGT_T.BMP"}));
}

TEST_F(SkinListsTest, AnArchivesPathIsTheOneItWasSearchedUnder) {
    pack(3, {"b001fafitlgt_a.bmp"});
    archiveOf("GameData/Textures/more.far", {"b001fafitlgt_a.bmp"});
    List<FarSkinEntry> list;
    listSkinEntries({"B001FAFIT_01", "falgtfitB"}, list);
    ASSERT_EQ(list.bound(), 2);
    EXPECT_EQ(list[1].FarFile, folder.path("game\\ExpansionPack3\\ExpansionPack3.far"));
    EXPECT_EQ(list[2].FarFile, folder.path("game\\GameData\\Textures\\more.far"));
}

TEST_F(SkinListsTest, APetsModelInLowerCaseMatchesNothingInArchives) {
    archiveOf("GameData/Textures/Textures.far", {"b001dog_coat.bmp", "b001fafitlgt_a.bmp"});
    EXPECT_EQ(skinEntries({"B001DOG_01", "Dog", true}), Names({"Textures.far:1:B001DOG_COAT.BMP"}));
    EXPECT_EQ(skinEntries({"b001dog_01", "Dog", true}), Names());
    EXPECT_EQ(skinEntries({"b001fafit_01", "falgtfitB"}),
              Names({"Textures.far:2:B001FAFITLGT_A.BMP"}));
}

TEST_F(SkinListsTest, HandsInArchivesRunByArchiveAndThenByPrefix) {
    archiveOf("ExpansionShared/ExpansionShared.far", {"hmshared.bmp"});
    pack(1, {"GUX.BMP", "gfao_bride.bmp", "hu1.bmp", "hm1.tga", "hands\\hf1.bmp"});
    pack(13, {"gm13.bmp", "hm13.bmp"});
    pack(14, {"hm14.bmp"});
    archiveOf("GameData/Textures/Textures.far", {"hmt.bmp"});
    EXPECT_EQ(handEntries(), Names({"ExpansionPack.far:5:HF1.BMP", "ExpansionPack.far:3:HU1.BMP",
                                    "ExpansionPack.far:2:GFAO_BRIDE.BMP",
                                    "ExpansionPack.far:1:GUX.BMP", "ExpansionPack13.far:2:HM13.BMP",
                                    "ExpansionPack13.far:1:GM13.BMP", "Textures.far:1:HMT.BMP"}));
}

TEST_F(SkinListsTest, AnArchiveThatChangedAtOnceIsListedAsItIsNow) {
    const test::KeptAtOnce keptAtOnce;
    const SkinQuery query{"B001FAFIT_01", "falgtfitB"};
    pack(2, {"b001fafitlgt_a.bmp"});
    EXPECT_EQ(skinEntries(query), Names({"ExpansionPack2.far:1:B001FAFITLGT_A.BMP"}));
    test::letTheClockMove();
    pack(2, {"b001fafitlgt_b.bmp"});
    EXPECT_EQ(skinEntries(query), Names({"ExpansionPack2.far:1:B001FAFITLGT_B.BMP"}));
    pack(3, {"b001fafitlgt_c.bmp"});
    EXPECT_EQ(skinEntries(query), Names({"ExpansionPack2.far:1:B001FAFITLGT_B.BMP",
                                         "ExpansionPack3.far:1:B001FAFITLGT_C.BMP"}));
    std::filesystem::remove(folder.game() / packName("2"));
    EXPECT_EQ(skinEntries(query), Names({"ExpansionPack3.far:1:B001FAFITLGT_C.BMP"}));
    EXPECT_EQ(handEntries(), Names());
    test::letTheClockMove();
    pack(3, {"hmaaafitlgt_c.bmp"});
    EXPECT_EQ(skinEntries(query), Names());
    EXPECT_EQ(handEntries(), Names({"ExpansionPack3.far:1:HMAAAFITLGT_C.BMP"}));
}

TEST_F(SkinListsTest, AListOfMoreThan32767SkinsOverflows) {
    archiveOf("GameData/Textures/Textures.far", Names(32768, "hm.bmp"));
    List<FarSkinEntry> list;
    EXPECT_THROW(listHandEntries(list), RuntimeError);
    EXPECT_EQ(list.bound(), 32767);
}

}  // namespace
}  // namespace marlowick
