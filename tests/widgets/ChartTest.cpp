// The profile chart as a person sees it: rendered to an image, its texts
// read back from the chart's text log, and driven with mouse events.

#include "CKRNChartVariants.h"
#include "CKRNMachineChart.h"
#include "KRNResources.h"

#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

const QRect kWindow(0, 0, 640, 400);
const QRgb kBlack = qRgb(0, 0, 0);
const QRgb kRed = qRgb(255, 0, 0);

// The flow-rate profile of a six-stage injection, stroke counting down.
const double kFlowX[] = {100, 80, 60, 40, 20, 0};
const double kFlowY[] = {40, 60, 80, 60, 40, 40};

template <class Chart = CKRNMachineChart>
struct Placed {
    QWidget page;
    Chart* chart = new Chart;
    std::vector<KRNChartText> texts;

    explicit Placed(const QRect& rect = kWindow) {
        page.resize(rect.right() + 20, rect.bottom() + 20);
        if (!chart->CreateChart(rect, &page)) ADD_FAILURE() << "CreateChart refused " << rect.width() << "x" << rect.height();
        chart->m_pTextLog = &texts;
    }

    void FeedFlow() {
        chart->ClearCurves();
        chart->m_vecX1.assign(std::begin(kFlowX), std::end(kFlowX));
        chart->m_vecY1.assign(std::begin(kFlowY), std::end(kFlowY));
    }

    QImage Render() {
        texts.clear();
        QImage image(chart->width(), chart->height(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        chart->DrawChart(painter);
        return image;
    }

    // Client pixel of a point of the first curve (the chart sits at the
    // window rectangle's top-left).
    QPoint ClientOf(int i) const {
        return QPoint(chart->XToPixel(chart->m_vecX1[i]) - chart->m_rcWindow.left,
                      chart->YToPixel(chart->m_vecY1[i]) - chart->m_rcWindow.top);
    }

    void Send(QEvent::Type type, const QPoint& client, Qt::MouseButton button = Qt::NoButton) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
        QMouseEvent event(type, QPointF(client), chart->mapToGlobal(QPointF(client)), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(chart, &event);
    }
    void Move(const QPoint& client) { Send(QEvent::MouseMove, client); }
    void Press(const QPoint& client) { Send(QEvent::MouseButtonPress, client, Qt::LeftButton); }
    void Release(const QPoint& client) { Send(QEvent::MouseButtonRelease, client, Qt::LeftButton); }
};

// Texts drawn at one anchor row or column, in reading order along it, with
// the blanks of the fixed-width format taken off.
std::vector<std::string> Row(const std::vector<KRNChartText>& texts, int y) {
    std::vector<KRNChartText> row;
    for (const KRNChartText& t : texts)
        if (t.y == y && !t.turned) row.push_back(t);
    std::sort(row.begin(), row.end(), [](const KRNChartText& a, const KRNChartText& b) { return a.x < b.x; });
    std::vector<std::string> out;
    for (const KRNChartText& t : row) out.push_back(t.text.trimmed().toStdString());
    return out;
}

std::vector<std::string> ColumnUpwards(const std::vector<KRNChartText>& texts, int x) {
    std::vector<KRNChartText> column;
    for (const KRNChartText& t : texts)
        if (t.x == x && !t.turned) column.push_back(t);
    std::sort(column.begin(), column.end(), [](const KRNChartText& a, const KRNChartText& b) { return a.y > b.y; });
    std::vector<std::string> out;
    for (const KRNChartText& t : column) out.push_back(t.text.trimmed().toStdString());
    return out;
}

std::vector<std::string> Numbers(double first, double step, const char* format = "%.2f") {
    std::vector<std::string> out;
    for (int i = 0; i <= 10; ++i) out.push_back(QString::asprintf(format, first + step * i).toStdString());
    return out;
}

template <class Test>
int CountIf(const QImage& image, const QRect& area, Test test) {
    int n = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            if (test(image.pixel(x, y))) ++n;
    return n;
}

int CountPixels(const QImage& image, const QRect& area, QRgb colour) {
    return CountIf(image, area, [colour](QRgb c) { return c == colour; });
}

// Text is smoothed: ink is what is clearly darker or clearly blue.
bool Dark(QRgb c) { return qGray(c) < 96; }
bool Bluish(QRgb c) { return qBlue(c) > 180 && qRed(c) < 120 && qGreen(c) < 120; }

// Any pixel of the colour within one pixel of (x, y): for the two-pixel pens.
bool InkNear(const QImage& image, int x, int y, QRgb colour) {
    return CountPixels(image, QRect(x - 1, y - 1, 3, 3), colour) > 0;
}

// What the grid's inverting pen makes of a colour underneath.
QRgb InvertedBy(QRgb pen, QRgb under) { return (~(pen ^ under) & 0x00FFFFFFu) | 0xFF000000u; }

}  // namespace

// ---- scales and titles ----------------------------------------------------------

TEST(ChartScales, DefaultChartCountsStrokeDownAndLevelsUp) {
    Placed<> p;
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 80);
    EXPECT_EQ(plot.top, 15);
    EXPECT_EQ(plot.right, 605);
    EXPECT_EQ(plot.bottom, 340);

