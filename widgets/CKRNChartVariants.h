#pragma once

// The controllers' own chart looks. Each is the profile chart with a few of
// its drawing operations replaced; they hold no data of their own and are
// created and fed exactly like CKRNMachineChart.

#include "CKRNMachineChart.h"

// Selogica injection chart: plot over the whole width with the stroke scale
// below it, no grid, filled point marks, bars outlined in white.
class CMachineChartArburg : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    bool CreateChart(const QRect& rect, QWidget* parent) override;
    void DrawChart(QPainter& dc) override;
    void DrawScaleLabels(QPainter& dc) override;
    void DrawSteps(QPainter& dc, int curveIndex) override;
    void DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys, int curveIndex,
                  const QColor& colour) override;
};

// Selogica measurement chart: dotted grid, a grey scale band, heavy numbers.
class CMachineCruveArbug : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawPlotArea(QPainter& dc) override;
    void DrawGrid(QPainter& dc) override;
    int OnCreate() override;
};

// Polypax injection chart: yellow frame and rules, numbers with one decimal.
class CMachinePolyPaxInjectionChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    bool CreateChart(const QRect& rect, QWidget* parent) override;
    void DrawPlotArea(QPainter& dc) override;
    void DrawScaleLabels(QPainter& dc) override;
    void DrawGrid(QPainter& dc) override;
};

// Fanuc pressure chart: the plot fills the window, no numbers, a dotted
// five-by-five grid over the curves.
class CKRNFanucTypeAPressChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    bool CreateChart(const QRect& rect, QWidget* parent) override;
    void DrawChart(QPainter& dc) override;
    void DrawGrid(QPainter& dc) override;
};

// CLF curve chart: frames, plot and curves only.
class CKRNMachineChartCLF : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawChart(QPainter& dc) override;
};

// Mitsubishi hydraulic chart: two white marks at mid-height.
class CKRNMachineMITSUBISH_HydraulicChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawGrid(QPainter& dc) override;
};

// Mitsubishi electric chart: white ticks on the right, each curve one filled
// area.
class CKRNMITSUBISHChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawGrid(QPainter& dc) override;
    void DrawBars(QPainter& dc, const std::vector<double>& xs, const std::vector<double>& ys, int curveIndex,
                  const QColor& colour) override;
};

// Niigata curve chart: dotted grid with the screen's paired time lines.
class CKRNNIIGATA : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawGrid(QPainter& dc) override;
};

// Taichung pressure-curve chart: black ticks on the right and at the bottom.
class CKRNORGZCTMachineChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawGrid(QPainter& dc) override;
};

// Polypax pressure-curve chart: black border rules with middle marks,
// numbers with one decimal.
class CKRNPolyPaxPressChart : public CKRNMachineChart {
    Q_OBJECT
public:
    using CKRNMachineChart::CKRNMachineChart;
    void DrawScaleLabels(QPainter& dc) override;
    void DrawGrid(QPainter& dc) override;
};
