// Every panel of the engine's panel table, opened through the entry interface
// up to its first painted frame and closed with OK, beside the same widget
// tree rebuilt by plain Qt code; one keystroke into a field of the first page
// shown, beside a plain field that stores its number; and the resident memory
// an open panel adds and how much 1,000 open and close cycles add to it.
//
// The baseline needs no hand-written copy: the panel is opened once, its
// loaded tree is walked (class, place, text, font, palette, alignment, frame,
// pixmap and icon of each widget) and rebuilt by plain constructors and
// setters at every repetition. A widget that paints itself (a profile chart)
// becomes a label showing what it painted, which is what plain Qt would need.

#include "CKRNDialog.h"
#include "KRNBench.h"
#include "KRNPanelDriver.h"
#include "KRNPanelMessages.h"
#include "KRNPanelTable.h"
#include "KRNProMachineInterface.h"
#include "KRNSampleRecord.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

// One widget of a panel as the baseline rebuilds it.
struct WidgetCopy {
    enum Kind { Container, Stack, Edit, Label, Button, Picture } kind = Container;
    int parent = -1;  // index into the list, -1 for the dialog
    QRect geometry;
    bool hidden = false;
    bool disabled = false;
    bool autoFill = false;
    QString text;
    QString toolTip;
    QString accessibleName;
    std::optional<QFont> font;
    std::optional<QPalette> palette;
    Qt::Alignment alignment;
    int frameStyle = 0;
    int indent = -1;
    bool wordWrap = false;
    bool readOnly = false;
    bool hasFrame = true;
    bool flat = false;
    bool checkable = false;
    bool checked = false;
    QPixmap pixmap;
    QIcon icon;
    QSize iconSize;
    int currentIndex = -1;  // of a page stack
};

struct PanelTree {
    QSize size;
    QString title;
    std::optional<QFont> font;
    std::optional<QPalette> palette;
    bool autoFill = false;
    std::vector<WidgetCopy> widgets;
};

// A class of Qt's own: the baseline can build it as it is.
bool IsQtClass(const QWidget* w) { return w->metaObject()->className()[0] == 'Q'; }

void CopyChildren(QWidget* w, int parent, std::vector<WidgetCopy>& out) {
    QList<QWidget*> children;
    if (auto* stack = qobject_cast<QStackedWidget*>(w)) {
        for (int i = 0; i < stack->count(); ++i) children << stack->widget(i);
    } else {
        for (QObject* o : w->children())
            if (auto* child = qobject_cast<QWidget*>(o); child && !child->isWindow()) children << child;
    }
    for (QWidget* child : children) {
        WidgetCopy c;
        c.parent = parent;
        c.geometry = child->geometry();
        c.hidden = child->isHidden();
        c.disabled = child->testAttribute(Qt::WA_ForceDisabled);
        c.autoFill = child->autoFillBackground();
        c.toolTip = child->toolTip();
        c.accessibleName = child->accessibleName();
        if (child->testAttribute(Qt::WA_SetFont)) c.font = child->font();
        if (child->testAttribute(Qt::WA_SetPalette)) c.palette = child->palette();
        if (auto* e = qobject_cast<QLineEdit*>(child)) {
            c.kind = WidgetCopy::Edit;
            c.text = e->text();
            c.alignment = e->alignment();
            c.readOnly = e->isReadOnly();
            c.hasFrame = e->hasFrame();
        } else if (auto* l = qobject_cast<QLabel*>(child)) {
            c.kind = WidgetCopy::Label;
            c.text = l->text();
            c.pixmap = l->pixmap();
            c.alignment = l->alignment();
            c.frameStyle = l->frameStyle();
            c.indent = l->indent();
            c.wordWrap = l->wordWrap();
        } else if (auto* b = qobject_cast<QAbstractButton*>(child)) {
            c.kind = WidgetCopy::Button;
            c.text = b->text();
            c.icon = b->icon();
            c.iconSize = b->iconSize();
            c.checkable = b->isCheckable();
            c.checked = b->isChecked();
            if (auto* p = qobject_cast<QPushButton*>(b)) c.flat = p->isFlat();
        } else if (auto* s = qobject_cast<QStackedWidget*>(child)) {
            c.kind = WidgetCopy::Stack;
            c.currentIndex = s->currentIndex();
        } else if (!IsQtClass(child) && child->findChildren<QWidget*>().isEmpty()) {
            c.kind = WidgetCopy::Picture;
            c.pixmap = child->grab();
        }
        out.push_back(c);
        CopyChildren(child, static_cast<int>(out.size()) - 1, out);
    }
}