    EXPECT_EQ(Row(p.texts, plot.bottom + 5), Numbers(100.0, -10.0));
    EXPECT_EQ(ColumnUpwards(p.texts, plot.left - 25), Numbers(0.0, 10.0));
    // Each stroke number hangs under its tenth of the plot.
    std::vector<int> anchors;
    for (const KRNChartText& t : p.texts)
        if (t.y == plot.bottom + 5) anchors.push_back(t.x);
    std::sort(anchors.begin(), anchors.end());
    ASSERT_EQ(anchors.size(), 11u);
    for (int i = 0; i <= 10; ++i) EXPECT_EQ(anchors[i], plot.left + plot.Width() * i / 10 - 4) << i;
    // The numbers are really on the picture: ink under the plot and left of it.
    EXPECT_GT(CountIf(image, QRect(plot.left - 25, plot.bottom + 5, 42, 15), Dark), 20);
    EXPECT_GT(CountIf(image, QRect(plot.left - 50, plot.bottom - 8, 45, 15), Dark), 20);

    // Titles: the stroke centred under the numbers, the level turned up the left side.
    bool xTitle = false, yTitle = false;
    for (const KRNChartText& t : p.texts) {
        if (t.text == "X-Axis") xTitle = !t.turned && t.x == (plot.left + plot.right) / 2 && t.y == plot.bottom + 30;
        if (t.text == "Y-Axis") yTitle = t.turned && t.x == plot.left - 75 && t.y == (plot.top + plot.bottom) / 2;
    }
    EXPECT_TRUE(xTitle);
    EXPECT_TRUE(yTitle);
    EXPECT_GT(CountIf(image, QRect(plot.left + 200, plot.bottom + 30, 120, 16), Bluish), 20);
    // The turned title: its ink runs up the left margin, tall and narrow.
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < plot.left - 50; ++x)
            if (Bluish(image.pixel(x, y))) ink |= QRect(x, y, 1, 1);
    EXPECT_GE(ink.left(), plot.left - 75);
    EXPECT_GT(ink.height(), 2 * ink.width());
    EXPECT_NEAR(ink.center().y(), (plot.top + plot.bottom) / 2, 3);
}

TEST(ChartScales, UnreversedStrokeNumbersStartAtZeroWhilePointsKeepTheirRange) {
    Placed<> p;
    p.chart->m_nXReversed = 0;
    p.chart->m_dXMin = 20.0;
    p.chart->m_dXMax = 120.0;
    p.chart->m_vecX1 = {20.0, 120.0};
    p.chart->m_vecY1 = {45.0, 45.0};
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;

    EXPECT_EQ(Row(p.texts, plot.bottom + 5), Numbers(0.0, 10.0));
    EXPECT_EQ(p.chart->XToPixel(20.0), plot.left);
    EXPECT_EQ(p.chart->XToPixel(120.0), plot.right);
    const int y = p.chart->YToPixel(45.0);
    EXPECT_EQ(image.pixel(plot.left + 3, y), kRed) << "mark of the point at 20";
    EXPECT_EQ(image.pixel(plot.right - 3, y), kRed) << "mark of the point at 120";
}

