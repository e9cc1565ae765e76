#include "KRNRecordBuilder.h"

#include <cmath>

bool KRNAllFinite(const CKRNMachineData& r) {
    for (int item = 0; item <= MI_INJECTION_VOLUME_3; ++item) {
        if (!std::isfinite(KRNItem(r, static_cast<KRNMACHINEITEM>(item)))) return false;
        for (const auto& [x, y] : KRNProfile(r, static_cast<KRNMACHINEITEM>(item)))
            if (!std::isfinite(x) || !std::isfinite(y)) return false;
    }
    for (int m = 0; m <= MC_SPEC_6; ++m)
        if (!std::isfinite(r.GetMachine(static_cast<KRNMACHINE>(m)))) return false;
    return true;
}
