#pragma once

// Profile charts on the pages: a chart of the controller's look drawn where
// the page's form keeps a placeholder control, and its curves from profiles.

#include "CKRNDialog.h"
#include "CKRNMachineChart.h"
#include "KRNStageRoutines.h"

#include <optional>

// A chart of class `Chart` over the placeholder `placeholderId` of `page`:
// the placeholder hides and the chart takes its rectangle, without axis
// titles (the forms carry their own). Null when the form has no placeholder.
template <class Chart>
Chart* KRNChartOver(CKRNDialog& page, int placeholderId) {
    QWidget* area = page.GetDlgItem(placeholderId);
    if (!area) return nullptr;
    auto* chart = new Chart(area->parentWidget());
    chart->CreateChart(area->geometry(), area->parentWidget());
    area->hide();
    chart->m_strXTitle.clear();
    chart->m_strYTitle.clear();
    return chart;
}

// Curve `curveIndex` (0 or 1) of `chart` becomes `points`.
inline void KRNSetCurve(CKRNMachineChart& chart, int curveIndex, const KRNStages::Points& points) {
    std::vector<double>& xs = curveIndex == 0 ? chart.m_vecX1 : chart.m_vecX2;
    std::vector<double>& ys = curveIndex == 0 ? chart.m_vecY1 : chart.m_vecY2;
    xs.clear();
    ys.clear();
    for (const XYProfile& p : points) {
        xs.push_back(p.x);
        ys.push_back(p.y);
    }
}

// `chart` (none is fine) shows profile `first` of `record` as its first curve
// and, when given, `second` as its second, and is painted again.
inline void KRNShowProfiles(CKRNMachineChart* chart, const CKRNMachineData& record, KRNMACHINEITEM first,
                            std::optional<KRNMACHINEITEM> second = std::nullopt) {
    if (!chart) return;
    chart->ClearCurves();
    KRNSetCurve(*chart, 0, KRNStages::Read(record, first));
    if (second) KRNSetCurve(*chart, 1, KRNStages::Read(record, *second));
    chart->update();
}
