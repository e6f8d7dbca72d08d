#include "far/far_save.h"

#include <gtest/gtest.h>

#include <fstream>

#include "far/refused_step.h"
#include "foundation/error_trap.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/keeping.h"
#include "support/lying_disk.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/shown_path.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::ArchiveEntry;
using test::archiveFile;
using test::archiveHead;
using test::archiveRecord;
using test::entriesOfArchive;
using test::little32;
using test::pattern;
using test::RefusedStep;

constexpr const char* kArchive = "game/gamedata/textures/a.far";
constexpr const char* kTemporary = "program/temp/tempfile.far";

class FarSaveTest : public ::testing::Test {
  protected:
    FarSaveTest() {
        progress.step = [this](int processed, int total) { steps.push_back({processed, total}); };
    }

    void open(const std::string& content) {
        folder.write(kArchive, content);
        openAgain();
    }

    void openAgain() {
        edit = {};
        edit.mstrFarFile = archive;
        ASSERT_TRUE(gsReadFARdir(edit.mudtFarDir, archive));
        listEntries(edit);
    }

    void add(const std::string& name, const std::string& content) {
        folder.write("pictures/" + name, content);
        EXPECT_EQ(FarAdder(edit, folder.path("pictures")).add(name), FarAddition::Done);
    }

    // 0 after a save that went well.
    int save() { return saveAs(archive); }

    int saveAs(const Path& target) {
        try {
            test::Keeping keeping(goesOnWithout);
            const bool done = saveArchive(edit, target, keeping.command, progress);
            questions = keeping.questions;
            return done ? 0 : -1;
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
    }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    const Path archive = folder.path("game\\gamedata\\textures\\a.far");
    FarEdit edit;
    FarSaveProgress progress;
    std::vector<std::pair<int, int>> steps;
    bool goesOnWithout = false;
    int questions = 0;
};

using Steps = std::vector<std::pair<int, int>>;

TEST_F(FarSaveTest, WritesEveryByteAsTheGameReadsIt) {
    folder.write("game/gamedata/textures/keep.txt", "");
    add("One.bmp", "first");
    add("two.bmp", "");
    add("3.bmp", "xyz");
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(folder.read(kArchive),
              "FAR!byAZ"
              "\x01\0\0\0"
              "\x18\0\0\0"
              "first"
              "xyz"
              "\x03\0\0\0"
              "\x05\0\0\0\x05\0\0\0\x10\0\0\0\x07\0\0\0One.bmp"
              "\0\0\0\0\0\0\0\0\x15\0\0\0\x07\0\0\0two.bmp"
              "\x03\0\0\0\x03\0\0\0\x15\0\0\0\x05\0\0\0"
              "3.bmp"s);
    EXPECT_FALSE(folder.exists(kTemporary));
}

TEST_F(FarSaveTest, SurvivorsKeepTheirPlaceAndNewFilesComeBehind) {
    open(archiveFile({{"Skins\\z.bmp", "zzzz", {}},
                      {"m.bmf", "mesh", {}},
                      {"gone.bmp", "gone", {}},
                      {"a\xE9.cmx.bcf", "bones", {}}}));
    add("b.bmp", "new b");
    add("a.bmp", "new a");
    deleteRows(edit, {2});
    ASSERT_EQ(save(), 0);
    const std::vector<ArchiveEntry> expected = {{"Skins\\z.bmp", "zzzz", 4},
                                                {"m.bmf", "mesh", 4},
                                                {"a\xE9.cmx.bcf", "bones", 5},
                                                {"b.bmp", "new b", 5},
                                                {"a.bmp", "new a", 5}};
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)), expected);
    EXPECT_EQ(folder.read(kArchive), archiveFile(expected));
}

TEST_F(FarSaveTest, TheEditIsThenThatOfTheNewArchive) {
    open(archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}}));
    add("c.bmp", "c");
    deleteRows(edit, {0});
    ASSERT_EQ(save(), 0);
    ASSERT_EQ(edit.Rows.count(), 2);
    EXPECT_EQ(edit.Rows[0].Text, "b.bmp");
    EXPECT_EQ(edit.Rows[0].Number, 1);
    EXPECT_EQ(edit.Rows[1].Text, "c.bmp");
    EXPECT_EQ(edit.Rows[1].Number, 2);
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 0);
    EXPECT_EQ(edit.mudtFarDir.Entries[2].FileOffset, little32(17));
    EXPECT_EQ(edit.mstrFarFile, archive);
    EXPECT_EQ(CheckpointNumber, 9000);
    EXPECT_FALSE(streams().isOpen(slot::kArchiveOutput));
    EXPECT_FALSE(streams().isOpen(slot::kArchiveSource));
}