TEST(ChartScales, FactorsScaleTheNumbersAndRoundingNoiseReadsAsZero) {
    Placed<> p;
    p.chart->m_dXMax = 0.7;  // 0.7 * 10 * 0.1 lands a hair above 0.7
    p.chart->m_dYFactor = 10.0;
    p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    const std::vector<std::string> stroke = Row(p.texts, plot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke.front(), "0.70");
    EXPECT_EQ(stroke.back(), "0.00");
    EXPECT_EQ(ColumnUpwards(p.texts, plot.left - 25), Numbers(0.0, 100.0));

    // Pixels back to values: the mouse mapping undoes the drawing mapping.
    p.chart->m_dXFactor = 2.0;
    const int px = p.chart->XToPixel(0.2);
    EXPECT_NEAR(p.chart->PixelToX(px), 0.2, 0.001);
    EXPECT_NEAR(p.chart->PixelToY(p.chart->YToPixel(4.0)), 4.0, 0.05);
}

// ---- plot area, grid, curves ----------------------------------------------------

TEST(ChartDrawing, GridLinesInvertWhatIsUnderThem) {
    Placed<> p;
    const QRgb under = qRgb(10, 100, 200);
    p.chart->m_crBackground = QColor(under);
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    const QRgb grey = qRgb(192, 192, 192);
    const int x3 = plot.left + plot.Width() * 3 / 10;
    const int y7 = plot.top + plot.Height() * 7 / 10;

    EXPECT_EQ(image.pixel(x3 + 11, y7), InvertedBy(grey, under)) << "horizontal line";
    EXPECT_EQ(image.pixel(x3, y7 + 11), InvertedBy(grey, under)) << "vertical line";
    EXPECT_EQ(image.pixel(x3, y7), under) << "crossings are inverted twice";
    EXPECT_EQ(image.pixel(x3 + 11, y7 + 11), under) << "between the lines";
    // Nine lines each way and nothing in the tenths' gaps.
    int lines = 0;
    for (int y = plot.top + 1; y < plot.bottom; ++y) lines += image.pixel(plot.left + 7, y) != under;
    EXPECT_EQ(lines, 9);
    // White under the grid shows the pen's own grey.
    p.chart->m_crBackground = Qt::white;
    EXPECT_EQ(p.Render().pixel(x3 + 11, y7), grey);
}

TEST(ChartDrawing, StepBandsCycleThroughFiveColours) {
    Placed<> p;
    p.chart->m_crBackground = Qt::white;
    // A rise to a level held over seven stages: a band per stage.
    p.chart->m_vecX1 = {100, 90, 80, 70, 60, 50, 40, 30};
    p.chart->m_vecY1 = {10, 50, 50, 50, 50, 50, 50, 50};
    const QImage image = p.Render();
    const QRgb bands[5] = {qRgb(200, 255, 255), qRgb(232, 255, 232), qRgb(255, 255, 230), qRgb(255, 232, 221),
                           qRgb(235, 235, 235)};
    const int y = p.chart->YToPixel(35.0);
    for (int stage = 1; stage <= 6; ++stage) {
        const int x = p.chart->XToPixel(p.chart->m_vecX1[stage] - 5.0);
        EXPECT_EQ(image.pixel(x, y), bands[stage % 5]) << "stage " << stage;
    }
    // Past the last point nothing is filled.
    EXPECT_EQ(image.pixel(p.chart->XToPixel(15.0), y), qRgb(255, 255, 255));
}

TEST(ChartDrawing, OnePointCurveDrawsOnlyItsMark) {
    Placed<> p;
    p.chart->m_crBackground = Qt::white;
    const QImage empty = p.Render();
    p.chart->m_vecX1 = {55.0};
    p.chart->m_vecY1 = {45.0};
    const QImage one = p.Render();
    const QPoint at(p.chart->XToPixel(55.0), p.chart->YToPixel(45.0));
    int changed = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != empty.pixel(x, y)) {
                ++changed;
                EXPECT_LE(std::max(std::abs(x - at.x()), std::abs(y - at.y())), 4) << x << "," << y;
            }
    EXPECT_GT(changed, 8);
    EXPECT_EQ(one.pixel(at.x() + 3, at.y()), kRed);
}

