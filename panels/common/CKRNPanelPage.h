#pragma once

// A page of a controller panel: a child dialog over the frame's placeholder,
// holding its own copy of the record, which it shows in the machine's units
// and into which it writes every accepted edit at once.

#include "CKRNDialog.h"
#include "KRNPanelData.h"

class CKRNPanelPage : public CKRNDialog {
    Q_OBJECT
public:
    CKRNPanelPage(int templateId, const CKRNMachineData& data, QWidget* parent = nullptr);

    CKRNPanelData m_MachineData;

    // The frame has just copied its record into the page: turn record-form
    // stages into what the page edits (hold stages in seconds, say).
    virtual void ToPageForm() {}
    // The frame is about to take the page's record: the inverse.
    virtual void ToRecordForm() {}

    bool PreTranslateMessage(QObject* target, QEvent* event) override;

protected:
    // Reads an edited field for a stage value. Text that is no number, or a
    // number above `upper` (message 352) or outside lower..upper (message 353),
    // is refused: the user is told, the field shows `stored` again ("%6.2f")
    // and false comes back.
    bool ReadNumberField(int id, double stored, double& value);
    bool ReadNumberField(int id, double stored, double& value, double upper);
    bool ReadNumberFieldInRange(int id, double stored, double& value, double lower, double upper);
    // value / fullScale * 100, the record's percent form. A full scale of 0 (or
    // one that is no number) has no percentages: the user is told, field `id`
    // shows `stored` again and false comes back, so nothing that is no number
    // reaches the record.
    bool ToPercent(double value, double fullScale, double& percent, int id, double stored);
    // A stage's value typed into field `id`, shown as y × fullScale × 0.01 ×
    // unit (unit: machine units per record unit, 10 for bar from MPa): refused
    // above `upper` or without a full scale; else the stage's y takes it and
    // its x stays. True when stored (the caller applies its tail rule).
    bool EditStageValue(int id, KRNMACHINEITEM profile, int stage, double fullScale, double upper, double unit = 1.0);
    // A stage's own time in seconds (page form) typed into field `id`: the
    // stage's x takes it and its y stays. True when stored.
    bool EditStageTime(int id, KRNMACHINEITEM profile, int stage);
    // Puts a stage value back into its field ("%6.2f") without its handler running.
    void RestoreNumber(int id, double stored);

    // Asks the frame around the page to go to page `index` (a page's own
    // navigation keys).
    void GoToPage(int index);

    // A page with a clock writes the time into `controlId` on every message
    // it sees, and never lets Enter or Escape through.
    void SetClock(int controlId) { m_nClockControl = controlId; }

private:
    int m_nClockControl = 0;
};
