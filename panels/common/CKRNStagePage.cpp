#include "CKRNStagePage.h"

#include "KRNMachineScales.h"
#include "KRNMessageBox.h"
#include "KRNNumberText.h"
#include "KRNStageRoutines.h"

#include <climits>
#include <cmath>

namespace {
// Stroke profiles hold x in percent of the stroke; the others of a time.
bool IsStrokeProfile(KRNMACHINEITEM profile) { return profile == MI_FP_PROFILE || profile == MI_P_PROFILE; }

bool IsLevel(KRNField kind) { return kind != KRNField::Position && kind != KRNField::Time; }
}  // namespace

CKRNStagePage::CKRNStagePage(int templateId, const CKRNMachineData& data, QWidget* frame,
                             std::span<const KRNStageFields> table, KRNStageRules rules)
    : CKRNPanelPage(templateId, data, frame), m_Table(table), m_Rules(rules) {
    for (const KRNStageFields& row : m_Table) {
        for (std::size_t k = 0; k < row.ids.size(); ++k) {
            const int stage = static_cast<int>(k);
            auto handler = [this, &row, stage] { OnFieldChanged(row, stage); };
            if (row.trigger == KRNStageFields::OnKillFocus)
                OnKillFocus(row.ids[k], handler);
            else
                OnChange(row.ids[k], handler);
        }
    }
}

bool CKRNStagePage::HoldsTimesOf(KRNMACHINEITEM profile) const {
    for (const KRNStageFields& row : m_Table)
        if (row.profile == profile && row.kind == KRNField::Time) return true;
    return false;
}

void CKRNStagePage::ToPageForm() {
    if (HoldsTimesOf(MI_PP_PROFILE)) KRNStages::ToPageForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME);
}

void CKRNStagePage::ToRecordForm() {
    if (HoldsTimesOf(MI_PP_PROFILE)) KRNStages::ToRecordForm(m_MachineData, MI_PP_PROFILE, MI_PACKING_TIME);
}

int CKRNStagePage::ShownPoint(const KRNStageFields& row, int stage) const {
    return row.kind == KRNField::Position ? stage + m_Rules.positionShownAhead : stage;
}

double CKRNStagePage::ShownValue(const KRNStageFields& row, int stage) const {
    double x = 0, y = 0;
    m_MachineData.GetProfileData(row.profile, ShownPoint(row, stage), x, y);
    if (row.kind == KRNField::Time) return x;
    const double scale = row.fullScale ? row.fullScale(m_MachineData) : 100.0;
    if (!KRNHasFullScale(scale)) return NAN;  // shown as "---"
    return (row.kind == KRNField::Position ? x : y) * scale * 0.01 * row.unit;
}

void CKRNStagePage::ShowStages() {
    FillGuard guard(this);
    for (const KRNStageFields& row : m_Table) {
        const int count = m_MachineData.GetProfileDataCount(row.profile);
        const int blankFrom = row.blank == KRNStageFields::FromLastPoint ? count - 1
                              : row.blank == KRNStageFields::FromCount   ? count
                                                                         : INT_MAX;
        for (std::size_t k = 0; k < row.ids.size(); ++k) {
            const int stage = static_cast<int>(k);
            if (stage >= blankFrom)
                SetDlgItemText(row.ids[k], QStringLiteral("0"));
            else if (ShownPoint(row, stage) < count)
                ShowNumber(row.ids[k], ShownValue(row, stage));
        }
    }
}

bool CKRNStagePage::StoreStrokePoint(KRNMACHINEITEM profile, int stage, double position, double percent,
                                     KRNTail tail) {
    const double stroke = stage == 0 ? position : KRNFullStroke(m_MachineData);
    if (!KRNHasFullScale(stroke) || !std::isfinite(percent)) return false;
    const double x = position / stroke * 100.0;
    if (!std::isfinite(x)) return false;
    if (stage == 0) m_MachineData.SetMachineData(MI_MAX_RAM_POSITION, position);
    m_MachineData.SetMachineData(profile, stage, x, percent);
    if (tail) tail(m_MachineData, profile);
    return true;
}

// ---- edits -------------------------------------------------------------------

void CKRNStagePage::OnFieldChanged(const KRNStageFields& row, int stage) {
    if (!CheckBeforeNumberTest(row, stage)) {
        m_bErrorPending = true;
        return;
    }
    bool stored = false;
    if (row.kind == KRNField::Time) {
        stored = EditStageTime(row.ids[static_cast<std::size_t>(stage)], row.profile, stage);
        if (stored && row.tail) row.tail(m_MachineData, row.profile);
    } else if (row.kind == KRNField::Position) {
        stored = EditPosition(row, stage);
    } else if (IsLevel(row.kind)) {
        stored = EditLevel(row, stage);
    }
    m_bErrorPending = !stored;
    if (stored) OnStageStored(row, stage);
}

