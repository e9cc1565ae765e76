#include "KRNSampleRecord.h"

#include <string>

CKRNMachineData KRNSampleRecord() {
    CKRNMachineData r;
    r.SetProcessInfo(PI_PROCESS_NAME, std::string("Housing cover, 2-cavity"));
    r.SetProcessInfo(PI_MATERIAL_NAME, std::string("PC/ABS"));
    r.SetMachine(MC_SCREW_DIAMETER, 40.0);
    r.SetMachine(MC_MAX_INJECTION_RATE, 200.0);
    r.SetMachine(MC_SPEC_2, 180.0);
    r.SetMachine(MC_SPEC_3, 220.0);
    r.SetMachine(MC_SPEC_4, 251.0);
    r.SetMachine(MC_SPEC_5, 1500.0);
    r.SetMachineData(MI_MAX_RAM_POSITION, 120.0);
    r.SetMachineData(MI_VP_RAM_POSITION, 18.0);
    r.SetMachineData(MI_FILLING_TIME, 1.2);
    r.SetMachineData(MI_PACKING_TIME, 6.0);
    r.SetMachineData(MI_COOLING_TIME, 15.0);
    r.SetMachineData(MI_INJECTION_PRESSURE, 160.0);
    r.SetMachineData(MI_PACKING_PRESSURE, 80.0);
    r.SetMachineData(MI_MELT_TEMPERATURE, 260.0);
    r.SetMachineData(MI_MOLD_TEMPERATURE, 70.0);
    r.SetMachineData(MI_SUCK_BACK_VALUE, 5.0);
    r.SetMachineData(MI_INJECTION_VOLUME_1, 110.0);
    const double speed[][2] = {{100, 40}, {85, 70}, {60, 90}, {35, 60}, {15, 35}, {0, 35}};
    for (int i = 0; i < 6; ++i) r.SetMachineData(MI_FP_PROFILE, i, speed[i][0], speed[i][1]);
    const double pressure[][2] = {{100, 70}, {60, 85}, {15, 60}, {0, 60}};
    for (int i = 0; i < 4; ++i) r.SetMachineData(MI_P_PROFILE, i, pressure[i][0], pressure[i][1]);
    // Hold 1 s at 80 %, 3 s at 60 %, 2 s at 40 % of the packing pressure.
    const double hold[][2] = {{100, 40}, {66.6666666667, 60}, {16.6666666667, 80}, {0, 80}};
    for (int i = 0; i < 4; ++i) r.SetMachineData(MI_PP_PROFILE, i, hold[i][0], hold[i][1]);
    return r;
}
