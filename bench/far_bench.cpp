// Reading the directory of a large archive, saving one, and extracting all of it.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "far/far_save.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "system/files.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

void readArchiveDirectory(benchmark::State& state) {
    const Path path((fs::temp_directory_path() / "marlowick-bench.far").string());
    const auto count = static_cast<std::int32_t>(state.range(0));
    std::string archive = "FAR!byAZ" + gfstrLongToLittleEndian(1) + gfstrLongToLittleEndian(16) +
                          gfstrLongToLittleEndian(count);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string name = "skins\\entry" + std::to_string(i) + ".bmp";
        archive += gfstrLongToLittleEndian(0) + gfstrLongToLittleEndian(0) +
                   gfstrLongToLittleEndian(16) +
                   gfstrLongToLittleEndian(static_cast<std::int32_t>(name.size())) + name;
    }
    writeWholeFile(path, archive);
    FarDirectory directory;
    for (auto _ : state) {
        readFarDirectory(directory, path);
        benchmark::DoNotOptimize(directory.Entries.bound());
    }
    removeIfPresent(path);
}
BENCHMARK(readArchiveDirectory)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

// A program folder with an archive of count entries of size bytes each, gone at the end.
class BenchFolder {
  public:
    BenchFolder(std::int32_t count, std::int32_t size) {
        fs::create_directories(folder_ / "temp");
        ProgramFolder = Path(folder_.string());
        std::string directory = gfstrLongToLittleEndian(count);
        for (std::int32_t i = 0; i < count; ++i) {
            const std::string name = "entry" + std::to_string(i) + ".bmp";
            directory += gfstrLongToLittleEndian(size) + gfstrLongToLittleEndian(size) +
                         gfstrLongToLittleEndian(16 + i * size) +
                         gfstrLongToLittleEndian(static_cast<std::int32_t>(name.size())) + name;
        }
        writeWholeFile(
            archive(),
            "FAR!byAZ" + gfstrLongToLittleEndian(1) + gfstrLongToLittleEndian(16 + count * size) +
                std::string(static_cast<std::size_t>(count) * static_cast<std::size_t>(size), 'x') +
                directory);
    }
    ~BenchFolder() { fs::remove_all(folder_); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    static Path archive() { return ProgramFolder + "\\bench.far"; }
    Path makeFolder(const std::string& name) const {
        fs::create_directories(folder_ / name);
        return ProgramFolder + ("\\" + name);
    }

  private:
    const fs::path folder_ = fs::temp_directory_path() / "marlowick-bench";
};

// Every byte is written twice: to the temporary file, and beside the archive.
void saveWholeArchive(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const auto size = static_cast<std::int32_t>(state.range(1));
    const BenchFolder folder(count, size);
    FarEdit edit;
    edit.mstrFarFile = BenchFolder::archive();
    gsReadFARdir(edit.mudtFarDir, edit.mstrFarFile);
    for (auto _ : state) {
        History history(historyPlaces());
        HistoryCommand command(history, "Save archive", "",
                               [](const KeepResult& /*result*/) { return true; });
        saveArchive(edit, edit.mstrFarFile, command, {[](int, int) {}, {}});
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t{2} * count * size);
}
BENCHMARK(saveWholeArchive)
    ->Args({1, 256 << 20})
    ->Args({30000, 8000})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// One call an entry, into one folder that is new each time. The cost of an entry mustn't grow with
// their number.
void extractOneByOne(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const BenchFolder folder(count, 6144);
    FarDirectory directory;
    gsReadFARdir(directory, BenchFolder::archive());
    int round = 0;
    for (auto _ : state) {
        const Path output = folder.makeFolder("out" + std::to_string(++round));
        for (int number = 1; number <= count; ++number) {
            gsExtractFile(BenchFolder::archive(), output, directory, number);
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(extractOneByOne)
    ->Arg(1000)
    ->Arg(8000)
    ->Arg(30000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace marlowick
