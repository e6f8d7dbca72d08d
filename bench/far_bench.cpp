// Reading the directory of a large archive.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "platform/files.h"

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

}  // namespace
}  // namespace marlowick
