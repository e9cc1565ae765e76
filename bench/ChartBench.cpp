// Chart repaint per mouse move, beside the same primitives painted by bare
// QPainter on an image of the same size in the same run.

#include "CKRNMachineChart.h"
#include "KRNBench.h"
#include "KRNResources.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <unistd.h>
#include <string>
#include <vector>

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 400;
const double kFlowX[] = {100, 80, 60, 40, 20, 0};
const double kFlowY[] = {40, 60, 80, 60, 40, 40};

// A shown page holding the default chart with a six-stage profile.
struct ShownChart {
    QWidget page;
    CKRNMachineChart* chart = new CKRNMachineChart;

    ShownChart() {
        page.resize(kWidth, kHeight);
        chart->CreateChart(QRect(0, 0, kWidth, kHeight), &page);
        chart->m_strXTitle = QStringLiteral("Stroke (mm)");
        chart->m_strYTitle = QStringLiteral("Speed (%)");
        chart->m_crBackground = Qt::white;
        chart->m_vecX1.assign(std::begin(kFlowX), std::end(kFlowX));
        chart->m_vecY1.assign(std::begin(kFlowY), std::end(kFlowY));
        page.show();
        QCoreApplication::processEvents();
        chart->repaint();
    }
    bool Painted() const { return !chart->m_bmpCache.isNull(); }

    QPoint ClientOf(int i) const { return QPoint(chart->XToPixel(kFlowX[i]), chart->YToPixel(kFlowY[i])); }

    void Move(const QPoint& client) {
        QMouseEvent event(QEvent::MouseMove, QPointF(client), chart->mapToGlobal(QPointF(client)), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(chart, &event);
    }
};

// The baseline: what the chart puts on the screen for that profile, as
// straight QPainter calls with everything precomputed.
struct BarePicture {
    QFont title;
    QFont label;
    std::vector<QString> xLabels;
    std::vector<QString> yLabels;
    QPoint points[6];
    const int L = 80, T = 15, R = kWidth - 35, B = kHeight - 60;

    BarePicture() {
        title.setFamilies({QStringLiteral("System"), QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")});
        title.setPixelSize(16);
        title.setWeight(QFont::Bold);
        label.setFamilies({QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")});
        label.setPixelSize(12);
        for (int i = 0; i <= 10; ++i) {
            xLabels.push_back(QString::asprintf("%6.2f", 100.0 - 10.0 * i));
            yLabels.push_back(QString::asprintf("%6.2f", 10.0 * i));
        }
        for (int i = 0; i < 6; ++i)
            points[i] = QPoint(L + int(std::lround((100.0 - kFlowX[i]) * (R - L) / 100.0)),
                               B - int(std::lround(kFlowY[i] * (B - T) / 100.0)));
    }

    int HitTest(const QPoint& at) const {
        for (int i = 0; i < 6; ++i)
            if (std::abs(points[i].x() - at.x()) < 6 && std::abs(points[i].y() - at.y()) < 6) return i;
        return -1;
    }

    void Paint(QPainter& p, int hover) const {
        static const QColor bands[5] = {QColor(200, 255, 255), QColor(232, 255, 232), QColor(255, 255, 230),
                                        QColor(255, 232, 221), QColor(235, 235, 235)};
        p.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap));
        p.setBrush(Qt::white);
        p.drawRect(0, 0, kWidth - 1, kHeight - 1);
        p.drawRect(L, T, R - L - 1, B - T - 1);
        p.setBrush(Qt::white);
        const QPoint plot[4] = {{L, T}, {R, T}, {R, B}, {L, B}};
        p.drawPolygon(plot, 4);
        p.drawLine(L, T, R, T);
        p.setPen(QColor(0, 0, 255));
        p.setFont(title);
        p.drawText(QPoint((L + R) / 2 - 40, B + 30 + 14), QStringLiteral("Stroke (mm)"));
        p.save();
        p.translate(L - 75, (T + B) / 2);
        p.rotate(-90);
        p.drawText(QPoint(-35, 14), QStringLiteral("Speed (%)"));
        p.restore();
        p.setPen(Qt::black);
        p.setFont(label);
        for (int i = 0; i <= 10; ++i) {
            p.drawText(QPoint(L + (R - L) * i / 10 - 24, B + 5 + 11), xLabels[i]);
            p.drawText(QPoint(L - 45, B - (B - T) * i / 10 - 8 + 11), yLabels[i]);
        }
        p.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap));
        for (int i = 0; i < 6; ++i) {
            if (i < 5) {
                const QPoint band[4] = {points[i], points[i + 1], {points[i + 1].x(), points[0].y()},
                                        {points[i].x(), points[0].y()}};
                p.setBrush(bands[i % 5]);
                p.drawPolygon(band, 4);
                p.setBrush(Qt::white);
            }
            if (i > 0) p.drawLine(points[i - 1], points[i]);
            p.setPen(QPen(Qt::red, 1));
            p.drawEllipse(points[i], 3, 3);
            p.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap));
        }
        p.setPen(QPen(QColor(192, 192, 192), 1, Qt::SolidLine, Qt::FlatCap));
        p.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        for (int k = 1; k < 10; ++k) {
            p.drawLine(L, T + (B - T) * k / 10, R, T + (B - T) * k / 10);
            p.drawLine(L + (R - L) * k / 10, T, L + (R - L) * k / 10, B);
        }
        p.setCompositionMode(QPainter::CompositionMode_SourceOver);
        if (hover >= 0) {
            p.setPen(QPen(Qt::red, 2));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(points[hover], 4, 4);
        }
    }
};

void BM_ChartRepaint(benchmark::State& state) {
    ShownChart shown;
    if (!shown.Painted()) state.SkipWithError("the chart was not painted: no exposed window");
    for (auto _ : state) shown.chart->repaint();
}

void BM_ChartDrawToImage(benchmark::State& state) {
    ShownChart shown;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        shown.chart->DrawChart(painter);
    }
}

void BM_BareRepaint(benchmark::State& state) {
    const BarePicture bare;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        bare.Paint(painter, -1);
    }
}

// A mouse moving on and off a point: hit test and synchronous repaint.
void BM_ChartMouseMove(benchmark::State& state) {
    ShownChart shown;
    if (!shown.Painted()) state.SkipWithError("the chart was not painted: no exposed window");
    const QPoint on = shown.ClientOf(2) + QPoint(2, 1);
    const QPoint off = on + QPoint(20, 20);
    bool flip = false;
    for (auto _ : state) {
        shown.Move((flip = !flip) ? on : off);
    }
}

void BM_BareMouseMove(benchmark::State& state) {
    const BarePicture bare;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    const QPoint on = bare.points[2] + QPoint(2, 1);
    const QPoint off = on + QPoint(20, 20);
    bool flip = false;
    for (auto _ : state) {
        const int hover = bare.HitTest((flip = !flip) ? on : off);
        QPainter painter(&image);
        bare.Paint(painter, hover);
    }
}

KRN_BENCH_RATIO(BM_ChartRepaint, BM_BareRepaint);
KRN_BENCH_RATIO(BM_ChartDrawToImage, BM_BareRepaint);
KRN_BENCH_RATIO(BM_ChartMouseMove, BM_BareMouseMove);

BENCHMARK(BM_ChartRepaint)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_ChartDrawToImage)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_BareRepaint)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_ChartMouseMove)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_BareMouseMove)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);


}  // namespace
