// Reading the directory of a large archive, and saving one.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "far/far_save.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "system/files.h"

namespace marlowick {
namespace {

void readArchiveDirectory(benchmark::State& state) {
    const Path path((std::filesystem::temp_directory_path() / "marlowick-bench.far").string());
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

// count entries of size bytes each. Every byte is written twice: to the temporary file, and beside
// the archive.
void saveWholeArchive(benchmark::State& state) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "marlowick-bench";
    fs::create_directories(folder / "temp");
    ProgramFolder = Path(folder.string());
    const auto count = static_cast<std::int32_t>(state.range(0));
    const auto size = static_cast<std::int32_t>(state.range(1));
    FarEdit edit;
    edit.mstrFarFile = ProgramFolder + "\\bench.far";
    std::string directory = gfstrLongToLittleEndian(count);
    for (std::int32_t i = 0; i < count; ++i) {
        directory += gfstrLongToLittleEndian(size) + gfstrLongToLittleEndian(size) +
                     gfstrLongToLittleEndian(16 + i * size) + gfstrLongToLittleEndian(5) + "a.bmp";
    }
    writeWholeFile(
        edit.mstrFarFile,
        "FAR!byAZ" + gfstrLongToLittleEndian(1) + gfstrLongToLittleEndian(16 + count * size) +
            std::string(static_cast<std::size_t>(count) * static_cast<std::size_t>(size), 'x') +
            directory);
    gsReadFARdir(edit.mudtFarDir, edit.mstrFarFile);
    for (auto _ : state) {
        saveArchive(edit, edit.mstrFarFile, {[](int, int) {}, {}});
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t{2} * count * size);
    fs::remove_all(folder);
}
BENCHMARK(saveWholeArchive)
    ->Args({1, 256 << 20})
    ->Args({30000, 8000})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace marlowick
