#include "CKRNChartVariants.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>

namespace {

// Selects a pen (and optionally a raster mode) for one drawing step and puts
// the previous ones back afterwards.
class PenScope {
public:
    PenScope(QPainter& dc, const QPen& pen) : m_dc(dc), m_oldPen(dc.pen()), m_oldMode(dc.compositionMode()) {
        dc.setPen(pen);
    }
    PenScope(QPainter& dc, const QPen& pen, QPainter::CompositionMode mode) : PenScope(dc, pen) {
        dc.setCompositionMode(mode);
    }
    ~PenScope() {
        m_dc.setCompositionMode(m_oldMode);
        m_dc.setPen(m_oldPen);
    }
    PenScope(const PenScope&) = delete;
    PenScope& operator=(const PenScope&) = delete;

private:
    QPainter& m_dc;
    QPen m_oldPen;
    QPainter::CompositionMode m_oldMode;
};

constexpr QPainter::CompositionMode kInvert = QPainter::RasterOp_NotSourceXorDestination;

}  // namespace

// ---- CMachineChartArburg ------------------------------------------------------

bool CMachineChartArburg::CreateChart(const QRect& rect, QWidget* parent) {
    if (!CKRNMachineChart::CreateChart(rect, parent)) return false;
    const KRNChartRect& w = m_rcWindow;
    m_rcPlot = {w.left, w.top, w.right, w.bottom - 25};
    return true;
}

void CMachineChartArburg::DrawChart(QPainter& target) {
    PaintBuffered(target, [this](QPainter& dc) {
        DrawFrames(dc);
        DrawPlotArea(dc);
        DrawAxisTitles(dc);
        DrawScaleLabels(dc);
        DrawCurves(dc);
        DrawHoverMarker(dc);
    });
}

void CMachineChartArburg::DrawScaleLabels(QPainter& dc) {
    // The plot reaches the window's edges, so the stroke numbers sit in the
    // strip below it with the end ones kept inside the window, and the level
    // numbers stand inside the plot along its left edge.
    const KRNChartRect& p = m_rcPlot;
    const QPen oldPen = dc.pen();
    const QFont oldFont = dc.font();
    dc.setPen(Qt::black);
    dc.setFont(m_fontLabel);
    const int height = dc.fontMetrics().height();
    for (int i = 0; i <= 10; ++i) {
        const int x = p.left + p.Width() * i / 10;
        if (i == 0)
            DrawTextAt(dc, x + 2, p.bottom + 5, LabelText("%6.2f", XLabelValue(i)), Anchor::TopLeft);
        else if (i == 10)
            DrawTextAt(dc, x - 2, p.bottom + 5, LabelText("%6.2f", XLabelValue(i)), Anchor::TopRight);
        else
            DrawTextAt(dc, x, p.bottom + 5, LabelText("%6.2f", XLabelValue(i)));
        const int y = std::clamp(p.bottom - p.Height() * i / 10 - height / 2, p.top + 2, p.bottom - height - 1);
        DrawTextAt(dc, p.left + 4, y, LabelText("%6.2f", YLabelValue(i)), Anchor::TopLeft);
    }
    dc.setFont(oldFont);
    dc.setPen(oldPen);
}

void CMachineChartArburg::DrawSteps(QPainter& dc, int curveIndex) {
    // The steps as usual; the point marks take the mark colour as fill.
    const QBrush oldBrush = dc.brush();
    dc.setBrush(QColor(255, 0, 0));
    CKRNMachineChart::DrawSteps(dc, curveIndex);
    dc.setBrush(oldBrush);
}

void CMachineChartArburg::DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys,
                                   int curveIndex, const QColor& colour) {
    PenScope pen(dc, SolidPen(Qt::white, 1));
    CKRNMachineChart::DrawBars(dc, xs, ys, curveIndex, colour);
}

// ---- CMachineCruveArbug -------------------------------------------------------

void CMachineCruveArbug::DrawPlotArea(QPainter& dc) {
    CKRNMachineChart::DrawPlotArea(dc);
    // The screen's grey strip under the plot, where the stroke scale is read.
    const KRNChartRect& w = m_rcWindow;
    const KRNChartRect& p = m_rcPlot;
    const QRect band(QPoint(w.left + 1, p.bottom + 1), QPoint(w.right - 2, w.bottom - 2));
    if (band.isValid()) dc.fillRect(band, QColor(205, 203, 196));
}

