// Opening the Fanuc S2000i panel through the entry interface up to its first
// painted frame and closing it with OK, beside the same widget tree built by
// plain Qt code; and one speed edit from keystroke to record, beside a plain
// field that stores its number.

#include "CKRNDialog.h"
#include "KRNBench.h"
#include "KRNPanelDriver.h"
#include "KRNProMachineInterface.h"
#include "KRNSampleRecord.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <optional>
#include <vector>

namespace {

// The panel's widgets as the baseline rebuilds them: kind, place, parent,
// text, and the fonts, colours and alignment the panel's forms give them.
struct WidgetCopy {
    enum Kind { Container, Stack, Edit, Label, Button } kind;
    QRect geometry;
    int parent;  // index into the list, -1 for the dialog
    QString text;
    std::optional<QFont> font;
    std::optional<QPalette> palette;
    Qt::Alignment alignment;
    bool autoFill = false;
};

std::vector<WidgetCopy> CopyTree(QWidget* root) {
    std::vector<WidgetCopy> out;
    std::function<void(QWidget*, int)> walk = [&](QWidget* w, int parent) {
        for (QObject* o : w->children()) {
            auto* child = qobject_cast<QWidget*>(o);
            if (!child) continue;
            WidgetCopy c{};
            c.kind = WidgetCopy::Container;
            c.geometry = child->geometry();
            c.parent = parent;
            if (auto* e = qobject_cast<QLineEdit*>(child)) c.kind = WidgetCopy::Edit, c.text = e->text();
            else if (auto* l = qobject_cast<QLabel*>(child)) c.kind = WidgetCopy::Label, c.text = l->text();
            else if (auto* b = qobject_cast<QPushButton*>(child)) c.kind = WidgetCopy::Button, c.text = b->text();
            else if (qobject_cast<QStackedWidget*>(child)) c.kind = WidgetCopy::Stack;
            if (child->testAttribute(Qt::WA_SetFont)) c.font = child->font();
            if (child->testAttribute(Qt::WA_SetPalette)) c.palette = child->palette();
            if (auto* l = qobject_cast<QLabel*>(child)) c.alignment = l->alignment();
            if (auto* e = qobject_cast<QLineEdit*>(child)) c.alignment = e->alignment();
            c.autoFill = child->autoFillBackground();
            out.push_back(c);
            walk(child, static_cast<int>(out.size()) - 1);
        }
    };
    walk(root, -1);
    return out;
}

// Runs `whileOpen` on the panel once it is up, then presses OK.
void OpenFanuc(CKRNProMachineInterface& panels, const CKRNMachineData& record,
               const std::function<void(CKRNDialog*)>& whileOpen) {
    QObject context;
    QTimer::singleShot(0, &context, [&] {
        CKRNDialog* top = KRNDriver::TopDialog();
        if (!top) return;
        whileOpen(top);
        top->OnOK();
    });
    panels.KRNDoModal(record, "FANUC-A");
}

std::vector<WidgetCopy>& FanucTree() {
    static std::vector<WidgetCopy> tree = [] {
        CKRNProMachineInterface panels;
        panels.Initialize("");
        std::vector<WidgetCopy> copy;
        OpenFanuc(panels, KRNSampleRecord(), [&](CKRNDialog* frame) { copy = CopyTree(frame); });
        return copy;
    }();
    return tree;
}

void BM_FanucOpenToFirstPaint(benchmark::State& state) {
    CKRNProMachineInterface panels;
    panels.Initialize("");
    const CKRNMachineData record = KRNSampleRecord();
    for (auto _ : state) OpenFanuc(panels, record, [](CKRNDialog* frame) { frame->repaint(); });
    if (!panels.IsOK()) state.SkipWithError("the panel did not open");
}

void BM_PlainQtSameTree(benchmark::State& state) {
    const std::vector<WidgetCopy>& tree = FanucTree();
    if (tree.empty()) state.SkipWithError("the panel's tree could not be read");
    for (auto _ : state) {
        QDialog dialog;
        dialog.setFixedSize(800, 620);
        std::vector<QWidget*> made;
        made.reserve(tree.size());
        for (const WidgetCopy& c : tree) {
            QWidget* parent = c.parent < 0 ? &dialog : made[static_cast<std::size_t>(c.parent)];
            QWidget* w = nullptr;
            switch (c.kind) {
            case WidgetCopy::Edit: w = new QLineEdit(c.text, parent); break;
            case WidgetCopy::Label: w = new QLabel(c.text, parent); break;
            case WidgetCopy::Button: w = new QPushButton(c.text, parent); break;
            case WidgetCopy::Stack: w = new QStackedWidget(parent); break;
            case WidgetCopy::Container: w = new QWidget(parent); break;
            }
            w->setGeometry(c.geometry);
            if (c.font) w->setFont(*c.font);
            if (c.palette) w->setPalette(*c.palette);
            if (auto* l = qobject_cast<QLabel*>(w)) l->setAlignment(c.alignment);
            if (auto* e = qobject_cast<QLineEdit*>(w)) e->setAlignment(c.alignment);
            w->setAutoFillBackground(c.autoFill);
            made.push_back(w);
        }
        dialog.show();
        dialog.repaint();
        dialog.hide();
    }
}

// One keystroke into the first speed field of the packing page, alternating
// between two values below the machine's top speed.
void BM_FanucSpeedKeystroke(benchmark::State& state) {
    CKRNProMachineInterface panels;
    panels.Initialize("");
    OpenFanuc(panels, KRNSampleRecord(), [&](CKRNDialog* frame) {
        KRNDriver::Click(KRNDriver::VisibleControl(frame, 1747));
        auto* speed = qobject_cast<QLineEdit*>(KRNDriver::VisibleControl(frame, 1123));
        if (!speed) return state.SkipWithError("no speed field");
        bool flip = false;
        for (auto _ : state) {
            speed->selectAll();
            const char digit = (flip = !flip) ? '5' : '6';
            QKeyEvent key(QEvent::KeyPress, digit, Qt::NoModifier, QString(QChar(digit)));
            QApplication::sendEvent(speed, &key);
        }
    });
}

void BM_PlainFieldKeystroke(benchmark::State& state) {
    QLineEdit field;
    double stored = 0.0;
    QObject::connect(&field, &QLineEdit::textChanged, [&](const QString& text) { stored = std::atof(text.toUtf8()); });
    bool flip = false;
    for (auto _ : state) {
        field.selectAll();
        const char digit = (flip = !flip) ? '5' : '6';
        QKeyEvent key(QEvent::KeyPress, digit, Qt::NoModifier, QString(QChar(digit)));
        QApplication::sendEvent(&field, &key);
    }
    benchmark::DoNotOptimize(stored);
}

KRN_BENCH_RATIO(BM_FanucOpenToFirstPaint, BM_PlainQtSameTree);
KRN_BENCH_RATIO(BM_FanucSpeedKeystroke, BM_PlainFieldKeystroke);

BENCHMARK(BM_FanucOpenToFirstPaint)->Unit(benchmark::kMillisecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_PlainQtSameTree)->Unit(benchmark::kMillisecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_FanucSpeedKeystroke)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
BENCHMARK(BM_PlainFieldKeystroke)->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);

}  // namespace
