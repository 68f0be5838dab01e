#include "ui/QuietLine.h"

#include "ui/Theme.h"

#include <QPainter>

QuietLine::QuietLine(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void QuietLine::say(const QString& text, bool doubtful)
{
    setText(text);
    setToolTip(text);
    QPalette colours;
    if (doubtful) colours.setColor(QPalette::Window, theme::kAmber);
    setPalette(colours);
    setAutoFillBackground(doubtful);
}

void QuietLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(doubtful() ? QPalette::WindowText : QPalette::PlaceholderText));
    const QRect room = rect().adjusted(doubtful() ? 6 : 0, 0, -2, 0);
    constexpr int kPlace = Qt::AlignVCenter | Qt::AlignLeft;
    if (m_lines > 1)
        painter.drawText(room, kPlace | Qt::TextWrapAnywhere, text());
    else
        painter.drawText(room, kPlace, fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void QuietLine::setLines(int lines)
{
    m_lines = lines;
    updateGeometry();
}
