#include "ChartGallery.h"

#include "CKRNChartVariants.h"
#include "CKRNMachineChart.h"
#include "KRNMachineData.h"
#include "KRNOutputFile.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <cstdio>
#include <memory>

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 400;

// A record as a host would hand it over: a six-stage flow-rate profile over
// the screw stroke (100 % at the start of injection down to 0 at the
// nozzle) and the pressure profile beside it.
CKRNMachineData SampleRecord() {
    CKRNMachineData record;
    const XYProfile flow[] = {{100, 40}, {80, 60}, {60, 80}, {40, 60}, {20, 40}, {0, 40}};
    const XYProfile pressure[] = {{100, 70}, {80, 70}, {60, 85}, {40, 85}, {20, 55}, {0, 55}};
    for (int i = 0; i < 6; ++i) {
        record.SetMachineData(MI_FP_PROFILE, i, flow[i].x, flow[i].y);
        record.SetMachineData(MI_P_PROFILE, i, pressure[i].x, pressure[i].y);
    }
    return record;
}

void Feed(const CKRNMachineData& record, KRNMACHINEITEM item, std::vector<double>& xs, std::vector<double>& ys) {
    const int n = record.GetProfileDataCount(item);
    for (int i = 0; i < n; ++i) {
        double x = 0.0;
        double y = 0.0;
        record.GetProfileData(item, i, x, y);
        xs.push_back(x);
        ys.push_back(y);
    }
}

struct Look {
    const char* name;
    std::unique_ptr<CKRNMachineChart> (*make)();
    QColor background;
    QColor curve1;
    QColor curve2;
    bool twoCurves;  // both profiles as bars; otherwise the flow rate as filled steps
    bool reversed;   // stroke counting down towards the nozzle
    bool pressureFirst = false;  // filled areas: the lower profile goes on top
};

template <class Chart>
std::unique_ptr<CKRNMachineChart> Make() {
    return std::make_unique<Chart>();
}

// Colours as each controller's screen has them.
const Look kLooks[] = {
    {"CKRNMachineChart", Make<CKRNMachineChart>, QColor(255, 255, 255), Qt::black, Qt::black, false, true},
    {"CMachineChartArburg", Make<CMachineChartArburg>, KRNColorRef(12897485), Qt::black, Qt::black, false, true},
    {"CMachineCruveArbug", Make<CMachineCruveArbug>, QColor(255, 255, 255), QColor(0, 128, 0), QColor(200, 0, 0),
     true, true},
    {"CMachinePolyPaxInjectionChart", Make<CMachinePolyPaxInjectionChart>, KRNColorRef(12925978),
     KRNColorRef(65535), QColor(255, 128, 0), true, false},
    {"CKRNFanucTypeAPressChart", Make<CKRNFanucTypeAPressChart>, QColor(255, 255, 255), KRNColorRef(0x37751C),
     KRNColorRef(255), true, true},
    {"CKRNMachineChartCLF", Make<CKRNMachineChartCLF>, QColor(0, 0, 64), QColor(0, 255, 0), QColor(255, 255, 0),
     true, true},
    {"CKRNMachineMITSUBISH_HydraulicChart", Make<CKRNMachineMITSUBISH_HydraulicChart>, Qt::black,
     KRNColorRef(15391129), KRNColorRef(65280), true, true},
    {"CKRNMITSUBISHChart", Make<CKRNMITSUBISHChart>, Qt::black, QColor(255, 200, 0), QColor(0, 160, 255), true,
     true, true},
    {"CKRNNIIGATA", Make<CKRNNIIGATA>, QColor(240, 240, 232), KRNColorRef(0xA67F43), KRNColorRef(0x5A377E), true,
     false},
    {"CKRNORGZCTMachineChart", Make<CKRNORGZCTMachineChart>, KRNColorRef(0x80A0A0), KRNColorRef(3634204),
     QColor(160, 0, 0), true, false},
    {"CKRNPolyPaxPressChart", Make<CKRNPolyPaxPressChart>, KRNColorRef(12925978), KRNColorRef(65535),
     QColor(255, 128, 0), true, false},
};

}  // namespace

int KRNChartGallery(const QString& dir) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        std::fprintf(stderr, "charts: no QApplication is running\n");
        return 2;
    }
    if (!QDir().mkpath(dir)) {
        std::fprintf(stderr, "charts: cannot create the folder %s\n", qPrintable(dir));
        return 2;
    }
    const CKRNMachineData record = SampleRecord();
    QWidget page;
    page.resize(kWidth, kHeight);
    for (const Look& look : kLooks) {
        std::unique_ptr<CKRNMachineChart> chart = look.make();
        if (!chart->CreateChart(QRect(0, 0, kWidth, kHeight), &page)) {
            std::fprintf(stderr, "charts: %s could not be created\n", look.name);
            return 2;
        }
        chart->m_strXTitle = look.reversed ? QStringLiteral("Stroke (mm)") : QStringLiteral("Stroke (%)");
        chart->m_strYTitle = QStringLiteral("Speed (%)");
        chart->m_crBackground = look.background;
        chart->m_crCurve1 = look.curve1;
        chart->m_crCurve2 = look.curve2;
        chart->m_nXReversed = look.reversed ? 1 : 0;
        chart->m_nCurveMode = look.twoCurves ? 2 : 1;
        chart->m_dSwitchPos = 15.0;
        const KRNMACHINEITEM first = look.pressureFirst ? MI_P_PROFILE : MI_FP_PROFILE;
        const KRNMACHINEITEM second = look.pressureFirst ? MI_FP_PROFILE : MI_P_PROFILE;
        Feed(record, first, chart->m_vecX1, chart->m_vecY1);
        if (look.twoCurves) Feed(record, second, chart->m_vecX2, chart->m_vecY2);
        if (!look.reversed) {
            // Screens that run left to right show the stroke from its start.
            for (double& x : chart->m_vecX1) x = 100.0 - x;
            for (double& x : chart->m_vecX2) x = 100.0 - x;
        }
        QImage image(kWidth, kHeight, QImage::Format_RGB32);
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            chart->DrawChart(painter);
        }
        const QString path = QDir(dir).filePath(QString::fromLatin1(look.name) + QStringLiteral(".png"));
        QString problem;
        if (!KRNWritePng(path, image, problem)) {
            std::fprintf(stderr, "charts: %s\n", qPrintable(problem));
            return 2;
        }
    }
    return 0;
}
