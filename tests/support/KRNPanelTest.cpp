#include "KRNPanelTest.h"

#include "CKRNDialog.h"
#include "KRNResources.h"

#include <QLabel>

#include <iomanip>
#include <locale>
#include <sstream>

#include <gtest/gtest.h>

namespace KRNTest {

QWidget* Field(int id, KRNDriver::Want want) {
    CKRNDialog* top = KRNDriver::TopDialog();
    QWidget* w = KRNDriver::VisibleControl(top, id, want);
    EXPECT_NE(w, nullptr) << "no visible control " << id << " on template " << (top ? top->TemplateId() : 0);
    return w;
}

std::string Text(int id) { return KRNDriver::Text(Field(id)).trimmed().toStdString(); }

bool Enabled(int id) {
    QWidget* w = Field(id);
    return w && w->isEnabled();
}

void Type(int id, const QString& text) { KRNDriver::Type(Field(id, KRNDriver::Want::Edit), text); }
void Keys(int id, const QString& text) { KRNDriver::Keys(Field(id, KRNDriver::Want::Edit), text); }
void Leave(int id) { KRNDriver::Leave(Field(id)); }
void Click(int id) { KRNDriver::Click(Field(id, KRNDriver::Want::Button)); }
void PressKey(int qtKey) { KRNDriver::PressKey(KRNDriver::TopDialog(), qtKey); }

void OK() {
    if (CKRNDialog* top = KRNDriver::TopDialog()) top->OnOK();
}

void Cancel() {
    if (CKRNDialog* top = KRNDriver::TopDialog()) top->OnCancel();
}

std::string Fixed(double value, int decimals) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << std::fixed << std::setprecision(decimals) << value;
    return out.str();
}

bool ShowsBitmap(int id, int bitmapId) {
    auto* label = qobject_cast<QLabel*>(Field(id));
    return label && label->pixmap().toImage() == KRNResources::Bitmap(bitmapId).toImage();
}

void WhileOpen(const std::function<void()>& open, const std::function<void()>& whileOpen) {
    KRNDriver::RunWhileOpen(whileOpen, open);
}

}  // namespace KRNTest
