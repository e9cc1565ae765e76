// The JSON record reader under any file a host or a person may hand to
// krn-panel. What a host relies on:
// - no crash, whatever the file holds;
// - a refused file says why and leaves the record as it was;
// - an accepted one puts no value that is no finite number into the record,
//   and what the writer makes of the record reads back to the same record.

#include "KRNRecordJson.h"

#include <QByteArray>
#include <QString>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

[[noreturn]] void Fail(const std::string& what, const QByteArray& json) {
    std::fprintf(stderr, "\n%s\n  input: %s\n", what.c_str(), json.left(2000).toPercentEncoding(" {}[]:,\"").constData());
    std::abort();
}

// A record with a value of every kind set, so that a refused file has
// something to leave alone.
CKRNMachineData Start() {
    CKRNMachineData r;
    r.SetMachine(MC_SCREW_DIAMETER, 40.0);
    r.SetMachine(MC_SPEC_6, 6.0);
    r.SetMachineData(MI_PACKING_TIME, 6.0);
    r.SetMachineData(MI_VP_SWITCH_CTRL, 1);
    r.SetMachineData(MI_READ_ONLY, true);
    r.SetMachineData(MI_FP_PROFILE, 0, 100.0, 40.0);
    r.SetMachineData(MI_FP_PROFILE, 1, 0.0, 40.0);
    r.SetProcessInfo(PI_MATERIAL_NAME, std::string("PP"));
    r.SetProcessInfo(PI_PROCESS_VALUE, 5);
    r.SetLanguage("zh-TW");
    r.SetPressureUnit(1);
    return r;
}

std::string NonFinite(const CKRNMachineData& r) {
    for (int i = 0; i <= MI_INJECTION_VOLUME_3; ++i) {
        const auto item = static_cast<KRNMACHINEITEM>(i);
        double v = 0;
        r.GetMachineData(item, v);
        if (!std::isfinite(v)) return "item " + std::to_string(i);
        for (int n = 0; n < r.GetProfileDataCount(item); ++n) {
            double x = 0, y = 0;
            r.GetProfileData(item, n, x, y);
            if (!std::isfinite(x) || !std::isfinite(y)) return "item " + std::to_string(i) + " point " + std::to_string(n);
        }
    }
    for (int m = 0; m <= MC_SPEC_6; ++m)
        if (!std::isfinite(r.GetMachine(static_cast<KRNMACHINE>(m)))) return "machine value " + std::to_string(m);
    return {};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static const CKRNMachineData start = Start();
    static const QByteArray startJson = KRNWriteRecordJson(start);

    CKRNMachineData record = start;
    QString error;
    if (!KRNReadRecordJson(json, record, error)) {
        if (error.isEmpty()) Fail("a refused record says nothing", json);
        if (KRNWriteRecordJson(record) != startJson) Fail("a refused record changed the record", json);
        return 0;
    }
    if (const std::string bad = NonFinite(record); !bad.empty()) Fail("the record took a value that is no finite number: " + bad, json);

    const QByteArray written = KRNWriteRecordJson(record);
    CKRNMachineData again;
    QString againError;
    if (!KRNReadRecordJson(written, again, againError))
        Fail("the reader refuses what the writer wrote: " + againError.toStdString(), json);
    if (KRNWriteRecordJson(again) != written) Fail("a record does not read back as it was written", json);
    return 0;
}