TEST(ChartDrawing, CurvesWithUnequalVectorsAreNeitherDrawnNorHit) {
    Placed<> p;
    const QImage before = p.Render();
    p.chart->m_vecX1 = {100, 50, 0};
    p.chart->m_vecY1 = {50, 50};
    EXPECT_EQ(p.chart->PointCount(0), -1);
    EXPECT_EQ(p.Render(), before);
    p.Move(QPoint(p.chart->XToPixel(50), p.chart->YToPixel(50)));
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);
}

TEST(ChartDrawing, TwoCurvesAreBarsUnderTheTopBandAndSwitchOverLine) {
    Placed<> p;
    p.chart->m_nCurveMode = 2;
    p.chart->m_crCurve1 = QColor(0, 200, 0);
    p.chart->m_crCurve2 = QColor(200, 0, 200);
    p.chart->m_crBackground = Qt::white;
    p.chart->m_dSwitchPos = 25.0;
    p.FeedFlow();
    p.chart->m_vecX2 = {100, 50, 0};
    p.chart->m_vecY2 = {90, 20, 20};
    const QImage image = p.Render();
    auto X = [&](double x) { return p.chart->XToPixel(x); };
    auto Y = [&](double y) { return p.chart->YToPixel(y); };

    // Levels are two-pixel bars in the curve's colour, outlined by the pen.
    // (Sample points keep off the grid, which inverts what it crosses.)
    EXPECT_EQ(image.pixel(X(65), Y(60) + 1), qRgb(0, 200, 0));
    EXPECT_EQ(image.pixel(X(65), Y(60) + 2), kBlack);
    EXPECT_EQ(image.pixel(X(25), Y(20) + 1), qRgb(200, 0, 200));
    // Steps between levels are columns at the point.
    EXPECT_EQ(image.pixel(X(60) - 1, Y(75)), qRgb(0, 200, 0));
    EXPECT_EQ(image.pixel(X(50), Y(45)), qRgb(200, 0, 200));
    // The top band and the dotted switch-over line at its position.
    EXPECT_EQ(image.pixel(X(50) + 7, Y(99.5)), qRgb(0, 0, 255));
    int cyan = 0;
    for (int y = Y(95); y < Y(5); ++y) cyan += image.pixel(X(25.24), y) == qRgb(0, 255, 255);
    EXPECT_GT(cyan, (Y(5) - Y(95)) / 3);
    EXPECT_LT(cyan, (Y(5) - Y(95)) * 2 / 3) << "dotted, not solid";
}

TEST(ChartDrawing, EmptyWindowDrawsNothingAndPaintsReuseTheirBuffers) {
    CKRNMachineChart loose;
    QImage image(50, 50, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    {
        QPainter painter(&image);
        loose.DrawChart(painter);
    }
    EXPECT_EQ(CountPixels(image, image.rect(), qRgb(255, 0, 255)), 2500);

    Placed<> p;
    p.FeedFlow();
    p.Render();
    const uchar* back = p.chart->m_bmpBack.constBits();
    const uchar* cache = p.chart->m_bmpCache.constBits();
    p.Render();
    EXPECT_EQ(p.chart->m_bmpBack.constBits(), back);
    EXPECT_EQ(p.chart->m_bmpCache.constBits(), cache);
}

TEST(ChartDrawing, ChartPlacedInsideAPageIsSeenWholeInItsWindow) {
    Placed<> p(QRect(100, 50, 640, 400));
    p.chart->m_crBackground = Qt::white;
    EXPECT_EQ(p.chart->m_rcPlot.left, 180);
    EXPECT_EQ(p.chart->m_rcPlot.top, 65);
    const QImage image = p.Render();
    EXPECT_EQ(image.pixel(0, 0), kBlack) << "window frame";
    EXPECT_EQ(image.pixel(639, 399), kBlack) << "window frame";
    EXPECT_EQ(image.pixel(80, 200), kBlack) << "plot frame, left";
    EXPECT_EQ(image.pixel(605, 200), kBlack) << "plot frame, right";
    EXPECT_EQ(image.pixel(300, 15), kBlack) << "plot frame, top";

    // The mouse finds points in the same place.
    p.FeedFlow();
    p.Move(p.ClientOf(3));
    EXPECT_EQ(p.chart->m_nHoverPoint, 3);
}

// ---- mouse ----------------------------------------------------------------------

TEST(ChartMouse, HoverMarksTheNearPointOnly) {
    Placed<> p;
    p.FeedFlow();
    p.Move(p.ClientOf(2) + QPoint(5, -5));
    EXPECT_EQ(p.chart->m_nHoverPoint, 2);
    EXPECT_EQ(p.chart->m_nHoverValid, 1);
    const QImage marked = p.Render();
    const QPoint at = p.ClientOf(2);
    EXPECT_EQ(marked.pixel(at.x() + 4, at.y()), kRed);
    EXPECT_EQ(marked.pixel(at.x() - 4, at.y() + 1), kRed);

    p.Move(p.ClientOf(2) + QPoint(6, 0));
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);
    EXPECT_EQ(p.chart->m_nHoverValid, 0);
    EXPECT_NE(p.Render().pixel(at.x() + 4, at.y()), kRed);

    // Leaving the plot keeps what was hovered.
    p.Move(p.ClientOf(4));
    p.Move(QPoint(5, 5));
    EXPECT_EQ(p.chart->m_nHoverPoint, 4);
}

