#include "office/windows/SheetPainter.h"

#include "ui/Fields.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

namespace {

constexpr QColor kGridLine(0xE1, 0xE4, 0xE8);

QColor color(int index) { return QColor::fromRgb(PaletteColor(index)); }

QFont fontOf(const CellStyle& style, double scale)
{
    QFont font(fromUtf8(style.fontName));
    font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(style.fontSize * SheetGeometry::kPixelsPerPoint * scale))));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// A number in the general format with as many digits as the cell is wide; hashes where not even its whole part fits.
QString fittingNumber(double value, const QString& shown, const CellStyle& style, const QFontMetricsF& metrics,
                      double width)
{
    if (metrics.horizontalAdvance(shown) <= width) return shown;
    if (style.numberFormat == "General")
        for (int digits = 10; digits >= 1; --digits) {
            const QString text = QString::number(value, 'g', digits).toUpper();
            const bool roundsWhole = std::abs(value) >= 1 && digits < std::floor(std::log10(std::abs(value))) + 1;
            if ((!roundsWhole || text.contains(u'E')) && metrics.horizontalAdvance(text) <= width) return text;
        }
    const double hash = metrics.horizontalAdvance(u'#');
    return QString(std::max(1, static_cast<int>(width / hash)), u'#');
}

class Painting {
public:
    Painting(QPainter& painter, const Worksheet& sheet, const SheetGeometry& geometry, const CellRange& cells,
             const SheetPaint& how)
        : p(painter), m_sheet(sheet), m_geometry(geometry), m_cells(cells), m_how(how)
    {}
    void run()
    {
        forEachCell([&](CellRef cell) { fill(cell); });
        for (const bool strong : {false, true}) forEachCell([&](CellRef cell) { lines(cell, strong); });
        std::set<CellRef> done;
        forEachCell([&](CellRef cell) {
            const CellRange area = m_geometry.area(cell);
            if (done.insert(area.first).second && area.first != m_how.hidden) text(area);
        });
        spillFromTheLeft();
    }

private:
    template <class Body>
    void forEachCell(const Body& body)
    {
        for (int row = m_cells.first.row; row <= m_cells.last.row; ++row)
            for (int col = m_cells.first.col; col <= m_cells.last.col; ++col) body(CellRef(row, col));
    }

