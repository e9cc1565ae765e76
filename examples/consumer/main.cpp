// A small host: fills a record, asks the module about controllers and makers,
// round-trips the record through the interface and prints a stroke time.
// It includes nothing but the module's public headers and the standard library.
// It has no QApplication of its own, so the module makes one when the first
// panel opens; the host's C library must read and print numbers afterwards
// exactly as before (exit 1 if not).

#include <KRNMachineData.h>
#include <KRNPanelMessages.h>
#include <KRNProMachineInterface.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

CKRNMachineData SampleRecord() {
    CKRNMachineData record;
    record.SetMachine(MC_SCREW_DIAMETER, 40.0);
    record.SetMachine(MC_MAX_INJECTION_RATE, 200.0);
    record.SetMachineData(MI_MAX_RAM_POSITION, 120.0);
    record.SetMachineData(MI_INJECTION_VOLUME_1, 100.0);
    record.SetMachineData(MI_PACKING_TIME, 4.0);
    record.SetProcessInfo(PI_PROCESS_NAME, std::string("housing, 40 mm screw"));
    const double stroke[][2] = {{100, 40}, {80, 60}, {60, 80}, {40, 60}, {20, 40}, {0, 40}};
    for (int i = 0; i < 6; ++i) record.SetMachineData(MI_FP_PROFILE, i, stroke[i][0], stroke[i][1]);
    return record;
}

// How the host's own C library treats numbers at a moment.
struct NumberHabits {
    std::string locale;   // setlocale(LC_ALL, nullptr)
    std::string printed;  // "%.2f" of 12.5
    double read;          // atof("12.5")
    std::string readAs;   // that value, "%g" as printed then
};

NumberHabits CurrentHabits() {
    char printed[32], readAs[32];
    std::snprintf(printed, sizeof printed, "%.2f", 12.5);
    const double read = std::atof("12.5");
    std::snprintf(readAs, sizeof readAs, "%g", read);
    const char* locale = std::setlocale(LC_ALL, nullptr);
    return {locale ? locale : "", printed, read, readAs};
}

}  // namespace

int main(int argc, char** argv) {
    // A host that follows the user's language but keeps its numbers with a
    // full stop, as hosts that write files of numbers do.
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    const NumberHabits before = CurrentHabits();

    CKRNProMachineInterface panels;
    const int loaded = panels.Initialize(argc > 1 ? argv[1] : "");
    std::printf("resource module: %s\n", loaded ? "loaded" : "not found");

    KRNSetMessageHandler([](const std::string& caption, const std::string& text) {
        std::printf("message: %s: %s\n", caption.c_str(), text.c_str());
    });

    // Controllers without a panel answer at once; those with one would open it.
    std::printf("\ncontrollers without a panel, and names that are no controller:\n");
    const char* names[] = {"TACT", "NC9300T", "FCS-3000", "FANUC-Series", "Sodick-TRD6",
                           "SUMITOMO-450HD", "FANUC-B", "fanuc-a", "FANUC-A "};
    CKRNMachineData record = SampleRecord();
    for (const char* name : names) {
        CKRNProMachineInterface probe;
        const long long known = probe.KRNDoModal(record, name);
        std::printf("  %-18s recognised %lld, type %d, OK %d\n", (std::string("\"") + name + "\"").c_str(),
                    known, probe.GetControllerType(), probe.IsOK());
    }

    std::printf("\nmakers: ARBURG %d, JSW %d, jsw %d\n", panels.IsSupportMachieInterface("ARBURG"),
                panels.IsSupportMachieInterface("JSW"), panels.IsSupportMachieInterface("jsw"));

    const long long known = panels.KRNDoModal(record, "FANUC-B");
    CKRNMachineData back = panels.GetMachineData();
    double x = 0, y = 0;
    back.GetProfileData(MI_FP_PROFILE, 2, x, y);
    std::printf("\nround trip through \"FANUC-B\": recognised %lld, OK %d, %d flow-rate points, point 2 = (%g, %g)\n",
                known, panels.IsOK(), back.GetProfileDataCount(MI_FP_PROFILE), x, y);
    std::printf("stroke time of the sample record: %.4f s\n", back.CalcStrokeTime(1));

    // The first panel that opens makes the module's application object.
    {
        CKRNProMachineInterface hosted;
        hosted.Initialize(argc > 1 ? argv[1] : "");
        hosted.CreateMachineDialog(record, "FANUC-A");
    }
    const NumberHabits after = CurrentHabits();
    std::printf("\nhost numbers before and after the first panel: \"%s\" and %s, then \"%s\" and %s\n",
                before.printed.c_str(), before.readAs.c_str(), after.printed.c_str(), after.readAs.c_str());
    if (after.locale != before.locale || after.printed != before.printed || after.read != before.read) {
        std::fprintf(stderr, "the module changed the host's locale from %s to %s\n", before.locale.c_str(),
                     after.locale.c_str());
        return 1;
    }
    return 0;
}