TEST(ChartMouse, DragKeepsMiddlePointsBetweenNeighboursAndFreesTheFirst) {
    Placed<> p;
    p.FeedFlow();
    const QPoint start = p.ClientOf(2);  // stroke 60, between 80 and 40
    ASSERT_NE(KRNResources::Cursor(438).hotSpot(), KRNResources::Cursor(439).hotSpot()) << "cursors of the module";
    p.Move(start);
    p.Press(start);
    ASSERT_TRUE(p.chart->m_bDragging);
    EXPECT_EQ(p.chart->cursor().hotSpot(), KRNResources::Cursor(439).hotSpot());

    const int y = start.y() - 30;
    p.Move(QPoint(p.chart->XToPixel(50.0), y));
    EXPECT_NEAR(p.chart->m_dDragX, 50.0, 0.2);
    EXPECT_NEAR(p.chart->m_dDragY, p.chart->PixelToY(y), 1e-9);
    EXPECT_EQ(p.chart->m_nDragPoint, 2);
    // Past the neighbour at 40, and onto the neighbour at 80: refused.
    p.Move(QPoint(p.chart->XToPixel(30.0), y + 10));
    EXPECT_NEAR(p.chart->m_dDragX, 50.0, 0.2);
    p.Move(QPoint(p.chart->XToPixel(80.0), y + 10));
    EXPECT_NEAR(p.chart->m_dDragX, 50.0, 0.2);
    EXPECT_NEAR(p.chart->m_dDragY, p.chart->PixelToY(y), 1e-9);
    EXPECT_EQ(p.chart->m_vecX1[2], 60.0) << "the owner moves the point, not the chart";

    p.Release(QPoint(p.chart->XToPixel(50.0), y));
    EXPECT_FALSE(p.chart->m_bDragging);
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);
    EXPECT_EQ(p.chart->cursor().hotSpot(), KRNResources::Cursor(438).hotSpot());

    // The first point goes anywhere, past its neighbour too.
    p.Move(p.ClientOf(0));
    p.Press(p.ClientOf(0));
    p.Move(QPoint(p.chart->XToPixel(30.0), start.y()));
    EXPECT_NEAR(p.chart->m_dDragX, 30.0, 0.2);
    EXPECT_EQ(p.chart->m_nDragPoint, 0);
}

TEST(ChartMouse, PressAwayFromAPointStartsNoDrag) {
    Placed<> p;
    p.FeedFlow();
    p.Move(QPoint(300, 300));
    p.Press(QPoint(300, 300));
    EXPECT_FALSE(p.chart->m_bDragging);
    p.Move(QPoint(310, 290));
    EXPECT_EQ(p.chart->m_nDragPoint, -1);
}

