#pragma once

// Every figure of bench_krn is read beside a baseline measured in the same
// run: KRN_BENCH_RATIO(measured, baseline) names a pair, and after the run
// the median of each is printed with their ratio.

#include <benchmark/benchmark.h>

#include <string>

bool KRNBenchRatio(const char* measured, const char* baseline);

#define KRN_BENCH_RATIO(measured, baseline) \
    [[maybe_unused]] static const bool measured##_ratio_registered = KRNBenchRatio(#measured, #baseline)

// One line of the panel table printed after the run: the names of a panel's
// benchmarks (open to first paint, its plain-Qt baseline, one keystroke) and
// of the run that carries its memory counters. The keystroke run's label
// names the field it typed into.
struct KRNPanelRow {
    std::string panel;
    std::string open;
    std::string baseline;
    std::string keystroke;
    std::string memory;
};
void KRNBenchPanelRow(const KRNPanelRow& row);

// Registers the benchmarks of every panel in the engine's panel table.
void KRNRegisterPanelBenchmarks();
