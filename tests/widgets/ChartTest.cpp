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

    void Send(QEvent::Type type, const QPoint& client, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, QPointF(client), chart->mapToGlobal(QPointF(client)), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(chart, &event);
    }
    void Move(const QPoint& c) { Send(QEvent::MouseMove, c, Qt::NoButton, Qt::NoButton); }
    void Press(const QPoint& c) { Send(QEvent::MouseButtonPress, c, Qt::LeftButton, Qt::LeftButton); }
    void Release(const QPoint& c) { Send(QEvent::MouseButtonRelease, c, Qt::LeftButton, Qt::NoButton); }
};

// Texts drawn along one anchor row (or column), in reading order, with the
// blanks of the fixed-width format taken off.
std::vector<std::string> Along(const std::vector<KRNChartText>& texts, int at, bool column = false) {
    std::vector<KRNChartText> line;
    for (const KRNChartText& t : texts)
        if ((column ? t.x : t.y) == at && !t.turned) line.push_back(t);
    std::sort(line.begin(), line.end(), [column](const KRNChartText& a, const KRNChartText& b) {
        return column ? a.y > b.y : a.x < b.x;  // a column reads upwards
    });
    std::vector<std::string> out;
    for (const KRNChartText& t : line) out.push_back(t.text.trimmed().toStdString());
    return out;
}

std::vector<std::string> Numbers(double first, double step, const char* format = "%.2f") {
    std::vector<std::string> out;
    for (int i = 0; i <= 10; ++i) out.push_back(QString::asprintf(format, first + step * i).toStdString());
    return out;
}

int CountPixels(const QImage& image, const QRect& area, QRgb colour) {
    int n = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x) n += image.pixel(x, y) == colour;
    return n;
}

// Any pixel of the colour within one pixel of (x, y): for the two-pixel pens.
bool InkNear(const QImage& image, int x, int y, QRgb colour) {
    return CountPixels(image, QRect(x - 1, y - 1, 3, 3), colour) > 0;
}

// What the grid's inverting pen makes of a colour underneath.
QRgb InvertedBy(QRgb pen, QRgb under) { return (~(pen ^ under) & 0x00FFFFFFu) | 0xFF000000u; }

}  // namespace

// ---- scales and titles ----------------------------------------------------------

TEST(ChartScales, DefaultChartCountsStrokeDownAndLevelsUpUnderItsTitles) {
    Placed<> p;
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(QRect(plot.left, plot.top, plot.Width(), plot.Height()), QRect(80, 15, 525, 325));
    EXPECT_EQ(Along(p.texts, plot.bottom + 5), Numbers(100.0, -10.0));
    EXPECT_EQ(Along(p.texts, plot.left - 25, true), Numbers(0.0, 10.0));
    // The stroke title centred under the numbers, the level turned up the left side.
    bool xTitle = false, yTitle = false;
    for (const KRNChartText& t : p.texts) {
        if (t.text == "X-Axis") xTitle = !t.turned && t.x == (plot.left + plot.right) / 2 && t.y == plot.bottom + 30;
        if (t.text == "Y-Axis") yTitle = t.turned && t.x == plot.left - 75 && t.y == (plot.top + plot.bottom) / 2;
    }
    EXPECT_TRUE(xTitle);
    EXPECT_TRUE(yTitle);
    // The texts are really on the picture, not only in the log.
    int ink = 0;
    for (int x = plot.left - 25; x < plot.left + 17; ++x)
        for (int y = plot.bottom + 5; y < plot.bottom + 20; ++y) ink += qGray(image.pixel(x, y)) < 96;
    EXPECT_GT(ink, 20);
}

TEST(ChartScales, UnreversedStrokeAndFactorsScaleOnlyTheNumbers) {
    Placed<> p;
    p.chart->m_nXReversed = 0;
    p.chart->m_dXMin = 20.0;
    p.chart->m_dXMax = 120.0;
    p.chart->m_vecX1 = {20.0, 120.0};
    p.chart->m_vecY1 = {45.0, 45.0};
    QImage image = p.Render();
    KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(Along(p.texts, plot.bottom + 5), Numbers(0.0, 10.0));  // numbers start at zero
    const int y = p.chart->YToPixel(45.0);
    EXPECT_EQ(image.pixel(plot.left + 3, y), kRed) << "mark of the point at 20";
    EXPECT_EQ(image.pixel(plot.right - 3, y), kRed) << "mark of the point at 120";

    Placed<> q;
    q.chart->m_dXMax = 0.7;  // 0.7 * 10 * 0.1 lands a hair above 0.7
    q.chart->m_dYFactor = 10.0;
    q.Render();
    plot = q.chart->m_rcPlot;
    const std::vector<std::string> stroke = Along(q.texts, plot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke.front(), "0.70");
    EXPECT_EQ(stroke.back(), "0.00") << "rounding noise reads as zero";
    EXPECT_EQ(Along(q.texts, plot.left - 25, true), Numbers(0.0, 100.0));
}

