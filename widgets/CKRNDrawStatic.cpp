#include "CKRNDrawStatic.h"

#include "KRNColors.h"

#include <QPainter>
#include <QPolygon>

void CKRNDrawStatic::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int w = width(), h = height();
    p.fillRect(rect(), KRNColorRef(m_crFill));

    // A pen of width 0 is a cosmetic one-pixel pen, as the old framework drew it.
    auto pen = [](std::uint32_t colour, int width) {
        QPen result(KRNColorRef(colour), width);
        result.setCapStyle(Qt::FlatCap);
        return result;
    };
    p.setPen(pen(m_crFill, m_nLineWidth));
    p.drawPolyline(QPolygon({{0, 0}, {w, 0}, {w, h}, {0, h}, {0, 0}}));

    if (m_nFigure == kChevron && (m_nDirection == kLeft || m_nDirection == kRight)) {
        p.setPen(pen(m_crLine, m_nLineWidth));
        if (m_nDirection == kLeft) {
            p.drawLine(0, h / 2, w, 0);
            p.drawLine(0, h / 2, w, h);
        } else {
            p.drawPolyline(QPolygon({{0, 0}, {w, h / 2}, {0, h}}));
        }
    } else if (m_nFigure == kTriangle && (m_nDirection == kLeft || m_nDirection == kRight)) {
        p.setPen(pen(m_crTriangleOutline, 1));
        p.setBrush(KRNColorRef(m_crTriangleFill));
        if (m_nDirection == kLeft)
            p.drawPolygon(QPolygon({{w, 0}, {w, h}, {0, h / 2}}));
        else
            p.drawPolygon(QPolygon({{0, 0}, {0, h}, {w, h / 2}}));
        p.setBrush(Qt::NoBrush);
    }
    if (m_bFrame == 1) {
        p.setPen(pen(m_crFrame, 1));
        p.drawRect(0, 0, w - 1, h - 1);
    }
    if (m_bLeftLine == 1) {
        p.setPen(pen(m_crLeftLine, m_nLineWidth));
        p.drawLine(0, 0, 0, h);
    }
}