TEST(ChartMouse, LockedChartIgnoresTheMouse) {
    Placed<> p;
    p.FeedFlow();
    p.chart->m_nLocked = 1;
    p.Move(p.ClientOf(1));
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);

    // Locked in the middle of a drag: the drag stands still.
    p.chart->m_nLocked = 0;
    p.Move(p.ClientOf(1));
    p.Press(p.ClientOf(1));
    p.chart->m_nLocked = 1;
    p.Move(p.ClientOf(1) + QPoint(3, -20));
    p.Release(p.ClientOf(1));
    EXPECT_TRUE(p.chart->m_bDragging);
    EXPECT_EQ(p.chart->m_nDragPoint, -1);
    EXPECT_EQ(p.chart->m_nHoverPoint, 1);
}

// ---- controller looks -----------------------------------------------------------

TEST(ChartLooks, FanucShowsNoNumbersAndADottedFiveByFiveGrid) {
    Placed<CKRNFanucTypeAPressChart> p;
    p.chart->m_crBackground = Qt::white;
    p.chart->m_strXTitle.clear();
    p.chart->m_strYTitle.clear();
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 0);
    EXPECT_EQ(plot.bottom, 400);
    EXPECT_TRUE(p.texts.empty());

    const QRgb white = qRgb(255, 255, 255);
    for (int k = 1; k <= 4; ++k) {
        const int y = plot.Height() * k / 5;
        int ink = 0, runs = 0;
        for (int x = 10; x < 630; ++x) {
            const bool on = image.pixel(x, y) == kBlack;
            ink += on;
            runs += on && image.pixel(x - 1, y) != kBlack;
        }
        EXPECT_NEAR(ink, 310, 20) << "half of a dotted line " << k;
        EXPECT_GT(runs, 90) << "dotted line " << k;
    }
    EXPECT_EQ(CountPixels(image, QRect(10, plot.Height() / 10, 100, 1), white), 100) << "no line at the tenth";
}

TEST(ChartLooks, ClfDrawsNoTitlesNumbersOrGrid) {
    Placed<CKRNMachineChartCLF> p;
    p.chart->m_strXTitle = "Stroke (mm)";
    p.chart->m_strYTitle = "Speed (%)";
    p.FeedFlow();
    p.Move(p.ClientOf(1));
    const QImage image = p.Render();
    EXPECT_TRUE(p.texts.empty());
    EXPECT_EQ(CountPixels(image, image.rect(), qRgb(0, 0, 255)), 0);
    EXPECT_EQ(CountPixels(image, image.rect(), qRgb(63, 63, 63)), 0) << "grid over black";
}

TEST(ChartLooks, PolypaxInjectionChartSitsTenInAndFiftyFiveOffTheRight) {
    Placed<CMachinePolyPaxInjectionChart> p(QRect(0, 0, 300, 200));
    p.chart->m_strXTitle.clear();
    p.chart->m_strYTitle.clear();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 10);
    EXPECT_EQ(plot.right, 300 - 55);
    EXPECT_EQ(plot.top, 15);
    EXPECT_EQ(plot.bottom, 200 - 30);
    const QImage image = p.Render();
    const QRgb yellow = qRgb(255, 255, 0);
    EXPECT_EQ(image.pixel(10, 100), yellow);
    EXPECT_EQ(image.pixel(245, 100), yellow);
    const std::vector<std::string> stroke = Row(p.texts, plot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke.front(), "100.0");
    EXPECT_EQ(stroke[5], "50.0");
    // Every number lies inside the window.
    for (const KRNChartText& t : p.texts) EXPECT_TRUE(t.x > 0 && t.x < 300) << t.text.toStdString();
}

TEST(ChartLooks, PolypaxPressureChartNumbersHaveOneDecimal) {
    Placed<CKRNPolyPaxPressChart> p;
    p.Render();
    EXPECT_EQ(ColumnUpwards(p.texts, p.chart->m_rcPlot.left - 25), Numbers(0.0, 10.0, "%.1f"));
}