// ---- plot area, grid, curves ----------------------------------------------------

TEST(ChartDrawing, GridLinesInvertWhatIsUnderThem) {
    Placed<> p;
    const QRgb under = qRgb(10, 100, 200), grey = qRgb(192, 192, 192);
    p.chart->m_crBackground = QColor(under);
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    const int x3 = plot.left + plot.Width() * 3 / 10;
    const int y7 = plot.top + plot.Height() * 7 / 10;
    EXPECT_EQ(image.pixel(x3 + 11, y7), InvertedBy(grey, under)) << "horizontal line";
    EXPECT_EQ(image.pixel(x3, y7 + 11), InvertedBy(grey, under)) << "vertical line";
    EXPECT_EQ(image.pixel(x3, y7), under) << "crossings are inverted twice";
    int lines = 0;
    for (int y = plot.top + 1; y < plot.bottom; ++y) lines += image.pixel(plot.left + 7, y) != under;
    EXPECT_EQ(lines, 9);
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
    for (int stage = 1; stage <= 6; ++stage)
        EXPECT_EQ(image.pixel(p.chart->XToPixel(p.chart->m_vecX1[stage] - 5.0), y), bands[stage % 5]) << stage;
    EXPECT_EQ(image.pixel(p.chart->XToPixel(15.0), y), qRgb(255, 255, 255)) << "nothing past the last point";
}

TEST(ChartDrawing, OnePointCurveDrawsItsMarkAndUnequalVectorsNothing) {
    Placed<> p;
    p.chart->m_crBackground = Qt::white;
    const QImage empty = p.Render();
    // One point: only its mark.
    p.chart->m_vecX1 = {55.0};
    p.chart->m_vecY1 = {45.0};
    const QImage one = p.Render();
    const QPoint at(p.chart->XToPixel(55.0), p.chart->YToPixel(45.0));
    int changed = 0, astray = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != empty.pixel(x, y)) {
                ++changed;
                astray += std::max(std::abs(x - at.x()), std::abs(y - at.y())) > 4;
            }
    EXPECT_GT(changed, 8);
    EXPECT_EQ(astray, 0);
    // Unequal vectors: neither drawn nor hit.
    p.chart->m_vecX1 = {100, 50, 0};
    p.chart->m_vecY1 = {50, 50};
    EXPECT_EQ(p.chart->PointCount(0), -1);
    EXPECT_EQ(p.Render(), empty);
    p.Move(QPoint(p.chart->XToPixel(50), p.chart->YToPixel(50)));
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);
}

TEST(ChartDrawing, TwoCurvesAreBarsUnderTheTopBandAndSwitchOverLine) {
    Placed<> p;
    p.chart->m_nCurveMode = 2;
    p.chart->m_crCurve1 = QColor(0, 200, 0);
    p.chart->m_crCurve2 = QColor(200, 0, 200);
    p.chart->m_dSwitchPos = 25.0;
    p.FeedFlow();
    p.chart->m_vecX2 = {100, 50, 0};
    p.chart->m_vecY2 = {90, 20, 20};
    const QImage image = p.Render();
    auto X = [&](double x) { return p.chart->XToPixel(x); };
    auto Y = [&](double y) { return p.chart->YToPixel(y); };
    // Levels are two-pixel bars outlined by the pen, steps are columns at the
    // point (sample points keep off the grid, which inverts what it crosses).
    EXPECT_EQ(image.pixel(X(65), Y(60) + 1), qRgb(0, 200, 0));
    EXPECT_EQ(image.pixel(X(65), Y(60) + 2), kBlack);
    EXPECT_EQ(image.pixel(X(50), Y(45)), qRgb(200, 0, 200));
    EXPECT_EQ(image.pixel(X(50) + 7, Y(99.5)), qRgb(0, 0, 255)) << "top band";
    int cyan = 0;
    for (int y = Y(95); y < Y(5); ++y) cyan += image.pixel(X(25.24), y) == qRgb(0, 255, 255);
    EXPECT_GT(cyan, (Y(5) - Y(95)) / 3);
    EXPECT_LT(cyan, (Y(5) - Y(95)) * 2 / 3) << "dotted, not solid";
}

