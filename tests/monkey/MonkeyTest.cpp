// Random sessions on every panel of the controller table, opened the way a
// host opens them. Whatever a person does at the screen, the host must get
// back a record it can use: after Cancel nothing is written back, after OK
// every number of the record is finite, and a read-only record is never
// changed by leaving pages (nor by OK, except on screens whose OK takes the
// shown page whatever the flag). A panel joins the walk by joining the table.
//
// The walk is seeded, so CI sees the same sessions every run:
//   KRN_MONKEY_SEED=n      another walk (decimal or 0x hex)
//   KRN_MONKEY_SESSIONS=n  a longer (or shorter) one
//   KRN_MONKEY_SESSION=n   session n alone, its steps printed
// A failure names its seed and session, and lists the steps as krn-panel
// script lines with the messages the panel showed.

#include "KRNMonkey.h"

#include "CKRNDialog.h"
#include "common/CKRNPanelFrame.h"
#include "KRNMessageCapture.h"
#include "KRNPanelDriver.h"
#include "KRNPanelTable.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "KRNRecordJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

#if defined(__SANITIZE_ADDRESS__) || (defined(__has_feature) && __has_feature(address_sanitizer))
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

constexpr std::uint64_t kDefaultSeed = 0x4B524E4D4F4E4B31ull;
// About 10 s in a plain build and 20 s with the sanitizers on a CI machine,
// however many panels share them.
constexpr std::uint64_t kDefaultSessions = kSanitized ? 480 : 1200;
constexpr unsigned kSessionSeconds = 120;  // a session that takes longer hangs
constexpr int kDetailedFailures = 8;

std::uint64_t EnvNumber(const char* name, std::uint64_t fallback) {
    const char* text = std::getenv(name);
    return text && *text ? std::strtoull(text, nullptr, 0) : fallback;
}

// ---- the records the walk starts from ----

struct Start {
    const char* what;
    CKRNMachineData record;
};

std::vector<Start> Starts() {
    std::vector<Start> starts;
    starts.push_back({"a 40 mm screw", KRN40mmRecord()});

    CKRNMachineData empty = KRN40mmRecord();
    empty.SetMachine(MC_SCREW_DIAMETER, 0.0);
    for (KRNMACHINEITEM p : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE, MI_ICMF_PROFILE}) KRNSetProfile(empty, p, {});
    starts.push_back({"screw diameter 0, empty profiles", empty});

    CKRNMachineData long50 = KRN40mmRecord();
    for (auto [p, base] : {std::pair{MI_FP_PROFILE, 20}, {MI_P_PROFILE, 30}, {MI_PP_PROFILE, 10}, {MI_ICMF_PROFILE, 5}}) {
        KRNPointList points;
        for (int i = 0; i < 50; ++i) points.emplace_back(100.0 - i * 100.0 / 49.0, base + (i * 37) % 60);
        KRNSetProfile(long50, p, points);
    }
    starts.push_back({"50-point profiles", long50});

    CKRNMachineData compression = KRN40mmRecord();
    compression.SetProcessInfo(PI_PROCESS_VALUE, 5);
    compression.SetMachineData(MI_VALUE_21, 3.0);
    compression.SetMachineData(MI_VALUE_23, 100.0);  // tonnes
    KRNSetProfile(compression, MI_ICMF_PROFILE, {{100, 40}, {60, 80}, {20, 60}, {0, 60}});
    starts.push_back({"injection-compression", compression});

    CKRNMachineData readOnly = KRN40mmRecord();
    readOnly.SetMachineData(MI_READ_ONLY, true);
    starts.push_back({"read-only", readOnly});
    return starts;
}

// ---- the panels: one per controller type of the table ----

struct Panel {
    std::string name;
    int type;
};

std::vector<Panel> Panels() {
    std::vector<Panel> panels;
    std::set<int> seen;
    for (const KRNControllerName& row : KRNControllerTable())
        if (KRNFindPanel(row.type) && seen.insert(row.type).second) panels.push_back({std::string(row.name), row.type});
    return panels;
}

// ---- what the host gets back ----

std::string Compact(const QJsonValue& v) {
    const QByteArray text = QJsonDocument(QJsonArray{v}).toJson(QJsonDocument::Compact);
    std::string s = text.mid(1, text.size() - 2).toStdString();
    return s.size() > 160 ? s.substr(0, 160) + "..." : s;
}

