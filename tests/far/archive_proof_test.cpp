#include "far/archive_proof.h"

#include <gtest/gtest.h>

#include <random>

#include "far/far_save.h"
#include "foundation/error_trap.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/keeping.h"
#include "support/quick_disk.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::ArchiveEntry;
using test::archiveFile;

constexpr std::size_t kBlockSize = 32768;

class ArchiveProofTest : private test::QuickDisk, public ::testing::Test {
  protected:
    // Opens an archive for editing.
    void open(const std::vector<ArchiveEntry>& entries, const std::string& filler = {}) {
        folder.write("game/old.far", archiveFile(entries, 3, filler));
        edit = {};
        edit.mstrFarFile = folder.path("game\\old.far");
        ASSERT_TRUE(gsReadFARdir(edit.mudtFarDir, edit.mstrFarFile));
        listEntries(edit);
    }

    void add(const std::string& name, const std::string& content) {
        folder.write("game/add/" + name, content);
        edit.mudtAddedFiles.append({name, folder.path("game\\add\\" + name)});
        edit.Rows.append({"[NEW]  " + name, -edit.mudtAddedFiles.bound()});
    }

    // Saves under another name, so that what the edit was made of still lies there.
    void save() {
        FarEdit saved = edit;
        test::Keeping keeping(true);
        ASSERT_TRUE(saveArchive(saved, out, keeping.command, {[](int, int) {}, {}}));
    }

    std::string difference() const { return archiveDifference(edit, out); }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    const Path out = folder.path("game\\new.far");
    FarEdit edit;
};

class RandomArchive {
  public:
    explicit RandomArchive(unsigned seed) : random_(seed) {}

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    std::string bytes(std::size_t size) {
        std::string text(size, '\0');
        for (char& c : text) {
            c = static_cast<char>(number(0, 255));
        }
        return text;
    }

    std::string data() {
        constexpr std::size_t kSizes[] = {0,     1,     100,   32767, 32768,
                                          32769, 65535, 65536, 65537, 100000};
        return number(0, 3) == 0 ? bytes(kSizes[number(0, 9)])
                                 : bytes(static_cast<std::size_t>(number(0, 300)));
    }

    std::vector<ArchiveEntry> entries() {
        std::vector<ArchiveEntry> all;
        for (int count = number(0, 6); count > 0; --count) {
            ArchiveEntry entry{"skins\\" + std::to_string(number(0, 3)) + ".bmp", data(), {}};
            if (number(0, 3) == 0) {
                entry.secondSize = static_cast<unsigned>(number(0, 9999));
            }
            if (number(0, 5) == 0) {
                entry.name = bytes(static_cast<std::size_t>(number(0, 40)));
            }
            all.push_back(entry);
        }
        return all;
    }

  private:
    std::mt19937 random_;
};

TEST_F(ArchiveProofTest, NoArchiveThatIsSavedGivesAnAlarm) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomArchive random(seed);
        open(random.entries(), random.bytes(static_cast<std::size_t>(random.number(0, 9))));
        std::vector<int> deleted;
        for (int row = 0; row < edit.Rows.count(); ++row) {
            if (random.number(0, 2) == 0) {
                deleted.push_back(row);
            }
        }
        deleteRows(edit, deleted);
        for (int i = random.number(0, 3); i > 0; --i) {
            add("new" + std::to_string(i) + ".bmp", random.data());
        }
        if (edit.mudtAddedFiles.bound() > 0 && random.number(0, 1) == 0) {
            deleteRows(edit, {edit.Rows.count() - 1});
        }
        save();
        ASSERT_EQ(difference(), "") << "seed " << seed;
    }
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(ArchiveProofTest, ANewArchiveAndAnEmptiedOneGiveNoAlarm) {
    add("a.bmp", "data of a");
    save();
    EXPECT_EQ(difference(), "");
    open({{"a.bmp", "data", {}}});
    deleteRows(edit, {0});
    save();
    EXPECT_EQ(folder.read("game/new.far").size(), 20U);
    EXPECT_EQ(difference(), "");
}

