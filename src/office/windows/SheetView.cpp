#include "office/windows/SheetView.h"

#include "ui/Fields.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int kSpareRows = 40, kSpareCols = 4, kLeastRows = 60, kLeastCols = 18;
constexpr int kLongestText = 32767;
constexpr QColor kHead(0xF0, 0xF2, 0xF4), kHeadLine(0xD0, 0xD5, 0xDB), kHeadChosen(0xD9, 0xE6, 0xF4);

/// Full-width digits and signs, as an input method leaves them, where they make a number.
QString narrowNumber(const QString& text)
{
    QString narrow = text;
    for (QChar& c : narrow)
        if (c >= QChar(0xFF0B) && c <= QChar(0xFF19)) c = QChar(c.unicode() - 0xFF00 + 0x20);
    return narrow != text && NumberOfTyped(toUtf8(narrow)) ? narrow : text;
}

}  // namespace

SheetView::SheetView(Worksheet sheet, QWidget* parent)
    : QAbstractScrollArea(parent), m_sheet(std::move(sheet)), m_editor(new QLineEdit(viewport()))
{
    substituteSheetFonts();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setCursor(Qt::ArrowCursor);
    m_editor->setObjectName(QStringLiteral("cellEditor"));
    m_editor->setFrame(false);
    m_editor->setMaxLength(kLongestText);
    m_editor->installEventFilter(this);
    m_editor->hide();
    keepOneLine(m_editor);
    connect(m_editor, &QLineEdit::textChanged, this, [this] {
        if (isEditing()) placeEditor();
    });
    measure();
}

// --- The sheet and its history ---------------------------------------------------------------------------------------

void SheetView::change(const std::function<void(Worksheet&)>& body)
{
    commit();
    struct Remembered {
        SheetView& view;
        Worksheet before;
        ~Remembered()
        {
            Step step;
            const int rows = std::max(before.rows(), view.m_sheet.rows());
            const int cols = std::max(before.cols(), view.m_sheet.cols());
            for (int row = 1; row <= rows; ++row)
                for (int col = 1; col <= cols; ++col) {
                    const CellRef cell(row, col);
                    const CellValue &was = before.value(cell), &is = view.m_sheet.value(cell);
                    if (was != is) step.push_back({cell, was, is});
                }
            if (view.m_sheet.selection() != before.selection()) {
                view.m_anchor = view.m_sheet.selection().last;
                view.m_active = view.m_sheet.selection().first;
            }
            view.measure();
            view.done(std::move(step));
        }
    } remembered{*this, m_sheet};
    body(m_sheet);
}

void SheetView::store(CellRef cell, const CellValue& value)
{
    if (const auto* number = std::get_if<double>(&value))
        m_sheet.setNumber(cell, *number);
    else if (const auto* text = std::get_if<std::string>(&value))
        m_sheet.setText(cell, *text);
    else
        m_sheet.clearValue(cell);
}

void SheetView::put(CellRef cell, const QString& text, Step& step)
{
    const CellValue before = m_sheet.value(cell);
    const bool isText = m_sheet.style(cell).numberFormat == "@";
    m_sheet.setValue(cell, toUtf8((isText ? text : narrowNumber(text)).left(kLongestText)));
    const CellValue after = m_sheet.value(cell);
    if (before != after) step.push_back({cell, before, after});
}

bool SheetView::isNumber(const QString& text) { return NumberOfTyped(toUtf8(narrowNumber(text))).has_value(); }

void SheetView::done(Step step)
{
    if (!step.empty()) {
        m_steps.resize(m_done);
        m_steps.push_back(std::move(step));
        m_done = m_steps.size();
        if (m_sheet.rows() > m_geometry.rows() - kSpareRows / 2 || m_sheet.cols() > m_geometry.cols() - 1) measure();
        emit changed();
    }
    updateAll();
}

