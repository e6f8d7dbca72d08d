#include "preview/suit.h"

#include <gtest/gtest.h>

#include "preview/skeleton.h"
#include "support/error_recorder.h"
#include "support/mesh_files.h"

namespace marlowick {
namespace {

using test::counted;
using test::errorOf;
using test::floats;
using test::integers;

// One skeleton of two bones, one suit of two parts, properties wherever they can be.
const std::string kText =
    "// by hand\r\n"
    "version 300\r\n"
    "1\r\n"
    "adult\r\n"
    "2\r\n"
    "ROOT\r\nNULL\r\n1\r\n1\r\nkey\r\nvalue\r\n| 0.5 3 -0.25 |\r\n| 0 0 0 1 |\r\n"
    "1\r\n1\r\n-1\r\n1.0\r\n2.5\r\n"
    "PELVIS\r\nROOT\r\n0\r\n|-1e-045 2 3|\r\n0.5 0.5 0.5 -0.5\r\n0\r\n0\r\n0\r\n0\r\n0\r\n"
    "1\r\n"
    "b001fafit_01\r\n"
    "4\r\n"
    "2\r\n1\r\na\r\nb\r\n0\r\n"
    "2\r\n"
    "PELVIS\r\nxskin-body\r\n7\r\n1\r\n1\r\nc\r\nd\r\n"
    "HEAD\r\nxskin head\r\n0\r\n0\r\n"
    "0\r\n";

std::string binary() {
    return integers({1}) + counted("adult") + integers({2}) + counted("ROOT") + counted("NULL") +
           integers({1, 1}) + counted("key") + counted("value") +
           floats({0.5F, 3, -0.25F, 0, 0, 0, 1}) + integers({1, 1, -1}) + floats({1, 2.5F}) +
           counted("PELVIS") + counted("ROOT") + integers({0}) +
           floats({-1e-45F, 2, 3, 0.5F, 0.5F, 0.5F, -0.5F}) + integers({0, 0, 0}) + floats({0, 0}) +
           integers({1}) + counted("b001fafit_01") + integers({4, 2, 1}) + counted("a") +
           counted("b") + integers({0, 2}) + counted("PELVIS") + counted("xskin-body") +
           integers({7, 1, 1}) + counted("c") + counted("d") + counted("HEAD") +
           counted("xskin head") + integers({0, 0}) + integers({0});
}

std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

TEST(SkeletonFileTest, TextAndBinaryGiveOneRecord) {
    const Skeleton expected{"adult",
                            {{"ROOT", "NULL", {0.5F, 3, -0.25F}, {0, 0, 0, 1}},
                             {"PELVIS", "ROOT", {-1e-45F, 2, 3}, {0.5F, 0.5F, 0.5F, -0.5F}}}};
    EXPECT_EQ(readSkeletonFile(kText, FileForm::Text), expected);
    EXPECT_EQ(readSkeletonFile(withoutCarriageReturns(kText), FileForm::Text), expected);
    EXPECT_EQ(readSkeletonFile(binary(), FileForm::Binary), expected);
}

TEST(SuitFileTest, TextAndBinaryGiveOneRecord) {
    const std::vector<Suit> expected = {
        {"b001fafit_01", {{"PELVIS", "xskin-body"}, {"HEAD", "xskin head"}}}};
    EXPECT_EQ(readSuits(kText, FileForm::Text), expected);
    EXPECT_EQ(readSuits(withoutCarriageReturns(kText), FileForm::Text), expected);
    EXPECT_EQ(readSuits(binary(), FileForm::Binary), expected);
}

// Reading ends at the animations: whether they are there doesn't matter.
TEST(SuitFileTest, EveryShorterFileIsRefused) {
    const std::string whole = binary();
    const std::size_t needed = whole.size() - 4;
    EXPECT_EQ(readSuits(whole.substr(0, needed), FileForm::Binary).size(), 1U);
    for (std::size_t size = 0; size < needed; ++size) {
        EXPECT_EQ(errorOf([&] { readSuits(whole.substr(0, size), FileForm::Binary); }), 62) << size;
    }
    // The last item of the text is the one digit before the last line.
    const std::size_t end = kText.size() - 5;
    EXPECT_EQ(readSuits(kText.substr(0, end), FileForm::Text).size(), 1U);
    for (std::size_t size = 0; size < end; ++size) {
        EXPECT_NE(errorOf([&] { readSuits(kText.substr(0, size), FileForm::Text); }), 0) << size;
    }
}

TEST(SuitFileTest, CountsThatLieAreRefused) {
    for (const int count : {-1, 65, 1 << 30U}) {
        EXPECT_EQ(errorOf([&] { readSuits(integers({count}), FileForm::Binary); }), 9) << count;
        const std::string bones = integers({1}) + counted("adult") + integers({count});
        EXPECT_EQ(errorOf([&] { readSkeletonFile(bones, FileForm::Binary); }), 9) << count;
        const std::string parts =
            integers({0, 1}) + counted("suit") + integers({0, 0}) + integers({count});
        EXPECT_EQ(errorOf([&] { readSuits(parts, FileForm::Binary); }), 9) << count;
    }
    EXPECT_EQ(errorOf([&] { readSuits(integers({0, -5}), FileForm::Binary); }), 9);
    EXPECT_EQ(errorOf([&] { readSuits(integers({0, 1 << 20U}), FileForm::Binary); }), 9);
    EXPECT_EQ(errorOf([&] { readSkeletonFile(integers({0, 0}), FileForm::Binary); }), 9);
}

TEST(SuitFileTest, ASkeletonMayHaveSixtyFourBones) {
    std::string file = integers({1}) + counted("many") + integers({64});
    for (int i = 0; i < 64; ++i) {
        file += counted("B" + std::to_string(i)) + counted("NULL") + integers({0}) +
                floats({0, 0, 0, 0, 0, 0, 1}) + integers({0, 0, 0}) + floats({0, 0});
    }
    EXPECT_EQ(readSkeletonFile(file, FileForm::Binary).bones.size(), 64U);
}

TEST(SuitFileTest, ABoneThatIsNoNumberRefusesTheFile) {
    std::string text = kText;
    text.replace(text.find("0.5 3"), 5, "nan 3");
    EXPECT_EQ(errorOf([&] { readSuits(text, FileForm::Text); }), 6);
}

TEST(SuitFileTest, ASuitIsFoundByItsNameOrElseTheFirst) {
    const std::vector<Suit> suits = {{"First", {}}, {"second", {}}};
    EXPECT_EQ(suitNamed(suits, "SECOND"), &suits[1]);
    EXPECT_EQ(suitNamed(suits, "third"), suits.data());
    EXPECT_EQ(suitNamed({}, "first"), nullptr);
}

}  // namespace
}  // namespace marlowick
