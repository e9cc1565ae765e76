#pragma once

// A flat coloured key of the machine screens. At rest it looks sunken and
// held down it looks raised: the inverse of a desktop button, as the
// controllers draw their keys.

#include <QPushButton>

#include <cstdint>

class QPainter;
class QRect;
class QColor;

// The keys' 3-D edge: `topLeft` on the top and left, `bottomRight` on the
// bottom and right (raised with the light colour first, sunken the other way).
void KRNDraw3dRect(QPainter& p, const QRect& r, const QColor& topLeft, const QColor& bottomRight);
// A one-pixel frame just inside `r`.
void KRNFrameRect(QPainter& p, const QRect& r, const QColor& c);

class CKRNColorButton : public QPushButton {
    Q_OBJECT
public:
    explicit CKRNColorButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    // Colour references (0x00BBGGRR), set by the owning page before the first paint.
    std::uint32_t m_dwReserved = 0;
    std::uint32_t m_crPressed = 0;
    std::uint32_t m_crNormal = 0;

    void SetColors(std::uint32_t reserved, std::uint32_t pressed, std::uint32_t normal) {
        m_dwReserved = reserved;
        m_crPressed = pressed;
        m_crNormal = normal;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_bWasDown = false;  // the last paint showed the key held down
};
