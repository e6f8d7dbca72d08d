// What keeping earlier versions costs: hashing, keeping, listing, pruning.
#include <benchmark/benchmark.h>

#include <string>

#include "foundation/sha256.h"

namespace marlowick {
namespace {

void hashContent(benchmark::State& state, Sha256Way way) {
    const std::string content(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) {
        Sha256Stream stream(way);
        stream.add(content);
        benchmark::DoNotOptimize(stream.finish());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(hashContent, fastest, Sha256Way::Fastest)->Arg(36000)->Arg(16 << 20);
BENCHMARK_CAPTURE(hashContent, plain, Sha256Way::Plain)->Arg(36000)->Arg(16 << 20);

}  // namespace
}  // namespace marlowick
