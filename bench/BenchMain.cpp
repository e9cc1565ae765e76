// bench_krn's main: a QApplication (offscreen unless a platform is chosen),
// this build's resource module, the benchmarks, then each pair's ratio.

#include "KRNBench.h"
#include "KRNResources.h"

#include <QApplication>

#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

std::vector<std::pair<std::string, std::string>>& Pairs() {
    static std::vector<std::pair<std::string, std::string>> pairs;
    return pairs;
}

// The console report, plus each measured path's median over its baseline's.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median" && !run.error_occurred)
                m_medians[run.run_name.function_name] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime(),
                                                         benchmark::GetTimeUnitString(run.time_unit)};
    }

    void PrintRatios() const {
        for (const auto& [measuredName, baselineName] : Pairs()) {
            const auto measured = m_medians.find(measuredName);
            const auto baseline = m_medians.find(baselineName);
            if (measured == m_medians.end() || baseline == m_medians.end()) continue;
            const Times& m = measured->second;
            const Times& b = baseline->second;
            if (b.real <= 0.0 || b.cpu <= 0.0) continue;
            std::printf("median %-24s / %-22s real %8.2f / %8.2f %s = %.2f   cpu %8.2f / %8.2f %s = %.2f\n",
                        measuredName.c_str(), baselineName.c_str(), m.real, b.real, m.unit, m.real / b.real, m.cpu,
                        b.cpu, m.unit, m.cpu / b.cpu);
        }
    }

private:
    struct Times {
        double real;
        double cpu;
        const char* unit;
    };
    std::map<std::string, Times> m_medians;
};

}  // namespace

bool KRNBenchRatio(const char* measured, const char* baseline) {
    Pairs().emplace_back(measured, baseline);
    return true;
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (void* module = KRNResources::Load(KRN_BENCH_RESOURCE_MODULE)) KRNResources::SetCurrent(module);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
