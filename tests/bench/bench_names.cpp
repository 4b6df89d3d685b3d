// Giving names to files, at its worst: all titles of one folder are equal.

#include "copy/Naming.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>

namespace {

void NameEqualTitles(benchmark::State& state) {
    for (auto _ : state) {
        Naming naming;
        naming.FolderChanged = true;
        for (int64_t i = 0; i < state.range(0); ++i) {
            benchmark::DoNotOptimize(
                naming.MakeFileName(QStringLiteral("01 Untitled"), QStringLiteral(".mp3")));
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(NameEqualTitles)->Apply(ForEverySize);

} // namespace