PanelTree CopyTree(QWidget* root) {
    PanelTree tree;
    tree.size = root->size();
    tree.title = root->windowTitle();
    if (root->testAttribute(Qt::WA_SetFont)) tree.font = root->font();
    if (root->testAttribute(Qt::WA_SetPalette)) tree.palette = root->palette();
    tree.autoFill = root->autoFillBackground();
    CopyChildren(root, -1, tree.widgets);
    return tree;
}

// The tree rebuilt by plain constructors and setters, opened modally, painted
// once and closed: the same path as the panel's, with nothing of the panel's.
void BuildAndOpen(const PanelTree& tree) {
    QDialog dialog;
    dialog.setFixedSize(tree.size);
    dialog.setWindowTitle(tree.title);
    if (tree.font) dialog.setFont(*tree.font);
    if (tree.palette) dialog.setPalette(*tree.palette);
    dialog.setAutoFillBackground(tree.autoFill);
    std::vector<QWidget*> made;
    made.reserve(tree.widgets.size());
    for (const WidgetCopy& c : tree.widgets) {
        QWidget* parent = c.parent < 0 ? &dialog : made[static_cast<std::size_t>(c.parent)];
        QWidget* w = nullptr;
        switch (c.kind) {
        case WidgetCopy::Edit: {
            auto* e = new QLineEdit(c.text, parent);
            e->setAlignment(c.alignment);
            e->setReadOnly(c.readOnly);
            e->setFrame(c.hasFrame);
            w = e;
            break;
        }
        case WidgetCopy::Label: {
            auto* l = new QLabel(c.text, parent);
            if (!c.pixmap.isNull()) l->setPixmap(c.pixmap);
            l->setAlignment(c.alignment);
            l->setFrameStyle(c.frameStyle);
            l->setIndent(c.indent);
            l->setWordWrap(c.wordWrap);
            w = l;
            break;
        }
        case WidgetCopy::Picture: {
            auto* l = new QLabel(parent);
            l->setPixmap(c.pixmap);
            w = l;
            break;
        }
        case WidgetCopy::Button: {
            auto* b = new QPushButton(c.text, parent);
            if (!c.icon.isNull()) b->setIcon(c.icon), b->setIconSize(c.iconSize);
            b->setFlat(c.flat);
            b->setCheckable(c.checkable);
            b->setChecked(c.checked);
            b->setAutoDefault(false);
            w = b;
            break;
        }
        case WidgetCopy::Stack: w = new QStackedWidget(parent); break;
        case WidgetCopy::Container: w = new QWidget(parent); break;
        }
        if (auto* stack = qobject_cast<QStackedWidget*>(parent)) stack->addWidget(w);
        w->setGeometry(c.geometry);
        if (c.font) w->setFont(*c.font);
        if (c.palette) w->setPalette(*c.palette);
        w->setAutoFillBackground(c.autoFill);
        if (!c.toolTip.isEmpty()) w->setToolTip(c.toolTip);
        if (!c.accessibleName.isEmpty()) w->setAccessibleName(c.accessibleName);
        if (c.disabled) w->setEnabled(false);
        if (c.hidden) w->hide();
        made.push_back(w);
    }
    for (std::size_t i = 0; i < made.size(); ++i)
        if (tree.widgets[i].kind == WidgetCopy::Stack)
            static_cast<QStackedWidget*>(made[i])->setCurrentIndex(tree.widgets[i].currentIndex);
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.repaint();
        dialog.accept();
    });
    dialog.exec();
}

// Every message a panel would show is counted instead of shown.
struct MessageCount {
    MessageCount() {
        m_previous = KRNSetMessageHandler([this](const std::string&, const std::string&) { ++count; });
    }
    ~MessageCount() { KRNSetMessageHandler(m_previous); }
    int count = 0;

private:
    KRNMessageHandler m_previous;
};

