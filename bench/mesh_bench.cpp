// Turning the largest mesh that can be converted into text.
#include <benchmark/benchmark.h>

#include <bit>
#include <filesystem>
#include <random>
#include <string>

#include "foundation/bytes.h"
#include "mesh/mesh_converter.h"
#include "system/files.h"

namespace marlowick {
namespace {

std::string numbers(std::initializer_list<std::int32_t> values) {
    std::string bytes;
    for (const std::int32_t value : values) {
        bytes += gfstrLongToLittleEndian(value);
    }
    return bytes;
}

void convertMesh(benchmark::State& state) {
    const std::string folder = std::filesystem::temp_directory_path().string();
    const Path bmf(folder + "/marlowick-bench.bmf");
    const Path skn(folder + "/marlowick-bench.skn");
    const auto vertices = static_cast<std::int32_t>(state.range(0));
    std::mt19937 random(1);
    std::uniform_real_distribution<float> position(-3.0F, 3.0F);
    std::string mesh = std::string(2, '\0') + numbers({0, 0, 0, 0, 0, vertices});
    for (std::int32_t i = 0; i < vertices * 6; ++i) {
        mesh += gfstrLongToLittleEndian(std::bit_cast<std::int32_t>(position(random)));
    }
    writeWholeFile(bmf, mesh);
    for (auto _ : state) {
        benchmark::DoNotOptimize(gsConvertBMFtoSKN(bmf, skn));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(mesh.size()));
    removeIfPresent(bmf);
    removeIfPresent(skn);
}
BENCHMARK(convertMesh)->Arg(1000)->Arg(32766)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlowick
