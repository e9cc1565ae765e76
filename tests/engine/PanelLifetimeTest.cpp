// Panels opened and closed again and again through the entry interface, as a
// host does all day: every panel of the table, modal and hosted, gives back
// what it took, and a hosted panel opened again holds one set of pages, not
// one more per opening. A panel joins by being in the table.

#include "CKRNDialog.h"
#include "KRNPanelDriver.h"
#include "KRNPanelTable.h"
#include "KRNPanelTest.h"
#include "KRNProMachineInterface.h"
#include "KRNRecordBuilder.h"
#include "common/CKRNPanelPage.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define KRN_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KRN_ADDRESS_SANITIZER 1
#endif
#endif

#if defined(KRN_ADDRESS_SANITIZER)
// The address sanitizer's own count of live bytes (its allocator header is
// not shipped with every compiler).
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

// Openings per panel and way of opening. A sanitized build opens a panel
// about six times slower and takes a tenth of the openings; its count of
// live bytes is exact, so fewer do. KRN_LIFETIME_ROUNDS sets another count,
// at least 100 (fewer leave the allocator's own caches in the average).
int Rounds() {
    if (const char* rounds = std::getenv("KRN_LIFETIME_ROUNDS")) return std::max(100, std::atoi(rounds));
#if defined(KRN_ADDRESS_SANITIZER)
    return 100;
#else
    return 1000;
#endif
}
// Openings before measuring: Qt's caches (glyphs, bitmaps, fonts) fill up in
// the first ones and are then kept for the life of the process.
constexpr int kWarmUpRounds = 100;

// Heap growth allowed per opening, averaged over the rounds. Measured after
// the warm-up: a modal opening grows by nothing (sanitizer count) or up to
// about 100 bytes (glibc, whose figure includes its own caches); a hosted one
// opened again by 88 to 96 bytes that Qt's focus bookkeeping keeps on the
// window shown again, given back with the window. What a panel would leave
// behind costs more: a plain widget about 730 bytes, a label or dialog about
// 1.1 KB, an edit 4 KB, one page about 3 KB. 512 bytes lies between the two.
constexpr double kBytesPerRound = 512.0;

struct PanelUnderTest {
    std::string name;  // a controller name of the table that has a panel
    bool hosted;       // it opens without a modal loop too
};

std::vector<PanelUnderTest> PanelsOfTheTable() {
    std::vector<PanelUnderTest> panels;
    for (const KRNControllerName& row : KRNControllerTable())
        if (const KRNPanelEntry* entry = KRNFindPanel(row.type))
            panels.push_back({std::string(row.name), entry->createHosted != nullptr});
    return panels;
}

// Bytes of heap in use: what the allocator has handed out and not had back.
// Finer than the resident set, which moves in pages and keeps freed memory.
long long HeapInUse() {
#if defined(KRN_ADDRESS_SANITIZER)
    return static_cast<long long>(__sanitizer_get_current_allocated_bytes());
#elif defined(__GLIBC__)
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long long>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

int WidgetsAlive() { return static_cast<int>(QApplication::allWidgets().size()); }

int PagesAlive() {
    int pages = 0;
    for (QWidget* w : QApplication::allWidgets())
        if (qobject_cast<CKRNPanelPage*>(w)) ++pages;
    return pages;
}

// The offscreen platform cannot raise a window and says so at every hosted
// opening; the rounds would bury the test's output under that line.
class QuietRaise {
public:
    QuietRaise() { s_previous = qInstallMessageHandler(&Filter); }
    ~QuietRaise() { qInstallMessageHandler(s_previous); }

private:
    static void Filter(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (text.contains(QLatin1String("does not support raise()"))) return;
        if (s_previous) s_previous(type, context, text);
    }
    static inline QtMessageHandler s_previous = nullptr;
};

// Two records taken in turn, so that an opening again has new values to show.
CKRNMachineData RecordOfRound(int round) {
    CKRNMachineData record = KRN40mmRecord();
    if (round % 2) {
        record.SetMachineData(MI_INJECTION_PRESSURE, 120.0);
        KRNSetProfile(record, MI_FP_PROFILE, {{100, 50}, {0, 50}});
    }
    return record;
}

}  // namespace

// A hosted panel is also opened once before and once after the rounds: opened
// again it is the same window with one set of pages, not one more per opening.
TEST(PanelLifetime, OpeningAndClosingEveryPanelGivesItsMemoryBack) {
    QuietRaise quiet;
    const int rounds = Rounds();
    const std::vector<PanelUnderTest> table = PanelsOfTheTable();
    ASSERT_TRUE(std::any_of(table.begin(), table.end(), [](const PanelUnderTest& p) { return p.hosted; }));
    for (const PanelUnderTest& p : table) {
        for (bool hosted : {false, true}) {
            if (hosted && !p.hosted) continue;
            SCOPED_TRACE(p.name + (hosted ? " hosted" : " modal"));
            KRNMessageCapture messages;
            CKRNProMachineInterface panels;
            auto round = [&](int i) {
                if (hosted) {
                    panels.CreateMachineDialog(RecordOfRound(i), p.name);
                    KRNTest::OK();
                    QApplication::processEvents();
                } else {
                    KRNTest::WhileOpen([&] { panels.KRNDoModal(RecordOfRound(i), p.name); }, [] { KRNTest::OK(); });
                }
            };
            CKRNDialog* frame = nullptr;
            int pages = 0, pagesBefore = PagesAlive();
            if (hosted) {
                panels.CreateMachineDialog(RecordOfRound(0), p.name);
                frame = KRNDriver::TopDialog();
                ASSERT_NE(frame, nullptr);
                pages = static_cast<int>(KRNDriver::Pages(frame).size());
                KRNTest::OK();
            }
            for (int i = 0; i < kWarmUpRounds; ++i) round(i);
            const long long heap = HeapInUse();
            const int widgets = WidgetsAlive();

            for (int i = 0; i < rounds; ++i) round(i);

            const double perRound = static_cast<double>(HeapInUse() - heap) / rounds;
            std::printf("%s %s: %+.0f bytes of heap per opening over %d openings\n", p.name.c_str(),
                        hosted ? "hosted" : "modal", perRound, rounds);
            EXPECT_LE(perRound, kBytesPerRound) << "over " << rounds << " openings";
            if (hosted) {
                panels.CreateMachineDialog(RecordOfRound(0), p.name);
                EXPECT_EQ(KRNDriver::TopDialog(), frame);
                EXPECT_EQ(PagesAlive() - pagesBefore, pages);
                KRNTest::OK();
                int windows = 0;
                for (QWidget* w : QApplication::topLevelWidgets())
                    if (qobject_cast<CKRNDialog*>(w)) ++windows;
                EXPECT_EQ(windows, 1);  // the frame; no page left behind as a window of its own
            }
            EXPECT_EQ(WidgetsAlive(), widgets);
            EXPECT_TRUE(messages.Texts().empty());  // a valid record opens and closes without a word
        }
    }
}
