#include <gtest/gtest.h>

#include <ctime>

#include "far/far_directory.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::archiveHead;
using test::little32;
using test::pattern;

class FarExtractTest : public ::testing::Test {
  protected:
    // An archive with one entry behind some bytes of something else.
    void makeArchive(const std::string& name, const std::string& data) {
        folder.write("game/a.far", archiveHead(0) + "junk" + data);
        FarEntry entry;
        entry.FileSize = little32(static_cast<unsigned>(data.size()));
        entry.FileSize2 = little32(3);
        entry.FileOffset = little32(20);
        entry.FileName = name;
        directory.Entries.append(entry);
    }

    bool extract(int number = 1) {
        return gsExtractFile(folder.path("game\\a.far"), folder.path("program\\temp\\"), directory,
                             number);
    }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    FarDirectory directory;
};

TEST_F(FarExtractTest, CopiesEntriesOfEverySizeAroundTheBlock) {
    for (const std::size_t size :
         {0U, 1U, 32767U, 32768U, 32769U, 65536U, 70000U, 262143U, 262144U, 262145U, 524289U}) {
        directory = {};
        const std::string data = pattern(size);
        makeArchive("entry" + std::to_string(size) + ".bmp", data);
        EXPECT_TRUE(extract());
        EXPECT_EQ(folder.read("program/temp/entry" + std::to_string(size) + ".bmp"), data);
    }
}

TEST_F(FarExtractTest, TheNameKeepsItsCaseAndLosesItsFolder) {
    makeArchive("Skins\\Deep\\FaCe.bmp", "picture");
    EXPECT_TRUE(extract());
    EXPECT_EQ(folder.read("program/temp/FaCe.bmp"), "picture");
}

TEST_F(FarExtractTest, AnotherNameMayBeGiven) {
    makeArchive("Skins\\FaCe.bmp", "picture");
    EXPECT_TRUE(gsExtractFileEx(folder.path("game\\a.far"), folder.path("program\\temp"),
                                "skintemp.bmp", directory, 1));
    EXPECT_EQ(folder.read("program/temp/skintemp.bmp"), "picture");
}

TEST_F(FarExtractTest, ALongerFileKeepsItsTail) {
    makeArchive("a.bmp", "0123456789");
    folder.write("program/temp/a.bmp", std::string(100, 'x'));
    EXPECT_TRUE(extract());
    EXPECT_EQ(folder.read("program/temp/a.bmp"), "0123456789" + std::string(90, 'x'));
}

TEST_F(FarExtractTest, AnEntryThatRunsPastTheEndGivesWhatThereIs) {
    makeArchive("a.bmp", "0123456789");
    directory.Entries[1].FileSize = little32(0x7FFFFFFF);
    EXPECT_TRUE(extract());
    EXPECT_EQ(folder.read("program/temp/a.bmp"), "0123456789");
}

TEST_F(FarExtractTest, AfterAFailureBothSlotsStayTaken) {
    makeArchive("a.bmp", "data");
    directory.Entries[1].FileOffset = little32(0x80000000);
    EXPECT_FALSE(extract());
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 63);
    EXPECT_EQ(recorder.reports()[0].module, "modFARsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsExtractFile");
    directory.Entries[1].FileOffset = little32(20);
    EXPECT_FALSE(gsExtractFileEx(folder.path("game\\a.far"), folder.path("program\\temp"), "b.bmp",
                                 directory, 1));
    ASSERT_EQ(recorder.reports().size(), 2U);
    EXPECT_EQ(recorder.reports()[1].number, 55);
    EXPECT_EQ(recorder.reports()[1].procedure, "gsExtractFileEx");
}

TEST_F(FarExtractTest, ANameThatIsNoFileNameNeverLeavesTheFolder) {
    for (const char* name : {"..", "a/../../evil.bmp", "C:evil.bmp", "CON", "folder\\"}) {
        directory = {};
        makeArchive(name, "data");
        EXPECT_FALSE(extract()) << name;
        EXPECT_EQ(recorder.reports().back().number, 52) << name;
    }
    EXPECT_FALSE(streams().isOpen(slot::kExtractSource));
}