TEST(ChartDrawing, ChartPlacedInsideAPageIsSeenWholeInItsWindow) {
    Placed<> p(QRect(100, 50, 640, 400));
    EXPECT_EQ(p.chart->m_rcPlot.left, 180);
    const QImage image = p.Render();
    EXPECT_EQ(image.pixel(639, 399), kBlack) << "window frame";
    EXPECT_EQ(image.pixel(80, 200), kBlack) << "plot frame, left";
    // The mouse finds points in the same place.
    p.FeedFlow();
    p.Move(p.ClientOf(3));
    EXPECT_EQ(p.chart->m_nHoverPoint, 3);
}

// ---- mouse ----------------------------------------------------------------------

TEST(ChartMouse, HoverMarksTheNearPointOnlyUnlessLocked) {
    Placed<> p;
    p.FeedFlow();
    const QPoint at = p.ClientOf(2);
    p.Move(at + QPoint(5, -5));
    EXPECT_EQ(p.chart->m_nHoverPoint, 2);
    EXPECT_EQ(p.chart->m_nHoverValid, 1);
    EXPECT_EQ(p.Render().pixel(at.x() + 4, at.y()), kRed);

    p.Move(at + QPoint(6, 0));
    EXPECT_EQ(p.chart->m_nHoverPoint, -1);
    EXPECT_EQ(p.chart->m_nHoverValid, 0);
    EXPECT_NE(p.Render().pixel(at.x() + 4, at.y()), kRed);

    // Leaving the plot keeps what was hovered; a press away from points starts no drag.
    p.Move(p.ClientOf(4));
    p.Move(QPoint(5, 5));
    EXPECT_EQ(p.chart->m_nHoverPoint, 4);
    p.Move(QPoint(300, 300));
    p.Press(QPoint(300, 300));
    EXPECT_FALSE(p.chart->m_bDragging);
    p.Release(QPoint(300, 300));

    // A locked chart hovers nothing, and a drag locked midway stands still.
    p.chart->m_nLocked = 1;
    p.Move(p.ClientOf(1));
    EXPECT_NE(p.chart->m_nHoverPoint, 1);
    p.chart->m_nLocked = 0;
    p.Move(p.ClientOf(1));
    p.Press(p.ClientOf(1));
    p.chart->m_nLocked = 1;
    p.Move(p.ClientOf(1) + QPoint(3, -20));
    p.Release(p.ClientOf(1));
    EXPECT_TRUE(p.chart->m_bDragging);
    EXPECT_EQ(p.chart->m_nDragPoint, -1);
}

TEST(ChartMouse, DragKeepsMiddlePointsBetweenNeighboursAndFreesTheFirst) {
    Placed<> p;
    p.FeedFlow();
    const QPoint start = p.ClientOf(2);  // stroke 60, between 80 and 40
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
    EXPECT_EQ(p.chart->m_vecX1[2], 60.0) << "the owner moves the point, not the chart";

    p.Release(QPoint(p.chart->XToPixel(50.0), y));
    EXPECT_FALSE(p.chart->m_bDragging);
    EXPECT_EQ(p.chart->cursor().hotSpot(), KRNResources::Cursor(438).hotSpot());

    // The first point goes anywhere, past its neighbour too.
    p.Move(p.ClientOf(0));
    p.Press(p.ClientOf(0));
    p.Move(QPoint(p.chart->XToPixel(30.0), start.y()));
    EXPECT_NEAR(p.chart->m_dDragX, 30.0, 0.2);
    EXPECT_EQ(p.chart->m_nDragPoint, 0);
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
    EXPECT_TRUE(p.texts.empty());
    int ink = 0, runs = 0;
    for (int x = 10; x < 630; ++x) {
        const bool on = image.pixel(x, plot.Height() * 2 / 5) == kBlack;
        ink += on;
        runs += on && image.pixel(x - 1, plot.Height() * 2 / 5) != kBlack;
    }
    EXPECT_NEAR(ink, 310, 20) << "half of a dotted line";
    EXPECT_GT(runs, 90);
    EXPECT_EQ(CountPixels(image, QRect(10, plot.Height() / 10, 100, 1), qRgb(255, 255, 255)), 100) << "no line at the tenth";
}

