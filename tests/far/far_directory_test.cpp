#include "far/far_directory.h"

#include <gtest/gtest.h>

#include <QFile>

#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::archiveHead;
using test::archiveRecord;
using test::little32;

class FarDirectoryTest : public ::testing::Test {
  protected:
    bool read(const std::string& content) {
        folder.write("game/a.far", content);
        return gsReadFARdir(directory, folder.path("game\\a.far"));
    }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    FarDirectory directory;
};

TEST_F(FarDirectoryTest, KeepsEveryFieldAsItIsStored) {
    ASSERT_TRUE(read(archiveHead(21) + "HELLO" + little32(2) +
                     archiveRecord(5, 9, 16, "Skins\\Face.bmp") + archiveRecord(0, 0, 21, "")));
    EXPECT_EQ(directory.FileCount, "\x02\0\0\0"s);
    ASSERT_EQ(directory.Entries.bound(), 2);
    EXPECT_EQ(directory.Entries[1].FileSize, little32(5));
    EXPECT_EQ(directory.Entries[1].FileSize2, little32(9));
    EXPECT_EQ(directory.Entries[1].FileOffset, little32(16));
    EXPECT_EQ(directory.Entries[1].NameLength, little32(14));
    EXPECT_EQ(directory.Entries[1].FileName, "Skins\\Face.bmp");
    EXPECT_FALSE(directory.Entries[1].Deleted);
    EXPECT_EQ(directory.Entries[2].FileName, "");
    EXPECT_EQ(farEntryCount(directory), 2);
    EXPECT_FALSE(streams().isOpen(Slot::free(1)));
}

TEST_F(FarDirectoryTest, AnEmptyFileAndAZeroOffsetGiveNoEntries) {
    directory.Entries.append({});
    EXPECT_TRUE(read(""));
    EXPECT_EQ(farEntryCount(directory), 0);
    EXPECT_EQ(directory.Entries.bound(), 0);
    EXPECT_TRUE(read(archiveHead(0) + "data"));
    EXPECT_EQ(farEntryCount(directory), 0);
    EXPECT_TRUE(read("FAR!byAZ" + little32(1) + "ab"));
    EXPECT_EQ(farEntryCount(directory), 0);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(FarDirectoryTest, AMissingArchiveIsMadeEmpty) {
    EXPECT_TRUE(gsReadFARdir(directory, folder.path("game\\new.far")));
    EXPECT_EQ(farEntryCount(directory), 0);
    EXPECT_EQ(folder.read("game/new.far"), "");
    EXPECT_TRUE(folder.exists("game/new.far"));
}

TEST_F(FarDirectoryTest, NeitherMagicNorVersionIsLookedAt) {
    ASSERT_TRUE(read("whatever" + little32(99) + little32(16) + little32(1) +
                     archiveRecord(0, 0, 16, "a.bmp")));
    EXPECT_EQ(farEntryCount(directory), 1);
}

TEST_F(FarDirectoryTest, StoresOnlyTheRecordsThatAreWhole) {
    const std::string head = archiveHead(16);
    ASSERT_TRUE(read(head + little32(1000000000) + archiveRecord(1, 1, 16, "a.bmp") +
                     archiveRecord(1, 1, 16, "cut").substr(0, 18)));
    EXPECT_EQ(directory.FileCount, little32(1000000000));
    EXPECT_EQ(directory.Entries.bound(), 1);
    EXPECT_EQ(farEntryCount(directory), 1);
    ASSERT_TRUE(read(archiveHead(5000)));
    EXPECT_EQ(farEntryCount(directory), 0);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(FarDirectoryTest, NegativeNumbersGoToTheTrapAndTheStreamStaysOpen) {
    EXPECT_FALSE(read(archiveHead(0xFFFFFFFF)));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 63);
    EXPECT_EQ(recorder.reports()[0].module, "modFARsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadFARdir");
    EXPECT_TRUE(streams().isOpen(Slot::free(1)));
    const std::string negativeName = little32(0) + little32(0) + little32(0) + little32(0xFFFFFFF0);
    EXPECT_FALSE(read(archiveHead(16) + little32(1) + negativeName));
    EXPECT_EQ(recorder.reports()[1].number, 5);
}

TEST_F(FarDirectoryTest, TakesMoreEntriesThanSixteenBits) {
    std::string records;
    for (int i = 0; i < 40000; ++i) {
        records += archiveRecord(0, 0, 16, "x");
    }
    ASSERT_TRUE(read(archiveHead(16) + little32(40000) + records));
    EXPECT_EQ(farEntryCount(directory), 40000);
}

TEST_F(FarDirectoryTest, NamesAndRecordsMayLieAcrossThePiecesThatAreRead) {
    std::string records;
    std::vector<std::string> names;
    for (int i = 0; i < 300; ++i) {
        names.push_back(
            std::string(static_cast<std::size_t>(i) * 61, static_cast<char>('a' + i % 26)));
        records += archiveRecord(static_cast<unsigned>(i), 0, 16, names.back());
    }
    names.push_back(std::string(3000000, 'L'));
    records += archiveRecord(300, 0, 16, names.back());
    ASSERT_GT(records.size(), 5U << 20U);
    ASSERT_TRUE(read(archiveHead(16) + little32(301) + records + "rest"));
    ASSERT_EQ(directory.Entries.bound(), 301);
    for (int i = 0; i <= 300; ++i) {
        EXPECT_TRUE(directory.Entries[i + 1].FileName == names[static_cast<std::size_t>(i)]) << i;
        EXPECT_EQ(directory.Entries[i + 1].FileSize, little32(static_cast<unsigned>(i)));
    }
}

// A directory in front of more data than any memory holds.
TEST_F(FarDirectoryTest, NeverHoldsWhatLiesBehindTheDirectory) {
    folder.write("game/a.far", archiveHead(16) + little32(1) + archiveRecord(1, 1, 50, "a.bmp"));
    if (!QFile::resize(QString::fromStdWString((folder.game() / "a.far").wstring()), 1LL << 42U)) {
        GTEST_SKIP() << "the file system holds no file of this size";
    }
    ASSERT_TRUE(gsReadFARdir(directory, folder.path("game\\a.far")));
    EXPECT_EQ(farEntryCount(directory), 1);
    EXPECT_EQ(directory.Entries[1].FileName, "a.bmp");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(FarDirectoryTest, TheBaseNameIsUpperCaseBehindTheLastBackslash) {
    EXPECT_EQ(gfstrFarBaseName("Skins\\Deep\\Face.bmp"), "FACE.BMP");
    EXPECT_EQ(gfstrFarBaseName("face.bmp"), "FACE.BMP");
    EXPECT_EQ(gfstrFarBaseName("a/b.bmp"), "A/B.BMP");
    EXPECT_EQ(gfstrFarBaseName("folder\\"), "");
}

}  // namespace
}  // namespace marlowick
