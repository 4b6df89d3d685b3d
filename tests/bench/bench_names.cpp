// Giving names to files, at its worst: all titles of one folder are equal.

#include "copy/Naming.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

void NameEqualTitles(benchmark::State& state) {
    for (auto _ : state) {
        Naming naming;
        naming.ChangeFolder();
        for (int64_t i = 0; i < state.range(0); ++i) {
            benchmark::DoNotOptimize(naming.MakeFileName(u"01 Untitled"_s, u".mp3"_s));
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(NameEqualTitles)->Apply(ForEverySize);

} // namespace
