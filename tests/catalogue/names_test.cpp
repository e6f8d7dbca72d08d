#include "catalogue/names.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

TEST(NamesTest, CountsPositionsFromOne) {
    EXPECT_EQ(charactersAt("B001FAFIT_01", 7, 3), "FIT");
    EXPECT_EQ(charactersAt("B001FA", 7, 3), "");
    EXPECT_EQ(charactersAt("B001FAF", 7, 3), "F");
}

TEST(NamesTest, TellsPersonsModelsByTheirTenthCharacter) {
    EXPECT_TRUE(isPersonModel("B001FAFIT_01.CMX.BCF"));
    EXPECT_FALSE(isPersonModel("S001FAFIT_01.CMX.BCF"));
    EXPECT_FALSE(isPersonModel("B001FAFIT_01.CMX.BMF"));
    EXPECT_FALSE(isPersonModel("B001FAFIT01.BCF"));
    EXPECT_FALSE(isPersonModel("B.BCF"));
}

TEST(NamesTest, APetsNameMayPassBothTests) {
    EXPECT_TRUE(isPetModel("B001DOG_01.CMX.BCF"));
    EXPECT_FALSE(isPersonModel("B001DOG_01.CMX.BCF"));
    EXPECT_TRUE(isPetModel("B001DOG_A_B.BCF"));
    EXPECT_TRUE(isPersonModel("B001DOG_A_B.BCF"));
}

TEST(NamesTest, WhatCanBeAModelIsToldInAnyCase) {
    for (const char* name : {"B001FAFIT_01.CMX.BCF", "b001dog_01.cmx.bcf", "b001fafit_01.BcF"}) {
        EXPECT_TRUE(canBeModel(name)) << name;
    }
    for (const char* name : {"", ".bcf", "b.bc", "s001fafit_01.cmx.bcf", "b001fafit_01.bmf"}) {
        EXPECT_FALSE(canBeModel(name)) << name;
    }
}

TEST(NamesTest, TheBodyTypeIsUpperCase) {
    EXPECT_EQ(bodyType("b001fafit_01"), "FIT");
    EXPECT_EQ(bodyType("b001fc"), "");
}

TEST(NamesTest, BuildsTheMaskOfAModelsSkins) {
    EXPECT_EQ(skinMask("B001FAFIT_01", "lgt"), "B001FAFITlgt_*");
    EXPECT_EQ(skinMask("B001DOG_01", ""), "B001DOG_*");
    EXPECT_EQ(skinMask("NOSEPARATOR", "lgt"), "");
}

TEST(NamesTest, BuildsTheMaskOfARequest) {
    EXPECT_EQ(modelMask("falgtfitB"), "B???fafit_*");
    EXPECT_EQ(modelMask("mcdrkchdS"), "S???mcchd_*");
    EXPECT_EQ(modelMask("falgtskny"), "");
    EXPECT_EQ(modelMask("falgtfit"), "");
}

TEST(NamesTest, EverythingButADogIsACat) {
    EXPECT_EQ(petModelMask("Dog"), "B???DOG_*");
    EXPECT_EQ(petModelMask("dOG"), "B???DOG_*");
    EXPECT_EQ(petModelMask("Cat"), "B???CAT_*");
    EXPECT_EQ(petModelMask("Horse"), "B???CAT_*");
}

TEST(NamesTest, SkinTonesHaveWords) {
    EXPECT_EQ(toneWord("lgt"), "light");
    EXPECT_EQ(toneWord("med"), "medium");
    EXPECT_EQ(toneWord("drk"), "dark");
    EXPECT_EQ(toneWord("LGT"), "");
    EXPECT_EQ(toneWord(""), "");
}

}  // namespace
}  // namespace marlowick
