// The dialog templates as the panels open them: compiled at build time from
// the Designer forms and read by the template loader. A compiled template
// must build what Designer's own loader builds from the form (every class,
// name, place, text, font, colour and flag), the compiler must stop on what
// the loader would drop, and a damaged template is refused, never a crash.

#include "CKRNFormLoader.h"
#include "KRNCompiledForm.h"
#include "KRNResources.h"
#include "mitsubishi_hydraulic/CKRNMachineMITSUBISH_ColorButton.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStyle>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

std::unique_ptr<QWidget> Load(QByteArray bytes, QString* error = nullptr) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    CKRNFormLoader loader;
    std::unique_ptr<QWidget> root(loader.load(&buffer));
    if (error) *error = loader.errorString();
    return root;
}

// The form read as it is, its colours applied the way a dialog applies them.
std::unique_ptr<QWidget> LoadDesignerForm(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return nullptr;
    std::unique_ptr<QWidget> root = Load(file.readAll());
    if (!root) return nullptr;
    CKRNFormLoader::ApplyPalette(root.get());
    for (QWidget* w : root->findChildren<QWidget*>()) CKRNFormLoader::ApplyPalette(w);
    return root;
}

// Everything a form can give a widget, as one comparable text per widget.
QStringList Describe(QWidget* root) {
    QStringList out;
    QList<QWidget*> all{root};
    all += root->findChildren<QWidget*>();
    for (QWidget* w : all) {
        QString d = QStringLiteral("%1 %2 %3,%4 %5x%6 hidden=%7 enabled=%8 fill=%9 tip=[%10] name=[%11] title=[%12] font=%13")
                        .arg(QLatin1String(w->metaObject()->className()), w->objectName())
                        .arg(w == root ? 0 : w->x())
                        .arg(w == root ? 0 : w->y())
                        .arg(w->width())
                        .arg(w->height())
                        .arg(w->isHidden())
                        .arg(w->isEnabled())
                        .arg(w->autoFillBackground())
                        .arg(w->toolTip(), w->accessibleName(), w->windowTitle(), w->font().toString());
        for (auto group : {QPalette::Active, QPalette::Disabled})
            for (auto role : {QPalette::WindowText, QPalette::Window, QPalette::Text, QPalette::Base,
                              QPalette::Button, QPalette::ButtonText, QPalette::Highlight})
                d += QLatin1Char(' ') + w->palette().color(group, role).name(QColor::HexArgb);
        if (auto* l = qobject_cast<QLabel*>(w))
            d += QStringLiteral(" label[%1] align=%2 frame=%3 indent=%4 wrap=%5 line=%6 margin=%7")
                     .arg(l->text())
                     .arg(int(l->alignment()))
                     .arg(l->frameStyle())
                     .arg(l->indent())
                     .arg(l->wordWrap())
                     .arg(l->lineWidth())
                     .arg(l->margin());
        if (auto* e = qobject_cast<QLineEdit*>(w))
            d += QStringLiteral(" edit[%1] align=%2 readOnly=%3 frame=%4 max=%5")
                     .arg(e->text())
                     .arg(int(e->alignment()))
                     .arg(e->isReadOnly())
                     .arg(e->hasFrame())
                     .arg(e->maxLength());
        if (auto* b = qobject_cast<QPushButton*>(w))
            d += QStringLiteral(" button[%1] flat=%2 autoDefault=%3 default=%4 checkable=%5 checked=%6")
                     .arg(b->text())
                     .arg(b->isFlat())
                     .arg(b->autoDefault())
                     .arg(b->isDefault())
                     .arg(b->isCheckable())
                     .arg(b->isChecked());
        d += QStringLiteral(" style=%1").arg(w->style() ? w->style()->name() : QString());
        out << d;
    }
    return out;
}

QStringList FocusChain(QWidget* root) {
    QStringList names;
    QWidget* w = root;
    do {
        names << w->objectName();
        w = w->nextInFocusChain();
    } while (w && w != root);
    return names;
}

struct Compiled {
    int exitCode;
    QString errors;
    QByteArray bytes;
};

// Runs the build's template compiler on one form given as text.
Compiled Compile(const QByteArray& form) {
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("4711.ui")));
    if (!file.open(QIODevice::WriteOnly) || file.write(form) != form.size()) return {-1, QStringLiteral("no temp"), {}};
    file.close();
    QProcess tool;
    tool.start(QStringLiteral(KRN_FORMCOMPILE_EXE), {dir.path(), file.fileName()});
    tool.waitForFinished(30000);
    QFile out(dir.filePath(QStringLiteral("4711.krf")));
    return {tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
            QString::fromUtf8(tool.readAllStandardError()), out.open(QIODevice::ReadOnly) ? out.readAll() : QByteArray()};
}

