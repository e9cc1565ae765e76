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
#include <utility>

namespace {

const QRgb kBlack = qRgb(0, 0, 0);
const QRgb kRed = qRgb(255, 0, 0);
const QRgb kWhite = qRgb(255, 255, 255);

template <class Chart = CKRNMachineChart>
struct Placed {
    QWidget page;
    Chart* chart = new Chart;
    std::vector<KRNChartText> texts;

    explicit Placed(const QRect& rect = QRect(0, 0, 640, 400), const QColor& background = QColor()) {
        page.resize(rect.right() + 20, rect.bottom() + 20);
        if (!chart->CreateChart(rect, &page)) ADD_FAILURE() << "CreateChart refused " << rect.width() << "x" << rect.height();
        chart->m_pTextLog = &texts;
        if (background.isValid()) chart->m_crBackground = background;
    }

    // The flow-rate profile of a six-stage injection, stroke counting down.
    void FeedFlow() {
        chart->ClearCurves();
        chart->m_vecX1 = {100, 80, 60, 40, 20, 0};
        chart->m_vecY1 = {40, 60, 80, 60, 40, 40};
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
    EXPECT_TRUE(xTitle && yTitle);
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
    const QImage image = p.Render();
    EXPECT_EQ(Along(p.texts, p.chart->m_rcPlot.bottom + 5), Numbers(0.0, 10.0));  // numbers start at zero
    EXPECT_EQ(image.pixel(p.chart->m_rcPlot.left + 3, p.chart->YToPixel(45.0)), kRed) << "mark of the point at 20";
    EXPECT_EQ(image.pixel(p.chart->m_rcPlot.right - 3, p.chart->YToPixel(45.0)), kRed) << "mark of the point at 120";

    Placed<> q;
    q.chart->m_dXMax = 0.7;  // 0.7 * 10 * 0.1 lands a hair above 0.7
    q.chart->m_dYFactor = 10.0;
    q.Render();
    const std::vector<std::string> stroke = Along(q.texts, q.chart->m_rcPlot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke.front() + " " + stroke.back(), "0.70 0.00") << "rounding noise reads as zero";
    EXPECT_EQ(Along(q.texts, q.chart->m_rcPlot.left - 25, true), Numbers(0.0, 100.0));
}

// ---- plot area, grid, curves ----------------------------------------------------

TEST(ChartDrawing, GridLinesInvertWhatIsUnderThem) {
    const QRgb under = qRgb(10, 100, 200);
    const QRgb inverted = (~(qRgb(192, 192, 192) ^ under) & 0x00FFFFFFu) | 0xFF000000u;  // the grey pen, inverting
    Placed<> p(QRect(0, 0, 640, 400), QColor(under));
    const QImage image = p.Render();
    const KRNChartRect plot = p.chart->m_rcPlot;
    const int x3 = plot.left + plot.Width() * 3 / 10;
    const int y7 = plot.top + plot.Height() * 7 / 10;
    EXPECT_EQ(image.pixel(x3 + 11, y7), inverted) << "horizontal line";
    EXPECT_EQ(image.pixel(x3, y7 + 11), inverted) << "vertical line";
    EXPECT_EQ(image.pixel(x3, y7), under) << "crossings are inverted twice";
    int lines = 0;
    for (int y = plot.top + 1; y < plot.bottom; ++y) lines += image.pixel(plot.left + 7, y) != under;
    EXPECT_EQ(lines, 9);
}

TEST(ChartDrawing, StepBandsCycleThroughFiveColours) {
    Placed<> p(QRect(0, 0, 640, 400), Qt::white);
    // A rise to a level held over seven stages: a band per stage.
    p.chart->m_vecX1 = {100, 90, 80, 70, 60, 50, 40, 30};
    p.chart->m_vecY1 = {10, 50, 50, 50, 50, 50, 50, 50};
    const QImage image = p.Render();
    const QRgb bands[5] = {qRgb(200, 255, 255), qRgb(232, 255, 232), qRgb(255, 255, 230), qRgb(255, 232, 221),
                           qRgb(235, 235, 235)};
    const int y = p.chart->YToPixel(35.0);
    for (int stage = 1; stage <= 6; ++stage)
        EXPECT_EQ(image.pixel(p.chart->XToPixel(p.chart->m_vecX1[stage] - 5.0), y), bands[stage % 5]) << stage;
    EXPECT_EQ(image.pixel(p.chart->XToPixel(15.0), y), kWhite) << "nothing past the last point";
}

TEST(ChartDrawing, OnePointCurveDrawsItsMarkAndUnequalVectorsNothing) {
    Placed<> p(QRect(0, 0, 640, 400), Qt::white);
    const QImage empty = p.Render();
    p.chart->m_vecX1 = {55.0};
    p.chart->m_vecY1 = {45.0};
    const QImage one = p.Render();
    const QPoint at(p.chart->XToPixel(55.0), p.chart->YToPixel(45.0));
    const QRect mark(at - QPoint(4, 4), QSize(9, 9));
    QImage outside = one;
    QPainter(&outside).drawImage(mark, empty, mark);
    EXPECT_EQ(outside, empty) << "only the mark";
    EXPECT_GT(9 * 9 - CountPixels(one, mark, kWhite), 8);
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

// ---- mouse ----------------------------------------------------------------------

TEST(ChartMouse, HoverMarksTheNearPointOnlyUnlessLocked) {
    // Placed inside a page: drawn whole in its window, and the mouse finds points there.
    Placed<> placed(QRect(100, 50, 640, 400));
    EXPECT_EQ(placed.chart->m_rcPlot.left, 180);
    EXPECT_EQ(placed.Render().pixel(80, 200), kBlack) << "plot frame, left";
    placed.FeedFlow();
    placed.Move(placed.ClientOf(3));
    EXPECT_EQ(placed.chart->m_nHoverPoint, 3);

    Placed<> p;
    p.FeedFlow();
    const QPoint at = p.ClientOf(2);
    p.Move(at + QPoint(5, -5));
    EXPECT_EQ(p.chart->m_nHoverPoint, 2);
    EXPECT_EQ(p.Render().pixel(at.x() + 4, at.y()), kRed);
    p.Move(at + QPoint(6, 0));
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
}

// ---- controller looks -----------------------------------------------------------

TEST(ChartLooks, BareLooksDrawNoTextsAndTheirOwnGrid) {
    Placed<CKRNFanucTypeAPressChart> dotted(QRect(0, 0, 640, 400), Qt::white);
    dotted.chart->m_strXTitle.clear();
    dotted.chart->m_strYTitle.clear();
    QImage image = dotted.Render();
    const KRNChartRect plot = dotted.chart->m_rcPlot;
    EXPECT_EQ(plot.left, 0);
    EXPECT_TRUE(dotted.texts.empty());
    EXPECT_NEAR(CountPixels(image, QRect(10, plot.Height() * 2 / 5, 620, 1), kBlack), 310, 20) << "dotted, five by five";
    EXPECT_EQ(CountPixels(image, QRect(10, plot.Height() / 10, 100, 1), kWhite), 100) << "no line at the tenth";

    Placed<CKRNMachineChartCLF> bare;
    bare.chart->m_strXTitle = "Stroke (mm)";
    bare.FeedFlow();
    image = bare.Render();
    EXPECT_TRUE(bare.texts.empty());
    EXPECT_EQ(CountPixels(image, image.rect(), qRgb(63, 63, 63)), 0) << "no grid over black";
}

TEST(ChartLooks, InsetLooksKeepTheirNumbersInsideTheWindow) {
    Placed<CMachinePolyPaxInjectionChart> p(QRect(0, 0, 300, 200));
    p.chart->m_strYTitle.clear();
    EXPECT_EQ(std::make_pair(p.chart->m_rcPlot.left, p.chart->m_rcPlot.right), std::make_pair(10, 300 - 55));
    EXPECT_EQ(p.Render().pixel(10, 100), qRgb(255, 255, 0));
    const std::vector<std::string> stroke = Along(p.texts, p.chart->m_rcPlot.bottom + 5);
    ASSERT_EQ(stroke.size(), 11u);
    EXPECT_EQ(stroke[5], "50.0");
    for (const KRNChartText& t : p.texts) EXPECT_TRUE(t.x > 0 && t.x < 300) << t.text.toStdString();
    Placed<CKRNPolyPaxPressChart> press;
    press.Render();
    EXPECT_EQ(Along(press.texts, press.chart->m_rcPlot.left - 25, true), Numbers(0.0, 10.0, "%.1f"));

    Placed<CMachineChartArburg> solid;
    solid.FeedFlow();
    const QImage image = solid.Render();
    const KRNChartRect plot = solid.chart->m_rcPlot;
    EXPECT_EQ(plot.bottom, 375);
    for (const KRNChartText& t : solid.texts) {
        if (t.text != "X-Axis" && t.text != "Y-Axis") {
            EXPECT_TRUE(t.x >= 0 && t.x < 640 && t.y >= 0 && t.y < 400) << t.text.toStdString();
        }
    }
    EXPECT_EQ(image.pixel(solid.ClientOf(2)), kRed) << "solid marks";
    EXPECT_EQ(image.pixel(plot.Width() * 7 / 10, plot.Height() * 9 / 10 + 3), kBlack) << "no grid";
}

TEST(ChartLooks, DottedGridFilledProfilesAndTickMarks) {
    Placed<CMachineCruveArbug> heavy;
    QImage image = heavy.Render();
    KRNChartRect r = heavy.chart->m_rcPlot;
    EXPECT_NEAR(CountPixels(image, QRect(r.left + 1, r.top + r.Height() * 3 / 10, r.Width() - 1, 1), qRgb(63, 63, 63)),
                r.Width() / 2, 30) << "dotted grid";

    Placed<CKRNMITSUBISHChart> filled;
    filled.chart->m_nCurveMode = 2;
    filled.chart->m_crCurve1 = QColor(0, 160, 255);
    filled.FeedFlow();
    image = filled.Render();
    EXPECT_EQ(image.pixel(filled.chart->XToPixel(50), filled.chart->YToPixel(45)), qRgb(0, 160, 255));
    EXPECT_EQ(image.pixel(filled.chart->XToPixel(50), filled.chart->YToPixel(85)), kBlack);

    Placed<CKRNMachineMITSUBISH_HydraulicChart> ticks;
    image = ticks.Render();
    r = ticks.chart->m_rcPlot;
    EXPECT_EQ(CountPixels(image, QRect(r.left + 1, r.top + r.Height() / 2, 19, 1), kWhite), 19);
    EXPECT_EQ(CountPixels(image, QRect(r.left + 25, r.top + 1, r.Width() - 50, r.Height() - 1), kWhite), 0);

    Placed<CKRNORGZCTMachineChart> right(QRect(0, 0, 640, 400), Qt::white);
    image = right.Render();
    r = right.chart->m_rcPlot;
    const int y = r.top + r.Height() * 3 / 7;
    EXPECT_GT(CountPixels(image, QRect(r.right - 11, y - 1, 3, 3), kBlack), 0) << "tick at the right edge";
    EXPECT_EQ(CountPixels(image, QRect(r.right - 31, y - 1, 3, 3), kBlack), 0);

    Placed<CKRNNIIGATA> paired(QRect(0, 0, 640, 400), Qt::white);
    image = paired.Render();
    r = paired.chart->m_rcPlot;
    // Paired lines in the middle ninths only.
    auto ink = [&](int x) { return CountPixels(image, QRect(x, r.top + 1, 1, r.Height() - 2), kBlack); };
    EXPECT_GT(ink(r.left + r.Width() * 4 / 9 + 5), r.Height() / 3);
    EXPECT_LE(ink(r.left + r.Width() * 2 / 9 + 5), 4) << "only where the four level lines cross";
}