void CMachineCruveArbug::DrawGrid(QPainter& dc) { DrawFullGrid(dc, DottedPen(QColor(192, 192, 192)), 10); }

int CMachineCruveArbug::OnCreate() {
    const int result = CKRNMachineChart::OnCreate();
    if (result != 0) return result;
    m_fontLabel.setWeight(QFont::Black);
    return 0;
}

// ---- CMachinePolyPaxInjectionChart -------------------------------------------

bool CMachinePolyPaxInjectionChart::CreateChart(const QRect& rect, QWidget* parent) {
    if (!CKRNMachineChart::CreateChart(rect, parent)) return false;
    const KRNChartRect& w = m_rcWindow;
    m_rcPlot = {w.left + 10, w.top + 15, w.right - 55, w.bottom - 30};
    return true;
}

void CMachinePolyPaxInjectionChart::DrawPlotArea(QPainter& dc) {
    CKRNMachineChart::DrawPlotArea(dc);
    const KRNChartRect& p = m_rcPlot;
    const QPoint corners[4] = {{p.left, p.top}, {p.right, p.top}, {p.right, p.bottom}, {p.left, p.bottom}};
    PenScope pen(dc, SolidPen(QColor(255, 255, 0), 1));
    const QBrush oldBrush = dc.brush();
    dc.setBrush(Qt::NoBrush);
    dc.drawPolygon(corners, 4);
    dc.setBrush(oldBrush);
}

void CMachinePolyPaxInjectionChart::DrawScaleLabels(QPainter& dc) {
    // The stroke numbers stand where the base chart has them. The plot
    // starts 10 pixels from the window's left edge, so the level numbers go
    // to the margin kept on the right for them.
    const KRNChartRect& p = m_rcPlot;
    const QPen oldPen = dc.pen();
    const QFont oldFont = dc.font();
    dc.setPen(Qt::black);
    dc.setFont(m_fontLabel);
    for (int i = 0; i <= 10; ++i) {
        DrawTextAt(dc, p.left + p.Width() * i / 10 - 4, p.bottom + 5, LabelText("%6.1f", XLabelValue(i)));
        DrawTextAt(dc, p.right + 27, p.bottom - p.Height() * i / 10 - 8, LabelText("%6.1f", YLabelValue(i)));
    }
    dc.setFont(oldFont);
    dc.setPen(oldPen);
}

void CMachinePolyPaxInjectionChart::DrawGrid(QPainter& dc) {
    // Nine rules and nine ticks whatever the spacing: the screen's own
    // spacing, carried past the plot's edge.
    const KRNChartRect& p = m_rcPlot;
    PenScope pen(dc, SolidPen(QColor(255, 255, 0), 1));
    for (int k = 1; k <= 9; ++k) {
        const int y = p.top + p.Height() * k / 5;
        dc.drawLine(p.left, y, p.right, y);
        const int x = p.left + p.Width() * k / 7;
        dc.drawLine(x, p.bottom - 20, x, p.bottom);
    }
}

// ---- CKRNFanucTypeAPressChart -------------------------------------------------

bool CKRNFanucTypeAPressChart::CreateChart(const QRect& rect, QWidget* parent) {
    if (!CKRNMachineChart::CreateChart(rect, parent)) return false;
    m_rcPlot = m_rcWindow;
    return true;
}

void CKRNFanucTypeAPressChart::DrawChart(QPainter& target) {
    PaintBuffered(target, [this](QPainter& dc) {
        DrawFrames(dc);
        DrawPlotArea(dc);
        DrawAxisTitles(dc);
        DrawCurves(dc);
        DrawGrid(dc);
        DrawHoverMarker(dc);
    });
}

void CKRNFanucTypeAPressChart::DrawGrid(QPainter& dc) { DrawFullGrid(dc, DottedPen(Qt::black), 5); }

// ---- CKRNMachineChartCLF ------------------------------------------------------

void CKRNMachineChartCLF::DrawChart(QPainter& target) {
    PaintBuffered(target, [this](QPainter& dc) {
        DrawFrames(dc);
        DrawPlotArea(dc);
        DrawCurves(dc);
    });
}

// ---- CKRNMachineMITSUBISH_HydraulicChart --------------------------------------

