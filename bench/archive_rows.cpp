// Archives: directories, extraction, saving.
#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>

#include "bench/archive_file.h"
#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "far/far_directory.h"
#include "far/far_save.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "foundation/history_command.h"
#include "foundation/history_places.h"
#include "system/files.h"

namespace marlowick::bench {
namespace {

constexpr int kEntrySize = 6144;

class ReadDirectory : public Case {
  public:
    explicit ReadDirectory(int count) { plainWrite(file_, archiveOf(count, 0)); }
    void floor() override { benchmark::DoNotOptimize(plainDirectory(file_).size()); }
    void routine() override {
        readFarDirectory(directory_, path_);
        benchmark::DoNotOptimize(directory_.Entries.bound());
    }

  private:
    BenchFolder folder_;
    std::string file_ = folder_.of("bench.far");
    Path path_ = folder_.path("bench.far");
    FarDirectory directory_;
};

// What extraction is measured with: an archive, its directory, and a folder for the output.
class Extraction : public Case {
  public:
    Extraction(int count, int size) : count_(count), size_(size) {
        plainWrite(file_, archiveOf(count, size));
        gsReadFARdir(directory_, path_);
    }
    void floor() override {
        const PlainSource archive(file_);
        for (int number = 1; number <= count_; ++number) {
            const auto size = static_cast<std::size_t>(size_);
            archive.copyTo(output_ + "/" + entryName(number),
                           16 + static_cast<std::size_t>(number - 1) * size, size,
                           std::size_t{1} << 20U);
        }
    }
    void routine() override {
        FarExtraction extraction(path_, Path(output_));
        for (int number = 1; number <= count_; ++number) {
            extraction.extract(directory_, number);
        }
    }

  protected:
    void anotherFolder() { output_ = folder_.makeFolder("out" + std::to_string(++round_)); }

  private:
    int count_;
    int size_;
    int round_ = 0;
    BenchFolder folder_;
    std::string file_ = folder_.of("bench.far");
    Path path_ = folder_.path("bench.far");
    std::string output_ = folder_.makeFolder("out");
    FarDirectory directory_;
};

class ExtractLarge : public Extraction {
  public:
    explicit ExtractLarge(int mebibytes) : Extraction(1, mebibytes << 20) {}
};

class ExtractOver : public Extraction {
  public:
    explicit ExtractOver(int count) : Extraction(count, kEntrySize) { floor(); }
};

class ExtractIntoEmpty : public Extraction {
  public:
    explicit ExtractIntoEmpty(int count) : Extraction(count, kEntrySize) {}
    void prepare() override { anotherFolder(); }
};

// Two plain copies into new files, the second flushed, beside what proves the second and keeps the
// old one: both read in pieces, and a third copy, flushed.
class SaveArchive : public Case {
  public:
    explicit SaveArchive(int mebibytes) : size_(static_cast<std::size_t>(mebibytes) << 20U) {
        folder_.makeFolder("temp");
        folder_.makeFolder("game/gamedata/textures");
        ProgramFolder = folder_.path("");
        SimsPath = folder_.path("game");
        plainWrite(file_, archiveOf(mebibytes, 1 << 20));
        edit_.mstrFarFile = path_;
        gsReadFARdir(edit_.mudtFarDir, path_);
    }
    // Each save makes the archive a letter longer or shorter, as adding and deleting would: of one
    // that stays what it is nothing is kept. What the last run has kept goes, so that no run
    // prunes.
    void prepare() override {
        FarEntry& entry = edit_.mudtFarDir.Entries[1];
        if (entry.FileName.ends_with('q')) {
            entry.FileName.pop_back();
        } else {
            entry.FileName += 'q';
        }
        entry.NameLength =
            gfstrLongToLittleEndian(static_cast<std::int32_t>(entry.FileName.size()));
        for (const char* name : {"first", "kept", "second", "History"}) {
            std::filesystem::remove_all(folder_.of(name));
        }
    }
    void floor() override {
        constexpr std::size_t kMebibyte = std::size_t{1} << 20U;
        plainCopy(file_, 0, size_, folder_.of("first"), kMebibyte);
        plainCopy(file_, 0, size_, folder_.of("kept"), kMebibyte, true);
        plainCopy(folder_.of("first"), 0, size_, folder_.of("second"), kMebibyte, true);
        plainReadThrough(file_, kMebibyte);
        plainReadThrough(folder_.of("second"), kMebibyte);
    }
    void routine() override {
        History history(historyPlaces());
        HistoryCommand command(history, "Save archive", "", {});
        saveArchive(edit_, path_, command, {[](int, int) {}, {}});
    }

  private:
    std::size_t size_;
    BenchFolder folder_;
    std::string file_ = folder_.of("game/gamedata/textures/bench.far");
    Path path_ = folder_.path("game\\gamedata\\textures\\bench.far");
    FarEdit edit_;
};

}  // namespace

std::vector<Row> archiveRows() {
    return {{.name = "Read an archive's directory, # entries",
             .toReach = 1.3,
             .sizes = {1000, 10'000, 100'000},
             .smallSize = 100,
             .growth = {100, 1000, 10'000, 100'000},
             .make = sized<ReadDirectory>()},
            {.name = "Extract one entry of # MiB",
             .toReach = 1.1,
             .sizes = {64},
             .smallSize = 1,
             .make = sized<ExtractLarge>()},
            {.name = "Extract # entries of 6 KB, over files that are there",
             .toReach = 1.5,
             .sizes = {2000},
             .smallSize = 20,
             .make = sized<ExtractOver>()},
            {.name = "Extract # entries of 6 KB into an empty folder, one call an entry",
             .toReach = 1.5,
             .sizes = {1000, 10'000, 30'000},
             .smallSize = 20,
             .growth = {100, 1000, 10'000, 100'000},
             .make = sized<ExtractIntoEmpty>()},
            {.name = "Save an archive of # MiB",
             .toReach = 0.7,
             .sizes = {250},
             .smallSize = 2,
             .make = sized<SaveArchive>()}};
}

}  // namespace marlowick::bench
