// The picture of a button, pixel by pixel, in every style and state.

#include "controls/XPButtonPaint.h"
#include "support/QtTests.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtTest>

#include <cmath>

namespace {

constexpr int kW = 40, kH = 22;
constexpr long none = -1;
const QColor kBackground(255, 0, 255);

// Values by style 1, 2, 3: 24 bits, blue in the high byte.
struct Triple {
    long style[3];
};
constexpr Triple kTop{{16514300, 16777215, 15925246}};
constexpr Triple kBottom{{15397104, 14140870, 14413555}};
constexpr Triple kBorder{{7617536, 7617536, 418359}};
constexpr Triple kHoverLines[8]{{{13627647, 13627647, 9815548}}, {{5817338, 5817338, 7777000}},
                                {{38885, 38885, 2454223}},       {{6933244, 6933244, 7317223}},
                                {{9033981, 9033981, 9879277}},   {{6342907, 6342907, 7317223}},
                                {{3191800, 3191800, 5214691}},   {{6408186, 6408186, 7842791}}};
constexpr Triple kFocusLines[8]{{{16771022, 16771022, 9425346}}, {{15383452, 15515296, 6801312}},
                                {{15630953, 15630953, 6727592}}, {{15448988, 15448988, 6866593}},
                                {{16176316, 16176316, 8440753}}, {{15449245, 16777215, 6276251}},
                                {{14986633, 14986633, 5554576}}, {{15448989, 16777215, 6144920}}};
constexpr Triple kPressedTop{{14542053, 12430252, 13821678}};
constexpr Triple kPressedBottom{{14344930, 16777215, 13559020}};
constexpr Triple kPressedBorder{{7617536, 7617536, 418359}};
constexpr Triple kPressedLines[8]{{{12700881, 16777215, 11849183}}, {{13358295, 16777215, 12571875}},
                                  {{15659506, 16777215, 15004920}}, {{14410724, 16777215, 13624814}},
                                  {{13621468, none, 12835303}},     {{13884381, none, 13032680}},
                                  {{14936554, none, 14216434}},     {{14410467, none, 13624557}}};

QRgb rgb(long bgr)
{
    return qRgb(static_cast<int>(bgr % 256), static_cast<int>(bgr / 256 % 256), static_cast<int>(bgr / 65536));
}

/// The expected picture, a point at a time.
struct Points {
    QImage image{kW, kH, QImage::Format_RGB32};
    int rounded;

    explicit Points(int roundedValue) : rounded(roundedValue) { image.fill(kBackground); }

    bool cutOff(int x, int y) const
    {
        const bool outside = x > kW - 2 || y > kH - 2;
        const bool corner = (x == 0 || x == kW - 2) && (y == 0 || y == kH - 2);
        return outside || (rounded == 5 && corner);
    }
    void set(int x, int y, QRgb colour)
    {
        if (!cutOff(x, y)) image.setPixel(x, y, colour);
    }
    void gradient(long top, long bottom)
    {
        const auto mix = [](int a, int b, int y) { return (a * (kH - y) + b * y) / kH; };
        const QRgb a = rgb(top), b = rgb(bottom);
        for (int y = 0; y < kH; ++y)
            for (int x = 0; x < kW; ++x)
                set(x, y, qRgb(mix(qRed(a), qRed(b), y), mix(qGreen(a), qGreen(b), y), mix(qBlue(a), qBlue(b), y)));
    }
    void border(long colour)
    {
        for (int x = 0; x <= kW - 2; ++x) set(x, 0, rgb(colour)), set(x, kH - 2, rgb(colour));
        for (int y = 0; y <= kH - 2; ++y) set(0, y, rgb(colour)), set(kW - 2, y, rgb(colour));
    }
    void line(int number, long colour)
    {
        const int w = kW, h = kH;
        const int ends[8][4] = {{2, 1, w - 3, 1}, {1, 2, 1, h - 3}, {2, h - 3, w - 3, h - 3}, {w - 3, 2, w - 3, h - 3},
                                {2, 2, w - 3, 2}, {2, 2, 2, h - 3}, {2, h - 4, w - 3, h - 4}, {w - 4, 2, w - 4, h - 3}};
        if (colour == none) return;
        const auto& [x1, y1, x2, y2] = ends[number - 1];
        if (y1 == y2)
            for (int x = x1; x < x2; ++x) set(x, y1, rgb(colour));
        else
            for (int y = y1; y < y2; ++y) set(x1, y, rgb(colour));
    }
    void lines(const Triple (&eight)[8], int style)
    {
        for (int number = 1; number <= 8; ++number) line(number, eight[number - 1].style[style - 1]);
    }
    void dots()
    {
        for (int x = 3; x <= kW - 5; x += 2) set(x, 2, rgb(0)), set(x, kH - 4, rgb(0));
        for (int y = 4; y <= kH - 4; y += 2) set(2, y, rgb(0)), set(kW - 4, y, rgb(0));
    }
};

QImage painted(const XPButtonState& state, QSize size = {kW, kH})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(kBackground);
    QPainter painter(&image);
    paintXPButton(painter, size, state);
    painter.end();
    return image;
}

