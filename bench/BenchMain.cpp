// bench_krn's main: a QApplication (offscreen unless a platform is chosen),
// this build's resource module, the benchmarks, then each pair's ratio and
// the panel table (open, baseline, ratio, keystroke, memory per panel).

#include "KRNBench.h"
#include "KRNResources.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cmath>
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

std::vector<KRNPanelRow>& PanelRows() {
    static std::vector<KRNPanelRow> rows;
    return rows;
}

// The console report, plus each measured path's median over its baseline's.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred) continue;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                m_medians[run.run_name.function_name] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime(),
                                                         benchmark::GetTimeUnitString(run.time_unit), run.report_label};
            if (run.run_type == Run::RT_Iteration)
                for (const auto& [name, counter] : run.counters)
                    m_counters[run.run_name.function_name][name] = counter.value;
        }
    }

    void PrintRatios() const {
        for (const auto& [measuredName, baselineName] : Pairs()) {
            const auto measured = m_medians.find(measuredName);
            const auto baseline = m_medians.find(baselineName);
            if (measured == m_medians.end() || baseline == m_medians.end()) continue;
            const Times& m = measured->second;
            const Times& b = baseline->second;
            if (b.real <= 0.0 || b.cpu <= 0.0) continue;
            std::printf("median %-34s / %-34s real %8.2f / %8.2f %s = %.2f   cpu %8.2f / %8.2f %s = %.2f\n",
                        measuredName.c_str(), baselineName.c_str(), m.real, b.real, m.unit, m.real / b.real, m.cpu,
                        b.cpu, m.unit, m.cpu / b.cpu);
        }
    }

    // Medians of the repetitions: real times, and the ratio of real and of
    // processor times (the latter steadier on a machine shared with builds).
    void PrintPanelTable() const {
        if (PanelRows().empty()) return;
        std::printf("\n%-26s %8s %8s %6s %6s %-9s %7s %8s %10s\n", "panel", "open ms", "plain ms", "ratio", "cpu", "field",
                    "key us", "open kB", "growth kB");
        for (const KRNPanelRow& row : PanelRows()) {
            const Times* open = Median(row.open);
            const Times* plain = Median(row.baseline);
            const Times* key = Median(row.keystroke);
            if (!open && !plain && !key && std::isnan(Counter(row.memory, "open_kB"))) continue;
            const double nan = std::nan("");
            const bool both = open && plain && plain->real > 0.0 && plain->cpu > 0.0;
            std::printf("%-26s %8.2f %8.2f %6.2f %6.2f %-9s %7.1f %8.0f %10.0f\n", row.panel.c_str(),
                        open ? open->real : nan, plain ? plain->real : nan, both ? open->real / plain->real : nan,
                        both ? open->cpu / plain->cpu : nan, key ? key->label.c_str() : "-", key ? key->real : nan,
                        Counter(row.memory, "open_kB"), Counter(row.memory, "growth_kB"));
        }
    }

private:
    struct Times {
        double real;
        double cpu;
        const char* unit;
        std::string label;
    };
    const Times* Median(const std::string& name) const {
        const auto it = m_medians.find(name);
        return it == m_medians.end() ? nullptr : &it->second;
    }
    double Counter(const std::string& run, const std::string& name) const {
        const auto it = m_counters.find(run);
        if (it == m_counters.end()) return std::nan("");
        const auto value = it->second.find(name);
        return value == it->second.end() ? std::nan("") : value->second;
    }
    std::map<std::string, Times> m_medians;
    std::map<std::string, std::map<std::string, double>> m_counters;
};

}  // namespace

bool KRNBenchRatio(const char* measured, const char* baseline) {
    Pairs().emplace_back(measured, baseline);
    return true;
}

void KRNBenchPanelRow(const KRNPanelRow& row) { PanelRows().push_back(row); }

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a desktop session Qt warns that it has no runtime folder; a
    // private one keeps the report to the figures.
    QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && runtime.isValid())
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    QApplication app(argc, argv);
    const QByteArray chosen = qgetenv("KRN_BENCH_MODULE");
    if (void* module = KRNResources::Load(chosen.isEmpty() ? KRN_BENCH_RESOURCE_MODULE : chosen.toStdString())) KRNResources::SetCurrent(module);
    KRNRegisterPanelBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    reporter.PrintPanelTable();
    benchmark::Shutdown();
    return 0;
}
