#include <gtest/gtest.h>

#include "iff/user_file_test.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::fileHead;
using test::mapRow;
using test::mapType;
using test::segment;

class GuardedReadTest : public test::UserFileTest {
  protected:
    ~GuardedReadTest() override {
        EXPECT_TRUE(recorder.reports().empty());
        EXPECT_FALSE(streams().isOpen(slot::kUserFile));
    }

    std::string read(const std::string& content) {
        const Path path = make(content);
        return gfstrQuickReadIFF(iff, path);
    }
};

TEST_F(GuardedReadTest, FillsTheRecordOfAGoodFile) {
    EXPECT_EQ(read(test::simFile(test::simRows({}))), "");
    EXPECT_EQ(iff.Segments.bound(), 4);
    EXPECT_TRUE(iff.HasRsmp);
    EXPECT_EQ(iff.RsmpTypes.bound(), 4);
}

TEST_F(GuardedReadTest, TellsASizeBelowSeventySix) {
    std::string bad = segment("TEST", 1, 1, "", "x");
    bad.replace(4, 4, test::big32(75));
    EXPECT_EQ(read(fileHead(0) + bad), "Error 5 - Invalid procedure call or argument");
}

TEST_F(GuardedReadTest, TellsASizeOfAMebibyteMoreThanTheFileHas) {
    std::string bad = segment("TEST", 1, 1, "", "x");
    bad.replace(4, 4, test::big32(76 + 1 + (1U << 20U)));
    EXPECT_EQ(read(fileHead(0) + bad), "");
    EXPECT_EQ(iff.Segments[1].Data.size(), 1U + (1U << 20U));
    bad.replace(4, 4, test::big32(76 + 1 + (1U << 20U) + 1));
    EXPECT_EQ(read(fileHead(0) + bad), "Error 7 - Out of memory");
}

TEST_F(GuardedReadTest, TellsAFileThatCantBeOpened) {
    EXPECT_EQ(gfstrQuickReadIFF(iff, folder.path("missing\\user1.iff")),
              "Error 76 - Path not found");
    EXPECT_EQ(gfstrQuickReadIFF(iff, folder.path("game")), "Error 75 - Path/File access error");
}

TEST_F(GuardedReadTest, ATypeRowOfMoreThanAThousandEntriesIsUnreadable) {
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 1001, ""))),
              "RSMP UNREADABLE (RSMP)");
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 0x7FFFFFFF, ""))),
              "RSMP UNREADABLE (RSMP)");
}

TEST_F(GuardedReadTest, AMapOfMoreRowsThanMemoryIsMeantForIsTold) {
    const auto mapOf = [](unsigned types) {
        std::string rows;
        for (unsigned i = 0; i < 1000; ++i) {
            rows += mapRow(i, i, 0, "\xA3");
        }
        std::string all;
        for (unsigned i = 0; i < types; ++i) {
            all += mapType("TEST", 1000, rows);
        }
        return fileHead(64) + test::map(0, types, all);
    };
    EXPECT_EQ(read(mapOf(262)), "");
    EXPECT_EQ(read(mapOf(263)), "Error 7 - Out of memory (RSMP)");
}

TEST_F(GuardedReadTest, ATypeRowOfAThousandEntriesIsReadAsFarAsTheFileAllows) {
    std::string rows;
    for (unsigned i = 0; i < 1000; ++i) {
        rows += mapRow(i, i, 0, "abcde\0"s);
    }
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 1000, rows))), "");
    EXPECT_EQ(iff.RsmpTypes[1].Entries.bound(), 1000);
    EXPECT_EQ(
        read(fileHead(64) + test::map(0, 1, mapType("TEST", 1000, mapRow(0, 1, 0, "abcde\0"s)))),
        "Error 62 - Input past end of file (RSMP)");
}

TEST_F(GuardedReadTest, AMapCutInALabelIsTheEndOfTheFileAndTheNextFileOpens) {
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 1, mapRow(0, 1, 0, "abc")))),
              "Error 62 - Input past end of file (RSMP)");
    EXPECT_EQ(read(test::simFile(test::simRows({}))), "");
}