TEST_F(FarSaveTest, AnArchiveOfDeletedEntriesAloneHasTwentyBytes) {
    open(archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}}));
    deleteRows(edit, {0, 1});
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(folder.read(kArchive), "FAR!byAZ\x01\0\0\0\x10\0\0\0\0\0\0\0"s);
    EXPECT_TRUE(edit.Rows.empty());
    EXPECT_EQ(farEntryCount(edit.mudtFarDir), 0);
}

TEST_F(FarSaveTest, SavingUnchangedRepacksAndSetsTheVersion) {
    const std::vector<ArchiveEntry> entries = {{"b.bmp", "bbbbb", {}}, {"a.bmp", "a", {}}};
    open(archiveFile(entries, 7, "bytes of no entry"));
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(folder.read(kArchive), archiveFile(entries, 1));
}

TEST_F(FarSaveTest, TwoSizesAreKeptAndTheFirstCopies) {
    open(archiveFile({{"a.bmp", "12345", 9}, {"b.bmp", "678", 1}}));
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)),
              (std::vector<ArchiveEntry>{{"a.bmp", "12345", 9}, {"b.bmp", "678", 1}}));
}

TEST_F(FarSaveTest, CopiesDataOfEverySizeAroundTheBlock) {
    std::vector<ArchiveEntry> entries;
    for (const std::size_t size :
         {0U, 1U, 32767U, 32768U, 32769U, 65536U, 65537U, 100000U, 262144U, 262145U}) {
        entries.push_back({"e" + std::to_string(size), pattern(size), {}});
    }
    open(archiveFile(entries, 1, "filler"));
    for (const std::size_t size : {32768U, 32769U, 70001U, 524289U}) {
        const std::string name = "n" + std::to_string(size) + ".bmp";
        add(name, pattern(size, 5));
        entries.push_back({name, pattern(size, 5), {}});
    }
    ASSERT_EQ(save(), 0);
    EXPECT_TRUE(folder.read(kArchive) == archiveFile(entries));
}

TEST_F(FarSaveTest, OverlappingEntriesAreCarriedThrough) {
    std::string content = archiveFile({{"a.bmp", "abcdef", {}}, {"b.bmp", "", {}}});
    // Both entries show the same six bytes.
    const std::size_t second = 16 + 6 + 4 + 16 + 5;
    content.replace(second, 12, little32(6) + little32(6) + little32(16));
    open(content);
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)),
              (std::vector<ArchiveEntry>{{"a.bmp", "abcdef", 6}, {"b.bmp", "abcdef", 6}}));
}

TEST_F(FarSaveTest, ANewFileThatWasTakenBackCountsAndWritesNothing) {
    open(archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}}));
    add("n1.bmp", "n1");
    add("n2.bmp", "n2");
    deleteRows(edit, {0, 2});
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)),
              (std::vector<ArchiveEntry>{{"b.bmp", "b", 1}, {"n2.bmp", "n2", 2}}));
    EXPECT_EQ(steps, (Steps{{0, 4}, {1, 4}, {2, 4}, {3, 4}, {4, 4}}));
}

