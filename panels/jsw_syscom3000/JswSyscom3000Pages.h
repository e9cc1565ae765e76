#pragma once

// The three pages of the JSW Syscom3000 panel.

#include "JswSyscom3000Ids.h"
#include "common/CKRNStagePage.h"

// Temperatures: mould and melt temperature, mirrored onto the machine picture,
// and the machine data.
class CMACHINE_JSW_SYSCOM3000_TEMP : public CKRNPanelPage {
    Q_OBJECT
public:
    CMACHINE_JSW_SYSCOM3000_TEMP(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// Injection and hold: the stages, the V/P switch position, the suck-back and
// the machine data.
class CMACHINE_JSW_SYSCOM3000_INJ : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_JSW_SYSCOM3000_INJ(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
};

// Injection-compression and hold: the same stages on their own fields, and
// for an injection-compression process six compression stages (force in kN
// from the record's tonnes, time in s).
class CMACHINE_JSW_SYSCOM3000_PACK : public CKRNStagePage {
    Q_OBJECT
public:
    CMACHINE_JSW_SYSCOM3000_PACK(const CKRNMachineData& data, QWidget* frame);
    bool OnInitDialog() override;
    void ToPageForm() override;
    void ToRecordForm() override;

    double m_dValue21 = 0.0;
    double m_dValue23 = 0.0;  // the force, in tonnes, of 100 % compression
    int m_nICMFCount = 0;

private:
    bool IsCompressionProcess() const;
    double Force(int stage) const;  // kN
    void OnForceChanged(int stage);
    void OnCompressionTimeChanged(int stage);
};
