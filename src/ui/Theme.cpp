#include "ui/Theme.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTranslator>

#include <cmath>

namespace {

constexpr double kSmallestFont = 9;  // points

QPalette themePalette()
{
    const QColor window(0xF3, 0xF4, 0xF6), text(0x1B, 0x1F, 0x24), faded(0x8A, 0x90, 0x98);
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, theme::kOpen);
    palette.setColor(QPalette::AlternateBase, QColor(0xF8, 0xF9, 0xFA));
    palette.setColor(QPalette::Button, QColor(0xEE, 0xF0, 0xF2));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faded);
    }
    palette.setColor(QPalette::PlaceholderText, faded);
    palette.setColor(QPalette::Highlight, theme::kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFD, 0xF5));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, theme::kAccent);
    return palette;
}

/// Where a pixel of a window is one and a half of the screen's, what a frame encloses would cover parts of a frame of
/// one pixel, and an edge that begins between two pixels of the screen would not be painted.
class WholeFrames : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractScrollArea*>(widget)) return 2;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element != PE_Frame || !qobject_cast<const QLabel*>(widget))
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        const QTransform toScreen = painter->deviceTransform();
        const QRectF r = toScreen.mapRect(QRectF(option->rect));
        const QRectF whole(QPointF(std::ceil(r.left()), std::ceil(r.top())),
                           QPointF(std::floor(r.right()), std::floor(r.bottom())));
        painter->save();
        painter->setTransform(toScreen.inverted(), true);
        painter->setPen(option->palette.window().color().darker(140).lighter(108));  // as elsewhere
        painter->drawRect(whole.adjusted(0.5, 0.5, -0.5, -0.5));
        painter->restore();
    }
};

QStyle* themeStyle(double pixelRatio)
{
    auto* fusion = QStyleFactory::create(QStringLiteral("Fusion"));
    return pixelRatio == std::floor(pixelRatio) ? fusion : new WholeFrames(fusion);
}

}  // namespace

void applyTheme(QApplication& app)
{
    Q_INIT_RESOURCE(translations);
    QApplication::setStyle(themeStyle(app.devicePixelRatio()));
    QApplication::setPalette(themePalette());
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0 && font.pointSizeF() < kSmallestFont) font.setPointSizeF(kSmallestFont);
    QApplication::setFont(numberFont(font));
    static QTranslator chinese;
    if (chinese.load(QStringLiteral(":/translations/qtbase_zh_CN.qm"))) app.installTranslator(&chinese);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
}

bool digitsOfOneWidth(const QFont& font)
{
    const QFontMetricsF metrics(font);
    for (char16_t digit = u'1'; digit <= u'9'; ++digit)
        if (metrics.horizontalAdvance(QChar(digit)) != metrics.horizontalAdvance(QChar(u'0'))) return false;
    return true;
}

QFont numberFont(const QFont& font)
{
    if (digitsOfOneWidth(font)) return font;
    for (const auto& family : {QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Noto Sans"),
                               QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("DejaVu Sans")}) {
        QFont candidate = font;
        candidate.setFamily(family);
        if (QFontDatabase::hasFamily(family) && digitsOfOneWidth(candidate)) return candidate;
    }
    return font;
}
