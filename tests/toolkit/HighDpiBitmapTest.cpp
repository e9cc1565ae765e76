// Bitmaps on a screen scaled by 2: every picture of the resource module also
// comes drawn at twice the pixels, and a dialog on such a screen shows that
// one over the plain picture's logical size, so soft-key captions and markers
// are sharp while every key and static keeps its place and size.

#include "CKRNDialog.h"
#include "KRNResources.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

// Templates and bitmaps of the Fanuc S2000i screens, as the panel uses them.
constexpr int kFrameTemplate = 31157, kPackingTemplate = 825;
constexpr int kKeyPacking = 1747, kKeyPackingBitmap = 862;      // a soft key with its caption
constexpr int kMenuKeyBitmap = 860;                             // "MENU", dark green on light green
constexpr int kPictureStatic = 1211, kPictureBitmap = 888;     // a picture on the packing page

// A dialog making the bitmap calls a panel makes.
class Screen : public CKRNDialog {
public:
    using CKRNDialog::CKRNDialog;
    using CKRNDialog::SetBitmap;
    using CKRNDialog::SetBitmapButton;
};

QImage Pixels(const QPixmap& p) { return p.toImage().convertToFormat(QImage::Format_RGB32); }
QImage Plain(int id) { return Pixels(KRNResources::Bitmap(id)); }
QImage Sharp(int id) { return Pixels(KRNResources::Bitmap(id, 2.0)); }

// The box around the pixels of one colour, in the plain bitmap's pixels.
QRectF InkBox(const QImage& image, QRgb ink) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == ink) box |= QRect(x, y, 1, 1);
    const qreal scale = image.devicePixelRatio();
    return {box.x() / scale, box.y() / scale, box.width() / scale, box.height() / scale};
}

}  // namespace

TEST(HighDpiBitmaps, EveryBitmapComesDrawnAtTwiceThePixelsOverTheSameLogicalSize) {
    const QRegularExpression plainName(QStringLiteral("^bitmaps/(\\d+)\\.png$"));
    int bitmaps = 0;
    for (const QString& item : KRNResources::Items()) {
        const QRegularExpressionMatch m = plainName.match(item);
        if (!m.hasMatch()) continue;
        ++bitmaps;
        const int id = m.captured(1).toInt();
        const QPixmap plain = KRNResources::Bitmap(id), sharp = KRNResources::Bitmap(id, 2.0);
        ASSERT_FALSE(sharp.isNull()) << id;
        EXPECT_EQ(sharp.devicePixelRatio(), 2.0) << id;
        EXPECT_EQ(sharp.size(), plain.size() * 2) << id;
        // The edges (key bevels, frames) lie on the same bitmap pixels at both
        // sizes: a stroke that straddles its coordinate at twice the pixels
        // shows here as a corner of another colour.
        const QImage a = Pixels(plain), b = Pixels(sharp);
        const int w = a.width(), h = a.height();
        EXPECT_EQ(a.pixel(0, 0), b.pixel(0, 0)) << id;
        EXPECT_EQ(a.pixel(w - 1, 0), b.pixel(2 * w - 1, 0)) << id;
        EXPECT_EQ(a.pixel(0, h - 1), b.pixel(0, 2 * h - 1)) << id;
        EXPECT_EQ(a.pixel(w - 1, h - 1), b.pixel(2 * w - 1, 2 * h - 1)) << id;
    }
    EXPECT_GT(bitmaps, 100);  // the panels' keys and pictures, not a module made by hand
}