#ifndef _WIN32
// Into a folder of thousands, whose names can't be read for each of them. Windows looks names up by
// itself.
TEST_F(FarExtractTest, ExtractsThousandsOneByOneWithoutDelay) {
    makeArchive("entry1", "x");
    for (int number = 1; number <= 2000; ++number) {
        FarEntry entry = directory.Entries[1];
        entry.FileName = "entry" + std::to_string(number);
        directory.Entries.append(entry);
        folder.write("program/temp/ENTRY" + std::to_string(number), "");
    }
    const std::clock_t start = std::clock();
    for (int time = 1; time <= 5; ++time) {
        for (int number = 2; number <= 2001; ++number) {
            ASSERT_TRUE(extract(number));
        }
    }
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 3);
    EXPECT_EQ(folder.read("program/temp/ENTRY2000"), "x");
    EXPECT_EQ(searchFiles(folder.path("program/temp"), "*").size(), 2000U);
}
#endif

// However soon another program puts it there.
TEST_F(FarExtractTest, AFileOfAnotherCaseIsWrittenOver) {
    makeArchive("first.bmp", "1");
    EXPECT_TRUE(extract());
    makeArchive("second.bmp", "2");
    folder.write("program/temp/SECOND.BMP", "xx");
    EXPECT_TRUE(extract(2));
    makeArchive("FIRST.bmp", "3");
    EXPECT_TRUE(extract(3));
    EXPECT_EQ(searchFiles(folder.path("program/temp"), "*"),
              (std::vector<std::string>{"first.bmp", "SECOND.BMP"}));
    EXPECT_EQ(folder.read("program/temp/SECOND.BMP"), "2x");
    EXPECT_EQ(folder.read("program/temp/first.bmp"), "3");
}

TEST_F(FarExtractTest, AnEntryThatDoesNotExistIsAnIndexError) {
    EXPECT_FALSE(extract(1));
    EXPECT_EQ(recorder.reports().back().number, 9);
}

TEST_F(FarExtractTest, NothingGoesIntoTheTemplatesOfALegacyGame) {
    makeArchive("User00001.iff", "data");
    folder.write("game/Sims.exe", "MZ");
    folder.write("game/eadpsdk.json", "{}");
    folder.write("game/UserData/Characters/User00001.iff", "template");
    folder.write("game/GameData/x", "");
    const auto extractInto = [this](const char* place) {
        return gsExtractFile(folder.path("game\\a.far"), folder.path(place), directory, 1);
    };
    EXPECT_FALSE(extractInto("game\\UserData\\Characters"));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 75);
    EXPECT_EQ(folder.read("game/UserData/Characters/User00001.iff"), "template");
    EXPECT_TRUE(extractInto("game\\GameData"));
    EXPECT_EQ(folder.read("game/GameData/User00001.iff"), "data");
}

// A command over many entries does each as if it were alone.
TEST_F(FarExtractTest, ACommandExtractsEntryAfterEntry) {
    makeArchive("folder\\a.bmp", "first");
    makeArchive("b.bmp", "other");
    folder.write("program/temp/B.BMP", "longer than that");
    {
        FarExtraction extraction(folder.path("game\\a.far"), folder.path("program\\temp"));
        EXPECT_TRUE(extraction.extract(directory, 2));
        EXPECT_TRUE(extraction.extract(directory, 1));
        EXPECT_TRUE(streams().isOpen(slot::kExtractSource));
        EXPECT_FALSE(streams().isOpen(slot::kExtractOutput));
    }
    EXPECT_FALSE(streams().isOpen(slot::kExtractSource));
    EXPECT_EQ(folder.read("program/temp/B.BMP"), "otherr than that");
    // The archive's file holds the content of the last one that was made.
    EXPECT_EQ(folder.read("program/temp/a.bmp"), "other");
}

#ifndef _WIN32
// Never a piece of the file that it was before. On Windows nobody can write into it meanwhile.
TEST_F(FarExtractTest, ACommandReadsWhatTheArchiveHoldsByNow) {
    makeArchive("a.bmp", "first");
    FarExtraction extraction(folder.path("game\\a.far"), folder.path("program\\temp"));
    EXPECT_TRUE(extraction.extract(directory, 1));
    EXPECT_EQ(folder.read("program/temp/a.bmp"), "first");
    folder.write("game/a.far", folder.read("game/a.far").replace(20, 5, "later"));
    EXPECT_TRUE(extraction.extract(directory, 1));
    EXPECT_EQ(folder.read("program/temp/a.bmp"), "later");
}
#endif

