#include "catalogue/model_catalogue.h"

#include <gtest/gtest.h>

#include "foundation/error_trap.h"
#include "support/game_files.h"

namespace marlowick {
namespace {

using test::Names;

Names namesOf(const List<std::string>& list) {
    Names names;
    for (int i = 1; i <= list.bound(); ++i) {
        names.push_back(list[i]);
    }
    EXPECT_EQ(list[0], "");
    return names;
}

class ModelCatalogueTest : public test::GameFilesTest {
  protected:
    ModelCatalogueTest() { resetModelCatalogue(); }
    ~ModelCatalogueTest() override { resetModelCatalogue(); }

    static Names persons(const std::string& skinData) {
        List<std::string> models;
        listPersonModels(skinData, models);
        return namesOf(models);
    }

    static Names pets(const std::string& skinData) {
        List<std::string> models;
        listPetModels(skinData, models);
        return namesOf(models);
    }
};

TEST_F(ModelCatalogueTest, EachCodeHasItsList) {
    archiveOf("GameData/Animation/Animation.far",
              {"b001fafit_01.bcf", "Skins\\B002MAfat_01.BCF", "B003FCCHD_01.bcf",
               "B004MCCHD_01.bcf", "B005UCCHD_01.x.bcf", "B006XXFIT_01.bcf", "B007FAFIT-01.bcf",
               "F008FAFIT_01.bcf", "B009FAFIT_01.cmx", "B00_.bcf"});
    gsBuildModelCatalogue();
    EXPECT_EQ(namesOf(CatalogueFA), Names({"B001FAFIT_01"}));
    EXPECT_EQ(namesOf(CatalogueMA), Names({"B002MAFAT_01"}));
    EXPECT_EQ(namesOf(CatalogueFC), Names({"B003FCCHD_01"}));
    EXPECT_EQ(namesOf(CatalogueMC), Names({"B004MCCHD_01"}));
    EXPECT_EQ(namesOf(CatalogueUC), Names({"B005UCCHD_01"}));
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ModelCatalogueTest, TheArchivesComeInTheirOrderAndTheTenthPackIsUnknown) {
    archiveOf("ExpansionShared/ExpansionShared.far", {"B001FAFIT_SHARED.BCF"});
    for (int n = 2; n <= 10; ++n) {
        const std::string pack = "ExpansionPack" + std::to_string(n);
        archiveOf(pack + "/" + pack + ".far", {"B001FAFIT_PACK" + std::to_string(n) + ".BCF"});
    }
    archiveOf("ExpansionPack/ExpansionPack.far", {"B001FAFIT_PACK1.BCF"});
    archiveOf("GameData/Animation/Animation.far", {"B001FAFIT_BASE.BCF"});
    gsBuildModelCatalogue();
    EXPECT_EQ(namesOf(CatalogueFA),
              Names({"B001FAFIT_BASE", "B001FAFIT_PACK1", "B001FAFIT_PACK2", "B001FAFIT_PACK3",
                     "B001FAFIT_PACK4", "B001FAFIT_PACK5", "B001FAFIT_PACK6", "B001FAFIT_PACK7",
                     "B001FAFIT_PACK8", "B001FAFIT_PACK9", "B001FAFIT_SHARED"}));
}

TEST_F(ModelCatalogueTest, PetsComeFromTheLaterArchivesAlone) {
    const Names names = {"B001DOG_01.BCF", "B001CAT_01.BCF", "B001PIG_01.BCF"};
    archiveOf("GameData/Animation/Animation.far", names);
    archiveOf("ExpansionPack/ExpansionPack.far", names);
    gsBuildModelCatalogue();
    EXPECT_EQ(CatalogueDog.bound() + CatalogueCat.bound(), 0);
    archiveOf("ExpansionPack5/ExpansionPack5.far", names);
    archiveOf("ExpansionShared/ExpansionShared.far", {"b002dog_02.bcf"});
    gsBuildModelCatalogue();
    EXPECT_EQ(namesOf(CatalogueDog), Names({"B001DOG_01", "B002DOG_02"}));
    EXPECT_EQ(namesOf(CatalogueCat), Names({"B001CAT_01"}));
}

TEST_F(ModelCatalogueTest, APetsNameThatPassesBothTestsIsAPetAlone) {
    archiveOf("ExpansionPack2/ExpansionPack2.far", {"B001DOG_A_B.BCF"});
    gsBuildModelCatalogue();
    EXPECT_EQ(namesOf(CatalogueDog), Names({"B001DOG_A_B"}));
    for (const auto* list :
         {&CatalogueFA, &CatalogueMA, &CatalogueFC, &CatalogueMC, &CatalogueUC}) {
        EXPECT_EQ(list->bound(), 0);
    }
}

TEST_F(ModelCatalogueTest, WithoutArchivesAListHoldsWhatTheFoldersGive) {
    gsBuildModelCatalogue();
    EXPECT_EQ(CatalogueFA.bound() + CatalogueCat.bound(), 0);
    files("GameData/Skins", {"B001fafit_01.cmx"});
    EXPECT_EQ(persons("falgtfitB"), Names({"B001FAFIT_01"}));
}

TEST_F(ModelCatalogueTest, ABrokenArchiveIsReportedAndTheOthersAreRead) {
    folder.write("game/GameData/Animation/Animation.far",
                 "FAR!byAZ" + std::string("\1\0\0\0\x10\0\0\0\xFF\xFF\xFF\xFF", 12));
    archiveOf("ExpansionPack/ExpansionPack.far", {"B001FAFIT_01.BCF"});
    gsBuildModelCatalogue();
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(gstrErrorModule, "modFARsupport");
    EXPECT_EQ(namesOf(CatalogueFA), Names({"B001FAFIT_01"}));
}

TEST_F(ModelCatalogueTest, DuplicatesOfArchivesStayAndAFolderAddsNoneOfTheirNames) {
    archiveOf("GameData/Animation/Animation.far", {"B001FAFIT_01.BCF"});
    archiveOf("ExpansionPack/ExpansionPack.far", {"B001FAFIT_01.BCF", "B002FAFAT_01.BCF"});
    gsBuildModelCatalogue();
    files("GameData/Skins", {"b001faFIT_01.cmx"});
    files("ExpansionPack3/SkinsBuy", {"B001fafit_01.cmx", "b003FAfit_shop.cmx"});
    files("ExpansionShared/SkinsBuy", {"B003fafit_Shop.cmx", "b004fafit_x.y.cmx"});
    EXPECT_EQ(persons("falgtfitB"),
              Names({"B001FAFIT_01", "B001FAFIT_01", "b003FAfit_shop", "b004fafit_x"}));
}

TEST_F(ModelCatalogueTest, TheGamesFolderTestsTheNameWithoutItsExtension) {
    // The name up to its first "." is what is listed, the name less ".cmx" what is tested: both
    // files come in. In the other folders the tested name is the listed one.
    files("GameData/Skins", {"b001fafit_a.1.cmx", "b001fafit_a.2.cmx"});
    files("ExpansionPack3/SkinsBuy", {"b001fafit_a.3.cmx", "b002fafit_b.1.cmx"});
    files("ExpansionShared/SkinsBuy", {"b002fafit_b.2.cmx"});
    EXPECT_EQ(persons("falgtfitB"), Names({"B001FAFIT_A", "B001FAFIT_A", "b002fafit_b"}));
}

TEST_F(ModelCatalogueTest, AnAdultsListChangesWithTheBodyType) {
    archiveOf("GameData/Animation/Animation.far",
              {"B001FAFIT_01.BCF", "B001FAFAT_01.BCF", "B001MASKN_01.BCF"});
    gsBuildModelCatalogue();
    files("GameData/Skins", {"b002fafat_02.cmx", "b002fafit_02.cmx"});
    EXPECT_EQ(persons("falgtfitB"), Names({"B001FAFIT_01", "B002FAFIT_02"}));
    EXPECT_EQ(persons("falgtfatB"), Names({"B001FAFAT_01", "B002FAFAT_02"}));
    EXPECT_EQ(persons("madrksknB"), Names({"B001MASKN_01"}));
}

TEST_F(ModelCatalogueTest, AChildsListIsUnfilteredAndEndsInTheModelsForEitherGender) {
    archiveOf("GameData/Animation/Animation.far",
              {"B001UCCHD_01.BCF", "B001FCFIT_01.BCF", "B002FCCHD_01.BCF", "B003MCCHD_01.BCF"});
    gsBuildModelCatalogue();
    files("GameData/Skins", {"b004fcchd_04.cmx", "b005ucchd_05.cmx"});
    EXPECT_EQ(persons("fclgtchdB"),
              Names({"B001FCFIT_01", "B002FCCHD_01", "B001UCCHD_01", "B004FCCHD_04"}));
    EXPECT_EQ(persons("mclgtchdB"), Names({"B003MCCHD_01", "B001UCCHD_01"}));
}

TEST_F(ModelCatalogueTest, TheOtherClothesComeFromFoldersAlone) {
    archiveOf("GameData/Animation/Animation.far", {"B001FAFIT_01.BCF"});
    gsBuildModelCatalogue();
    EXPECT_EQ(persons("falgtfitF"), Names());
    for (const char letter : std::string("FLSNWH")) {
        files("GameData/Skins", {std::string(1, letter) + "101fafit_x.cmx"});
        EXPECT_EQ(persons(std::string("falgtfit") + letter),
                  Names({std::string(1, letter) + "101FAFIT_X"}));
    }
    files("GameData/Skins", {"C101fafit_x.cmx"});
    EXPECT_EQ(persons("falgtfitC"), Names());
}

TEST_F(ModelCatalogueTest, WhatIsNotADogIsACat) {
    archiveOf("ExpansionPack5/ExpansionPack5.far", {"B001DOG_01.BCF", "B001CAT_01.BCF"});
    gsBuildModelCatalogue();
    files("GameData/Skins", {"b002dog_02.cmx", "b002cat_02.cmx"});
    files("ExpansionShared/SkinsBuy", {"b003Dog_03.cmx", "B002DOG_02.cmx"});
    EXPECT_EQ(pets("Dog"), Names({"B001DOG_01", "B002DOG_02", "b003Dog_03"}));
    EXPECT_EQ(pets("dOG"), pets("Dog"));
    EXPECT_EQ(pets("Cat"), Names({"B001CAT_01", "B002CAT_02"}));
    EXPECT_EQ(pets("Parrot"), pets("Cat"));
    EXPECT_EQ(pets(""), pets("Cat"));
}

TEST_F(ModelCatalogueTest, AListOfMoreThan32767ModelsOverflows) {
    for (int i = 0; i < 32768; ++i) {
        gsAddPersonModel("B001FAFIT_01");
    }
    EXPECT_EQ(CatalogueFA.bound(), 32768);
    List<std::string> models;
    try {
        listPersonModels("falgtfitB", models);
        FAIL();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
    EXPECT_EQ(models.bound(), 32767);
}

}  // namespace
}  // namespace marlowick
