#pragma once

// A static the machine screens draw themselves: a filled block with an
// optional chevron or triangle pointing left or right, a frame and a line
// along the left edge. The owning page sets the members directly.

#include <QLabel>

#include <cstdint>

class CKRNDrawStatic : public QLabel {
    Q_OBJECT
public:
    explicit CKRNDrawStatic(QWidget* parent = nullptr) : QLabel(parent) {}

    enum Direction { kNone = 0, kLeft = 1, kRight = 2 };
    enum Figure { kChevron = 0, kTriangle = 1 };

    // Colours are colour references (0x00BBGGRR).
    std::int32_t m_nLineWidth = 0;
    std::uint32_t m_crLine = 0;
    std::uint32_t m_crFill = 0;
    std::uint32_t m_crTriangleOutline = 0;
    std::uint32_t m_crTriangleFill = 0;
    std::uint32_t m_crFrame = 0;
    std::uint32_t m_crLeftLine = 0;
    std::int32_t m_nDirection = 0;
    std::int32_t m_nFigure = 0;
    std::int32_t m_bFrame = 0;
    std::int32_t m_bLeftLine = 0;

protected:
    void paintEvent(QPaintEvent* event) override;
};