TEST_F(FarSaveTest, ANameEndsInFarInAnyCase) {
    struct Row {
        const char* name;
        const char* file;
    };
    constexpr Row kRows[] = {{"mine", "mine.FAR"},
                             {"mine.far", "mine.far"},
                             {"mine.Far", "mine.Far"},
                             {"mine.bmp", "mine.bmp.FAR"},
                             {"far", "far.FAR"},
                             {".far", ".far"},
                             {"mine.fart", "mine.fart.FAR"},
                             {"Deep\\mine", "Deep\\mine.FAR"},
                             {"\xD1\x8F", "\xD1\x8F.FAR"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(newArchivePath(row.name).text(),
                  folder.path("game").text() + "\\gamedata\\textures\\" + row.file);
    }
}

TEST_F(FarSaveTest, ANewArchiveReplacesAFileOfItsName) {
    folder.write("game/gamedata/textures/MINE.FAR", "something else, and longer than the archive");
    add("a.bmp", "a");
    ASSERT_EQ(saveAs(newArchivePath("mine.far")), 0);
    EXPECT_EQ(entriesOfArchive(folder.read("game/gamedata/textures/MINE.FAR")),
              (std::vector<ArchiveEntry>{{"a.bmp", "a", 1}}));
    EXPECT_EQ(edit.mstrFarFile, newArchivePath("mine.far"));
}

TEST_F(FarSaveTest, NoArchiveIsWrittenIntoTheTemplatesOfALegacyGame) {
    folder.write("game/Sims.exe", "MZ");
    folder.write("game/eadpsdk.json", "{}");
    folder.write("game/UserData/Neighborhood.iff", "template");
    open(archiveFile({{"a.bmp", "data", {}}}));
    EXPECT_EQ(saveAs(newArchivePath("..\\..\\UserData\\new")), 75);
    EXPECT_FALSE(folder.exists("game/UserData/new.FAR"));
    EXPECT_EQ(save(), 0);
}

TEST_F(FarSaveTest, WhatASaveReplacesIsKept) {
    const std::string old = archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}});
    open(old);
    deleteRows(edit, {0});
    add("c.bmp", "c");
    ASSERT_EQ(save(), 0);
    const History history(historyPlaces());
    const std::vector<HistoryEntry> entries = history.entries();
    ASSERT_EQ(entries.size(), 1U);
    const HistoryRecord& record = entries[0].about.records.at(0);
    EXPECT_EQ(record.path, "gamedata\\textures\\a.far");
    EXPECT_EQ(readWholeFile(history.keptFile(entries[0], record)), old);
    EXPECT_EQ(record.after, stateOf(folder.read(kArchive)));
    EXPECT_EQ(record.changes, "Deleted: a.bmp\nAdded: c.bmp");
}

TEST_F(FarSaveTest, AnArchiveThatCannotBeKeptIsReplacedOnlyIfThePersonWantsTo) {
    const std::string old = archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}});
    open(old);
    folder.write("program/History", "a file");
    deleteRows(edit, {0});
    EXPECT_EQ(save(), -1);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(folder.read(kArchive), old);
    EXPECT_FALSE(edit.ReadingFailed);
    EXPECT_TRUE(edit.mudtFarDir.Entries[1].Deleted);
    goesOnWithout = true;
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(farEntryCount(edit.mudtFarDir), 1);
}

TEST_F(FarSaveTest, AnArchiveThatIsNotAsItWasMeantTakesNoName) {
    const std::string old = archiveFile({{"a.bmp", "data", {}}, {"b.bmp", "b", {}}});
    open(old);
    deleteRows(edit, {1});
    {
        const test::LyingDisk disk(16);
        try {
            test::Keeping keeping;
            saveArchive(edit, archive, keeping.command, progress);
            ADD_FAILURE();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), 321);
            EXPECT_EQ(failure.description(), "Invalid file format\r\n" + shownPath(archive) +
                                                 "\r\nEntry 1 has other data.");
        }
        EXPECT_EQ(CheckpointNumber, 7000);
    }
    EXPECT_EQ(folder.read(kArchive), old);
    EXPECT_TRUE(History(historyPlaces()).entries().empty());
    EXPECT_EQ(save(), 0);
}

TEST_F(FarSaveTest, ReadOnlyMarksDoNotStandInTheWay) {
    open(archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}}));
    folder.makeReadOnly(kArchive);
    folder.write(kTemporary, std::string(1000, 'x'));
    folder.makeReadOnly(kTemporary);
    deleteRows(edit, {0});
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(folder.read(kArchive), archiveFile({{"b.bmp", "b", {}}}));
    EXPECT_FALSE(files().isReadOnly(archive));
    EXPECT_FALSE(folder.exists(kTemporary));
}