TEST(ChartLooks, ArburgKeepsItsNumbersInsideAndMarksPointsSolid) {
    Placed<CMachineChartArburg> p;
    p.FeedFlow();
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 0);
    EXPECT_EQ(plot.bottom, 375);
    int numbers = 0;
    for (const KRNChartText& t : p.texts) {
        if (t.text == "X-Axis" || t.text == "Y-Axis") continue;
        ++numbers;
        EXPECT_TRUE(t.x >= 0 && t.x < 640 && t.y >= 0 && t.y < 400) << t.text.toStdString();
    }
    EXPECT_EQ(numbers, 22);
    EXPECT_EQ(image.pixel(p.ClientOf(2)), kRed);
    // No grid: the black plot is black at a tenth.
    EXPECT_EQ(image.pixel(plot.Width() * 7 / 10, plot.Height() * 9 / 10 + 3), kBlack);
}

TEST(ChartLooks, CruveArbugDrawsItsNumbersHeavyAndItsGridDotted) {
    Placed<CMachineCruveArbug> heavy;
    Placed<> plain;
    EXPECT_EQ(heavy.chart->m_fontLabel.weight(), QFont::Black);
    EXPECT_EQ(plain.chart->m_fontLabel.weight(), QFont::Normal);
    const QImage image = heavy.Render();
    const KRNChartRect plot = heavy.chart->m_rcPlot;
    const int y = plot.top + plot.Height() * 3 / 10;
    int grey = 0;
    for (int x = plot.left + 1; x < plot.right; ++x) grey += image.pixel(x, y) == qRgb(63, 63, 63);
    EXPECT_NEAR(grey, plot.Width() / 2, 30);
    EXPECT_EQ(image.pixel(5, plot.bottom + 3), qRgb(205, 203, 196));
}

TEST(ChartLooks, MitsubishiFillsEachProfileAsOneArea) {
    Placed<CKRNMITSUBISHChart> p;
    p.chart->m_nCurveMode = 2;
    p.chart->m_crCurve1 = QColor(0, 160, 255);
    p.FeedFlow();
    const QImage image = p.Render();
    const QRgb fill = qRgb(0, 160, 255);
    EXPECT_EQ(image.pixel(p.chart->XToPixel(50), p.chart->YToPixel(45)), fill);
    EXPECT_EQ(image.pixel(p.chart->XToPixel(50), p.chart->YToPixel(85)), kBlack);
    EXPECT_EQ(image.pixel(p.chart->XToPixel(10), p.chart->YToPixel(2)), fill);
}

TEST(ChartLooks, TickLooksDrawTheirMarksOnly) {
    const QRgb white = qRgb(255, 255, 255);
    {
        Placed<CKRNMachineMITSUBISH_HydraulicChart> p;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        const int mid = r.top + r.Height() / 2;
        EXPECT_EQ(CountPixels(image, QRect(r.left + 1, mid, 19, 1), white), 19);
        EXPECT_EQ(CountPixels(image, QRect(r.right - 19, mid, 19, 1), white), 19);
        EXPECT_EQ(CountPixels(image, QRect(r.left + 25, r.top + 1, r.Width() - 50, r.Height() - 1), white), 0);
    }
    {
        Placed<CKRNORGZCTMachineChart> p;
        p.chart->m_crBackground = Qt::white;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        const int y = r.top + r.Height() * 3 / 7;
        const int x = r.left + r.Width() * 2 / 6;
        EXPECT_TRUE(InkNear(image, r.right - 10, y, kBlack));
        EXPECT_FALSE(InkNear(image, r.right - 30, y, kBlack));
        EXPECT_TRUE(InkNear(image, x, r.bottom - 10, kBlack));
        EXPECT_FALSE(InkNear(image, x, r.bottom - 30, kBlack));
    }
    {
        Placed<CKRNNIIGATA> p;
        p.chart->m_crBackground = Qt::white;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        // Paired lines in the middle ninths only.
        auto ink = [&](int x) { return CountPixels(image, QRect(x, r.top + 1, 1, r.Height() - 2), kBlack); };
        const int ninth4 = r.left + r.Width() * 4 / 9;
        const int ninth2 = r.left + r.Width() * 2 / 9;
        EXPECT_GT(ink(ninth4 + 5), r.Height() / 3);
        EXPECT_LE(ink(ninth2 + 5), 4) << "only where the four level lines cross";
        EXPECT_GT(ink(r.left + 5), r.Height() / 3);
    }
}