TEST(ChartLooks, ClfDrawsNoTitlesNumbersOrGrid) {
    Placed<CKRNMachineChartCLF> p;
    p.chart->m_strXTitle = "Stroke (mm)";
    p.FeedFlow();
    const QImage image = p.Render();
    EXPECT_TRUE(p.texts.empty());
    EXPECT_EQ(CountPixels(image, image.rect(), qRgb(63, 63, 63)), 0) << "grid over black";
}

TEST(ChartLooks, PolypaxChartsSitTenInWithOneDecimal) {
    Placed<CMachinePolyPaxInjectionChart> p(QRect(0, 0, 300, 200));
    p.chart->m_strYTitle.clear();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 10);
    EXPECT_EQ(plot.right, 300 - 55);
    const QImage image = p.Render();
    EXPECT_EQ(image.pixel(10, 100), qRgb(255, 255, 0));
    const std::vector<std::string> stroke = Along(p.texts, plot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke[5], "50.0");
    for (const KRNChartText& t : p.texts) EXPECT_TRUE(t.x > 0 && t.x < 300) << t.text.toStdString();

    Placed<CKRNPolyPaxPressChart> press;
    press.Render();
    EXPECT_EQ(Along(press.texts, press.chart->m_rcPlot.left - 25, true), Numbers(0.0, 10.0, "%.1f"));
}

TEST(ChartLooks, ArburgKeepsItsNumbersInsideAndMarksPointsSolid) {
    Placed<CMachineChartArburg> p;
    p.FeedFlow();
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_EQ(plot.bottom, 375);
    for (const KRNChartText& t : p.texts) {
        if (t.text != "X-Axis" && t.text != "Y-Axis") {
            EXPECT_TRUE(t.x >= 0 && t.x < 640 && t.y >= 0 && t.y < 400) << t.text.toStdString();
        }
    }
    EXPECT_EQ(image.pixel(p.ClientOf(2)), kRed);
    EXPECT_EQ(image.pixel(plot.Width() * 7 / 10, plot.Height() * 9 / 10 + 3), kBlack) << "no grid";
}

TEST(ChartLooks, CruveArbugDrawsItsNumbersHeavyAndItsGridDotted) {
    Placed<CMachineCruveArbug> p;
    EXPECT_EQ(p.chart->m_fontLabel.weight(), QFont::Black);
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    EXPECT_NEAR(CountPixels(image, QRect(plot.left + 1, plot.top + plot.Height() * 3 / 10, plot.Width() - 1, 1),
                            qRgb(63, 63, 63)),
                plot.Width() / 2, 30);
}

TEST(ChartLooks, MitsubishiFillsEachProfileAsOneArea) {
    Placed<CKRNMITSUBISHChart> p;
    p.chart->m_nCurveMode = 2;
    p.chart->m_crCurve1 = QColor(0, 160, 255);
    p.FeedFlow();
    const QImage image = p.Render();
    EXPECT_EQ(image.pixel(p.chart->XToPixel(50), p.chart->YToPixel(45)), qRgb(0, 160, 255));
    EXPECT_EQ(image.pixel(p.chart->XToPixel(50), p.chart->YToPixel(85)), kBlack);
}

TEST(ChartLooks, TickLooksDrawTheirMarksOnly) {
    const QRgb white = qRgb(255, 255, 255);
    {
        Placed<CKRNMachineMITSUBISH_HydraulicChart> p;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        EXPECT_EQ(CountPixels(image, QRect(r.left + 1, r.top + r.Height() / 2, 19, 1), white), 19);
        EXPECT_EQ(CountPixels(image, QRect(r.left + 25, r.top + 1, r.Width() - 50, r.Height() - 1), white), 0);
    }
    {
        Placed<CKRNORGZCTMachineChart> p;
        p.chart->m_crBackground = Qt::white;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        const int y = r.top + r.Height() * 3 / 7;
        EXPECT_TRUE(InkNear(image, r.right - 10, y, kBlack));
        EXPECT_FALSE(InkNear(image, r.right - 30, y, kBlack));
    }
    {
        Placed<CKRNNIIGATA> p;
        p.chart->m_crBackground = Qt::white;
        const QImage image = p.Render();
        const KRNChartRect r = p.chart->m_rcPlot;
        // Paired lines in the middle ninths only.
        auto ink = [&](int x) { return CountPixels(image, QRect(x, r.top + 1, 1, r.Height() - 2), kBlack); };
        EXPECT_GT(ink(r.left + r.Width() * 4 / 9 + 5), r.Height() / 3);
        EXPECT_LE(ink(r.left + r.Width() * 2 / 9 + 5), 4) << "only where the four level lines cross";
    }
}
