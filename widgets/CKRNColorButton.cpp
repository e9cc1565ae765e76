#include "CKRNColorButton.h"

#include "KRNColors.h"

#include <QPainter>

namespace {
const QColor kLight(247, 246, 248);
const QColor kDark(44, 39, 47);
}  // namespace

void KRNDraw3dRect(QPainter& p, const QRect& r, const QColor& topLeft, const QColor& bottomRight) {
    p.setPen(topLeft);
    p.drawLine(r.left(), r.top(), r.right() - 1, r.top());
    p.drawLine(r.left(), r.top(), r.left(), r.bottom() - 1);
    p.setPen(bottomRight);
    p.drawLine(r.right(), r.top(), r.right(), r.bottom());
    p.drawLine(r.left(), r.bottom(), r.right(), r.bottom());
}

void KRNFrameRect(QPainter& p, const QRect& r, const QColor& c) {
    p.setPen(c);
    p.setBrush(Qt::NoBrush);
    p.drawRect(r.adjusted(0, 0, -1, -1));
}

void CKRNColorButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect();
    const QString caption = text().left(512);
    const bool down = isDown();
    const QColor normal = KRNColorRef(m_crNormal);
    auto drawText = [&] {
        p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
        p.drawText(r, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextExpandTabs, caption);
    };

    if (down) {
        p.fillRect(r, KRNColorRef(m_crPressed));
        KRNDraw3dRect(p, r, kLight, kDark);
        drawText();
        // Held down: framed in the inverse of the resting colour.
        KRNFrameRect(p, r, KRNColorRef(~m_crNormal & 0xFFFFFFu));
    } else {
        p.fillRect(r, normal);
        drawText();
        KRNDraw3dRect(p, r, kDark, kLight);
        if (m_bWasDown) KRNFrameRect(p, r, normal);  // just released
    }
    m_bWasDown = down;
}
