// The dialog templates as the panels open them: compiled at build time from
// the Designer forms and read by the template loader. A compiled template
// must build what Designer's own loader builds from the form (every class,
// name, place, text, font, colour and flag), the compiler must stop on what
// the loader would drop, and a damaged template is refused, never a crash.

#include "CKRNFormLoader.h"
#include "KRNCompiledForm.h"
#include "KRNResources.h"
#include "mitsubishi_hydraulic/CKRNMachineMITSUBISH_ColorButton.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QStyle>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
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

// Everything a form can give a widget (each property read as text), as one
// comparable text per widget.
QStringList Describe(QWidget* root) {
    QStringList out;
    for (QWidget* w : QList<QWidget*>{root} + root->findChildren<QWidget*>()) {
        QString d = QStringLiteral("%1 %2 %3,%4 %5x%6 hidden=%7 style=%8")
                        .arg(QLatin1String(w->metaObject()->className()), w->objectName())
                        .arg(w == root ? 0 : w->x())
                        .arg(w == root ? 0 : w->y())
                        .arg(w->width())
                        .arg(w->height())
                        .arg(w->isHidden())
                        .arg(w->style()->name());
        for (const char* name : {"enabled", "autoFillBackground", "toolTip", "accessibleName", "windowTitle", "font", "text",
                                 "alignment", "frameShape", "frameShadow", "lineWidth", "indent", "wordWrap", "margin", "readOnly",
                                 "frame", "maxLength", "flat", "autoDefault", "default", "checkable", "checked"})
            if (const QVariant v = w->property(name); v.isValid()) d += QStringLiteral(" %1=%2").arg(QLatin1String(name), v.toString());
        for (auto group : {QPalette::Active, QPalette::Disabled})
            for (auto role : {QPalette::WindowText, QPalette::Window, QPalette::Text, QPalette::Base,
                              QPalette::Button, QPalette::ButtonText, QPalette::Highlight})
                d += QLatin1Char(' ') + w->palette().color(group, role).name(QColor::HexArgb);
        out << d;
    }
    return out;
}

// A compiled template against its Designer form (read as it is, its colours
// applied the way a dialog applies them): the first widget that differs is
// enough to tell what was lost.
void ExpectBuildsAsDesigner(const QByteArray& compiled, const QByteArray& form, int id) {
    QString error;
    const std::unique_ptr<QWidget> fast = Load(compiled, &error), designer = Load(form);
    ASSERT_TRUE(fast) << id << ": " << error.toStdString();
    ASSERT_TRUE(designer) << id;
    for (QWidget* w : QList<QWidget*>{designer.get()} + designer->findChildren<QWidget*>()) CKRNFormLoader::ApplyPalette(w);
    const QStringList a = Describe(fast.get()), b = Describe(designer.get());
    ASSERT_EQ(a.size(), b.size()) << id;
    const auto differs = std::mismatch(a.begin(), a.end(), b.begin()).first;
    if (differs != a.end()) {
        EXPECT_EQ(differs->toStdString(), b[differs - a.begin()].toStdString()) << "template " << id;
    }
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

QByteArray Form(const QByteArray& widgets, const char* tail = "") {
    return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\">\n <class>Form</class>\n"
                      " <widget class=\"QWidget\" name=\"Form\">\n"
                      "  <property name=\"geometry\"><rect><x>0</x><y>0</y><width>200</width><height>100</height></rect></property>\n") +
           widgets + " </widget>\n" + tail + " <resources/>\n <connections/>\n</ui>\n";
}

// A form of one label with `property`.
QByteArray Label(const char* property) {
    return Form(QByteArray("  <widget class=\"QLabel\" name=\"IDC_1\">") + property + "</widget>\n");
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
        QFile file(form.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << id;
        ExpectBuildsAsDesigner(compiled, file.readAll(), id);
        if (testing::Test::HasFatalFailure()) return;
    }
}

// Each of these would lose something on the screen, so the build stops,
// naming the form's line and what is not handled.
TEST(Templates, TheCompilerStopsOnWhatTheLoaderWouldDrop) {
    const std::pair<QByteArray, const char*> refused[] = {
        {Label("<property name=\"sizePolicy\"><sizepolicy hsizetype=\"Fixed\" vsizetype=\"Fixed\"/></property>"),
         "property sizePolicy is not handled"},
        {Form("  <widget class=\"QWidget\" name=\"IDC_1\"><property name=\"text\"><string>x</string></property></widget>\n"),
         "property text is not handled for this widget class"},
        {Form("  <widget class=\"QComboBox\" name=\"IDC_1\"/>\n"), "widget class QComboBox is not handled"},
        {Form("  <widget class=\"CMyBox\" name=\"IDC_1\"/>\n", " <customwidgets><customwidget><class>CMyBox</class>"
              "<extends>QComboBox</extends><header>x.h</header></customwidget></customwidgets>\n"), "extends QComboBox"},
        {Form("  <widget class=\"QLabel\" name=\"IDC_1\" native=\"true\"/>\n"), "attribute native of <widget> is not handled"},
        {Form("  <layout class=\"QVBoxLayout\" name=\"l\"/>\n"), "<layout> inside a widget is not handled"},
        {Label("<property name=\"krnColour\" stdset=\"0\"><string>red</string></property>"), "dynamic property krnColour is not handled"},
        {Label("<property name=\"krnPalette\" stdset=\"0\"><string>Ink=#000000</string></property>"), "Ink=#000000 names no colour role"},
        {Label("<property name=\"krnPalette\" stdset=\"0\"><string>Window=#zz0000</string></property>"), "gives no colour"},
        {Label("<property name=\"alignment\"><set>Qt::AlignMiddle</set></property>"),
         "Qt::AlignMiddle is not a value of property alignment"},
        {Label("<property name=\"font\"><font><kerning>false</kerning></font></property>"), "font <kerning> is not handled"},
        {Form("").replace("<connections/>", "<connections><connection/></connections>"), "<connection> inside <connections> is not handled"},
        {QByteArray("<ui version=\"4.0\"><widget"), "not a well-formed form"},
    };
    for (const auto& [form, message] : refused) {
        const Compiled c = Compile(form);
        EXPECT_NE(c.exitCode, 0) << message;
        EXPECT_TRUE(c.errors.contains(QLatin1String("4711.ui:"))) << message << ": " << c.errors.toStdString();
        EXPECT_TRUE(c.errors.contains(QLatin1String(message))) << message << ": " << c.errors.toStdString();
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
    ExpectBuildsAsDesigner(c.bytes, form, 4711);
    // Raised last, the label lies on top of the field it overlaps; the tab
    // order is set as Designer's own loader sets it.
    const std::unique_ptr<QWidget> root = Load(c.bytes), designer = Load(form);
    ASSERT_TRUE(root && designer);
    EXPECT_EQ(root->childAt(10, 10), root->findChild<QLabel*>(QStringLiteral("IDC_STATIC")));
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