TEST_F(FarSaveTest, AnAddedFileThatIsGoneFailsTheSaveAndEveryLaterOne) {
    const std::string before = archiveFile({{"a.bmp", "a", {}}});
    open(before);
    add("new.bmp", "new");
    std::filesystem::remove(folder.root() / "pictures/new.bmp");
    EXPECT_EQ(save(), 53);
    EXPECT_EQ(CheckpointNumber, 5000);
    EXPECT_EQ(folder.read(kArchive), before);
    EXPECT_TRUE(folder.exists(kTemporary));
    EXPECT_TRUE(streams().isOpen(slot::kArchiveOutput));
    folder.write("pictures/new.bmp", "new");
    EXPECT_EQ(save(), 55);
    EXPECT_EQ(CheckpointNumber, 3000);
    EXPECT_EQ(folder.read(kArchive), before);
}

TEST_F(FarSaveTest, AnArchiveThatCouldNotBeReadDoesNotKeepOthersFromBeingSaved) {
    folder.write("game/gamedata/textures/bad.far", archiveHead(0xFFFFFFFF));
    FarDirectory bad;
    EXPECT_FALSE(gsReadFARdir(bad, folder.path("game\\gamedata\\textures\\bad.far")));
    EXPECT_FALSE(gsReadFARdir(bad, folder.path("game\\gamedata\\textures\\bad.far")));
    open(archiveFile({{"a.bmp", "a", {}}, {"b.bmp", "b", {}}}));
    deleteRows(edit, {0});
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(folder.read(kArchive), archiveFile({{"b.bmp", "b", {}}}));
}

TEST_F(FarSaveTest, DamagedEntriesFailTheSaveUnlessTheyAreDeleted) {
    struct Row {
        const char* what;
        unsigned size;
        unsigned offset;
        int number;
    };
    constexpr Row kRows[] = {{"runs past the end", 1000, 16, 62},
                             {"lies behind the end", 1, 5000, 62},
                             {"has a negative size", 0xFFFFFFFF, 16, 5},
                             {"has a negative offset", 1, 0x80000000, 63}};
    for (const Row& row : kRows) {
        const std::string content = archiveHead(17) + "a" + little32(2) +
                                    archiveRecord(row.size, 1, row.offset, "bad") +
                                    archiveRecord(1, 1, 16, "good");
        open(content);
        EXPECT_EQ(save(), row.number) << row.what;
        EXPECT_EQ(CheckpointNumber, 4000) << row.what;
        EXPECT_EQ(folder.read(kArchive), content) << row.what;
        streams().closeAll();
        openAgain();
        deleteRows(edit, {0});
        EXPECT_EQ(save(), 0) << row.what;
        EXPECT_EQ(entriesOfArchive(folder.read(kArchive)),
                  (std::vector<ArchiveEntry>{{"good", "a", 1}}));
    }
}

TEST_F(FarSaveTest, MoreEntriesThanSixteenBitsCanNotBeSaved) {
    std::string records;
    for (int i = 0; i < 32767; ++i) {
        records += archiveRecord(0, 0, 16, "x");
    }
    const std::string content = archiveHead(16) + little32(32767) + records;
    folder.write(kArchive, content);
    edit.mstrFarFile = archive;
    ASSERT_TRUE(gsReadFARdir(edit.mudtFarDir, archive));
    add("new.bmp", "new");
    EXPECT_EQ(save(), 6);
    EXPECT_EQ(CheckpointNumber, 4000);
    EXPECT_TRUE(folder.read(kArchive) == content);
}

TEST_F(FarSaveTest, AFailureAtAnyChangeLeavesTheOldArchiveOrTheNewOne) {
    const std::string before = archiveFile({{"a.bmp", pattern(40000), {}}, {"b.bmp", "b", {}}});
    const std::string after =
        archiveFile({{"a.bmp", pattern(40000), {}}, {"new.bmp", pattern(50000, 3), {}}});
    for (const auto fault : {test::FaultyFiles::Fault::Fail, test::FaultyFiles::Fault::Stop}) {
        bool failed = true;
        for (int failAt = 1; failed; ++failAt) {
            streams().closeAll();
            open(before);
            add("new.bmp", pattern(50000, 3));
            deleteRows(edit, {1});
            {
                const test::FaultyFiles faulty(failAt, fault);
                const int number = save();
                // -1: nothing could be kept, and the person said no.
                EXPECT_TRUE(number == 57 || number == 0 || (number == -1 && questions == 1))
                    << failAt;
                failed = faulty.changes() >= failAt;
            }
            const std::string content = folder.read(kArchive);
            EXPECT_TRUE(content == before || content == after) << failAt;
            if (!failed) {
                EXPECT_TRUE(content == after);
                EXPECT_GT(failAt, 12);
            }
        }
    }
}

