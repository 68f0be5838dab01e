#include "ui/MSFlexGrid.h"

#include "base/RunTimeError.h"
#include "ui/GridHeader.h"
#include "ui/GridModel.h"
#include "ui/GridSelection.h"
#include "ui/Twips.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {

constexpr int kDefaultWidth = 960;  // twips

constexpr int kBorder = 45;  // twips of the grid's border: positions count from inside it

/// A cell's text between tabs and line ends.
QString plain(QString cell) { return cell.replace(u'\t', u' ').replace(u"\r\n"_qs, u" "_qs); }

void requireIndex(bool inside)
{
    if (!inside) throw RunTimeError(RunTimeError::Subscript);
}

}  // namespace

MSFlexGrid::MSFlexGrid(QWidget* parent) : QTableView(parent), m_model(new GridModel(this)), m_menu(new QMenu(this))
{
    setHorizontalHeader(new WrappingHeader(this));
    auto* numbers = new RowNumbers(this);
    setVerticalHeader(numbers);
    setModel(m_model);
    const auto* unused = selectionModel();
    m_selection = new GridSelection(m_model, this);
    setSelectionModel(m_selection);
    delete unused;
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(kLeastColumn);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRows();

    m_corner = new GridCorner(*this, *m_model);
    connect(m_corner, &GridCorner::dragged, this, [this](int pixels) {
        if (Cols() > 0) setColWidth(0, pixelsToTwips(pixels, *this));
    });
    for (QWidget* fixed : {horizontalHeader()->viewport(), verticalHeader()->viewport(), m_corner->widget()})
        fixed->installEventFilter(this);

    connect(numbers, &RowNumbers::clicked, this, [this](int section) { click({section + 1, 1}); });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section, int, int pixels) {
        const auto col = static_cast<std::size_t>(section) + 1;
        if (m_placing || col >= m_widths.size()) return;
        m_widths[col] = pixelsToTwips(pixels, *this);
        fillWidth();
    });
    for (const auto* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &MSFlexGrid::Scroll);

    const auto add = [this](const QString& caption, const QKeySequence& keys, auto action) {
        auto* entry = m_menu->addAction(caption, this, action);
        entry->setShortcut(keys);
        entry->setShortcutContext(Qt::WidgetShortcut);  // shown here; keyPressEvent acts on it
    };
    add(QStringLiteral("复制"), QKeySequence::Copy, [this] { copy(false); });
    add(QStringLiteral("复制含表头"), {}, [this] { copy(true); });
    m_menu->addSeparator();
    add(QStringLiteral("全选"), QKeySequence::SelectAll, [this] { selectAll(); });
}

/// The current row and column keep their numbers over a change of structure, whatever moved.
template <class Change>
void MSFlexGrid::restructure(Change change)
{
    m_placing = true;
    change();
    m_placing = false;
    m_row = std::clamp(m_row, Rows() > 1 ? 1 : 0, Rows() - 1);
    placeCurrent();
}

void MSFlexGrid::placeCurrent()
{
    m_model->setCurrentRow(m_row);
    const auto wanted = m_row > 0 ? m_model->index(m_row - 1, std::max(m_col, 1) - 1) : QModelIndex();
    if (wanted == currentIndex()) return;
    m_placing = m_selection->moves = true;
    if (wanted.isValid())
        m_selection->setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect);
    else
        m_selection->clear();
    m_placing = m_selection->moves = false;
    viewport()->update();
}

int MSFlexGrid::Rows() const { return m_model->text().rows(); }
int MSFlexGrid::Cols() const { return m_model->text().cols(); }
int MSFlexGrid::Row() const { return m_row; }
int MSFlexGrid::Col() const { return m_col; }
const GridText& MSFlexGrid::text() const { return m_model->text(); }

void MSFlexGrid::setRows(int rows)
{
    requireIndex(rows >= 1);
    restructure([&] { m_model->setRows(rows); });
}

void MSFlexGrid::setCols(int cols)
{
    requireIndex(cols >= 1);
    restructure([&] { m_model->setCols(cols); });
    const auto before = static_cast<int>(m_widths.size());
    m_widths.resize(static_cast<std::size_t>(cols), kDefaultWidth);
    for (int col = before; col < cols; ++col) setColWidth(col, kDefaultWidth);
    m_col = std::clamp(m_col, cols > 1 ? 1 : 0, cols - 1);
    placeCurrent();
}

