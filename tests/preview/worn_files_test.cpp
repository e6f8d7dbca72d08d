#include "preview/worn_files.h"

#include <gtest/gtest.h>

#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/kept_at_once.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

using test::errorOf;

class WornFilesTest : public ::testing::Test {
  protected:
    test::TestFolder folder;
    KeptFiles kept;
    WornFiles files{kept};
};

TEST_F(WornFilesTest, ReadsALooseFileUpToItsBound) {
    folder.write("game/a.bmp", "abc");
    const FilePlace place{folder.path("game\\a.bmp"), 0, "a.bmp"};
    EXPECT_EQ(files.read(place, 3), "abc");
    EXPECT_EQ(errorOf([&] { files.read(place, 2); }), 7);
    EXPECT_EQ(errorOf([&] { files.read({folder.path("game\\b.bmp"), 0, "b.bmp"}, 3); }), 53);
}

TEST_F(WornFilesTest, ReadsTheEntriesThatAnArchiveHasAndNoOthers) {
    folder.write("game/x.far", test::archiveFile({{"one", "first"}, {"two", "other"}}));
    const Path archive = folder.path("game\\x.far");
    EXPECT_EQ(files.read({archive, 1, "one"}, 5), "first");
    EXPECT_EQ(files.read({archive, 2, "two"}, 5), "other");
    EXPECT_EQ(errorOf([&] { files.read({archive, 2, "two"}, 4); }), 7);
    EXPECT_EQ(errorOf([&] { files.read({archive, 3, "three"}, 5); }), 9);
    EXPECT_EQ(errorOf([&] { files.read({archive, -1, "none"}, 5); }), 9);
}

// What is read with the directory of before serves that question alone.
TEST_F(WornFilesTest, WhatIsReadOfAnArchiveThatChangedSinceItsDirectoryIsNotKept) {
    kept = KeptFiles(kMostKept, [] { return stampClock() + 60'000'000'000; });
    folder.write("game/x.far", test::archiveFile({{"one", "first"}, {"two", "other"}}));
    const FilePlace place{folder.path("game\\x.far"), 2, "two"};
    const auto content = [&place](WornFiles& question) {
        return *question.made<std::string>(place, "content", 100, [](const std::string& bytes) {
            return Made<std::string>{bytes, bytes.size()};
        });
    };
    EXPECT_EQ(files.read(place, 100), "other");
    test::letTheClockMove();
    folder.write("game/x.far", test::archiveFile({{"one", "1"}, {"two", "new"}}));
    content(files);
    WornFiles next(kept);
    EXPECT_EQ(content(next), "new");
    const std::size_t bytes = kept.bytes();
    WornFiles again(kept);
    EXPECT_EQ(content(again), "new");
    EXPECT_EQ(kept.bytes(), bytes);
}

#ifndef _WIN32
// Two such files lie in one folder where letter case counts.
TEST_F(WornFilesTest, OfNamesInOtherLettersTheFirstIsTaken) {
    for (const char* name : {"body.bmp", "BODY.bmp", "bODY.bmp"}) {
        folder.write(std::string("game/GameData/Skins/") + name, "");
    }
    const auto found = [this](const std::string& name) {
        const std::optional<FilePlace> place = files.find({name});
        return place ? place->file.fileName() : "none";
    };
    EXPECT_EQ(found("Body.bmp"), "BODY.bmp");
    EXPECT_EQ(found("bODY.bmp"), "bODY.bmp");
    EXPECT_EQ(found("head.bmp"), "none");
}
#endif

}  // namespace
}  // namespace marlowick
