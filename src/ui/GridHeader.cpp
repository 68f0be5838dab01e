#include "ui/GridHeader.h"

#include "ui/GridModel.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace {

constexpr int kHandle = 4;  // pixels beside the right edge that drag it

}  // namespace

QString evenLines(const QString& text, const QFontMetrics& metrics, int width)
{
    const auto pieces = [&](qsizetype count) {
        QStringList lines;
        for (qsizetype i = 0; i < count; ++i) {
            const qsizetype from = i * text.size() / count, to = (i + 1) * text.size() / count;
            lines << text.sliced(from, to - from).trimmed();
        }
        return lines;
    };
    const auto fits = [&](const QString& line) { return metrics.horizontalAdvance(line) <= width; };
    for (qsizetype count = 1; count < text.size(); ++count)
        if (const auto lines = pieces(count); std::all_of(lines.begin(), lines.end(), fits)) return lines.join(u'\n');
    return text;
}

QString WrappingHeader::textOf(int section) const
{
    return evenLines(model()->headerData(section, Qt::Horizontal).toString(), fontMetrics(), sectionSize(section) - 4);
}

QSize WrappingHeader::sectionSizeFromContents(int section) const
{
    return {sectionSize(section), fontMetrics().size(0, textOf(section)).height() + 11};
}

void WrappingHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text = textOf(section);
}

RowNumbers::RowNumbers(QWidget* parent) : QHeaderView(Qt::Vertical, parent)
{
    setSectionsClickable(true);
    setHighlightSections(true);
}

int RowNumbers::sectionAt(const QMouseEvent& event) const
{
    const QPoint at = event.position().toPoint();
    return viewport()->rect().contains(at) ? logicalIndexAt(at) : -1;
}

void RowNumbers::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    m_pressed = m_last = sectionAt(*event);
    QHeaderView::mousePressEvent(event);
}

void RowNumbers::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const int pressed = std::exchange(m_pressed, -1);
    const bool clicks = pressed >= 0 && sectionAt(*event) == pressed;
    QHeaderView::mouseReleaseEvent(event);
    if (clicks) emit clicked(pressed);
}

/// The second press of a double click is no second click; on another number it is that one's first.
void RowNumbers::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (sectionAt(*event) != m_last) mousePressEvent(event);
}

GridCorner::GridCorner(QTableView& grid, const GridModel& model)
    : QObject(&grid), m_button(grid.findChild<QAbstractButton*>()), m_model(model)
{
    m_button->setMouseTracking(true);
    m_button->installEventFilter(this);
}

QWidget* GridCorner::widget() const { return m_button; }

void GridCorner::paint()
{
    QStyleOptionHeader option;
    option.initFrom(m_button);
    option.section = 0;
    option.position = QStyleOptionHeader::Beginning;
    option.textAlignment = m_model.headerData(-1, Qt::Vertical, Qt::TextAlignmentRole).value<Qt::Alignment>();
    option.text = m_model.headerData(-1, Qt::Vertical, Qt::DisplayRole).toString();
    QPainter painter(m_button);
    m_button->style()->drawControl(QStyle::CE_Header, &option, &painter, m_button);
}

bool GridCorner::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_button) return false;
    const auto x = [&] { return static_cast<QSinglePointEvent*>(event)->position().toPoint().x(); };
    const bool onHandle = event->isSinglePointEvent() && x() >= m_button->width() - kHandle;
    switch (event->type()) {
    case QEvent::Paint:
        paint();
        return true;
    case QEvent::MouseButtonPress:
        m_grip = onHandle ? m_button->width() - x() : -1;
        return true;
    case QEvent::MouseMove:
        m_button->setCursor(onHandle || m_grip >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
        if (m_grip >= 0) emit dragged(std::max(kLeastColumn, x() + m_grip));
        return true;
    case QEvent::MouseButtonRelease:
        m_grip = -1;
        return true;
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}