TEST_F(FarExtractTest, AfterAFailureInACommandBothSlotsStayTaken) {
    makeArchive("a.bmp", "data");
    FarEntry bad = directory.Entries[1];
    bad.FileOffset = little32(0x80000000);
    directory.Entries.append(bad);
    {
        FarExtraction extraction(folder.path("game\\a.far"), folder.path("program\\temp"));
        EXPECT_TRUE(extraction.extract(directory, 1));
        EXPECT_FALSE(extraction.extract(directory, 2));
        EXPECT_FALSE(extraction.extract(directory, 1));
    }
    ASSERT_EQ(recorder.reports().size(), 2U);
    EXPECT_EQ(recorder.reports()[0].number, 63);
    EXPECT_EQ(recorder.reports()[0].module, "modFARsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsExtractFile");
    EXPECT_EQ(recorder.reports()[1].number, 55);
    EXPECT_TRUE(streams().isOpen(slot::kExtractSource));
    EXPECT_TRUE(streams().isOpen(slot::kExtractOutput));
}

TEST_F(FarExtractTest, ACommandPutsNothingIntoTheTemplatesOfALegacyGame) {
    makeArchive("User00001.iff", "data");
    makeArchive("UserData.bmp", "data");
    makeArchive("other.bmp", "data");
    folder.write("game/Sims.exe", "MZ");
    folder.write("game/eadpsdk.json", "{}");
    folder.write("game/UserData/Characters/User00001.iff", "template");
    const auto extractInto = [this](const char* place, int number) {
        FarExtraction extraction(folder.path("game\\a.far"), folder.path(place));
        return extraction.extract(directory, number);
    };
    EXPECT_FALSE(extractInto("game\\UserData\\Characters", 1));
    EXPECT_FALSE(extractInto("game\\UserData\\Characters", 3));
    EXPECT_FALSE(extractInto("game", 2));
    EXPECT_EQ(recorder.reports().size(), 3U);
    EXPECT_EQ(recorder.reports().back().number, 75);
    EXPECT_EQ(folder.read("game/UserData/Characters/User00001.iff"), "template");
    EXPECT_FALSE(folder.exists("game/UserData/Characters/other.bmp"));
    EXPECT_FALSE(folder.exists("game/UserData.bmp"));
    EXPECT_TRUE(extractInto("program\\temp", 1));
}

#ifndef _WIN32
TEST_F(FarExtractTest, ACommandFollowsNoLinkIntoATemplate) {
    makeArchive("a.bmp", "data");
    folder.write("game/Sims.exe", "MZ");
    folder.write("game/eadpsdk.json", "{}");
    folder.write("game/UserData/a.bmp", "template");
    std::filesystem::create_symlink(folder.game() / "UserData/a.bmp",
                                    folder.program() / "temp/A.bmp");
    FarExtraction extraction(folder.path("game\\a.far"), folder.path("program\\temp"));
    EXPECT_FALSE(extraction.extract(directory, 1));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 75);
    EXPECT_EQ(folder.read("game/UserData/a.bmp"), "template");
}
#endif

TEST_F(FarExtractTest, TheQuietFormRaisesAndTakesNoSlot) {
    makeArchive("a.bmp", "data");
    directory.Entries[1].FileOffset = little32(0x80000000);
    EXPECT_THROW(extractFarEntry(folder.path("game\\a.far"), folder.path("program\\temp"), "b.bmp",
                                 directory, 1),
                 RuntimeError);
    EXPECT_TRUE(recorder.reports().empty());
    EXPECT_FALSE(streams().isOpen(slot::kExtractSource));
}

TEST_F(FarExtractTest, TheQuietFormKeepsALongerFilesTailToo) {
    makeArchive("a.bmp", "new");
    folder.write("program/temp/b.bmp", "old content");
    extractFarEntry(folder.path("game\\a.far"), folder.path("program\\temp"), "b.bmp", directory,
                    1);
    EXPECT_EQ(folder.read("program/temp/b.bmp"), "new content");
}

}  // namespace
}  // namespace marlowick
