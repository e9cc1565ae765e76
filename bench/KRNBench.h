#pragma once

// Every figure of bench_krn is read beside a baseline measured in the same
// run: KRN_BENCH_RATIO(measured, baseline) names a pair, and after the run
// the median of each is printed with their ratio.

#include <benchmark/benchmark.h>

bool KRNBenchRatio(const char* measured, const char* baseline);

#define KRN_BENCH_RATIO(measured, baseline) \
    [[maybe_unused]] static const bool measured##_ratio_registered = KRNBenchRatio(#measured, #baseline)
