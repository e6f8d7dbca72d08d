// Reading and writing of user files, and the renewal of a large resource map.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "foundation/bytes.h"
#include "iff/iff_file.h"
#include "system/files.h"

namespace marlowick {
namespace {

Path scratchFile(const char* name) {
    return Path((std::filesystem::temp_directory_path() / name).string());
}

IffFile recordOf(int segments) {
    IffFile iff;
    iff.HasRsmp = true;
    iff.RsmpTypes.resize(1);
    iff.RsmpTypes[1].TypeCode = "AAAA";
    iff.RsmpTypes[1].EntryCount = segments;
    iff.RsmpTypeCount = 1;
    for (int i = 1; i <= segments; ++i) {
        const std::string id = gfstrLongToBigEndian(i).substr(2);
        const std::string data(200, 'x');
        iff.Segments.append({0, "AAAA", gfstrLongToBigEndian(76 + 200), id + std::string(2, '\0'),
                             std::string(64, '\0'), data});
        iff.RsmpTypes[1].Entries.append({std::string(4, '\0'),
                                         std::string(id.rbegin(), id.rend()) + std::string(2, '\0'),
                                         std::string("abcde\0", 6)});
    }
    return iff;
}

void readUserFile(benchmark::State& state) {
    const Path path = scratchFile("marlowick-bench.iff");
    removeIfPresent(path);
    IffFile iff = recordOf(static_cast<int>(state.range(0)));
    gsWriteIFF(iff, path);
    for (auto _ : state) {
        gsResetIFF(iff);
        benchmark::DoNotOptimize(gfstrQuickReadIFF(iff, path));
    }
    removeIfPresent(path);
}
BENCHMARK(readUserFile)->Arg(10)->Arg(100)->Arg(1000);

void writeUserFile(benchmark::State& state) {
    const Path path = scratchFile("marlowick-bench.iff");
    IffFile iff = recordOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        removeIfPresent(path);
        benchmark::DoNotOptimize(gsWriteIFF(iff, path));
    }
    removeIfPresent(path);
}
BENCHMARK(writeUserFile)->Arg(100)->Arg(1000);

// Grows with the number of rows, not with its square.
void updateMap(benchmark::State& state) {
    IffFile iff = recordOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        gsUpdateRsmp(iff);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(updateMap)->RangeMultiplier(4)->Range(512, 32767)->Complexity();

}  // namespace
}  // namespace marlowick