QByteArray Form(const char* widgets, const char* tail = "") {
    return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\">\n <class>Form</class>\n"
                      " <widget class=\"QWidget\" name=\"Form\">\n"
                      "  <property name=\"geometry\"><rect><x>0</x><y>0</y><width>200</width><height>100</height></rect></property>\n") +
           widgets + " </widget>\n" + tail + " <resources/>\n <connections/>\n</ui>\n";
}

}  // namespace

TEST(Templates, EveryCompiledTemplateBuildsWhatItsDesignerFormBuilds) {
    CKRNMachineMITSUBISH_ColorButton::RegisterWithForms();
    const QFileInfoList forms = QDir(QStringLiteral(KRN_FORMS_DIR)).entryInfoList({QStringLiteral("*.ui")});
    ASSERT_GT(forms.size(), 10);
    for (const QFileInfo& form : forms) {
        const int id = form.completeBaseName().toInt();
        const QByteArray compiled = KRNResources::Form(id);
        ASSERT_TRUE(compiled.startsWith(QByteArray(KRNCompiledForm::kMagic, 4))) << "template " << id << " not compiled";
        QString error;
        const std::unique_ptr<QWidget> fast = Load(compiled, &error);
        ASSERT_TRUE(fast) << id << ": " << error.toStdString();
        const std::unique_ptr<QWidget> designer = LoadDesignerForm(form.filePath());
        ASSERT_TRUE(designer) << id;
        const QStringList a = Describe(fast.get()), b = Describe(designer.get());
        ASSERT_EQ(a.size(), b.size()) << id;
        // The first widget that differs is enough to tell what was lost.
        for (qsizetype i = 0; i < a.size(); ++i)
            if (a[i] != b[i]) {
                EXPECT_EQ(a[i].toStdString(), b[i].toStdString()) << "template " << id;
                break;
            }
    }
}

// Each of these would lose something on the screen, so the build stops,
// naming the form's line and what is not handled.
TEST(Templates, TheCompilerStopsOnWhatTheLoaderWouldDrop) {
    const struct {
        const char* what;
        QByteArray form;
        const char* message;
    } refused[] = {
        {"a property the loader does not set",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"sizePolicy\"><sizepolicy hsizetype=\"Fixed\" "
              "vsizetype=\"Fixed\"/></property></widget>\n"),
         "property sizePolicy is not handled"},
        {"a property of another class", Form("  <widget class=\"QWidget\" name=\"IDC_1\"><property name=\"text\"><string>x</string></property></widget>\n"),
         "property text is not handled for this widget class"},
        {"a widget class no template holds", Form("  <widget class=\"QComboBox\" name=\"IDC_1\"/>\n"),
         "widget class QComboBox is not handled"},
        {"a custom class over an unheld base", Form("  <widget class=\"CMyBox\" name=\"IDC_1\"/>\n",
                                                     " <customwidgets><customwidget><class>CMyBox</class><extends>QComboBox</extends>"
                                                     "<header>x.h</header></customwidget></customwidgets>\n"),
         "extends QComboBox"},
        {"a native window", Form("  <widget class=\"QLabel\" name=\"IDC_1\" native=\"true\"/>\n"),
         "attribute native of <widget> is not handled"},
        {"a layout", Form("  <layout class=\"QVBoxLayout\" name=\"l\"/>\n"), "<layout> inside a widget is not handled"},
        {"a dynamic property other than the colours",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"krnColour\" stdset=\"0\"><string>red</string></property></widget>\n"),
         "dynamic property krnColour is not handled"},
        {"a colour role that does not exist",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"krnPalette\" stdset=\"0\"><string>Ink=#000000</string></property></widget>\n"),
         "Ink=#000000 names no colour role"},
        {"a colour that does not parse",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"krnPalette\" stdset=\"0\"><string>Window=#zz0000</string></property></widget>\n"),
         "gives no colour"},
        {"an alignment key that does not exist",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"alignment\"><set>Qt::AlignMiddle</set></property></widget>\n"),
         "Qt::AlignMiddle is not a value of property alignment"},
        {"a font detail the loader does not set",
         Form("  <widget class=\"QLabel\" name=\"IDC_1\"><property name=\"font\"><font><kerning>false</kerning></font></property></widget>\n"),
         "font <kerning> is not handled"},
        {"a connection", Form("", "").replace("<connections/>", "<connections><connection/></connections>"),
         "<connection> inside <connections> is not handled"},
        {"a form that is no XML", QByteArray("<ui version=\"4.0\"><widget"), "not a well-formed form"},
    };
    for (const auto& r : refused) {
        const Compiled c = Compile(r.form);
        EXPECT_NE(c.exitCode, 0) << r.what;
        EXPECT_TRUE(c.errors.contains(QLatin1String("4711.ui:"))) << r.what << ": " << c.errors.toStdString();
        EXPECT_TRUE(c.errors.contains(QLatin1String(r.message))) << r.what << ": " << c.errors.toStdString();
    }
}