// A level up to the row's limit. A stroke stage is stored again at its own
// position (the first stage setting the full stroke); a time stage keeps its
// time. A screen that shows percentages stores what is typed as it stands.
bool CKRNStagePage::EditLevel(const KRNStageFields& row, int stage) {
    const int id = row.ids[static_cast<std::size_t>(stage)];
    const double stored = ShownValue(row, stage);
    const double upper = row.limit ? row.limit(m_MachineData) * row.unit : HUGE_VAL;
    double value = 0, percent = 0;
    if (!ReadNumberField(id, stored, value, row.kind, upper)) return false;
    if (!row.fullScale)
        percent = value / row.unit;
    else if (!ToPercent(value / row.unit, row.fullScale(m_MachineData), percent, id, stored))
        return false;
    double x = 0, y = 0;
    m_MachineData.GetProfileData(row.profile, stage, x, y);
    if (!IsStrokeProfile(row.profile)) {
        m_MachineData.SetMachineData(row.profile, stage, x, percent);
        if (row.tail) row.tail(m_MachineData, row.profile);
        return true;
    }
    const double position = x * KRNFullStroke(m_MachineData) * 0.01;
    if (StoreStrokePoint(row.profile, stage, position, percent, row.tail)) return true;
    return CheckFullScale(0.0, id, stored);
}

bool CKRNStagePage::BetweenNeighbours(const KRNStageFields& row, int stage, double position) {
    double upper = stage > 0 ? ShownValue(row, stage - 1) : row.limit ? row.limit(m_MachineData) * row.unit : HUGE_VAL;
    double lower = ShownValue(row, stage + 1);
    // Without a stroke the neighbours have no place; storing the point says so.
    if (std::isnan(upper)) upper = HUGE_VAL;
    if (std::isnan(lower)) lower = 0.0;
    if (position == 0.0 && lower == 0.0) return true;
    const double spacing = m_Rules.positionSpacing;
    if (position >= lower && position <= upper && std::fabs(position - lower) >= spacing &&
        std::fabs(position - upper) >= spacing)
        return true;
    KRNMessageBox(KRNResourceMessage(353, {upper, lower}), this);
    return false;
}

// A switching position within 0..the row's limit, stored with each moved
// profile's own level at that stage.
bool CKRNStagePage::EditPosition(const KRNStageFields& row, int stage) {
    const int id = row.ids[static_cast<std::size_t>(stage)];
    const double stored = ShownValue(row, stage);
    double position = 0;
    if (m_Rules.positionSpacing > 0.0) {
        if (!ReadNumberField(id, stored, position, KRNField::Position)) return false;
        if (!BetweenNeighbours(row, stage, position)) {
            RestoreNumber(id, stored);
            return false;
        }
    } else {
        const bool read = row.limit ? ReadNumberFieldInRange(id, stored, position, KRNField::Position, 0.0,
                                                             row.limit(m_MachineData) * row.unit)
                                    : ReadNumberField(id, stored, position, KRNField::Position);
        if (!read) return false;
    }
    position /= row.unit;
    const CKRNMachineData before = m_MachineData;
    for (KRNMACHINEITEM profile : {row.profile, MI_P_PROFILE}) {
        if (profile == MI_P_PROFILE && (profile == row.profile || !m_Rules.positionsMovePressure)) continue;
        double x = 0, y = 0;
        m_MachineData.GetProfileData(profile, stage, x, y);
        if (!StoreStrokePoint(profile, stage, position, y, row.tail)) {
            m_MachineData = before;
            return CheckFullScale(0.0, id, stored);
        }
    }
    return true;
}

// ---- read-back -------------------------------------------------------------

void CKRNStagePage::ReadBackStages() {
    for (const KRNStageFields& row : m_Table) {
        const int count = m_MachineData.GetProfileDataCount(row.profile);
        for (std::size_t k = 0; k < row.ids.size() && static_cast<int>(k) < count; ++k) {
            const int stage = static_cast<int>(k);
            const double typed = KRNAtof(GetDlgItemText(row.ids[k])) / row.unit;
            double x = 0, y = 0;
            m_MachineData.GetProfileData(row.profile, stage, x, y);
            if (row.kind == KRNField::Time) {
                m_MachineData.SetMachineData(row.profile, stage, typed, y);
            } else if (row.kind == KRNField::Position) {
                for (KRNMACHINEITEM profile : {row.profile, MI_P_PROFILE}) {
                    if (profile == MI_P_PROFILE && (profile == row.profile || !m_Rules.positionsMovePressure)) continue;
                    if (stage >= m_MachineData.GetProfileDataCount(profile)) continue;
                    m_MachineData.GetProfileData(profile, stage, x, y);
                    StoreStrokePoint(profile, stage, typed, y, nullptr);
                    if (row.tail) row.tail(m_MachineData, profile);
                }
                continue;
            } else {
                const double scale = row.fullScale ? row.fullScale(m_MachineData) : 100.0;
                if (!KRNHasFullScale(scale)) continue;
                m_MachineData.SetMachineData(row.profile, stage, x, typed / scale * 100.0);
            }
            if (row.tail) row.tail(m_MachineData, row.profile);
        }
    }
}