void MSFlexGrid::setRow(int row)
{
    requireIndex(row >= 0 && row < Rows());
    m_row = row;
    placeCurrent();
}

void MSFlexGrid::setCol(int col)
{
    requireIndex(col >= 0 && col < Cols());
    m_col = col;
    placeCurrent();
}

QString MSFlexGrid::TextMatrix(int row, int col) const
{
    requireIndex(row >= 0 && row < Rows() && col >= 0 && col < Cols());
    return QString::fromStdString(m_model->text().text(row, col));
}

void MSFlexGrid::setTextMatrix(int row, int col, const QString& text)
{
    requireIndex(row >= 0 && row < Rows() && col >= 0 && col < Cols());
    m_model->setText(row, col, text.toStdString());
    if (row == 0 && col == 0) m_corner->widget()->update();
}

void MSFlexGrid::keepBytes(int row, int col, std::string bytes) { m_model->keepBytes(row, col, std::move(bytes)); }

int MSFlexGrid::ColWidth(int col) const
{
    requireIndex(col >= 0 && col < Cols());
    return m_widths[static_cast<std::size_t>(col)];
}

void MSFlexGrid::setColWidth(int col, int twips)
{
    requireIndex(col >= 0 && col < Cols());
    m_widths[static_cast<std::size_t>(col)] = twips;
    const int pixels = twipsToPixels(twips, *this);
    m_placing = true;
    if (col == 0) {
        verticalHeader()->setFixedWidth(pixels);
        updateGeometries();
    } else {
        horizontalHeader()->resizeSection(col - 1, pixels);
    }
    m_placing = false;
    fillWidth();
}

void MSFlexGrid::fillWidth()
{
    const int last = Cols() - 1;
    if (last < 1) return;
    int pixels = twipsToPixels(m_widths[static_cast<std::size_t>(last)], *this);
    if (m_lastColumnFills) {
        int before = 0;
        for (int col = 1; col < last; ++col) before += horizontalHeader()->sectionSize(col - 1);
        pixels = std::max(pixels, viewport()->width() - before);
    }
    const bool placing = std::exchange(m_placing, true);
    horizontalHeader()->resizeSection(last - 1, pixels);
    m_placing = placing;
}

void MSFlexGrid::setLastColumnFills(bool fills)
{
    m_lastColumnFills = fills;
    fillWidth();
}

int MSFlexGrid::heightForAllRows() const
{
    int width = 0;
    for (const int twips : m_widths) width += twipsToPixels(twips, *this);
    return 2 * frameWidth() + horizontalHeader()->sizeHint().height() +
           (Rows() - 1) * verticalHeader()->defaultSectionSize() +
           (width > sizeHint().width() ? horizontalScrollBar()->sizeHint().height() : 0);
}

void MSFlexGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fillWidth();
}

void MSFlexGrid::setColAlignment(int col, Qt::Alignment alignment)
{
    requireIndex(col >= 0 && col < Cols());
    m_model->setAlignment(col, alignment);
    if (col == 0) m_corner->widget()->update();
}

QRect MSFlexGrid::cellRect(int row, int col) const
{
    const_cast<MSFlexGrid*>(this)->executeDelayedItemsLayout();
    const QHeaderView* across = horizontalHeader();
    const QHeaderView* down = verticalHeader();
    const int x = col == 0 ? down->x() : viewport()->x() + across->sectionViewportPosition(col - 1);
    const int y = row == 0 ? across->y() : viewport()->y() + down->sectionViewportPosition(row - 1);
    return {x, y, col == 0 ? down->width() : across->sectionSize(col - 1),
            row == 0 ? across->height() : down->sectionSize(row - 1)};
}

int MSFlexGrid::ColPos(int col) const
{
    requireIndex(col >= 0 && col < Cols());
    return pixelsToTwips(cellRect(0, col).x(), *this) - kBorder;
}

int MSFlexGrid::RowPos(int row) const
{
    requireIndex(row >= 0 && row < Rows());
    return pixelsToTwips(cellRect(row, 0).y(), *this) - kBorder;
}