    /// A merged cell looks as its first cell does. What will be printed shows as it will be: without grid lines.
    void fill(CellRef cell)
    {
        const CellRange area = m_geometry.area(cell);
        const CellStyle& style = m_sheet.style(area.first);
        const QRect rect = m_geometry.rect(cell);
        if (style.fillColor != xlNone) return p.fillRect(rect, color(style.fillColor));
        if (!m_how.gridLines || (cell.row <= m_usedRows && cell.col <= m_usedCols)) return;
        if (cell.col == area.last.col) p.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), kGridLine);
        if (cell.row == area.last.row) p.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), kGridLine);
    }

    int thickness(int weight) const
    {
        const double pixels = weight == xlThick ? 3 : weight == xlMedium ? 2 : 1;
        return std::max(1, static_cast<int>(std::lround(pixels * m_geometry.scale())));
    }
    /// Thin lines first, so that a strong one is on top wherever they meet. Lines inside a merged cell are not there.
    void lines(CellRef cell, bool strong)
    {
        const CellStyle& style = m_sheet.style(cell);
        const CellRange area = m_geometry.area(cell);
        const QRect rect = m_geometry.rect(cell);
        const int x[] = {rect.left(), rect.right() + 1}, y[] = {rect.top(), rect.bottom() + 1};
        const auto draw = [&](int index, bool edge, int x1, int y1, int x2, int y2) {
            const CellLine& line = style.line(index);
            if (!edge || line.weight == xlNone || (line.weight == xlMedium || line.weight == xlThick) != strong) return;
            const int t = thickness(line.weight), before = (t + 1) / 2;
            const QColor ink = line.weight == xlHairline ? Qt::gray
                               : line.colorIndex > 0     ? color(line.colorIndex)
                                                         : Qt::black;
            p.fillRect(QRect(QPoint(x1 - before, y1 - before), QSize(x2 - x1 + t, y2 - y1 + t)), ink);
        };
        draw(xlEdgeLeft, cell.col == area.first.col, x[0], y[0], x[0], y[1]);
        draw(xlEdgeRight, cell.col == area.last.col, x[1], y[0], x[1], y[1]);
        draw(xlEdgeTop, cell.row == area.first.row, x[0], y[0], x[1], y[0]);
        draw(xlEdgeBottom, cell.row == area.last.row, x[0], y[1], x[1], y[1]);
        for (const int diagonal : {xlDiagonalDown, xlDiagonalUp}) {
            if (strong || style.line(diagonal).weight == xlNone) continue;
            p.setPen(QPen(Qt::black, thickness(style.line(diagonal).weight)));
            p.drawLine(x[0], y[diagonal == xlDiagonalUp], x[1], y[diagonal == xlDiagonalDown]);
        }
    }

    /// The text of a cell may run over its empty neighbours.
    QRect withEmptyNeighbours(const CellRange& area, Qt::Alignment alignment) const
    {
        QRect rect = m_geometry.rect(area);
        const auto isFree = [&](int col) {
            const CellRef cell(area.first.row, col);
            return !m_geometry.covered(cell) && m_geometry.area(cell).rows() == 1 && m_sheet.text(cell).empty();
        };
        if (!(alignment & Qt::AlignRight))
            for (int col = area.last.col + 1; col <= m_geometry.cols() && isFree(col); ++col)
                rect.setRight(m_geometry.rect(CellRef(area.first.row, col)).right());
        if (!(alignment & Qt::AlignLeft))
            for (int col = area.first.col - 1; col >= 1 && isFree(col); --col)
                rect.setLeft(m_geometry.rect(CellRef(area.first.row, col)).left());
        return rect;
    }

    Qt::Alignment alignmentOf(const CellStyle& style, bool number) const
    {
        const Qt::Alignment across = style.horizontal == xlCenter            ? Qt::AlignHCenter
                                     : style.horizontal == xlRight           ? Qt::AlignRight
                                     : style.horizontal == xlLeft || !number ? Qt::AlignLeft
                                                                             : Qt::AlignRight;
        const Qt::Alignment down = style.vertical == xlCenter ? Qt::AlignVCenter
                                   : style.vertical == xlTop  ? Qt::AlignTop
                                                              : Qt::AlignBottom;
        return across | down;
    }

    void text(const CellRange& area)
    {
        const auto number = m_sheet.number(area.first);
        QString shown = fromUtf8(m_sheet.shown(area.first));
        if (shown.isEmpty()) return;
        const CellStyle& style = m_sheet.style(area.first);
        const QFont font = fontOf(style, m_geometry.scale());
        const QFontMetricsF metrics(font);
        const int gap = std::max(1, static_cast<int>(std::lround(2 * m_geometry.scale())));
        const QRect whole = m_geometry.rect(area);
        // Where a page ends inside a merged cell its text stands in the part on the page where it begins.
        QRect cell = whole & m_geometry.rect(m_cells);
        if (m_how.gridLines) cell = whole;
        if (area.first.row < m_cells.first.row && !m_how.gridLines) return;
        const bool isNumber = std::holds_alternative<double>(m_sheet.value(area.first)) && number;
        const auto alignment = alignmentOf(style, isNumber);
        QRect clip = cell;
        if (isNumber)
            shown = fittingNumber(*number, shown, style, metrics, cell.width() - 2 * gap);
        else if (area.cols() == 1 && area.rows() == 1 && !style.wrap)
            clip = withEmptyNeighbours(area, alignment);

        p.save();
        // What hangs below the line stays whole where a row is a little lower than its font.
        p.setClipRect(clip.adjusted(0, 0, 0, static_cast<int>(std::ceil(font.pixelSize() / 8.0))), Qt::IntersectClip);
        p.setFont(font);
        p.setPen(Qt::black);
        const QRectF room = QRectF(cell).adjusted(gap, 0, -gap, 0);
        const double width = metrics.horizontalAdvance(shown);
        const Lines textLines{static_cast<double>(font.pixelSize())};
        if (style.wrap && (width > room.width() || shown.contains(u'\n')))
            wrapped(shown, room, alignment, textLines);
        else
            oneLine(shown, room, clip, alignment, width, textLines);
        p.restore();
    }

    /// Where text lines stand in a cell is reckoned from the size of the letters: line heights of fonts differ widely,
    /// and a stand-in font must not move the text.
    struct Lines {
        double size;  ///< of the font, pixels
        double step() const { return size * 1.17; }
        double firstBase(const QRectF& room, Qt::Alignment alignment, int count) const
        {
            const double height = size + step() * (count - 1), above = size * 0.87;
            if (alignment & Qt::AlignVCenter) return room.center().y() - height / 2 + above;
            if (alignment & Qt::AlignTop) return room.top() + above + size / 16;
            return room.bottom() - height + above - size / 16;
        }
    };

    void wrapped(const QString& shown, const QRectF& room, Qt::Alignment alignment, const Lines& lines)
    {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QString text = shown.trimmed();
        QTextLayout layout(text.replace(u'\n', QChar::LineSeparator), p.font());
        layout.setTextOption(option);
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine())
            line.setLineWidth(room.width());
        layout.endLayout();
        const double base = lines.firstBase(room, alignment, layout.lineCount());
        for (int i = 0; i < layout.lineCount(); ++i) {
            const auto line = layout.lineAt(i);
            const double rest = room.width() - line.naturalTextWidth();
            const double indent = alignment & Qt::AlignHCenter ? rest / 2 : alignment & Qt::AlignRight ? rest : 0;
            line.draw(&p, {room.left() + indent - line.position().x(),
                           base + lines.step() * i - line.ascent() - line.position().y()});
        }
    }
    /// A stand-in font may be a little wider than the one the cell was measured for: it is narrowed, not cut.
    void oneLine(const QString& shown, const QRectF& room, const QRect& clip, Qt::Alignment alignment, double width,
                 const Lines& lines)
    {
        const double narrow = clip.width() > room.width() + 8 ? 1 : std::clamp(room.width() / width, 0.8, 1.0);
        const double drawn = width * narrow;
        double x = room.left();
        if (alignment & Qt::AlignHCenter) x = room.center().x() - drawn / 2;
        if (alignment & Qt::AlignRight) x = room.right() - drawn;
        double base = lines.firstBase(room, alignment, 1);
        if (alignment & Qt::AlignBottom) {  // as far up as the ink below the line needs and the ink above it allows
            const QRectF ink = QFontMetricsF(p.font()).tightBoundingRect(shown);
            base = std::max(std::min(base, room.bottom() - ink.bottom() - lines.size / 16),
                            std::min(base, room.top() - ink.top()));
        }
        p.translate(x, base);
        p.scale(narrow, 1);
        p.drawText(QPointF(0, 0), shown);
    }

    /// Texts that begin left of the painted part may run into it.
    void spillFromTheLeft()
    {
        for (int row = m_cells.first.row; row <= m_cells.last.row; ++row)
            for (int col = m_cells.first.col - 1; col >= 1; --col) {
                const CellRef cell(row, col);
                if (m_sheet.text(cell).empty()) continue;
                if (m_geometry.area(cell) == CellRange(cell)) text(cell);
                break;
            }
    }

    QPainter& p;
    const Worksheet& m_sheet;
    const SheetGeometry& m_geometry;
    const CellRange m_cells;
    const SheetPaint m_how;
    const int m_usedRows = m_sheet.rows(), m_usedCols = m_sheet.cols();
};

}  // namespace

