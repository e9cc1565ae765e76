#include "CKRNMachineMITSUBISH_ColorButton.h"

#include "CKRNColorButton.h"
#include "CKRNFormLoader.h"
#include "KRNColors.h"
#include "MitsubishiHydraulicIds.h"

#include <QPainter>

using namespace MitsubishiHydraulic;

void CKRNMachineMITSUBISH_ColorButton::RegisterWithForms() {
    CKRNFormLoader::RegisterControlClass(QStringLiteral("CKRNMachineMITSUBISH_ColorButton"),
                                         [](QWidget* parent) -> QWidget* {
                                             return new CKRNMachineMITSUBISH_ColorButton(parent);
                                         });
}

void CKRNMachineMITSUBISH_ColorButton::SetColors(std::uint32_t text, std::uint32_t selected, std::uint32_t normal) {
    m_crText = text;
    m_crSelected = selected;
    m_crNormal = normal;
    update();
}

void CKRNMachineMITSUBISH_ColorButton::SetSelected(bool selected) {
    m_bSelected = selected;
    update();
}

void CKRNMachineMITSUBISH_ColorButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect();
    const QString caption = text().left(512);
    const bool down = isDown();
    const QColor normal = KRNColorRef(m_crNormal);
    auto drawText = [&] {
        p.setPen(KRNColorRef(m_crText));
        p.drawText(r, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextExpandTabs, caption);
    };

    // The controller writes the caption before the fill too; the second
    // writing is the one that shows.
    drawText();
    if (m_bSelected) {
        p.fillRect(r, KRNColorRef(m_crSelected));
        KRNDraw3dRect(p, r, KRNColorRef(kKeyLight), KRNColorRef(kKeyDark));
        drawText();
    } else {
        p.fillRect(r, normal);
        drawText();
        KRNDraw3dRect(p, r, KRNColorRef(kKeyDark), KRNColorRef(kKeyLight));
    }
    if (down)
        KRNFrameRect(p, r, KRNColorRef(~m_crNormal & 0xFFFFFFu));
    else if (down != m_bWasDown)
        KRNFrameRect(p, r, normal);  // just released
    m_bWasDown = down;
}