// What differs between two records, key by key as krn-panel writes them.
std::string Differences(const CKRNMachineData& before, const CKRNMachineData& after) {
    const QJsonObject a = QJsonDocument::fromJson(KRNWriteRecordJson(before)).object();
    const QJsonObject b = QJsonDocument::fromJson(KRNWriteRecordJson(after)).object();
    std::string found;
    for (auto it = a.begin(); it != a.end(); ++it)
        if (it.value() != b.value(it.key()))
            found += it.key().toStdString() + ": " + Compact(it.value()) + " -> " + Compact(b.value(it.key())) + "; ";
    return found;
}

// ---- a session that dies or hangs still says which it was ----

struct CrashNote {
    std::string header;
    const std::vector<std::string>* steps = nullptr;
} g_crashNote;
constexpr int kWatchedSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGALRM};
struct sigaction g_previous[std::size(kWatchedSignals)];

void WriteErr(const std::string& s) { [[maybe_unused]] const ssize_t n = ::write(2, s.data(), s.size()); }

extern "C" void OnFatalSignal(int sig) {
    WriteErr(std::string("\n") + (sig == SIGALRM ? "hung" : "died of signal " + std::to_string(sig)) + " in " +
             g_crashNote.header + "\n");
    if (g_crashNote.steps)
        for (const std::string& step : *g_crashNote.steps) WriteErr("  " + step + "\n");
    for (std::size_t i = 0; i < std::size(kWatchedSignals); ++i)
        if (kWatchedSignals[i] == sig) sigaction(sig, &g_previous[i], nullptr);
    // A fault happens again on return, now under the handler before ours
    // (the sanitizers' report); the others are sent again.
    if (sig == SIGABRT || sig == SIGALRM) std::raise(sig);
}

class FatalSignalNote {
public:
    FatalSignalNote() {
        struct sigaction action {};
        action.sa_handler = OnFatalSignal;
        for (std::size_t i = 0; i < std::size(kWatchedSignals); ++i) sigaction(kWatchedSignals[i], &action, &g_previous[i]);
    }
    ~FatalSignalNote() {
        alarm(0);
        for (std::size_t i = 0; i < std::size(kWatchedSignals); ++i) sigaction(kWatchedSignals[i], &g_previous[i], nullptr);
        g_crashNote = {};
    }
};

// A panel that pads a profile to whatever count is typed (2147483647 stages)
// would take the whole machine's memory before failing; bounded, it fails in
// its own session. The sanitizers reserve their shadow memory as data, so
// their builds go without.
class MemoryBound {
public:
    MemoryBound() {
        if (kSanitized || getrlimit(RLIMIT_DATA, &m_previous) != 0) return;
        const rlimit bound{std::min<rlim_t>(m_previous.rlim_cur, rlim_t{2} << 30), m_previous.rlim_max};  // 2 GiB
        m_bSet = setrlimit(RLIMIT_DATA, &bound) == 0;
    }
    ~MemoryBound() {
        if (m_bSet) setrlimit(RLIMIT_DATA, &m_previous);
    }

private:
    rlimit m_previous{};
    bool m_bSet = false;
};

// ---- one session ----

struct Session {
    std::uint64_t index = 0, runSeed = 0;
    const Panel* panel = nullptr;
    const Start* start = nullptr;

    std::string Header() const {
        char seed[32];
        std::snprintf(seed, sizeof seed, "0x%llx", static_cast<unsigned long long>(runSeed));
        return "session " + std::to_string(index) + " of seed " + seed + ": " + panel->name + " on " + start->what +
               " (replay: KRN_MONKEY_SEED=" + seed + " KRN_MONKEY_SESSION=" + std::to_string(index) + " test_monkey)";
    }
};

struct Result {
    std::vector<std::string> problems, steps;
};

