#include "far/archive_directory.h"

#include <gtest/gtest.h>

#include "support/counting_files.h"
#include "support/game_files.h"
#include "support/kept_at_once.h"
#include "support/user_file_builder.h"
#include "system/one_command.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::archiveHead;
using test::archiveRecord;
using test::little32;

class ArchiveDirectoryTest : public test::GameFilesTest {
  protected:
    static ArchiveDirectory directoryOf(const test::Names& names) {
        FarDirectory directory;
        directory.FileCount = little32(static_cast<unsigned>(names.size()));
        for (const std::string& name : names) {
            directory.Entries.appendNew().FileName = name;
        }
        return ArchiveDirectory(std::move(directory));
    }
    Path file() const { return folder.path("game\\a.far"); }
    // The one name that an archive of one entry holds.
    std::string read() const { return std::string(readArchiveDirectory(file())->baseName(1)); }
    std::string look() const {
        return std::string(lookAtArchiveDirectory(file()).directory->baseName(1));
    }

    const test::KeptAtOnce keptAtOnce;
};

TEST_F(ArchiveDirectoryTest, ABaseNameIsWhatStandsBehindTheLastBackslash) {
    const ArchiveDirectory directory =
        directoryOf({"Skins\\Deep\\Face.bmp", "face", "a/b", "folder\\", ""});
    EXPECT_EQ(directory.count(), 5);
    EXPECT_EQ(directory.baseName(1), "Face.bmp");
    EXPECT_EQ(directory.baseName(2), "face");
    EXPECT_EQ(directory.baseName(3), "a/b");
    EXPECT_EQ(directory.baseName(4), "");
    EXPECT_EQ(directory.baseName(5), "");
    EXPECT_EQ(test::errorOf([&] { directory.baseName(6); }), 9);
}

TEST_F(ArchiveDirectoryTest, TheFirstOfANameIsFoundInAnyCase) {
    const ArchiveDirectory directory =
        directoryOf({"x\\Other.bmp", "y\\Face.bmp", "FACE.BMP", "z\\face.bmpx", "\xE9t\xE9"});
    EXPECT_EQ(directory.firstNamed("fACE.bmp"), 2);
    EXPECT_EQ(directory.firstNamed("OTHER.BMP"), 1);
    EXPECT_EQ(directory.firstNamed("\xC9T\xC9"), 5);
    EXPECT_EQ(directory.firstNamed("face"), 0);
    EXPECT_EQ(directory.firstNamed("y\\face.bmp"), 0);
    EXPECT_EQ(directory.firstNamed(""), 0);
    EXPECT_EQ(directory.firstBeginningWith("fa"), 2);
    EXPECT_EQ(directory.firstBeginningWith("FACE.BMPX"), 4);
    EXPECT_EQ(directory.firstBeginningWith("\xC9"), 5);
    EXPECT_EQ(directory.firstBeginningWith("y"), 0);
    EXPECT_EQ(directory.firstBeginningWith(""), 1);
    EXPECT_EQ(directoryOf({}).firstNamed("face"), 0);
    EXPECT_EQ(directoryOf({}).firstBeginningWith(""), 0);
}

TEST_F(ArchiveDirectoryTest, EachOfManyNamesIsFound) {
    test::Names names;
    for (int i = 1; i <= 20'000; ++i) {
        names.push_back("Skins\\B001_" + std::to_string(i) + ".bmp");
    }
    const ArchiveDirectory directory = directoryOf(names);
    for (int i = 1; i <= 20'000; ++i) {
        ASSERT_EQ(directory.firstNamed("b001_" + std::to_string(i) + ".BMP"), i);
    }
}

