#include "mesh/suit.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/mesh_files.h"
#include "support/test_folder.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::counted;
using test::errorOf;
using test::integers;

class SuitTest : public ::testing::Test {
  protected:
    void read(const std::string& content) {
        folder.write("suit.bcf", content);
        gsReadSuitBCF(folder.path("suit.bcf"), suit);
    }

    std::string headOf(const std::string& content) {
        folder.write("suit.cmx", content);
        return headMeshOfCmx(folder.path("suit.cmx"));
    }

    test::TestFolder folder;
    SuitRecord suit;
};

TEST_F(SuitTest, EveryItemGoesToItsField) {
    read(integers({1, -2}) + counted("c003fa_original") + integers({3, 4, 2}) + counted("PELVIS") +
         counted("") + integers({5, 6}) + counted("HEAD") + counted("xskin-c003fa-HEAD") +
         integers({7, -8}) + integers({9}) + "ignored");
    EXPECT_EQ(suit.Number1, 1);
    EXPECT_EQ(suit.Number2, -2);
    EXPECT_EQ(suit.SuitName, "c003fa_original");
    EXPECT_EQ(suit.Number3, 3);
    EXPECT_EQ(suit.Number4, 4);
    EXPECT_EQ(suit.RowCount, 2);
    ASSERT_EQ(suit.Rows.bound(), 2);
    EXPECT_EQ(suit.Rows[1].BoneName, "PELVIS");
    EXPECT_EQ(suit.Rows[1].MeshName, "");
    EXPECT_EQ(suit.Rows[1].RowNumber1, 5);
    EXPECT_EQ(suit.Rows[1].RowNumber2, 6);
    EXPECT_EQ(suit.Rows[2].BoneName, "HEAD");
    EXPECT_EQ(suit.Rows[2].MeshName, "xskin-c003fa-HEAD");
    EXPECT_EQ(suit.Rows[2].RowNumber1, 7);
    EXPECT_EQ(suit.Rows[2].RowNumber2, -8);
    EXPECT_EQ(suit.Number5, 9);
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
}

TEST_F(SuitTest, ARecordIsFilledAnew) {
    read(test::suitFile("first", {{"A", "a"}, {"B", "b"}}));
    read(test::suitFile("second", {{"C", "c"}}));
    EXPECT_EQ(suit.SuitName, "second");
    ASSERT_EQ(suit.Rows.bound(), 1);
    EXPECT_EQ(suit.Rows[1].BoneName, "C");
}

TEST_F(SuitTest, ASuitWithoutRowsIsAnIndexError) {
    EXPECT_EQ(errorOf([&] { read(test::suitFile("bare", {})); }), 9);
    streams().closeAll();
    EXPECT_EQ(errorOf([&] { read(integers({0, 0}) + counted("x") + integers({0, 0, -1, 0})); }), 9);
}

TEST_F(SuitTest, ASuitThatEndsTooEarlyFailsAndStaysOpen) {
    const std::string whole = test::suitFile("suit", {{"HEAD", "mesh"}});
    for (std::size_t size = 0; size < whole.size(); ++size) {
        streams().closeAll();
        EXPECT_EQ(errorOf([&] { read(whole.substr(0, size)); }), 62) << size;
        EXPECT_TRUE(streams().isOpen(Slot::free(1))) << size;
    }
}

TEST_F(SuitTest, ACountThatNoFileCouldHoldAsksForNoMemory) {
    EXPECT_EQ(errorOf([&] {
                  read(integers({0, 0}) + counted("x") + integers({0, 0, 0x7FFFFFFF}) +
                       counted("HEAD") + counted("m") + integers({0, 0}));
              }),
              62);
    EXPECT_EQ(suit.Rows.bound(), 1);
}

// Whatever number was free, stream number 1 is read.
TEST_F(SuitTest, WithAnotherStreamOpenThatOneIsRead) {
    folder.write("other.bcf", test::suitFile("other", {{"HAND", "h"}}));
    streams().open(Slot::free(1), folder.path("other.bcf"), OpenMode::Input);
    read(test::suitFile("wanted", {{"HEAD", "m"}}));
    EXPECT_EQ(suit.SuitName, "other");
    EXPECT_EQ(suit.Rows[1].BoneName, "HAND");
    EXPECT_TRUE(streams().isOpen(Slot::free(1)));
    EXPECT_FALSE(streams().isOpen(Slot::free(2)));
}

TEST_F(SuitTest, AnotherStreamThanTheFirstDoesNoHarm) {
    folder.write("other.bcf", test::suitFile("other", {{"HAND", "h"}}));
    streams().open(Slot::free(2), folder.path("other.bcf"), OpenMode::Input);
    read(test::suitFile("wanted", {{"HEAD", "m"}}));
    EXPECT_EQ(suit.SuitName, "wanted");
    EXPECT_FALSE(streams().isOpen(Slot::free(1)));
    EXPECT_TRUE(streams().isOpen(Slot::free(2)));
}

TEST_F(SuitTest, AMissingSuitIsNotMade) {
    EXPECT_EQ(errorOf([&] { gsReadSuitBCF(folder.path("none.bcf"), suit); }), 53);
    EXPECT_FALSE(folder.exists("none.bcf"));
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
}

TEST_F(SuitTest, TheTextFormNamesTheMeshBehindTheHeadLine) {
    EXPECT_EQ(headOf("// suit\r\nHEAD \r\nhead\r\nxHEAD\r\nHEAD\r\nthe mesh \r\nHEAD\r\nlater\r\n"),
              "the mesh ");
    EXPECT_EQ(headOf("HEAD\nunix\n"), "unix");
    EXPECT_EQ(headOf("HEAD\rold\r"), "old");
    EXPECT_EQ(headOf("HEAD\r\nlast"), "last");
    EXPECT_EQ(headOf("HEAD\r\n\r\nnext"), "");
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
}

TEST_F(SuitTest, ATextFormWithoutAHeadFailsAtItsEnd) {
    for (const char* content :
         {"", "PELVIS\r\nmesh\r\n", "mesh\r\nHEAD", "HEAD\r\n", "head\r\nm"}) {
        streams().closeAll();
        EXPECT_EQ(errorOf([&] { headOf(content); }), 62) << content;
        EXPECT_TRUE(streams().isOpen(Slot::free(1)));
    }
}

}  // namespace
}  // namespace marlowick
