#pragma once

#include <benchmark/benchmark.h>

/// Runs a benchmark on libraries of four sizes, up to the fullest, and fits its complexity.
inline void ForEverySize(benchmark::internal::Benchmark* benchmark) {
    for (const int tracks : {1000, 4000, 16000, 32767}) {
        benchmark->Arg(tracks);
    }
    benchmark->Unit(benchmark::kMillisecond)->Complexity();
}