// Where the report says that a save was when its n-th change to the disk failed.
TEST_F(FarSaveTest, TheCheckpointTellsHowFarASaveCame) {
    struct Row {
        const char* change;
        int checkpoint;
        int number = 57;
    };
    constexpr Row kRows[] = {
        {"the leftover's attributes", 2000},
        {"the leftover's removal", 2000},
        {"the temporary file", 3000},
        {"its head", 3000},
        {"the entry's data", 4000},
        {"the new file's data", 5000},
        {"the directory", 6000},
        {"the directory's offset", 6000},
        {"its place beside the target", 7000},
        {"its way to the disk", 7000},
        {"the folder of earlier versions, without which the person goes on", 9000, 0},
        {"the target's attributes", 7000},
        {"the rights of the target", 7000},
        {"the target's name", 7000},
    };
    int failAt = 0;
    folder.write("program/History", "a file");
    goesOnWithout = true;
    for (const Row& row : kRows) {
        streams().closeAll();
        open(archiveFile({{"a.bmp", "a", {}}}));
        add("new.bmp", "new");
        folder.write(kTemporary, "left over");
        const test::FaultyFiles faulty(++failAt, test::FaultyFiles::Fault::Fail);
        EXPECT_EQ(save(), row.number) << row.change;
        EXPECT_EQ(CheckpointNumber, row.checkpoint) << row.change;
    }
    const test::FaultyFiles faulty(++failAt, test::FaultyFiles::Fault::Fail);
    streams().closeAll();
    open(archiveFile({{"a.bmp", "a", {}}}));
    add("new.bmp", "new");
    folder.write(kTemporary, "left over");
    EXPECT_EQ(save(), 0);
    EXPECT_LT(faulty.changes(), failAt);
}

TEST_F(FarSaveTest, AReadingBackThatFailsIsReportedAndEndsTheSave) {
    open(archiveFile({{"a.bmp", "a", {}}}));
    add("new.bmp", "new");
    const RefusedStep refused(RefusedStep::ReadingBack);
    EXPECT_EQ(save(), -1);
    EXPECT_EQ(CheckpointNumber, 9000);
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 70);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadFARdir");
    EXPECT_EQ(folder.read(kArchive), archiveFile({{"a.bmp", "a", {}}, {"new.bmp", "new", {}}}));
    ASSERT_EQ(edit.Rows.count(), 2);
    EXPECT_EQ(edit.Rows[1].Text, "new.bmp");
    EXPECT_EQ(edit.Rows[1].Number, 2);
    EXPECT_TRUE(edit.ReadingFailed);
}

TEST_F(FarSaveTest, TheEditIsTheNewArchivesAsSoonAsTheTargetIs) {
    open(archiveFile({{"a.bmp", "aaaaa", {}}, {"b.bmp", "bb", {}}, {"c.bmp", "cccc", {}}}));
    add("new.bmp", "new");
    deleteRows(edit, {0});
    int replaced = 0;
    progress.replaced = [&] {
        ++replaced;
        EXPECT_EQ(edit.Rows.count(), 3);
        EXPECT_EQ(edit.Rows[2].Text, "new.bmp");
        EXPECT_EQ(edit.Rows[2].Number, 3);
    };
    const std::vector<ArchiveEntry> expected = {
        {"b.bmp", "bb", 2}, {"c.bmp", "cccc", 4}, {"new.bmp", "new", 3}};
    {
        const RefusedStep refused(RefusedStep::RemovingTheTemporaryFile);
        EXPECT_EQ(save(), 70);
    }
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)), expected);
    EXPECT_EQ(farEntryCount(edit.mudtFarDir), 3);
    EXPECT_EQ(edit.mudtFarDir.Entries[1].FileOffset, little32(16));
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 0);
    EXPECT_EQ(edit.mstrFarFile, archive);
    // Every entry has its own bytes then too.
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(entriesOfArchive(folder.read(kArchive)), expected);
}