// The head, the directory, and of each entry the first and the last block of the program's size.
TEST_F(ArchiveProofTest, AnyOneByteThatIsAnotherGivesAnAlarm) {
    RandomArchive random(1);
    open({{"small", random.bytes(50), {}},
          {"gone", random.bytes(50), {}},
          {"folder\\large", random.bytes(3 * kBlockSize), 7},
          {"none", "", {}}});
    deleteRows(edit, {1});
    add("added.bmp", random.bytes(40000));
    save();
    ASSERT_EQ(difference(), "");
    const std::string right = folder.read("game/new.far");
    const std::size_t large = 16 + 50;
    const std::size_t added = large + 3 * kBlockSize;
    const std::size_t directory = added + 40000;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < large + 20; ++i) {
        places.push_back(i);
    }
    for (const std::size_t edge :
         {large + kBlockSize - 1, large + 2 * kBlockSize, large + 2 * kBlockSize + 1, added - 1,
          added, added + 20000, added + kBlockSize - 1, added + kBlockSize, directory - 1}) {
        places.push_back(edge);
    }
    for (std::size_t i = directory; i < right.size(); ++i) {
        places.push_back(i);
    }
    for (const std::size_t place : places) {
        std::string wrong = right;
        wrong[place] = static_cast<char>(wrong[place] ^ '\x10');
        folder.write("game/new.far", wrong);
        EXPECT_NE(difference(), "") << "byte " << place;
    }
    for (const std::size_t less : {1, 5, 40}) {
        folder.write("game/new.far", right.substr(0, right.size() - less));
        EXPECT_NE(difference(), "") << less << " less";
    }
    folder.write("game/new.far", right + "x");
    EXPECT_EQ(difference(), "The length is " + std::to_string(right.size() + 1) + " instead of " +
                                std::to_string(right.size()) + ".");
    folder.write("game/new.far", "");
    EXPECT_EQ(difference(), "Entry 1 is missing.");
}

TEST_F(ArchiveProofTest, TellsWhichEntryDiffersInWhat) {
    open({{"one", "data1", {}}, {"two", "data2", {}}});
    const auto told = [&](const std::vector<ArchiveEntry>& entries, unsigned version = 1,
                          const std::string& filler = {}) {
        folder.write("game/new.far", archiveFile(entries, version, filler));
        return difference();
    };
    EXPECT_EQ(told({{"one", "data1", {}}, {"two", "data2", {}}}), "");
    EXPECT_EQ(told({{"two", "data2", {}}, {"one", "data1", {}}}), "Entry 1 has another name.");
    EXPECT_EQ(told({{"one", "data1", {}}, {"two", "data3", {}}}), "Entry 2 has other data.");
    EXPECT_EQ(told({{"one", "data1", 9}, {"two", "data2", {}}}), "Entry 1 has another size.");
    EXPECT_EQ(told({{"one", "data1", {}}}), "Entry 2 is missing.");
    EXPECT_EQ(told({{"one", "data1", {}}, {"two", "data2", {}}, {"three", "", {}}}),
              "The directory lists 3 entries instead of 2.");
    EXPECT_EQ(told({{"one", "data1", {}}, {"two", "data2", {}}}, 2), "The head differs.");
    EXPECT_EQ(told({{"one", "data1", {}}, {"two", "data2", {}}}, 1, "xx"),
              "Entry 1 lies elsewhere.");
}

TEST_F(ArchiveProofTest, LeavesCheckpointAndStreamsAlone) {
    open({{"one", "data1", {}}});
    save();
    streams().open(slot::kArchiveSource, folder.path("game\\old.far"), OpenMode::Input);
    CheckpointNumber = 7000;
    EXPECT_EQ(difference(), "");
    folder.write("game/new.far", "rubbish");
    EXPECT_NE(difference(), "");
    EXPECT_EQ(CheckpointNumber, 7000);
    EXPECT_TRUE(streams().isOpen(slot::kArchiveSource));
    EXPECT_FALSE(streams().isOpen(slot::kArchiveOutput));
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
}

TEST_F(ArchiveProofTest, RunsTheCallersWorkBehindEachEntry) {
    open({{"one", "data1", {}}, {"two", "data2", {}}});
    add("a.bmp", "data of a");
    save();
    int entries = 0;
    EXPECT_EQ(archiveDifference(edit, out, [&] { ++entries; }), "");
    EXPECT_EQ(entries, 3);
}

}  // namespace
}  // namespace marlowick