XPButtonState looks(int style, bool hover, bool pressed, bool hasFocus)
{
    XPButtonState state;
    state.colorStyle = style;
    state.hover = hover;
    state.pressed = pressed;
    state.hasFocus = hasFocus;
    return state;
}

void compare(const QImage& actual, const QImage& expected)
{
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            QVERIFY2(actual.pixel(x, y) == expected.pixel(x, y), qPrintable(QStringLiteral("(%1, %2): %3 instead of %4")
                                                                                .arg(x)
                                                                                .arg(y)
                                                                                .arg(actual.pixel(x, y), 8, 16)
                                                                                .arg(expected.pixel(x, y), 8, 16)));
}

}  // namespace

class tst_XPButtonPaint : public QObject {
    Q_OBJECT
private slots:
    void everyStyleAndState_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("rounded");
        QTest::addColumn<bool>("hover");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<bool>("hasFocus");
        QTest::addColumn<bool>("dotted");
        for (int style = 1; style <= 3; ++style)
            for (const int rounded : {0, 5})
                for (int bits = 0; bits < 16; ++bits)
                    QTest::addRow("style %d rounded %d%s%s%s%s", style, rounded, bits & 1 ? " hover" : "",
                                  bits & 2 ? " pressed" : "", bits & 4 ? " focus" : "", bits & 8 ? " dotted" : "")
                        << style << rounded << bool(bits & 1) << bool(bits & 2) << bool(bits & 4) << bool(bits & 8);
    }
    void everyStyleAndState()
    {
        QFETCH(int, style);
        QFETCH(int, rounded);
        QFETCH(bool, hover);
        QFETCH(bool, pressed);
        QFETCH(bool, hasFocus);
        QFETCH(bool, dotted);
        const auto of = [style](const Triple& triple) { return triple.style[style - 1]; };
        Points expected(rounded);
        expected.gradient(of(pressed ? kPressedTop : kTop), of(pressed ? kPressedBottom : kBottom));
        expected.border(of(pressed ? kPressedBorder : kBorder));
        if (pressed) expected.lines(kPressedLines, style);
        if (hover && !pressed) expected.lines(kHoverLines, style);
        if (hasFocus && !pressed) expected.lines(kFocusLines, style);
        if (hasFocus && dotted) expected.dots();

        auto state = looks(style, hover, pressed, hasFocus);
        state.roundedValue = rounded;
        state.focusDottedRect = dotted;
        compare(painted(state), expected.image);
    }

    void disabledIsFlatInEveryStyle_data()
    {
        QTest::addColumn<int>("style");
        for (const int style : {0, 1, 2, 3, 4}) QTest::addRow("style %d", style) << style;
    }
    void disabledIsFlatInEveryStyle()
    {
        QFETCH(int, style);
        Points expected(5);
        expected.gradient(15398133, 15398133);
        expected.border(12240841);
        auto state = looks(style, true, true, true);
        state.enabled = false;
        compare(painted(state), expected.image);
    }

    void otherStylesPaintOnlyDotsWhileHovering()
    {
        for (const int style : {0, 4, -1}) {
            compare(painted(looks(style, false, true, true)), Points(5).image);
            Points dots(5);
            dots.dots();
            compare(painted(looks(style, true, false, false)), dots.image);
            auto plain = looks(style, true, false, false);
            plain.focusDottedRect = false;
            compare(painted(plain), Points(5).image);
        }
    }

    void linesLeaveOutTheirEndPoint()
    {
        const QImage image = painted(looks(1, true, false, false));
        QCOMPARE(image.pixel(kW - 4, 1), rgb(13627647));
        QCOMPARE(image.pixel(kW - 3, 1), painted(looks(1, false, false, false)).pixel(kW - 3, 1));
    }

    void clipAndBorderMeet()
    {
        QCOMPARE(roundedRegion({10, 6}, 0), QRegion(0, 0, 10, 6));
        const QRegion cornersOff =
            QRegion(0, 0, 10, 6) - QRect(0, 0, 1, 1) - QRect(9, 0, 1, 1) - QRect(0, 5, 1, 1) - QRect(9, 5, 1, 1);
        QCOMPARE(roundedRegion({10, 6}, 5), cornersOff);
    }

    void gradientRunsFromItsFirstColourDown()
    {
        QImage image(3, 256, QImage::Format_RGB32);
        QPainter painter(&image);
        clsGradient gradient;
        gradient.DefineRect(0, 0, 3, 256);
        gradient.DrawGradient(painter, 1, 0x0000FF, 0xFF0000);  // red to blue
        painter.end();
        for (int y = 0; y < 256; ++y) {
            // One of 256 steps takes 255/256 of a level; what is left of a level is cut off.
            const int blue = 255 * y / 256;
            const int red = (255 * (256 - y)) / 256;
            QCOMPARE(image.pixel(1, y), qRgb(red, 0, blue));
        }
    }
    void gradientModeZeroRunsToTheRight()
    {
        QImage image(4, 2, QImage::Format_RGB32);
        QPainter painter(&image);
        clsGradient gradient;
        gradient.DefineRect(0, 0, 4, 2);
        gradient.DrawGradient(painter, 0, 0x000000, 0x0000C8);
        painter.end();
        for (int x = 0; x < 4; ++x) QCOMPARE(image.pixel(x, 1), qRgb(50 * x, 0, 0));
    }
    void gradientChannelsAreSigned16Bit()
    {
        using Channels = std::array<std::int16_t, 3>;
        QCOMPARE(clsGradient::channels(0x000000), (Channels{0, 0, 0}));
        QCOMPARE(clsGradient::channels(0x7F0001), (Channels{256, 0, 32512}));
        QCOMPARE(clsGradient::channels(0x0080FF), (Channels{-256, -32768, 0}));
    }

    void captionStands20TwipsAboveTheCentre()
    {
        const QSize size(90, 30);
        const QSizeF text(40, 15);
        const double up = 20 / 15.0;
        QCOMPARE(captionOrigin(size, text, CaptionAlign::Centre, 1 / 15.0), QPointF(25, 15 - 7.5 - up));
        QCOMPARE(captionOrigin(size, text, CaptionAlign::Left, 1 / 15.0), QPointF(100 / 15.0, 15 - 7.5 - up));
        QCOMPARE(captionOrigin(size, text, CaptionAlign::Right, 1 / 15.0),
                 QPointF(90 - 40 - 100 / 15.0, 15 - 7.5 - up));
        QCOMPARE(captionOrigin(size, text, CaptionAlign::Left, 2 / 15.0), QPointF(200 / 15.0, 15 - 7.5 - 2 * up));
    }
    void captionIsPrintedInForeColor_data()
    {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<int>("colour");
        for (int alignment = 0; alignment <= 2; ++alignment) {
            QTest::addRow("enabled %d", alignment) << true << alignment << 0x0000C0;
            QTest::addRow("disabled %d", alignment) << false << alignment << 12240841;
        }
    }
    void captionIsPrintedInForeColor()
    {
        QFETCH(bool, enabled);
        QFETCH(int, alignment);
        QFETCH(int, colour);
        XPButtonState state;
        state.enabled = enabled;
        QImage expected = painted(state, {90, 30});
        const QString caption = "Back";
        QPainter painter(&expected);
        painter.setFont(state.font);
        painter.setPen(rgb(colour));
        const QFontMetricsF metrics(state.font, &expected);
        const double width = metrics.horizontalAdvance(caption);
        const double x = alignment == 0 ? 100 / 15.0 : alignment == 1 ? 90 - width - 100 / 15.0 : 45 - width / 2;
        const double y = 15 - metrics.height() / 2 - 20 / 15.0;
        painter.drawText(QPointF(std::round(x), std::round(y + metrics.ascent())), caption);
        painter.end();

        state.foreColor = 0x0000C0;
        state.caption = caption;
        state.captionAlignment = static_cast<CaptionAlign>(alignment);
        compare(painted(state, {90, 30}), expected);
    }

    void iconNeedsBothPictures()
    {
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::red);
        const QImage plain = painted({});
        XPButtonState state;
        state.icon = picture;
        compare(painted(state), plain);
        state.icon = {};
        state.iconMask = picture;
        compare(painted(state), plain);
    }
    void iconGoesOverItsMask_data()
    {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("alignment");
        for (const bool enabled : {true, false})
            for (const int alignment : {1, 2})
                QTest::addRow("%s %d", enabled ? "enabled" : "disabled", alignment) << enabled << alignment;
    }
    void iconGoesOverItsMask()
    {
        QFETCH(bool, enabled);
        QFETCH(int, alignment);
        // Black in the mask lets the icon through, white keeps what lies below.
        QImage icon(6, 5, QImage::Format_RGB32), mask(6, 5, QImage::Format_RGB32);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 6; ++x) {
                const bool through = (x + y) % 2 == 0;
                mask.setPixel(x, y, through ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
                icon.setPixel(x, y, through ? qRgb(200, 40 * x, 10 * y) : qRgb(0, 0, 0));
            }
        XPButtonState state;
        state.enabled = enabled;
        QImage expected = painted(state);
        const int left = alignment == 1 ? 5 : kW - 6 - 5, top = (kH - 5) / 2;
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 6; ++x) {
                const int gray = (200 * 11 + 40 * x * 16 + 10 * y * 5) / 32;  // the weights of qGray
                const QRgb over = enabled ? qRgb(200, 40 * x, 10 * y) : qRgb(gray, gray, gray);
                if ((x + y) % 2 == 0) expected.setPixel(left + x, top + y, over);
            }
        state.icon = icon;
        state.iconMask = mask;
        state.iconAlignment = static_cast<IconAlign>(alignment);
        compare(painted(state), expected);
    }
    void grayIconIsBlackWhereItsMaskIsSet()
    {
        QImage icon(2, 1, QImage::Format_RGB32), mask(2, 1, QImage::Format_RGB32);
        icon.fill(qRgb(250, 250, 250));
        mask.setPixel(0, 0, qRgb(0, 0, 0));
        mask.setPixel(1, 0, qRgb(255, 255, 255));
        const QImage gray = MakeGrayIcon(icon, mask);
        QCOMPARE(gray.pixel(0, 0), qRgb(250, 250, 250));
        QCOMPARE(gray.pixel(1, 0), qRgb(0, 0, 0));
    }
};

VM_QT_TEST(tst_XPButtonPaint)
#include "tst_XPButtonPaint.moc"
