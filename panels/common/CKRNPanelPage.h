#pragma once

// A page of a controller panel: a child dialog over the frame's placeholder,
// holding its own copy of the record, which it shows in the machine's units
// and into which it writes every accepted edit at once.

#include "CKRNDialog.h"
#include "KRNClockText.h"
#include "KRNFieldRanges.h"
#include "KRNPanelData.h"

#include <span>

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
    // Reads an edited number field of kind `kind`, checked in the screens'
    // order: text that is no number (message 61713), a number above the
    // panel's own limit `upper` (352) or outside its lower..upper (353), then
    // one outside the range any machine takes for that kind (353, see
    // KRNFieldRanges.h). On refusal the user is told, the field shows `stored`
    // again ("%6.2f") and false comes back.
    bool ReadNumberField(int id, double stored, double& value, KRNField kind);
    bool ReadNumberField(int id, double stored, double& value, KRNField kind, double upper);
    bool ReadNumberFieldInRange(int id, double stored, double& value, KRNField kind, double lower, double upper);
    // A field the screen stores as typed, without the number test: text that
    // is no number reads as 0, as atof reads it. Only the range of its kind is
    // checked (353; the field shows `stored` again with `format`).
    bool ReadPlainField(int id, double stored, double& value, KRNField kind, const char* format = "%lg");
    // Binds field `id` to record item `item` as a plain field: on every change
    // the number typed (ReadPlainField; `perRecordUnit` machine units make one
    // record unit, 10 for bar from MPa) is stored, then `mirror` gets the
    // field's text (the screens repeat some values elsewhere).
    void BindPlainField(int id, KRNMACHINEITEM item, KRNField kind, const char* format = "%lg",
                        double perRecordUnit = 1.0, std::function<void(const QString&)> mirror = nullptr);
    // A count of stages typed into field `id` while it shows `stages`. Text
    // that is no whole number yet ("", "-", "2.") is an entry in progress and a
    // negative count is ignored: false, nothing said. A count below one stage
    // or above the screen's two digits is refused ("Can't smaller than %d",
    // "Can't more than %d") with `stages` shown again. True with `wanted` set.
    bool ReadStageCount(int id, int stages, int& wanted);
    // value / fullScale * 100, the record's percent form. Without a full scale
    // (0, below 0, infinite or no number: a screw diameter or stroke of 0 in
    // the machine data) there are no percentages: the user is told, field `id`
    // shows `stored` again and false comes back, so nothing that is no number
    // reaches the record.
    bool ToPercent(double value, double fullScale, double& percent, int id, double stored);
    // Refuses an edit of field `id` that needs `fullScale` when there is none
    // (as ToPercent); true when there is one.
    bool CheckFullScale(double fullScale, int id, double stored);
    // A stage's value typed into field `id`, shown as y × fullScale × 0.01 ×
    // unit (unit: machine units per record unit, 10 for bar from MPa): refused
    // without a full scale, above `upper` (352) or outside the kind's range;
    // else the stage's y takes it and its x stays. True when stored (the
    // caller applies its tail rule).
    bool EditStageValue(int id, KRNMACHINEITEM profile, int stage, double fullScale, double upper, KRNField kind,
                        double unit = 1.0);
    // A stage's own time in seconds (page form) typed into field `id`: the
    // stage's x takes it and its y stays. A time below 0 or beyond the range
    // of times is refused, and so is one that would make the stages' total no
    // finite number. True when stored.
    bool EditStageTime(int id, KRNMACHINEITEM profile, int stage);
    // "%6.2f" of a value into a field ("---" when it is no finite number).
    void ShowNumber(int id, double value);
    // Fills the fields the record does not feed with "---" (and disables them).
    void ShowUnfed(std::span<const int> ids, bool disable = false);
    // Puts a stage value back into its field ("%6.2f") without its handler running.
    void RestoreNumber(int id, double stored);

    // Asks the frame around the page to go to page `index` (a page's own
    // navigation keys).
    void GoToPage(int index);

    // A page with a clock writes the time into `controlId` on every message
    // it sees, and never lets Enter or Escape through.
    void SetClock(int controlId, const char* format = kKRNClockFormat,
                  KRNDateOrder order = KRNDateOrder::YearMonthDay) {
        m_Clock = {controlId, format, order};
    }

private:
    KRNClock m_Clock;
};