// What the forms gain over time (accessible names, a raised control, a tab
// order, a label with a margin) compiles and arrives on the widgets.
TEST(Templates, AcceptedPropertiesArriveOnTheWidgets) {
    const QByteArray form = Form(
        "  <property name=\"krnPalette\" stdset=\"0\"><string>Window=#102030 | WindowText=#808080</string></property>\n"
        "  <widget class=\"QLabel\" name=\"IDC_STATIC\">\n"
        "   <property name=\"geometry\"><rect><x>4</x><y>6</y><width>50</width><height>20</height></rect></property>\n"
        "   <property name=\"accessibleName\"><string>Injection speed, stage 1</string></property>\n"
        "   <property name=\"text\"><string notr=\"true\">&lt;mm/s&gt; ü</string></property>\n"
        "   <property name=\"margin\"><number>3</number></property>\n"
        "  </widget>\n"
        "  <widget class=\"QLineEdit\" name=\"IDC_1123\">\n"
        "   <property name=\"geometry\"><rect><x>4</x><y>6</y><width>50</width><height>20</height></rect></property>\n"
        "   <property name=\"maxLength\"><number>7</number></property>\n"
        "   <property name=\"enabled\"><bool>false</bool></property>\n"
        "  </widget>\n"
        "  <widget class=\"QLineEdit\" name=\"IDC_1124\"/>\n"
        "  <zorder>IDC_1123</zorder>\n"
        "  <zorder>IDC_STATIC</zorder>\n",
        " <tabstops><tabstop>IDC_1124</tabstop><tabstop>IDC_1123</tabstop></tabstops>\n");
    const Compiled c = Compile(form);
    ASSERT_EQ(c.exitCode, 0) << c.errors.toStdString();
    QString error;
    const std::unique_ptr<QWidget> root = Load(c.bytes, &error);
    ASSERT_TRUE(root) << error.toStdString();
    EXPECT_EQ(root->size(), QSize(200, 100));
    EXPECT_EQ(root->palette().color(QPalette::Window), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(root->palette().color(QPalette::Disabled, QPalette::WindowText), QColor(0x80, 0x80, 0x80));
    auto* label = root->findChild<QLabel*>(QStringLiteral("IDC_STATIC"));
    ASSERT_TRUE(label);
    EXPECT_EQ(label->accessibleName(), QStringLiteral("Injection speed, stage 1"));
    EXPECT_EQ(label->text(), QStringLiteral("<mm/s> ü"));
    EXPECT_EQ(label->margin(), 3);
    EXPECT_EQ(label->geometry(), QRect(4, 6, 50, 20));
    auto* edit = root->findChild<QLineEdit*>(QStringLiteral("IDC_1123"));
    ASSERT_TRUE(edit);
    EXPECT_EQ(edit->maxLength(), 7);
    EXPECT_FALSE(edit->isEnabled());
    // Raised last, the label lies on top of the field it overlaps.
    EXPECT_EQ(root->childAt(10, 10), label);
    // Designer's tab order is set as Designer's own loader sets it.
    const std::unique_ptr<QWidget> designer = Load(form);
    ASSERT_TRUE(designer);
    EXPECT_EQ(FocusChain(root.get()), FocusChain(designer.get()));
}

// A template cut short at any byte, or of another format, is refused with a
// reason; nothing is left behind under the parent.
TEST(Templates, ADamagedTemplateIsRefusedNotBuiltHalfway) {
    const QByteArray whole = KRNResources::Form(31138);
    ASSERT_TRUE(whole.startsWith(QByteArray(KRNCompiledForm::kMagic, 4)));
    QWidget parent;
    for (qsizetype n = 4; n < whole.size(); n += 1 + n / 16) {
        QByteArray cut = whole.left(n);
        QBuffer buffer(&cut);
        buffer.open(QIODevice::ReadOnly);
        CKRNFormLoader loader;
        EXPECT_EQ(loader.load(&buffer, &parent), nullptr) << n;
        EXPECT_FALSE(loader.errorString().isEmpty()) << n;
        EXPECT_TRUE(parent.findChildren<QWidget*>().isEmpty()) << n;
    }
    QByteArray later = whole;
    later[4] = char(KRNCompiledForm::kVersion + 1);
    QString error;
    EXPECT_FALSE(Load(later, &error));
    EXPECT_TRUE(error.contains(QLatin1String("format"))) << error.toStdString();
}
