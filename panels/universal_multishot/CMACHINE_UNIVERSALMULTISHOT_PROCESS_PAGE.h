#pragma once

// The process screen of the Universal Multishot controller: five injection
// stages (speed and the position each begins at), three hold stages
// (pressure and time), the V-P switch position, the injection pressure and
// the calculated stroke time, in machine units on a dark screen. Every
// accepted edit is stored at once, at each change of the text.

#include "common/CKRNStagePage.h"

class CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_UNIVERSALMULTISHOT_PROCESS_PAGE(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;

protected:
    // A speed, position or hold pressure stored: the stroke time follows (a
    // hold time leaves it alone).
    void OnStageStored(const KRNStageFields& row, int stage) override;

private:
    // The injection pressure as shown: the pressure profile's first level
    // over the injection pressure; 0 without a pressure profile.
    double ShownInjectionPressure() const;
    // A pressure typed becomes the first point of the pressure profile,
    // which is made when there is none; the injection pressure itself stays.
    void OnInjectionPressureChanged();
    void ShowStrokeTime();
};