TEST(HighDpiBitmaps, AKeyCaptionIsDrawnFinerNotEnlarged) {
    const QImage plain = Plain(kMenuKeyBitmap), sharp = Sharp(kMenuKeyBitmap);
    // Pixel-doubling the plain key would give the same picture; the caption's
    // curves and anti-aliased edges make the drawn one differ.
    EXPECT_NE(sharp, plain.scaled(plain.size() * 2, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    // The caption sits where the plain one does, within a pixel: same font
    // size in logical pixels, centred on the same key face.
    const QRgb ink = qRgb(0x00, 0x50, 0x00);  // the caption colour of the Fanuc keys
    QImage sharpLogical = sharp;
    sharpLogical.setDevicePixelRatio(2.0);
    const QRectF a = InkBox(plain, ink), b = InkBox(sharpLogical, ink);
    ASSERT_FALSE(a.isEmpty());
    ASSERT_FALSE(b.isEmpty());
    EXPECT_NEAR(a.center().x(), b.center().x(), 1.0);
    EXPECT_NEAR(a.center().y(), b.center().y(), 1.0);
    EXPECT_NEAR(a.width(), b.width(), 2.0);
}

TEST(HighDpiBitmaps, TheSharpPictureIsChosenFromARatioOfOneAndAHalf) {
    for (qreal ratio : {1.0, 1.25, 1.49, 1.5, 2.0, 3.0}) {
        const QPixmap p = KRNResources::Bitmap(kPictureBitmap, ratio);
        EXPECT_EQ(p.devicePixelRatio(), ratio < 1.5 ? 1.0 : 2.0) << ratio;
        EXPECT_EQ(Pixels(p), ratio < 1.5 ? Plain(kPictureBitmap) : Sharp(kPictureBitmap)) << ratio;
    }
    EXPECT_TRUE(KRNResources::Bitmap(1, 2.0).isNull());  // no such bitmap at any ratio
}

// Keys hold both pictures in their icon: Qt paints each with the one that suits
// the screen it is on, at the plain picture's size in logical pixels.
TEST(HighDpiBitmaps, BitmapKeysCarryBothPicturesAtTheLogicalSize) {
    Screen frame(kFrameTemplate);
    ASSERT_TRUE(frame.Create(nullptr, false));
    frame.SetBitmap(kKeyPacking, kKeyPackingBitmap, true);
    auto* key = frame.GetDlgItemAs<QAbstractButton>(kKeyPacking);
    ASSERT_NE(key, nullptr);
    const QSize logical = KRNResources::Bitmap(kKeyPackingBitmap).size();
    EXPECT_EQ(key->size(), logical);
    EXPECT_EQ(key->iconSize(), logical);
    EXPECT_EQ(Pixels(key->icon().pixmap(logical, 1.0)), Plain(kKeyPackingBitmap));
    EXPECT_EQ(key->icon().pixmap(logical, 2.0).devicePixelRatio(), 2.0);
    EXPECT_EQ(Pixels(key->icon().pixmap(logical, 2.0)), Sharp(kKeyPackingBitmap));

    // A key with faces for rest, held and focus: the same for each face.
    frame.SetBitmapButton(kKeyPacking, kKeyPackingBitmap, kMenuKeyBitmap, kKeyPackingBitmap);
    EXPECT_EQ(key->size(), logical);
    EXPECT_EQ(Pixels(key->icon().pixmap(logical, 2.0)), Sharp(kKeyPackingBitmap));
}

// Qt takes the scale factor of the screens once, as the application starts:
// the check on a screen scaled by 2 runs in this program started again with
// QT_SCALE_FACTOR=2, and its verdict comes back here.
TEST(HighDpiBitmaps, StaticsOnAScreenScaledBy2ShowTheSharpPictureInTheirPlace) {
    if (qEnvironmentVariable("KRN_TEST_SCALED_SCREEN") == QLatin1String("1")) {
        Screen page(kPackingTemplate);
        ASSERT_TRUE(page.Create(nullptr, false));
        auto* label = page.GetDlgItemAs<QLabel>(kPictureStatic);
        ASSERT_NE(label, nullptr);
        ASSERT_GE(label->devicePixelRatioF(), 1.5);
        const QRect place = label->geometry();
        page.SetBitmap(kPictureStatic, kPictureBitmap);
        const QPixmap shown = label->pixmap();
        EXPECT_EQ(shown.devicePixelRatio(), 2.0);
        EXPECT_EQ(Pixels(shown), Sharp(kPictureBitmap));
        EXPECT_EQ(label->geometry(), place);
        page.SetBitmap(kPictureStatic, kPictureBitmap, true);  // sized to the bitmap: its logical size
        EXPECT_EQ(label->size(), KRNResources::Bitmap(kPictureBitmap).size());
        return;
    }
    // (On this program's own screen, ratio 1, statics show the plain picture:
    // ShowsBitmap in the panel tests.)
    QProcess scaled;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("KRN_TEST_SCALED_SCREEN"), QStringLiteral("1"));
    env.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    if (!env.contains(QStringLiteral("QT_QPA_PLATFORM"))) env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    scaled.setProcessEnvironment(env);
    scaled.setProcessChannelMode(QProcess::MergedChannels);
    const testing::TestInfo* self = testing::UnitTest::GetInstance()->current_test_info();
    scaled.start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--gtest_filter=%1.%2").arg(QLatin1String(self->test_suite_name()), QLatin1String(self->name()))});
    ASSERT_TRUE(scaled.waitForFinished(60000)) << "the run on a scaled screen did not end";
    const QString output = QString::fromLocal8Bit(scaled.readAll());
    EXPECT_EQ(scaled.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(scaled.exitCode(), 0) << qPrintable(output);
    EXPECT_TRUE(output.contains(QStringLiteral("[  PASSED  ] 1 test"))) << qPrintable(output);
}