Result RunSession(const Session& s) {
    KRNMessageCapture messages;
    KRNMonkey monkey(
        KRNSessionSeed(s.runSeed, s.index), [&] { return messages.Messages().size(); },
        [&](std::size_t i) { return messages.Messages()[i].text; });
    g_crashNote = {s.Header(), &monkey.Log()};

    const CKRNMachineData& sent = s.start->record;
    CKRNProMachineInterface panels;
    std::int64_t known = -1;
    bool opened = false, endedWithOK = false;
    std::string navigated;     // what leaving pages changed in a read-only record
    bool okMayCommit = false;  // the screen's OK takes the shown page even then
    alarm(kSessionSeconds);
    KRNDriver::RunWhileOpen(
        [&] {
            CKRNDialog* panel = KRNDriver::TopDialog();
            if (!panel) return;
            opened = true;
            // A read-only record is never taken from a page the user leaves.
            QPointer<CKRNPanelFrame> frame = qobject_cast<CKRNPanelFrame*>(panel);
            const CKRNMachineData atOpen = frame ? frame->GetMachineData() : CKRNMachineData();
            monkey.Walk(panel, 4 + monkey.Dice().Below(37));
            if (sent.IsReadOnly() && frame) {
                navigated = Differences(atOpen, frame->GetMachineData());
                okMayCommit = frame->OKCommitsReadOnly();
            }
            if (monkey.Problems().empty()) endedWithOK = monkey.Finish();
        },
        [&] { known = panels.KRNDoModal(sent, s.panel->name); });
    alarm(0);

    Result r{monkey.Problems(), monkey.Log()};
    g_crashNote.steps = nullptr;
    if (KRNDriver::TopDialog()) {
        r.problems.push_back("a dialog stayed open after the session");
        KRNDriver::CancelAll();
    }
    if (known != 1) r.problems.push_back("KRNDoModal gave " + std::to_string(known) + " for a controller of the table");
    if (!opened) r.problems.push_back("the panel did not open");

    const CKRNMachineData back = panels.GetMachineData();
    if (!panels.IsOK()) {
        if (const std::string d = Differences(sent, back); !d.empty())
            r.problems.push_back("the record changed although nothing was written back: " + d);
        return r;
    }
    if (!endedWithOK) r.problems.push_back("the interface reports OK after Cancel");
    if (!KRNAllFinite(back))
        r.problems.push_back("the record came back with values that are no finite number: " + Differences(sent, back));
    if (!navigated.empty()) r.problems.push_back("leaving pages changed a read-only record: " + navigated);
    if (sent.IsReadOnly() && !okMayCommit)
        if (const std::string d = Differences(sent, back); !d.empty())
            r.problems.push_back("a read-only record changed: " + d);
    return r;
}

std::string Lines(const std::vector<std::string>& lines, const char* indent) {
    std::string text;
    for (const std::string& line : lines) text += indent + line + "\n";
    return text;
}

}  // namespace

TEST(Monkey, EveryPanelOfTheTableTakesRandomSessions) {
    const std::vector<Panel> panels = Panels();
    ASSERT_FALSE(panels.empty()) << "no controller of the table has a panel";
    const std::vector<Start> starts = Starts();
    const std::uint64_t seed = EnvNumber("KRN_MONKEY_SEED", kDefaultSeed);
    const char* only = std::getenv("KRN_MONKEY_SESSION");
    std::uint64_t first = 0, count = EnvNumber("KRN_MONKEY_SESSIONS", kDefaultSessions);
    if (only && *only) first = EnvNumber("KRN_MONKEY_SESSION", 0), count = 1;

    FatalSignalNote note;
    MemoryBound memory;
    int failures = 0;
    for (std::uint64_t k = first; k < first + count; ++k) {
        const Session s{k, seed, &panels[k % panels.size()], &starts[(k / panels.size()) % starts.size()]};
        const Result r = RunSession(s);
        // A failure is only worth its seed if the same seed walks the same way.
        if (k < first + panels.size()) {
            EXPECT_EQ(RunSession(s).steps, r.steps) << s.Header();
        }
        if (only && *only) std::printf("%s\n%s", s.Header().c_str(), Lines(r.steps, "    ").c_str());
        if (!r.problems.empty() && ++failures <= kDetailedFailures)
            ADD_FAILURE() << s.Header() << "\n" << Lines(r.problems, "  ") << "  steps:\n" << Lines(r.steps, "    ");
    }
    EXPECT_EQ(failures, 0) << failures << " of " << count << " sessions failed";
    std::printf("monkey: %llu session(s) from %llu on %zu panel(s), seed 0x%llx\n", static_cast<unsigned long long>(count),
                static_cast<unsigned long long>(first), panels.size(), static_cast<unsigned long long>(seed));
}