void SheetView::show(const Step& step, bool after)
{
    for (const auto& edit : step) store(edit.cell, after ? edit.after : edit.before);
    m_anchor = m_active = step.front().cell;
    reveal(m_geometry.area(m_active));
    emit changed();
    updateAll();
}

void SheetView::undo()
{
    commit();
    if (canUndo()) show(m_steps[--m_done], false);
}

void SheetView::redo()
{
    commit();
    if (canRedo()) show(m_steps[m_done++], true);
}

QString SheetView::entryText() const { return fromUtf8(m_sheet.text(current())); }

void SheetView::enter(const QString& text)
{
    if (text == entryText()) return;  // a number may have more digits than its entry shows
    Step step;
    put(current(), text, step);
    done(std::move(step));
}

// --- Selection and scrolling -----------------------------------------------------------------------------------------

CellRange SheetView::selection() const { return m_geometry.withMerges({m_anchor, m_active}); }

void SheetView::setCurrent(CellRef cell) { select(cell, cell); }

void SheetView::select(CellRef from, CellRef to)
{
    commit();
    m_anchor = from;
    jump(to, true);
}

void SheetView::selectAll()
{
    commit();
    m_anchor = {std::max(1, m_sheet.rows()), std::max(1, m_sheet.cols())};
    m_active = {1, 1};
    updateAll();
}

void SheetView::jump(CellRef cell, bool extend)
{
    m_active = {std::clamp(cell.row, 1, m_geometry.rows()), std::clamp(cell.col, 1, m_geometry.cols())};
    if (!extend) m_anchor = m_active;
    reveal(m_geometry.area(m_active));
    updateAll();
}

void SheetView::move(int down, int right, bool extend)
{
    const CellRange area = m_geometry.area(m_active);
    const auto next = [](int step, int first, int last, int now) {
        return step > 0 ? last + step : step < 0 ? first + step : now;
    };
    const int row = std::clamp(next(down, area.first.row, area.last.row, m_active.row), 1, m_geometry.rows());
    const int col = std::clamp(next(right, area.first.col, area.last.col, m_active.col), 1, m_geometry.cols());
    jump({row, col}, extend);
}

/// What is typed is kept, and the next cell is the current one.
void SheetView::leave(int down, int right)
{
    commit();
    m_anchor = m_active = current();
    move(down, right, false);
}

int SheetView::headWidth() const
{
    return fontMetrics().horizontalAdvance(QString::number(m_geometry.rows() * 10)) + 8;
}
int SheetView::headHeight() const { return fontMetrics().height() + 6; }

QPoint SheetView::origin() const
{
    return {headWidth() - horizontalScrollBar()->value(), headHeight() - verticalScrollBar()->value()};
}

QRect SheetView::cellRect(CellRef cell) const { return m_geometry.rect(m_geometry.area(cell)).translated(origin()); }

void SheetView::setZoom(double zoom)
{
    m_zoom = zoom;
    measure();
    reveal(m_geometry.area(m_active));
    if (isEditing()) placeEditor();
    viewport()->update();
}

