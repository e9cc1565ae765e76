#include "CKRNMachineChart.h"

#include "KRNNumberText.h"
#include "KRNResources.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPicture>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

// Cursors of the resource module.
constexpr int kCursorArrow = 438;
constexpr int kCursorDrag = 439;

// A point is under the mouse when it lies closer than this on both axes.
constexpr int kHitDistance = 6;

// Pixel positions are held far inside int so that an owner's zero-width
// range (not guarded, see the class notes) draws nonsense rather than
// overflowing.
constexpr double kPixelLimit = 1.0e6;

int RoundPixel(double v) {
    if (std::isnan(v)) return 0;
    if (v > kPixelLimit) v = kPixelLimit;
    if (v < -kPixelLimit) v = -kPixelLimit;
    return int(std::lround(v));
}

QFont MakeFont(const QString& family, int pixelHeight, int weight) {
    QFont font;
    // Machines without the screens' own faces get the nearest sans serif.
    font.setFamilies({family, QStringLiteral("Arial"), QStringLiteral("Liberation Sans"),
                      QStringLiteral("DejaVu Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelHeight);
    font.setWeight(QFont::Weight(weight));
    return font;
}

}  // namespace

// Off-screen drawing context for one paint, so that the chart does not
// flicker while the user drags over it. Drawing goes to a buffer the chart
// keeps between paints (no bitmap is made per paint); the buffer's origin is
// the rectangle's top-left and it is put on the target's own top-left when
// the context goes away. A printer gets the drawing unbuffered: it is
// recorded and played back onto the printer's context.
class CMachineMemDC : public QPainter {
public:
    CMachineMemDC(QPainter& target, const KRNChartRect& rect, QImage& bitmap)
        : m_pBitmap(&bitmap),
          m_pTarget(&target),
          m_rect(rect),
          m_bMemDC(!(target.device() && target.device()->devType() == QInternal::Printer)) {
        const QBrush background = target.background();
        if (m_bMemDC) {
            const QSize size(rect.Width(), rect.Height());
            if (bitmap.size() != size || bitmap.format() != QImage::Format_RGB32)
                bitmap = QImage(size, QImage::Format_RGB32);
            // Straight into memory: a painter's fill of the whole buffer
            // costs a round trip through the raster engine's worker threads.
            if (background.style() == Qt::SolidPattern) bitmap.fill(background.color());
            begin(&bitmap);
        } else {
            begin(&m_picture);
        }
        translate(-rect.left, -rect.top);
        if (!m_bMemDC || background.style() != Qt::SolidPattern)
            fillRect(QRect(rect.left, rect.top, rect.Width(), rect.Height()), background);
    }

    // Puts `image` (of the rectangle's size) under everything drawn next.
    void Underlay(const QImage& image) {
        if (m_bMemDC && image.size() == m_pBitmap->size() && image.format() == m_pBitmap->format() &&
            image.bytesPerLine() == m_pBitmap->bytesPerLine()) {
            std::memcpy(m_pBitmap->bits(), image.constBits(), std::size_t(image.sizeInBytes()));
        } else {
            drawImage(QPoint(m_rect.left, m_rect.top), image);
        }
    }

    ~CMachineMemDC() {
        end();
        if (!m_pTarget->isActive()) return;
        if (m_bMemDC)
            m_pTarget->drawImage(QPoint(0, 0), *m_pBitmap);
        else
            m_pTarget->drawPicture(QPoint(0, 0), m_picture);
    }

    CMachineMemDC(const CMachineMemDC&) = delete;
    CMachineMemDC& operator=(const CMachineMemDC&) = delete;

private:
    QImage* m_pBitmap;
    QPicture m_picture;
    QPainter* m_pTarget;
    KRNChartRect m_rect;
    bool m_bMemDC;
};

CKRNMachineChart::CKRNMachineChart(QWidget* parent)
    : QWidget(parent), m_crBackground(Qt::black), m_crCurve1(Qt::black), m_crCurve2(Qt::black),
      m_strXTitle(QStringLiteral("X-Axis")), m_strYTitle(QStringLiteral("Y-Axis")) {
    // Every pixel is painted by the chart; nothing needs erasing first.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

CKRNMachineChart::~CKRNMachineChart() = default;

bool CKRNMachineChart::CreateChart(const QRect& rect, QWidget* parent) {
    const KRNChartRect rc{rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
    if (rc.IsEmpty() || !parent) return false;
    setParent(parent);
    setObjectName(QStringLiteral("IDC_1"));
    if (OnCreate() != 0) return false;
    setGeometry(rect);
    show();
    m_rcWindow = rc;
    m_rcPlot = {rc.left + 80, rc.top + 15, rc.right - 35, rc.bottom - 60};
    return true;
}

int CKRNMachineChart::OnCreate() {
    // A child window gets every mouse move, pressed button or not. The
    // sunken border of the window styles is the window frame DrawChart draws.
    setMouseTracking(true);
    m_fontXTitle = MakeFont(QStringLiteral("System"), 16, 700);
    m_fontYTitle = m_fontXTitle;
    m_fontLabel = MakeFont(QStringLiteral("Arial"), 12, 400);
    return 0;
}

void CKRNMachineChart::ClearCurves() {
    m_vecX1.clear();
    m_vecY1.clear();
    m_vecX2.clear();
    m_vecY2.clear();
}

int CKRNMachineChart::PointCount(int curveIndex) const {
    const std::vector<double>& xs = CurveX(curveIndex);
    const std::vector<double>& ys = CurveY(curveIndex);
    return xs.size() == ys.size() ? int(xs.size()) : -1;
}

QPen CKRNMachineChart::SolidPen(const QColor& colour, int width) {
    return QPen(colour, width, Qt::SolidLine, Qt::FlatCap);
}

QPen CKRNMachineChart::DottedPen(const QColor& colour) {
    QPen pen(colour, 1, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({3.0, 3.0});
    return pen;
}

// ---- mapping ----------------------------------------------------------------

int CKRNMachineChart::XToPixel(double x) const {
    const int L = m_rcPlot.left;
    const int R = m_rcPlot.right;
    if (m_nXReversed) return L + RoundPixel((m_dXMax - x * m_dXFactor) * (R - L) / (m_dXMax - m_dXMin));
    return L + RoundPixel((R - L) * (x - m_dXMin) / (m_dXMax - m_dXMin));
}

int CKRNMachineChart::YToPixel(double y) const {
    const int T = m_rcPlot.top;
    const int B = m_rcPlot.bottom;
    return B - RoundPixel((y * m_dYFactor - m_dYMin) * (B - T) / (m_dYMax - m_dYMin));
}

double CKRNMachineChart::PixelToX(int px) const {
    const int L = m_rcPlot.left;
    const int R = m_rcPlot.right;
    if (m_nXReversed) return (m_dXMax - (m_dXMax - m_dXMin) * (px - L) / (R - L)) / m_dXFactor;
    return ((m_dXMax - m_dXMin) * (px - L) / (R - L) + m_dXMin) / m_dXFactor;
}

double CKRNMachineChart::PixelToY(int py) const {
    const int T = m_rcPlot.top;
    const int B = m_rcPlot.bottom;
    return m_dYMin + (m_dYMax - m_dYMin) * (B - py) / ((B - T) * m_dYFactor);
}

// ---- paint ------------------------------------------------------------------

void CKRNMachineChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    DrawChart(painter);
}

void CKRNMachineChart::PaintBuffered(QPainter& target, const std::function<void(QPainter&)>& layers) {
    if (m_rcWindow.IsEmpty()) return;
    CMachineMemDC dc(target, m_rcWindow, m_bmpBack);
    const QSize size(m_rcWindow.Width(), m_rcWindow.Height());
    if (m_bmpCache.size() != size) {
        m_bmpCache = QImage(size, QImage::Format_RGB32);
        m_bmpCache.fill(Qt::white);
    }
    dc.Underlay(m_bmpCache);
    // A fresh context's tools: black one-pixel pen, white brush, black text.
    dc.setPen(SolidPen(Qt::black, 1));
    dc.setBrush(Qt::white);
    dc.setFont(font());
    layers(dc);
}

void CKRNMachineChart::DrawChart(QPainter& target) {
    PaintBuffered(target, [this](QPainter& dc) {
        DrawFrames(dc);
        DrawPlotArea(dc);
        DrawAxisTitles(dc);
        DrawScaleLabels(dc);
        DrawCurves(dc);
        DrawGrid(dc);
        DrawHoverMarker(dc);
    });
}

void CKRNMachineChart::DrawFrames(QPainter& dc) {
    // Rectangles with the context's pen, filled with its (white) brush.
    const KRNChartRect& w = m_rcWindow;
    const KRNChartRect& p = m_rcPlot;
    dc.drawRect(QRect(w.left, w.top, w.Width() - 1, w.Height() - 1));
    dc.drawRect(QRect(p.left, p.top, p.Width() - 1, p.Height() - 1));
}

void CKRNMachineChart::DrawPlotArea(QPainter& dc) {
    const KRNChartRect& p = m_rcPlot;
    const QPoint corners[4] = {{p.left, p.top}, {p.right, p.top}, {p.right, p.bottom}, {p.left, p.bottom}};
    const QBrush oldBrush = dc.brush();
    dc.setBrush(m_crBackground);
    dc.drawPolygon(corners, 4);
    dc.setBrush(oldBrush);
    dc.drawLine(corners[0], corners[1]);
}

void CKRNMachineChart::DrawAxisTitles(QPainter& dc) {
    const KRNChartRect& p = m_rcPlot;
    const QPen oldPen = dc.pen();
    const QFont oldFont = dc.font();
    dc.setPen(QColor(0, 0, 255));
    dc.setFont(m_fontXTitle);
    DrawTextAt(dc, (p.left + p.right) / 2, p.bottom + 30, m_strXTitle);
    dc.setFont(m_fontYTitle);
    if (!m_strYTitle.isEmpty()) {
        // Turned a quarter left: it reads upwards, centred on the anchor
        // along its own line, its top edge on the anchor's x.
        const QTransform oldTransform = dc.transform();
        const int x = p.left - 75;
        const int y = (p.top + p.bottom) / 2;
        dc.translate(x, y);
        dc.rotate(-90.0);
        const QFontMetrics fm = dc.fontMetrics();
        dc.drawText(QPoint(-fm.horizontalAdvance(m_strYTitle) / 2, fm.ascent()), m_strYTitle);
        dc.setTransform(oldTransform);
        if (m_pTextLog) m_pTextLog->push_back({m_strYTitle, x, y, true});
    }
    dc.setFont(oldFont);
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawTextAt(QPainter& dc, int x, int y, const QString& text, Anchor anchor) {
    if (text.isEmpty()) return;
    const QFontMetrics fm = dc.fontMetrics();
    int left = x;
    if (anchor != Anchor::TopLeft) {
        const int width = fm.horizontalAdvance(text);
        left = anchor == Anchor::TopCentre ? x - width / 2 : x - width;
    }
    dc.drawText(QPoint(left, y + fm.ascent()), text);
    if (m_pTextLog) m_pTextLog->push_back({text, x, y, false});
}

double CKRNMachineChart::XLabelValue(int i) const {
    // The unreversed scale starts at 0 whatever the x minimum: the screens
    // number the stroke from where the plot starts.
    if (m_nXReversed) return (m_dXMax - (m_dXMax - m_dXMin) * i * 0.1) * m_dXFactor;
    return (m_dXMax - m_dXMin) * i * 0.1 * m_dXFactor;
}

double CKRNMachineChart::YLabelValue(int i) const {
    return ((m_dYMax - m_dYMin) * i * 0.1 + m_dYMin) * m_dYFactor;
}

QString CKRNMachineChart::LabelText(const char* format, double value) {
    // Rounding noise around zero would print as "-0.00".
    if (std::fabs(value) <= 0.000001) value = 0.0;
    return KRNFormat(format, value);
}

void CKRNMachineChart::DrawScaleLabels(QPainter& dc) { DrawScaleNumbers(dc, "%6.2f"); }

void CKRNMachineChart::DrawScaleNumbers(QPainter& dc, const char* format) {
    const KRNChartRect& p = m_rcPlot;
    const QPen oldPen = dc.pen();
    const QFont oldFont = dc.font();
    dc.setPen(Qt::black);
    dc.setFont(m_fontLabel);
    for (int i = 0; i <= 10; ++i) {
        DrawTextAt(dc, p.left + p.Width() * i / 10 - 4, p.bottom + 5, LabelText(format, XLabelValue(i)));
        DrawTextAt(dc, p.left - 25, p.bottom - p.Height() * i / 10 - 8, LabelText(format, YLabelValue(i)));
    }
    dc.setFont(oldFont);
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawGrid(QPainter& dc) { DrawFullGrid(dc, SolidPen(QColor(192, 192, 192), 1), 10); }

void CKRNMachineChart::DrawFullGrid(QPainter& dc, const QPen& pen, int divisions) {
    // Inverting with the pen's colour keeps the grid visible on any plot
    // colour and over the curve fills.
    const KRNChartRect& p = m_rcPlot;
    const QPen oldPen = dc.pen();
    const QPainter::CompositionMode oldMode = dc.compositionMode();
    dc.setPen(pen);
    dc.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
    for (int k = 1; k < divisions; ++k) {
        const int y = p.top + p.Height() * k / divisions;
        const int x = p.left + p.Width() * k / divisions;
        dc.drawLine(p.left, y, p.right, y);
        dc.drawLine(x, p.top, x, p.bottom);
    }
    dc.setCompositionMode(oldMode);
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawCurves(QPainter& dc) {
    if (m_nCurveMode == 1)
        DrawSteps(dc, 0);
    else
        DrawTwoCurves(dc);
    if (m_bDragging && m_nHoverPoint != -1 && m_nHoverValid == 1) DrawDragMarker(dc);
}

void CKRNMachineChart::DrawSteps(QPainter& dc, int curveIndex) {
    static const QColor kBands[5] = {QColor(200, 255, 255), QColor(232, 255, 232), QColor(255, 255, 230),
                                     QColor(255, 232, 221), QColor(235, 235, 235)};
    const int n = PointCount(curveIndex);
    if (n <= 0) return;
    const std::vector<double>& xs = CurveX(curveIndex);
    const std::vector<double>& ys = CurveY(curveIndex);
    // The bands hang from the first point's level, one colour per stage;
    // then the line through the points, and the marks on top of it.
    const int base = YToPixel(ys[0]);
    for (int i = 0; i + 1 < n; ++i) {
        const QPoint pt(XToPixel(xs[i]), YToPixel(ys[i]));
        const QPoint next(XToPixel(xs[i + 1]), YToPixel(ys[i + 1]));
        const QPoint band[4] = {pt, next, {next.x(), base}, {pt.x(), base}};
        const QBrush oldBrush = dc.brush();
        dc.setBrush(kBands[i % 5]);
        dc.drawPolygon(band, 4);
        dc.setBrush(oldBrush);
    }
    for (int i = 1; i < n; ++i)
        dc.drawLine(XToPixel(xs[i - 1]), YToPixel(ys[i - 1]), XToPixel(xs[i]), YToPixel(ys[i]));
    // The marks are filled with the context's brush.
    const QPen oldPen = dc.pen();
    dc.setPen(SolidPen(QColor(255, 0, 0), 1));
    for (int i = 0; i < n; ++i) dc.drawEllipse(QPoint(XToPixel(xs[i]), YToPixel(ys[i])), 3, 3);
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawTwoCurves(QPainter& dc) {
    DrawBars(dc, m_vecX1, m_vecY1, 0, m_crCurve1);
    DrawBars(dc, m_vecX2, m_vecY2, 1, m_crCurve2);
    // The top band and the switch-over marker lie over the bars.
    const int x1 = XToPixel(m_dXMin);
    const int x2 = XToPixel(m_dXMax);
    const int y1 = YToPixel(m_dYMax);
    const int y2 = YToPixel(m_dYMax - 1.0);
    const QColor blue(0, 0, 255);
    dc.fillRect(QRect(QPoint(std::min(x1, x2), std::min(y1, y2)), QPoint(std::max(x1, x2), std::max(y1, y2))), blue);
    DrawSwitchLine(dc);
}

void CKRNMachineChart::FillBar(QPainter& dc, const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d,
                               const QColor& colour) {
    const QPoint corners[4] = {a, b, c, d};
    const QBrush oldBrush = dc.brush();
    dc.setBrush(colour);
    dc.drawPolygon(corners, 4);
    dc.setBrush(oldBrush);
    dc.drawLine(a, b);
}

void CKRNMachineChart::DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys,
                                int /*curveIndex*/, const QColor& colour) {
    if (xs.size() != ys.size() || xs.empty()) return;
    const int n = int(xs.size());
    const int zero = YToPixel(0.0);
    int previousLevel = zero;
    for (int i = 0; i < n; ++i) {
        const int px = XToPixel(xs[i]);
        const int py = YToPixel(ys[i]);
        if (i == 0) {
            // The start of the stroke: a narrow column up from the axis.
            const int a = XToPixel(xs[0] - 0.3);
            const int b = XToPixel(xs[0] + 0.3);
            FillBar(dc, {a, zero}, {a, py}, {b, py}, {b, zero}, colour);
        } else if (i == 1 || ys[i] != ys[i - 1]) {
            // The step from the previous level; corners truncated as the
            // screens' integer points were.
            const int a = int(px - 1.5);
            const int b = int(px + 1.5);
            FillBar(dc, {a, previousLevel}, {a, py}, {b, py}, {b, previousLevel}, colour);
        }
        if (i + 1 < n) {
            const int next = XToPixel(xs[i + 1]);
            FillBar(dc, {px, py}, {next, py}, {next, py + 2}, {px, py + 2}, colour);
        }
        previousLevel = py;
    }
}

void CKRNMachineChart::DrawSwitchLine(QPainter& dc) {
    const QPen oldPen = dc.pen();
    dc.setPen(DottedPen(QColor(0, 255, 255)));
    if (m_dSwitchPos > 0.0) {
        const int x = XToPixel(m_dSwitchPos + 0.24);
        dc.drawLine(x, YToPixel(m_dYMax), x, YToPixel(m_dYMin));
    } else {
        // No switch-over position: the marker stands just past the end of
        // the stroke.
        const int x = XToPixel(m_dXMax / 0.99);
        dc.drawLine(x, YToPixel(m_dYMax / 0.9), x, YToPixel(m_dYMin));
    }
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawHoverMarker(QPainter& dc) {
    const int k = m_nHoverPoint;
    if (k == -1 || m_nHoverValid != 1 || k < 0 || k >= PointCount(0)) return;
    const QPen oldPen = dc.pen();
    const QBrush oldBrush = dc.brush();
    dc.setPen(SolidPen(QColor(255, 0, 0), 2));
    dc.setBrush(Qt::NoBrush);
    dc.drawEllipse(QPoint(XToPixel(m_vecX1[k]), YToPixel(m_vecY1[k])), 4, 4);
    dc.setBrush(oldBrush);
    dc.setPen(oldPen);
}

void CKRNMachineChart::DrawDragMarker(QPainter& dc) {
    // The dragged point's outline at the mouse, drawn inverting so that it
    // shows on every plot colour: in step mode the two segments through the
    // point, in bar mode the step up to its level and the level itself.
    const int k = m_nHoverPoint;
    const int n = PointCount(0);
    if (k < 0 || k >= n) return;
    const QPoint at(XToPixel(m_dDragX), YToPixel(m_dDragY));
    const QPen oldPen = dc.pen();
    const QBrush oldBrush = dc.brush();
    const QPainter::CompositionMode oldMode = dc.compositionMode();
    dc.setPen(SolidPen(Qt::black, 1));
    dc.setBrush(Qt::NoBrush);
    dc.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
    if (m_nCurveMode == 1) {
        if (k > 0) dc.drawLine(QPoint(XToPixel(m_vecX1[k - 1]), YToPixel(m_vecY1[k - 1])), at);
        if (k + 1 < n) dc.drawLine(at, QPoint(XToPixel(m_vecX1[k + 1]), YToPixel(m_vecY1[k + 1])));
    } else {
        const int from = k > 0 ? YToPixel(m_vecY1[k - 1]) : YToPixel(0.0);
        dc.drawLine(QPoint(at.x(), from), at);
        if (k + 1 < n) dc.drawLine(at, QPoint(XToPixel(m_vecX1[k + 1]), at.y()));
    }
    dc.drawEllipse(at, 3, 3);
    dc.setCompositionMode(oldMode);
    dc.setBrush(oldBrush);
    dc.setPen(oldPen);
}

// ---- mouse ------------------------------------------------------------------

void CKRNMachineChart::ShowCursor(int id) {
    if (m_nCursorShown == id) return;
    m_nCursorShown = id;
    setCursor(KRNResources::Cursor(id));
}

bool CKRNMachineChart::HitTest(int px, int py) {
    const int n = PointCount(0);
    for (int i = 0; i < n; ++i) {
        if (std::abs(XToPixel(m_vecX1[i]) - px) < kHitDistance && std::abs(YToPixel(m_vecY1[i]) - py) < kHitDistance) {
            m_nHoverPoint = i;
            m_nHoverValid = 1;
            return true;
        }
    }
    m_nHoverPoint = -1;
    m_nHoverValid = 0;
    return false;
}

void CKRNMachineChart::OnMouseMove(const QPoint& client) {
    if (m_nLocked) return;
    const int px = client.x() + m_rcWindow.left;
    const int py = client.y() + m_rcWindow.top;
    if (!m_rcPlot.Contains(px, py)) return;
    const double x = PixelToX(px);
    const double y = PixelToY(py);
    if (m_bDragging) {
        ShowCursor(kCursorDrag);
        const int k = m_nHoverPoint;
        const int n = PointCount(0);
        if (k < 0 || k >= n) return;
        // A middle point stays between its neighbours so that the stages
        // keep their order along the stroke; the end points are free.
        if (k != 0 && k != n - 1 && !(m_vecX1[k - 1] > x && x > m_vecX1[k + 1])) return;
        m_dDragX = x;
        m_dDragY = y;
        m_nDragPoint = k;
    } else {
        ShowCursor(kCursorArrow);
        HitTest(px, py);
    }
    repaint();
}

void CKRNMachineChart::OnLButtonDown(const QPoint& client) {
    if (m_nLocked) return;
    const bool hovered = m_nHoverPoint != -1 && m_nHoverValid == 1;
    const bool inside = m_rcPlot.Contains(client.x() + m_rcWindow.left, client.y() + m_rcWindow.top);
    ShowCursor(inside && hovered ? kCursorDrag : kCursorArrow);
    if (hovered) m_bDragging = true;
}

void CKRNMachineChart::OnLButtonUp(const QPoint&) {
    if (m_nLocked) return;
    ShowCursor(kCursorArrow);
    m_nHoverPoint = -1;
    m_bDragging = false;
    update(QRect(m_rcPlot.left - m_rcWindow.left, m_rcPlot.top - m_rcWindow.top, m_rcPlot.Width() + 1,
                 m_rcPlot.Height() + 1));
}

// The chart keeps its mouse messages: nothing is passed on to the page.
void CKRNMachineChart::mouseMoveEvent(QMouseEvent* event) {
    OnMouseMove(event->position().toPoint());
    event->accept();
}

void CKRNMachineChart::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) OnLButtonDown(event->position().toPoint());
    event->accept();
}

void CKRNMachineChart::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) OnLButtonUp(event->position().toPoint());
    event->accept();
}