// A disk for archives whose data is zeros: zeros aren't written, and those in the middle of a large
// file aren't read.
class SparseFiles : public test::FaultyFiles {
  public:
    SparseFiles() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        return std::make_unique<SparseFile>(FaultyFiles::open(path, mode));
    }

    static inline std::size_t largestRead = 0;

  private:
    class SparseFile : public File {
      public:
        explicit SparseFile(std::unique_ptr<File> under)
            : under_(std::move(under)), zerosEnd_(under_->size() - kEdge) {}

        std::size_t read(char* data, std::size_t size) override {
            largestRead = std::max(largestRead, size);
            const auto length = static_cast<std::int64_t>(size);
            if (position_ >= kEdge && position_ + length <= zerosEnd_) {
                std::fill_n(data, size, '\0');
                position_ += length;
                return size;
            }
            under_->seek(position_);
            const std::size_t count = under_->read(data, size);
            position_ += static_cast<std::int64_t>(count);
            return count;
        }
        void write(std::string_view data) override {
            static const std::string zeros(1 << 18, '\0');
            const bool isHole = data.size() >= 32768 && zeros.starts_with(data);
            if (!isHole) {
                under_->seek(position_);
                under_->write(data);
            }
            position_ += static_cast<std::int64_t>(data.size());
        }
        void seek(std::int64_t position) override { position_ = position; }
        std::int64_t position() override { return position_; }
        std::int64_t size() override { return under_->size(); }
        void flush() override { under_->flush(); }

      private:
        static constexpr std::int64_t kEdge = 1000;

        std::unique_ptr<File> under_;
        std::int64_t zerosEnd_;
        std::int64_t position_ = 0;
    };
};

// An archive whose directory lies as far back as a number reaches.
class LargeFarTest : public FarSaveTest {
  protected:
    static constexpr unsigned kDataSize = 0x7FFFFFFFU - 16;
    const std::string manifest = little32(1) + archiveRecord(kDataSize, kDataSize, 16, "a.bmp");

    void makeArchive() {
        folder.write(kArchive, archiveHead(0x7FFFFFFF));
        std::filesystem::resize_file(folder.root() / kArchive, 0x7FFFFFFF);
        std::ofstream file(folder.root() / kArchive, std::ios::binary | std::ios::app);
        file << manifest;
        file.close();
        openAgain();
    }

    void expectArchive() {
        std::ifstream file(folder.root() / kArchive, std::ios::binary);
        std::string head(20, 'x');
        file.read(head.data(), 20);
        EXPECT_EQ(head, archiveHead(0x7FFFFFFF) + std::string(4, '\0'));
        file.seekg(0x7FFFFFFF - 4);
        std::string tail(100, 'x');
        file.read(tail.data(), 100);
        tail.resize(static_cast<std::size_t>(file.gcount()));
        EXPECT_EQ(tail, std::string(4, '\0') + manifest);
    }

    SparseFiles sparse;
};

TEST_F(LargeFarTest, TheLastOffsetThatFitsWorksInSmallBlocks) {
    makeArchive();
    add("empty.bmp", "");
    SparseFiles::largestRead = 0;
    deleteRows(edit, {1});
    goesOnWithout = true;
    ASSERT_EQ(save(), 0);
    EXPECT_EQ(questions, 1);
    expectArchive();
    // Data is copied and read back in blocks.
    EXPECT_LE(SparseFiles::largestRead, (1U << 18U) + 1);
    EXPECT_EQ(edit.mudtFarDir.Entries[1].FileSize, little32(kDataSize));
}

TEST_F(LargeFarTest, AnOffsetPastTheLastOneIsAnOverflow) {
    makeArchive();
    add("one.bmp", "1");
    EXPECT_EQ(save(), 6);
    EXPECT_EQ(CheckpointNumber, 5000);
    expectArchive();
}

TEST_F(FarSaveTest, AnEntryThatCanNotFitFailsBeforeItIsCopied) {
    const std::string content =
        archiveHead(16) + little32(1) + archiveRecord(0x7FFFFFF0, 0, 16, "x");
    open(content);
    EXPECT_EQ(save(), 6);
    EXPECT_EQ(folder.read(kArchive), content);
    EXPECT_EQ(folder.read(kTemporary).size(), 16U);
}

}  // namespace
}  // namespace marlowick
