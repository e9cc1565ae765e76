#pragma once

// The profile chart of the controller panels: one or two step profiles (flow
// rate or pressure against screw stroke or time) in a framed plot area with a
// grid, eleven scale numbers per axis, axis titles, a dotted switch-over
// marker and a highlighted point under the mouse. The controller looks are
// subclasses (CKRNChartVariants.h) that override single drawing operations.
//
// Coordinates: the window and plot rectangles hold the numbers the owner gave
// to CreateChart, i.e. the parent's coordinates. The chart paints through an
// off-screen buffer whose origin is the window rectangle's top-left and which
// lands on the chart's own top-left, so the whole chart is seen inside its
// window wherever the owner places it. Mouse positions are taken back into
// the same coordinates before they are compared with the plot rectangle.

#include "KRNColors.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QPainter;
class QPen;
class QPaintEvent;
class QMouseEvent;

// A rectangle as the machine screens' layouts give it: right and bottom lie
// one past the last pixel, so width = right - left.
struct KRNChartRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
    // Edges included: the mouse counts as over the plot on its frame too.
    bool Contains(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
};


// One text the chart drew: where it is anchored (window coordinates, see
// above) and whether it was turned a quarter left. Filled only when an owner
// or a test hands the chart a log.
struct KRNChartText {
    QString text;
    int x = 0;
    int y = 0;
    bool turned = false;
};

class CKRNMachineChart : public QWidget {
    Q_OBJECT

public:
    explicit CKRNMachineChart(QWidget* parent = nullptr);
    ~CKRNMachineChart() override;

    // Drawing and creation operations; the controller looks override them.
    virtual bool CreateChart(const QRect& rect, QWidget* parent);
    virtual void DrawChart(QPainter& dc);
    virtual void DrawCurves(QPainter& dc);
    virtual void DrawPlotArea(QPainter& dc);
    virtual void DrawScaleLabels(QPainter& dc);
    virtual void DrawGrid(QPainter& dc);
    virtual void DrawSteps(QPainter& dc, int curveIndex);
    virtual void DrawTwoCurves(QPainter& dc);
    virtual void DrawSwitchLine(QPainter& dc);
    virtual void DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys, int curveIndex,
                          const QColor& colour);
    // Window creation: fonts and styles. 0 on success, -1 on failure.
    virtual int OnCreate();

    void ClearCurves();

    // Mouse messages, in the chart's own (client) coordinates. The Qt mouse
    // events end up here; owners and tests may call them directly.
    void OnMouseMove(const QPoint& client);
    void OnLButtonDown(const QPoint& client);
    void OnLButtonUp(const QPoint& client);

    // Value <-> pixel, in window coordinates. The two x paths differ on
    // purpose: the unreversed path ignores the x factor one way and applies
    // it the other way, as the screens always did.
    int XToPixel(double x) const;
    int YToPixel(double y) const;
    double PixelToX(int px) const;
    double PixelToY(int py) const;

    // Points of curve 0 or 1; -1 when its x and y vectors differ in size.
    int PointCount(int curveIndex) const;

    // Set by owners directly; redraw with update() or DrawChart afterwards.
    KRNChartRect m_rcWindow;     // as given to CreateChart (parent coordinates)
    KRNChartRect m_rcPlot;       // the framed area values are drawn in
    QImage m_bmpBack;            // the off-screen buffer every paint draws into, kept so no paint allocates
    QImage m_bmpCache;           // the chart's own bitmap, made on the first paint
    QColor m_crBackground;       // plot area fill
    QColor m_crCurve1;           // bars of the first curve
    QColor m_crCurve2;           // bars of the second curve
    QFont m_fontXTitle;
    QFont m_fontYTitle;          // drawn turned a quarter left
    QFont m_fontLabel;
    std::vector<double> m_vecX1;
    std::vector<double> m_vecY1;
    std::vector<double> m_vecX2;
    std::vector<double> m_vecY2;
    QString m_strXTitle;
    QString m_strYTitle;
    double m_dXMin = 0.0;
    double m_dXMax = 100.0;
    double m_dYMin = 0.0;
    double m_dYMax = 100.0;
    double m_dXFactor = 1.0;
    double m_dYFactor = 1.0;
    double m_dDragX = 0.0;       // where the dragged point is, while it is dragged
    double m_dDragY = 0.0;
    double m_dSwitchPos = 10.0;  // x of the switch-over marker
    double m_dDefXMin = 0.0;     // ranges the owner restores
    double m_dDefXMax = 100.0;
    double m_dDefYMin = 0.0;
    double m_dDefYMax = 100.0;
    int m_nXReversed = 1;        // 1: x counts down from left to right (screw towards the nozzle)
    int m_nCurveMode = 1;        // 1: first curve as filled steps; else both curves as bars
    int m_nHoverPoint = -1;      // point of the first curve under the mouse
    int m_nDragPoint = -1;       // point last moved by a drag
    bool m_bDragging = false;
    int m_nHoverValid = 0;       // 1 while m_nHoverPoint is a real index
    int m_nLocked = 0;           // non-zero: the mouse is ignored

    // When set, every text drawn is appended here (for tools and tests).
    std::vector<KRNChartText>* m_pTextLog = nullptr;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    // Building blocks of DrawChart, for the looks that paint in another order.
    // PaintBuffered runs `layers` on the off-screen buffer after the cached
    // bitmap has been copied onto it, then puts the buffer on `target`.
    void PaintBuffered(QPainter& target, const std::function<void(QPainter&)>& layers);
    void DrawFrames(QPainter& dc);
    void DrawAxisTitles(QPainter& dc);
    void DrawHoverMarker(QPainter& dc);
    void DrawDragMarker(QPainter& dc);
    // The 2 x 11 scale numbers at the usual places in the given format.
    void DrawScaleNumbers(QPainter& dc, const char* format);
    // Inverting lines across the whole plot at every 1/divisions of it.
    void DrawFullGrid(QPainter& dc, const QPen& pen, int divisions);

    // Helpers shared by the looks.
    enum class Anchor { TopCentre, TopLeft, TopRight };
    void DrawTextAt(QPainter& dc, int x, int y, const QString& text, Anchor anchor = Anchor::TopCentre);
    double XLabelValue(int i) const;
    double YLabelValue(int i) const;
    static QString LabelText(const char* format, double value);
    // The screens' pens: a line stops one pixel short of its end point, so
    // that lines drawn with an inverting raster mode meet without double
    // inversions at their ends. Dotted means three on, three off.
    static QPen SolidPen(const QColor& colour, int width);
    static QPen DottedPen(const QColor& colour);
    // A filled four-corner bar whose first edge (a to b) is traced again with
    // the current pen.
    static void FillBar(QPainter& dc, const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d,
                        const QColor& colour);
    const std::vector<double>& CurveX(int curveIndex) const { return curveIndex == 0 ? m_vecX1 : m_vecX2; }
    const std::vector<double>& CurveY(int curveIndex) const { return curveIndex == 0 ? m_vecY1 : m_vecY2; }

private:
    void ShowCursor(int id);
    bool HitTest(int px, int py);

    int m_nCursorShown = 0;  // resource id of the cursor last set
};