// Opens `name` through the entry interface, runs `whileOpen` on its frame
// once it is up, then presses OK.
void OpenPanel(CKRNProMachineInterface& panels, const CKRNMachineData& record, const std::string& name,
               const std::function<void(CKRNDialog*)>& whileOpen) {
    QObject context;
    QTimer::singleShot(0, &context, [&] {
        CKRNDialog* top = KRNDriver::TopDialog();
        if (!top) return;
        whileOpen(top);
        top->OnOK();
    });
    panels.KRNDoModal(record, name);
}

void FirstPaint(CKRNDialog* frame) { frame->repaint(); }

// One keystroke: the field's text selected, then a digit typed over it. The
// digits alternate so that every stroke changes the field.
void Keystroke(QLineEdit* field, bool& flip) {
    field->selectAll();
    const char digit = (flip = !flip) ? '5' : '6';
    QKeyEvent key(QEvent::KeyPress, digit, Qt::NoModifier, QString(QChar(digit)));
    QApplication::sendEvent(field, &key);
}

// The field a keystroke goes to: the first editable field in reading order
// that takes both digits without a message, on the page shown or else on the
// first page that has one (shown for the purpose, as its key would).
QLineEdit* KeystrokeField(CKRNDialog* frame) {
    QList<QWidget*> pages = KRNDriver::Pages(frame);
    std::stable_partition(pages.begin(), pages.end(), [frame](QWidget* p) { return p == frame || p->isVisibleTo(frame); });
    for (QWidget* page : pages) {
        QList<QLineEdit*> edits;
        for (QLineEdit* e : page->findChildren<QLineEdit*>())
            if (!e->isHidden() && e->isEnabled() && !e->isReadOnly()) edits << e;
        std::sort(edits.begin(), edits.end(), [page](QLineEdit* a, QLineEdit* b) {
            const QPoint pa = a->mapTo(page, QPoint()), pb = b->mapTo(page, QPoint());
            return pa.y() != pb.y() ? pa.y() < pb.y() : pa.x() < pb.x();
        });
        if (edits.isEmpty()) continue;
        if (page != frame) KRNDriver::ShowPageForPicture(frame, page);
        for (QLineEdit* e : edits) {
            if (!e->isVisibleTo(frame)) continue;
            MessageCount messages;
            bool flip = false;
            Keystroke(e, flip);
            Keystroke(e, flip);
            if (messages.count == 0) return e;
        }
    }
    return nullptr;
}

// The module the panels open from: this build's, or KRN_BENCH_MODULE (to
// time another build's templates in the same program).
std::string ModuleName() {
    const QByteArray chosen = qgetenv("KRN_BENCH_MODULE");
    return chosen.isEmpty() ? std::string(KRN_BENCH_RESOURCE_MODULE) : chosen.toStdString();
}

struct Panel {
    std::string name;  // as a host passes it
    std::string label;  // the same, fit for a benchmark name
};

// One survey per panel: the loaded tree, read once.
const PanelTree& TreeOf(const Panel& panel) {
    static std::map<std::string, PanelTree> trees;
    auto it = trees.find(panel.name);
    if (it != trees.end()) return it->second;
    CKRNProMachineInterface panels;
    panels.Initialize(ModuleName());
    MessageCount quiet;
    PanelTree tree;
    OpenPanel(panels, KRNSampleRecord(), panel.name, [&](CKRNDialog* frame) { tree = CopyTree(frame); });
    return trees.emplace(panel.name, std::move(tree)).first->second;
}

void BM_Open(benchmark::State& state, const Panel& panel) {
    CKRNProMachineInterface panels;
    panels.Initialize(ModuleName());
    MessageCount quiet;
    const CKRNMachineData record = KRNSampleRecord();
    for (auto _ : state) OpenPanel(panels, record, panel.name, FirstPaint);
    if (!panels.IsOK()) state.SkipWithError("the panel did not open");
}

void BM_Baseline(benchmark::State& state, const Panel& panel) {
    const PanelTree& tree = TreeOf(panel);
    if (tree.widgets.empty()) return state.SkipWithError("the panel's tree could not be read");
    for (auto _ : state) BuildAndOpen(tree);
}