void CKRNMachineMITSUBISH_HydraulicChart::DrawGrid(QPainter& dc) {
    const KRNChartRect& p = m_rcPlot;
    const int y = p.top + p.Height() / 2;
    PenScope pen(dc, SolidPen(Qt::white, 1));
    dc.drawLine(p.left, y, p.left + 20, y);
    dc.drawLine(p.right, y, p.right - 20, y);
}

// ---- CKRNMITSUBISHChart -------------------------------------------------------

void CKRNMITSUBISHChart::DrawGrid(QPainter& dc) {
    const KRNChartRect& p = m_rcPlot;
    PenScope pen(dc, SolidPen(Qt::white, 2));
    for (int k = 1; k <= 9; ++k) {
        const int y = p.top + p.Height() * k / 7;
        dc.drawLine(p.right - 20, y, p.right, y);
    }
}

void CKRNMITSUBISHChart::DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys,
                                  int /*curveIndex*/, const QColor& colour) {
    // The whole profile as one area: up from the axis at the first point,
    // along each level to the next point, down to the axis after the last.
    if (xs.size() != ys.size() || xs.empty()) return;
    const int n = int(xs.size());
    const int zero = YToPixel(0.0);
    QVarLengthArray<QPoint, 64> outline;
    outline.append(QPoint(XToPixel(xs[0]), zero));
    for (int i = 0; i < n; ++i) {
        const int py = YToPixel(ys[i]);
        outline.append(QPoint(XToPixel(xs[i]), py));
        if (i + 1 < n) outline.append(QPoint(XToPixel(xs[i + 1]), py));
    }
    outline.append(QPoint(XToPixel(xs[n - 1]), zero));
    PenScope pen(dc, SolidPen(colour, 1));
    const QBrush oldBrush = dc.brush();
    dc.setBrush(colour);
    dc.drawPolygon(outline.constData(), int(outline.size()));
    dc.setBrush(oldBrush);
}

// ---- CKRNNIIGATA --------------------------------------------------------------

void CKRNNIIGATA::DrawGrid(QPainter& dc) {
    // Five levels; the time axis in ninths, with the screen's paired lines
    // in its middle ninths.
    const KRNChartRect& p = m_rcPlot;
    PenScope pen(dc, DottedPen(Qt::black), kInvert);
    for (int k = 1; k <= 4; ++k) {
        const int y = p.top + p.Height() * k / 5;
        dc.drawLine(p.left, y, p.right, y);
    }
    dc.drawLine(p.left + 5, p.top, p.left + 5, p.bottom);
    for (int m = 0; m <= 8; ++m) {
        const int x = p.left + p.Width() * m / 9;
        dc.drawLine(x, p.top, x, p.bottom);
        if (m >= 4 && m <= 7) dc.drawLine(x + 5, p.top, x + 5, p.bottom);
    }
}

// ---- CKRNORGZCTMachineChart ---------------------------------------------------

void CKRNORGZCTMachineChart::DrawGrid(QPainter& dc) {
    // Nine ticks per axis against sevenths and sixths, as the screen has them.
    const KRNChartRect& p = m_rcPlot;
    PenScope pen(dc, SolidPen(Qt::black, 2));
    for (int k = 1; k <= 9; ++k) {
        const int y = p.top + p.Height() * k / 7;
        dc.drawLine(p.right - 20, y, p.right, y);
        const int x = p.left + p.Width() * k / 6;
        dc.drawLine(x, p.bottom - 20, x, p.bottom);
    }
}

// ---- CKRNPolyPaxPressChart ----------------------------------------------------

void CKRNPolyPaxPressChart::DrawScaleLabels(QPainter& dc) { DrawScaleNumbers(dc, "%6.1f"); }

void CKRNPolyPaxPressChart::DrawGrid(QPainter& dc) {
    const KRNChartRect& p = m_rcPlot;
    const int midY = p.top + p.Height() / 2;
    const int midX = p.left + p.Width() / 2;
    PenScope pen(dc, SolidPen(Qt::black, 1));
    dc.drawLine(p.left, p.top, p.right, p.top);
    dc.drawLine(p.left, p.bottom, p.right, p.bottom);
    dc.drawLine(p.left, midY, p.left + 20, midY);
    dc.drawLine(p.left, p.top, p.left, p.bottom);
    dc.drawLine(p.right, p.top, p.right, p.bottom);
    dc.drawLine(midX, p.bottom, midX, p.bottom - 20);
}