// Writers other than the game leave the pad byte out behind the last label.
TEST_F(GuardedReadTest, AMapThatEndsTheFileWithoutItsPadByteIsWhole) {
    const std::string first = mapRow(0, 1, 0, "abcd\0\x07"s);
    const std::string last = mapRow(0, 2, 0, "abcd\0"s);
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 2, first + last))), "");
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryLabel, "abcd\0\x07"s);
    EXPECT_EQ(iff.RsmpTypes[1].Entries[2].EntryLabel, "abcd\0"s);
}

TEST_F(GuardedReadTest, NoOtherLabelMayLackItsPadByteAtTheEnd) {
    const std::string row = mapRow(0, 1, 0, "abcd\0"s);
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 2, row))),
              "Error 62 - Input past end of file (RSMP)");
    EXPECT_EQ(read(fileHead(64) + test::map(0, 2, mapType("TEST", 1, row))),
              "Error 62 - Input past end of file (RSMP)");
}

TEST_F(GuardedReadTest, CountsOfZeroOrBelowAreTold) {
    EXPECT_EQ(read(fileHead(64) + test::map(0, 0, "")), "Error 9 - Subscript out of range (RSMP)");
    EXPECT_EQ(read(fileHead(64) + test::map(0, 1, mapType("TEST", 0xFFFFFFFF, ""))),
              "Error 9 - Subscript out of range (RSMP)");
}

TEST_F(GuardedReadTest, ALeftoverHandleCostsOneReading) {
    folder.write("game/other.iff", "x");
    streams().open(slot::kUserFile, folder.path("game\\other.iff"), OpenMode::Binary);
    EXPECT_EQ(read(test::simFile(test::simRows({}))), "Error 55 - File already open");
    EXPECT_EQ(read(test::simFile(test::simRows({}))), "");
}

TEST_F(GuardedReadTest, AFileThatMayNotBeWrittenIsRead) {
    folder.write("game/user2.iff", test::simFile(test::simRows({})));
    folder.makeReadOnly("game/user2.iff");
    EXPECT_EQ(gfstrQuickReadIFF(iff, folder.path("game\\user2.iff")), "");
}

// Any bytes at all, and every file cut off anywhere, give a text and nothing else.
TEST_F(GuardedReadTest, NoDamageGetsPastTheGuard) {
    const std::string whole = test::simFile(test::simRows({}));
    for (std::size_t length = 0; length < whole.size(); length += 13) {
        read(whole.substr(0, length));
    }
    unsigned state = 1;
    for (int round = 0; round < 300; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 8; ++i) {
            state = state * 1664525 + 1013904223;
            damaged[state % damaged.size()] = static_cast<char>(state >> 24U);
        }
        read(damaged);
    }
}

class VerifyTest : public GuardedReadTest {
  protected:
    bool verify(const std::string& content) {
        EXPECT_EQ(read(fileHead(0) + content), "");
        return gfblnVerifyUserIFF(iff);
    }

    const std::string strings = segment("STR#", 200, 16, "", "");
    const std::string names = segment("CTSS", 2000, 16, "", "");
};

TEST_F(VerifyTest, AUserFileHasThreeSegments) {
    EXPECT_TRUE(verify(strings + names + segment("OBJD", 1, 1, "User00012", "")));
    EXPECT_TRUE(verify(segment("OBJD", 1, 1, "USERx", "") + names + strings));
    EXPECT_FALSE(verify(names + segment("OBJD", 1, 1, "user1", "")));
    EXPECT_FALSE(verify(strings + segment("OBJD", 1, 1, "user1", "")));
    EXPECT_FALSE(verify(strings + names));
}

TEST_F(VerifyTest, TheLabelBeginsWithUser) {
    EXPECT_FALSE(verify(strings + names + segment("OBJD", 1, 1, "Tuser1", "")));
    EXPECT_FALSE(verify(strings + names + segment("OBJD", 1, 1, "use\0r"s, "")));
    EXPECT_FALSE(verify(strings + names + segment("OBJf", 1, 1, "user1", "")));
}

TEST_F(VerifyTest, FlagsCountToo) {
    const std::string object = segment("OBJD", 1, 1, "user1", "");
    EXPECT_FALSE(verify(segment("STR#", 200, 17, "", "") + names + object));
    EXPECT_FALSE(verify(strings + segment("CTSS", 2000, 0, "", "") + object));
}

}  // namespace
}  // namespace marlowick