void BM_Keystroke(benchmark::State& state, const Panel& panel) {
    CKRNProMachineInterface panels;
    panels.Initialize(ModuleName());
    MessageCount quiet;
    bool ran = false;
    OpenPanel(panels, KRNSampleRecord(), panel.name, [&](CKRNDialog* frame) {
        QLineEdit* field = KeystrokeField(frame);
        if (!field) return;
        state.SetLabel(field->objectName().toStdString());
        bool flip = false;
        for (auto _ : state) Keystroke(field, flip);
        ran = true;
    });
    if (!ran) state.SkipWithError("no field takes a keystroke on the first page");
}

// Resident size in kB, after freed memory has gone back to the system.
double ResidentKb() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(f);
    }
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024.0;
}

int Cycles() {
    const int n = qEnvironmentVariableIntValue("KRN_BENCH_CYCLES");
    return n > 0 ? n : 1000;
}

// open_kB: what the panel adds while it is open (the process warmed by one
// opening). growth_kB: what the cycles add, counted from the tenth cycle so
// that caches filled once are not taken for growth.
void BM_Memory(benchmark::State& state, const Panel& panel) {
    CKRNProMachineInterface panels;
    panels.Initialize(ModuleName());
    MessageCount quiet;
    const CKRNMachineData record = KRNSampleRecord();
    const int cycles = Cycles();
    double open = 0.0, growth = 0.0;
    for (auto _ : state) {
        OpenPanel(panels, record, panel.name, FirstPaint);
        const double before = ResidentKb();
        double during = before;
        OpenPanel(panels, record, panel.name, [&](CKRNDialog* frame) {
            frame->repaint();
            during = ResidentKb();
        });
        open = during - before;
        double settled = 0.0;
        for (int i = 0; i < cycles; ++i) {
            if (i == 10) settled = ResidentKb();
            OpenPanel(panels, record, panel.name, FirstPaint);
        }
        growth = ResidentKb() - settled;
    }
    state.counters["open_kB"] = open;
    state.counters["growth_kB"] = growth;
    state.counters["cycles"] = cycles;
}

void BM_PlainFieldKeystroke(benchmark::State& state) {
    QLineEdit field;
    double stored = 0.0;
    QObject::connect(&field, &QLineEdit::textChanged, [&](const QString& text) { stored = std::atof(text.toUtf8()); });
    bool flip = false;
    for (auto _ : state) Keystroke(&field, flip);
    benchmark::DoNotOptimize(stored);
}

// Each controller type once, under the first name that opens it.
std::vector<Panel> PanelsOfTheTable() {
    std::vector<Panel> out;
    std::set<int> seen;
    for (const KRNControllerName& c : KRNControllerTable()) {
        if (!KRNFindPanel(c.type) || !seen.insert(c.type).second) continue;
        std::string label(c.name);
        std::replace(label.begin(), label.end(), ' ', '_');
        out.push_back({std::string(c.name), label});
    }
    return out;
}

}  // namespace

void KRNRegisterPanelBenchmarks() {
    static const std::vector<Panel> panels = PanelsOfTheTable();
    auto timed = [](benchmark::internal::Benchmark* b, benchmark::TimeUnit unit) {
        b->Unit(unit)->Repetitions(10)->ReportAggregatesOnly(true);
    };
    timed(benchmark::RegisterBenchmark("BM_PlainFieldKeystroke", BM_PlainFieldKeystroke), benchmark::kMicrosecond);
    for (const Panel& p : panels) {
        const KRNPanelRow row{p.name, "BM_Open/" + p.label, "BM_Baseline/" + p.label, "BM_Keystroke/" + p.label,
                              "BM_Memory/" + p.label};
        timed(benchmark::RegisterBenchmark(row.open.c_str(), BM_Open, p), benchmark::kMillisecond);
        timed(benchmark::RegisterBenchmark(row.baseline.c_str(), BM_Baseline, p), benchmark::kMillisecond);
        timed(benchmark::RegisterBenchmark(row.keystroke.c_str(), BM_Keystroke, p), benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(row.memory.c_str(), BM_Memory, p)->Iterations(1)->Unit(benchmark::kSecond);
        KRNBenchRatio(row.open.c_str(), row.baseline.c_str());
        KRNBenchRatio(row.keystroke.c_str(), "BM_PlainFieldKeystroke");
        KRNBenchPanelRow(row);
    }
}
