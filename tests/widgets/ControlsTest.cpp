// The shared controls as a person sees them: painted pixels and accepted keys.

#include "CKRNColorButton.h"
#include "CKRNDrawStatic.h"
#include "CNonNagtiveDigitEdit.h"
#include "KRNColors.h"
#include "KRNMessageCapture.h"
#include "KRNPanelDriver.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {
QImage Paint(QWidget& w) {
    w.resize(w.size());
    QImage image(w.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    w.render(&image);
    return image;
}
QColor At(const QImage& image, int x, int y) { return image.pixelColor(x, y); }
}  // namespace

TEST(ColorButton, RestsSunkenAndRisesWhenHeldDown) {
    CKRNColorButton button;
    button.resize(80, 30);
    button.SetColors(255, KRNRGB(255, 255, 255), KRNRGB(224, 160, 128));

    QImage rest = Paint(button);
    EXPECT_EQ(At(rest, 40, 15 - 10), QColor(224, 160, 128));  // fill
    EXPECT_EQ(At(rest, 0, 10), QColor(44, 39, 47));           // dark top-left edge: sunken
    EXPECT_EQ(At(rest, 79, 10), QColor(247, 246, 248));       // light bottom-right edge

    button.setDown(true);
    QImage held = Paint(button);
    EXPECT_EQ(At(held, 40, 4), QColor(255, 255, 255));  // pressed colour
    // The outline is the inverse of the resting colour.
    EXPECT_EQ(At(held, 0, 10), QColor(255 - 224, 255 - 160, 255 - 128));
    EXPECT_EQ(At(held, 79, 10), QColor(255 - 224, 255 - 160, 255 - 128));
    EXPECT_EQ(At(held, 1, 10), QColor(255, 255, 255));
}

TEST(DrawStatic, DefaultsPaintABlackBlock) {
    CKRNDrawStatic s;
    s.resize(40, 20);
    const QImage image = Paint(s);
    for (int x : {0, 20, 39})
        for (int y : {0, 10, 19}) EXPECT_EQ(At(image, x, y), QColor(Qt::black)) << x << "," << y;
}

TEST(DrawStatic, TrianglesPointTheWayAsked) {
    CKRNDrawStatic s;
    s.resize(40, 20);
    s.m_crFill = KRNRGB(0, 0, 128);
    s.m_nFigure = CKRNDrawStatic::kTriangle;
    s.m_crTriangleOutline = s.m_crTriangleFill = KRNRGB(255, 255, 0);
    s.m_nDirection = CKRNDrawStatic::kRight;
    QImage right = Paint(s);
    EXPECT_EQ(At(right, 3, 10), QColor(255, 255, 0));  // wide end on the left
    EXPECT_EQ(At(right, 36, 2), QColor(0, 0, 128));
    s.m_nDirection = CKRNDrawStatic::kLeft;
    QImage left = Paint(s);
    EXPECT_EQ(At(left, 36, 10), QColor(255, 255, 0));
    EXPECT_EQ(At(left, 3, 2), QColor(0, 0, 128));
    s.m_nDirection = 7;  // no figure
    QImage none = Paint(s);
    EXPECT_EQ(At(none, 20, 10), QColor(0, 0, 128));
}

TEST(DrawStatic, FrameAndLeftLine) {
    CKRNDrawStatic s;
    s.resize(40, 20);
    s.m_crFill = KRNRGB(200, 200, 200);
    s.m_bFrame = 1;
    s.m_crFrame = KRNRGB(255, 0, 0);
    const QImage framed = Paint(s);
    EXPECT_EQ(At(framed, 20, 19), QColor(255, 0, 0));
    EXPECT_EQ(At(framed, 39, 10), QColor(255, 0, 0));
    s.m_bLeftLine = 1;
    s.m_nLineWidth = 1;
    s.m_crLeftLine = KRNRGB(0, 255, 0);
    const QImage lined = Paint(s);
    EXPECT_EQ(At(lined, 0, 10), QColor(0, 255, 0));
    EXPECT_EQ(At(lined, 39, 10), QColor(255, 0, 0));
}

TEST(NonNegativeEdit, TakesDigitsFullStopsAndBackspaceOnly) {
    CNonNagtiveDigitEdit edit;
    KRNDriver::Keys(&edit, "-1x.5");
    EXPECT_EQ(edit.text(), QStringLiteral("1.5"));
    KRNDriver::Keys(&edit, "2..");
    EXPECT_EQ(edit.text(), QStringLiteral("2.."));  // only the later check refuses it
    KRNDriver::Keys(&edit, "12\b3");
    EXPECT_EQ(edit.text(), QStringLiteral("13"));
}

TEST(NonNegativeEdit, CheckTellsTheUserAboutNegativeValues) {
    KRNMessageCapture messages;
    CNonNagtiveDigitEdit edit;
    EXPECT_TRUE(edit.CheckNonNegative());  // empty reads as 0
    edit.setText("-0.5");                  // pasted, not typed
    EXPECT_FALSE(edit.CheckNonNegative());
    ASSERT_EQ(messages.Texts().size(), 1u);
    EXPECT_EQ(messages.Texts()[0], "The value can't less than 0.");
    EXPECT_EQ(messages.Messages()[0].caption, "Machine Panel");
}