// Each would take its place behind all the others.
TEST_F(ArchiveDirectoryTest, ManyEntriesOfOneNameTakeNoLongerThanOthers) {
    const ArchiveDirectory directory = directoryOf(test::Names(200'000, "same.bmp"));
    EXPECT_EQ(directory.firstNamed("SAME.BMP"), 1);
}

TEST_F(ArchiveDirectoryTest, AnArchiveIsReadOnceForAllWhoAsk) {
    archiveOf("a.far", {"One.bmp"});
    const test::CountingFiles counted;
    EXPECT_EQ(read(), "One.bmp");
    const std::size_t reads = counted.traffic.reads;
    EXPECT_GT(reads, 0U);
    EXPECT_EQ(read(), "One.bmp");
    EXPECT_EQ(look(), "One.bmp");
    EXPECT_EQ(counted.traffic.reads, reads);
    EXPECT_EQ(readArchiveDirectory(file()), lookAtArchiveDirectory(file()).directory);
}

TEST_F(ArchiveDirectoryTest, AChangeAtOnceAndToTheSameSizeIsSeen) {
    for (const char* name : {"One.bmp", "Two.bmp", "Six.bmp"}) {
        test::letTheClockMove();
        archiveOf("a.far", {name});
        EXPECT_EQ(read(), name);
        EXPECT_EQ(look(), name);
    }
}

TEST_F(ArchiveDirectoryTest, AnArchiveThatAnotherIsRenamedOverIsSeen) {
    archiveOf("a.far", {"One.bmp"});
    archiveOf("b.far", {"Two.bmp"});
    const auto time = std::filesystem::last_write_time(folder.game() / "a.far");
    std::filesystem::last_write_time(folder.game() / "b.far", time);
    EXPECT_EQ(read(), "One.bmp");
    std::filesystem::rename(folder.game() / "b.far", folder.game() / "a.far");
    EXPECT_EQ(read(), "Two.bmp");
}

#ifndef _WIN32
// Of two folders whose names differ in case, neither is kept as the other one.
TEST_F(ArchiveDirectoryTest, AFolderThatIsMovedToTheVeryNameIsSeen) {
    archiveOf("PACK/a.far", {"One.bmp"});
    archiveOf("other/a.far", {"Two.bmp"});
    const auto found = [this] {
        return std::string(readArchiveDirectory(folder.path("game\\pack\\a.far"))->baseName(1));
    };
    {
        const OneCommand command;
        EXPECT_EQ(found(), "One.bmp");
        std::filesystem::rename(folder.game() / "other", folder.game() / "pack");
        EXPECT_EQ(found(), "Two.bmp");
    }
    EXPECT_EQ(found(), "Two.bmp");
}
#endif

TEST_F(ArchiveDirectoryTest, AnArchiveThatIsGoneHasNoEntries) {
    archiveOf("a.far", {"One.bmp"});
    EXPECT_EQ(look(), "One.bmp");
    std::filesystem::remove(folder.game() / "a.far");
    const QuietDirectory gone = lookAtArchiveDirectory(file());
    EXPECT_FALSE(gone.isWhole);
    EXPECT_EQ(gone.directory->count(), 0);
    // Reading it makes it, empty.
    EXPECT_EQ(readArchiveDirectory(file())->count(), 0);
    EXPECT_TRUE(folder.exists("game/a.far"));
    EXPECT_TRUE(recorder.reports().empty());
}

// As soon as the real clock allows: what was written in the last two seconds is read again.
TEST_F(ArchiveDirectoryTest, AnArchiveOfTheLastMomentsIsReadEachTime) {
    keptFiles() = KeptFiles();
    archiveOf("a.far", {"One.bmp"});
    EXPECT_EQ(read(), "One.bmp");
    EXPECT_NE(readArchiveDirectory(file()), readArchiveDirectory(file()));
    EXPECT_EQ(keptFiles().bytes(), 0U);
}

TEST_F(ArchiveDirectoryTest, AFailureIsReportedEachTimeAndKeepsItsStream) {
    folder.write("game/a.far", archiveHead(16) + little32(2) + archiveRecord(1, 1, 16, "whole") +
                                   little32(0) + little32(0) + little32(0) + little32(0xFFFFFFF0));
    for (std::size_t time = 1; time <= 2; ++time) {
        EXPECT_EQ(readArchiveDirectory(file())->count(), 1);
        ASSERT_EQ(recorder.reports().size(), time);
        EXPECT_EQ(recorder.reports()[time - 1].number, 5);
        EXPECT_EQ(recorder.reports()[time - 1].module, "modFARsupport");
        EXPECT_EQ(recorder.reports()[time - 1].procedure, "gsReadFARdir");
        EXPECT_TRUE(streams().isOpen(Slot::free(static_cast<int>(time))));
    }
    const QuietDirectory partly = lookAtArchiveDirectory(file());
    EXPECT_FALSE(partly.isWhole);
    EXPECT_EQ(partly.directory->baseName(1), "whole");
    EXPECT_EQ(recorder.reports().size(), 2U);
    EXPECT_FALSE(streams().isOpen(Slot::free(3)));
    EXPECT_EQ(keptFiles().bytes(), 0U);
}

TEST_F(ArchiveDirectoryTest, WhatAFailureLeftDoesNotStandInTheWayOfAMendedArchive) {
    folder.write("game/a.far", archiveHead(0xFFFFFFFF));
    EXPECT_EQ(readArchiveDirectory(file())->count(), 0);
    EXPECT_EQ(recorder.reports().size(), 1U);
    test::letTheClockMove();
    archiveOf("a.far", {"One.bmp"});
    EXPECT_EQ(read(), "One.bmp");
    EXPECT_EQ(recorder.reports().size(), 1U);
}

}  // namespace
}  // namespace marlowick