void paintSheet(QPainter& painter, const Worksheet& sheet, const SheetGeometry& geometry, const CellRange& cells,
                const SheetPaint& how)
{
    Painting(painter, sheet, geometry, cells, how).run();
}

void substituteSheetFonts()
{
    // Fonts of the sheet's own measure first: digits half as wide as the characters.
    const QString song = QStringLiteral("宋体"), black = QStringLiteral("黑体");
    if (!QFontDatabase::hasFamily(song))
        QFont::insertSubstitutions(song, {QStringLiteral("SimSun"), QStringLiteral("Noto Serif CJK SC"),
                                          QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei")});
    if (!QFontDatabase::hasFamily(black))
        QFont::insertSubstitutions(black, {QStringLiteral("SimHei"), QStringLiteral("Noto Sans CJK SC"),
                                           QStringLiteral("WenQuanYi Micro Hei")});
}

QPageLayout pageLayout(const PageSetup& page, const SheetPrint& how)
{
    return {QPageSize(QPageSize::A4), page.landscape || how.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF(page.left, page.top, page.right, page.bottom), QPageLayout::Inch};
}

namespace {

/// The first lines of the pages, by the edges of rows or columns, and the one behind the last.
/// @param room of the first page; the others have `repeated` less @param mayBegin which lines may be first
std::vector<int> pageStarts(const std::vector<int>& edges, int room, int repeated,
                            const std::function<bool(int)>& mayBegin)
{
    const int end = static_cast<int>(edges.size());
    const auto top = [&](int line) { return edges[static_cast<std::size_t>(line - 1)]; };
    std::vector<int> first{1};
    for (int line = 1; line < end; ++line) {
        const int fits = room - (first.back() > 1 ? repeated : 0);
        if (line == first.back() || edges[static_cast<std::size_t>(line)] - top(first.back()) <= fits) continue;
        int next = line;
        while (next > first.back() && !mayBegin(next)) --next;
        first.push_back(next > first.back() ? next : line);
        line = first.back();
    }
    first.push_back(end);
    return first;
}

}  // namespace

std::vector<SheetPage> sheetPages(const SheetGeometry& geometry, QSize page, const SheetPrint& how)
{
    const int rows = geometry.rows(), heads = std::clamp(how.headRows, 0, rows);
    const auto top = [&](int row) { return geometry.lines()[static_cast<std::size_t>(row - 1)]; };
    const int repeated = top(heads + 1);
    const bool blockFits = how.lastBlock > 0 && how.lastBlock <= rows &&
                           geometry.size().height() - top(how.lastBlock) <= page.height() - repeated;
    const auto rowStarts = pageStarts(geometry.lines(), page.height(), repeated, [&](int row) {
        return row > heads + 1 && !geometry.covered(CellRef(row, 1)) && !(blockFits && row > how.lastBlock);
    });
    const auto colStarts = pageStarts(geometry.columns(), page.width(), 0, [](int) { return true; });
    std::vector<SheetPage> pages;
    for (std::size_t c = 0; c + 1 < colStarts.size(); ++c)
        for (std::size_t r = 0; r + 1 < rowStarts.size(); ++r)
            pages.push_back(
                {CellRange(rowStarts[r], colStarts[c], rowStarts[r + 1] - 1, colStarts[c + 1] - 1), r > 0 ? heads : 0});
    return pages;
}

void printSheet(const Worksheet& sheet, QPagedPaintDevice& device, const SheetPrint& how)
{
    const int rows = std::max(1, sheet.rows()), cols = std::max(1, sheet.cols());
    QPainter painter(&device);
    const double dpi = device.logicalDpiX();
    const QRect whole = painter.viewport();
    const int head = static_cast<int>(how.head * dpi), foot = static_cast<int>(how.foot * dpi);
    const QRect page = whole.adjusted(0, head, 0, -foot);
    double scale = dpi / 96;
    const int natural = SheetGeometry(sheet, scale, 1, cols).size().width();
    if ((sheet.page.fitToWidth || how.fitToWidth) && natural > page.width())
        scale *= static_cast<double>(page.width() - 2) / natural;
    const SheetGeometry geometry(sheet, scale, rows, cols);
    const auto paint = [&](const CellRange& cells, int down) {
        const QRect shown = geometry.rect(cells);
        const int line = static_cast<int>(3 * scale);
        painter.save();
        painter.translate(-shown.left(), head + down - shown.top());
        painter.setClipRect(shown.adjusted(-line, -line, line, line));
        paintSheet(painter, sheet, geometry, cells);
        painter.restore();
    };
    const auto pages = sheetPages(geometry, page.size(), how);
    int number = 0;
    for (const auto& [cells, heads] : pages) {
        if (number++ > 0) device.newPage();
        if (how.around) how.around(painter, whole, number, static_cast<int>(pages.size()));
        paint(cells, geometry.lines()[static_cast<std::size_t>(heads)]);
        if (heads > 0) paint({1, cells.first.col, heads, cells.last.col}, 0);
    }
}