void MSFlexGrid::AddItem(const QString& tabSeparated, int index)
{
    const int row = index == -1 ? Rows() : index;
    requireIndex(row >= 1 && row <= Rows());
    restructure([&] {
        m_model->insertRow(row);
        const auto cells = tabSeparated.split(u'\t');
        for (int col = 0; col < cells.size() && col < Cols(); ++col)
            if (!cells[col].isEmpty()) m_model->setText(row, col, cells[col].toStdString());
    });
}

void MSFlexGrid::RemoveItem(int row)
{
    requireIndex(row >= 1 && row < Rows() && Rows() > 2);
    restructure([&] { m_model->removeRow(row); });
    scrollTo(currentIndex());  // where the next one would go
}

void MSFlexGrid::Clear()
{
    m_model->clear();
    m_corner->widget()->update();
}

void MSFlexGrid::appendRow(ResultRow row)
{
    restructure([&] { m_model->append(std::move(row)); });
    if (!m_heldBack) scrollToBottom();
}

QString MSFlexGrid::warning(int row) const
{
    return row >= 0 && row < Rows() ? QString::fromStdString(text().warning(row)) : QString();
}

QString MSFlexGrid::doubt(int row, int col) const
{
    return row >= 0 && row < Rows() ? QString::fromStdString(text().doubt(row, col)) : QString();
}

void MSFlexGrid::holdBack(bool hold)
{
    m_heldBack = hold;
    m_model->holdBack(hold);
    if (!hold) showRows();
}

void MSFlexGrid::showRows()
{
    restructure([&] { m_model->showAll(); });
    scrollToBottom();
}

QString MSFlexGrid::selectedText(bool withHeader) const
{
    const auto chosen = selectionModel()->selection();
    if (chosen.isEmpty()) return {};
    QRect all;
    for (const auto& range : chosen)
        all |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    QStringList lines;
    for (int row = withHeader ? -1 : all.top(); row <= all.bottom(); row = row < 0 ? all.top() : row + 1) {
        QStringList cells;
        for (int col = all.left(); col <= all.right(); ++col)
            cells << (row < 0 || chosen.contains(m_model->index(row, col)) ? plain(TextMatrix(row + 1, col + 1))
                                                                           : QString());
        lines << cells.join(u'\t');
    }
    return lines.join(u'\n');
}

QString MSFlexGrid::wholeText() const
{
    QStringList lines;
    for (int row = 0; row < Rows() && Cols() > 1; ++row) {
        QStringList cells;
        for (int col = 1; col < Cols(); ++col) cells << plain(TextMatrix(row, col));
        lines << cells.join(u'\t');
    }
    return lines.join(u'\n');
}

void MSFlexGrid::copy(bool withHeader) const
{
    if (const auto text = selectedText(withHeader); !text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void MSFlexGrid::setHint(const QString& hint)
{
    m_hint = hint;
    viewport()->update();
}

void MSFlexGrid::setHeaderToolTip(int col, const QString& tip)
{
    m_model->setHeaderToolTip(col, tip);
    if (col == 0) m_corner->widget()->setToolTip(tip);
}

void MSFlexGrid::fitRows()
{
    const int text = fontMetrics().height();
    verticalHeader()->setMinimumSectionSize(text);
    verticalHeader()->setDefaultSectionSize(text + 9);
    horizontalHeader()->setMinimumHeight(text + 11);
}

/// Wide enough for its columns, within what a small screen has.
QSize MSFlexGrid::sizeHint() const
{
    int width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
    for (const int twips : m_widths) width += twipsToPixels(twips, *this);
    return {std::clamp(width, 240, 1320), 9 * verticalHeader()->defaultSectionSize()};
}

void MSFlexGrid::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (Rows() > 1 || m_hint.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
}

void MSFlexGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitRows();
}

/// A text wider than its column is told by a tool tip, unless a warning stands there.
bool MSFlexGrid::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto cell = indexAt(help->pos());
        const QString text = cell.data().toString();
        if (cell.isValid() && cell.data(Qt::ToolTipRole).toString().isEmpty() &&
            sizeHintForIndex(cell).width() > visualRect(cell).width()) {
            QToolTip::showText(help->globalPos(), text, viewport(), visualRect(cell));
            return true;
        }
    }
    return QTableView::viewportEvent(event);
}

void MSFlexGrid::renumber() { m_model->renumber(); }