void SheetView::measure()
{
    m_geometry = SheetGeometry(m_sheet, m_zoom * logicalDpiX() / 96.0,
                               std::min(kSheetRows, std::max(m_sheet.rows() + kSpareRows, kLeastRows)),
                               std::min(kSheetCols, std::max(m_sheet.cols() + kSpareCols, kLeastCols)));
    m_ink = SheetGeometry();
    const QSize room = viewport()->size() - QSize(headWidth(), headHeight());
    horizontalScrollBar()->setRange(0, std::max(0, m_geometry.size().width() - room.width()));
    verticalScrollBar()->setRange(0, std::max(0, m_geometry.size().height() - room.height()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setPageStep(room.height());
    horizontalScrollBar()->setSingleStep(24);
    verticalScrollBar()->setSingleStep(24);
}

void SheetView::reveal(const CellRange& cells)
{
    const QRect rect = m_geometry.rect(cells);
    const auto along = [](QScrollBar* bar, int from, int to, int room) {
        if (to - bar->value() > room) bar->setValue(to - room + 8);
        if (from < bar->value()) bar->setValue(from);
    };
    along(horizontalScrollBar(), rect.left(), rect.right(), viewport()->width() - headWidth());
    along(verticalScrollBar(), rect.top(), rect.bottom(), viewport()->height() - headHeight());
}

void SheetView::updateAll()
{
    viewport()->update();
    updateMicroFocus();
    emit currentChanged();
}

void SheetView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    measure();
}

void SheetView::scrollContentsBy(int, int)
{
    if (isEditing()) placeEditor();
    viewport()->update();
}

// --- Painting --------------------------------------------------------------------------------------------------------

void SheetView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    const QRect all = viewport()->rect();
    painter.fillRect(all, Qt::white);
    const QRect inner = all.adjusted(headWidth(), headHeight(), 0, 0);
    const CellRange cells = m_geometry.cellsIn(inner.translated(-origin()));
    painter.save();
    painter.setClipRect(inner);
    // Lines are whole pixels of the screen, all of one width, also where a pixel of the window is one and a half.
    const double ratio = devicePixelRatioF();
    if (m_ink.scale() != m_geometry.scale() * ratio)
        m_ink = SheetGeometry(m_sheet, m_geometry.scale() * ratio, m_geometry.rows(), m_geometry.cols());
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate((QPointF(origin()) * ratio).toPoint());
    paintSheet(painter, m_sheet, m_ink, cells,
               {.gridLines = true, .hidden = isEditing() ? current() : CellRef(kSheetRows, kSheetCols)});
    painter.restore();
    painter.translate(origin());
    paintSelection(painter);
    painter.restore();
    paintHeads(painter, cells);
}

void SheetView::paintSelection(QPainter& painter)
{
    const CellRange chosen = selection();
    const QRect frame = m_geometry.rect(chosen), active = m_geometry.rect(m_geometry.area(m_active));
    QColor tint = theme::kAccent;
    tint.setAlpha(28);
    painter.setClipRegion(QRegion(frame).subtracted(active), Qt::IntersectClip);
    painter.fillRect(frame, tint);
    painter.setClipping(false);
    painter.setClipRect(QRect(-origin() + QPoint(headWidth(), headHeight()), viewport()->size()));
    QPen pen(hasFocus() || isEditing() ? theme::kAccent : QColor(0x8A, 0x90, 0x98), 2);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

void SheetView::paintHeads(QPainter& painter, const CellRange& cells)
{
    const CellRange chosen = selection();
    const auto head = [&](const QRect& rect, const QString& text, bool marked) {
        painter.fillRect(rect, marked ? kHeadChosen : kHead);
        painter.setPen(kHeadLine);
        painter.drawLine(rect.topRight(), rect.bottomRight());
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
        painter.setPen(marked ? theme::kAccent : QColor(0x5A, 0x62, 0x6B));
        painter.drawText(rect, Qt::AlignCenter, text);
    };
    painter.setClipRect(QRect(headWidth(), 0, viewport()->width(), headHeight()));
    for (int col = cells.first.col; col <= cells.last.col; ++col) {
        const QRect rect = m_geometry.rect(CellRef(1, col)).translated(origin());
        head({rect.left(), 0, rect.width(), headHeight()}, fromUtf8(ColumnLetters(col)),
             col >= chosen.first.col && col <= chosen.last.col);
    }
    painter.setClipRect(QRect(0, headHeight(), headWidth(), viewport()->height()));
    for (int row = cells.first.row; row <= cells.last.row; ++row) {
        const QRect rect = m_geometry.rect(CellRef(row, 1)).translated(origin());
        head({0, rect.top(), headWidth(), rect.height()}, QString::number(row),
             row >= chosen.first.row && row <= chosen.last.row);
    }
    painter.setClipping(false);
    head({0, 0, headWidth(), headHeight()}, {}, false);
}
