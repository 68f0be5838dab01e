#pragma once
// The grid of every screen and editor: text cells, a fixed header row, a fixed sequence column.

#include "dialogs/ResultTable.h"

#include <QTableView>

#include <string>
#include <vector>

class GridCorner;
class GridModel;
class GridSelection;
class QMenu;

/// Positions and widths are in twips (1/15 pixel at 96 dpi). Rows and columns count from 0; row 0 is the fixed header,
/// column 0 the fixed sequence column. Texts are UTF-8 in GridText, QString here.
class MSFlexGrid : public QTableView, public ResultRows {
    Q_OBJECT
public:
    explicit MSFlexGrid(QWidget* parent = nullptr);

    int Rows() const;
    void
    setRows(int rows) override;  ///< grows with empty rows or cuts; the current row stays inside; Subscript below 1
    int Cols() const;
    void setCols(int cols);
    int Row() const override;  ///< current row; 0 while only the header stands
    void setRow(int row);      ///< throws RunTimeError Subscript outside 0..Rows-1
    int Col() const;
    void setCol(int col);                        ///< throws RunTimeError Subscript outside 0..Cols-1
    QString TextMatrix(int row, int col) const;  ///< throws RunTimeError Subscript outside the grid
    void setTextMatrix(int row, int col, const QString& text);
    void keepBytes(int row, int col, std::string bytes);  ///< see GridText
    int ColWidth(int col) const;                          ///< twips
    void setColWidth(int col, int twips);
    /// The last column is drawn over the width that the others leave free. Its ColWidth stays.
    void setLastColumnFills(bool fills);
    int heightForAllRows() const;  ///< pixels in which no row has to be scrolled
    void setColAlignment(int col, Qt::Alignment alignment);
    int ColPos(int col) const;  ///< twips to the column, scrolling included, from inside the grid's border of 45 twips
    int RowPos(int row) const;  ///< twips to the row, likewise: grid Top + RowPos + 45 is the row's place on the form
    void AddItem(const QString& tabSeparated, int index = -1);  ///< a row at `index`, at the end without one
    void
    RemoveItem(int row) override;  ///< throws RunTimeError Subscript where the fixed row or the last data row would go
    void Clear();                  ///< every cell's text, the header included, and every warning

    const GridText& text() const override;  ///< all cells as one value, for saving
    /// Appends one row and numbers it; O(1) amortised. A row with a warning is amber and has it as its tool tip.
    void appendRow(ResultRow row) override;
    void renumber() override;  ///< column 0 of rows 1 to Rows-1 gets its row number
    /// The tool tip of an amber row, "" for a row without one.
    QString warning(int row) const;
    /// The tool tip of an amber cell: its row's warning and its own; "" for most.
    QString doubt(int row, int col) const;
    /// While held back, appended rows count at once but are shown only by showRows() or when the hold ends.
    void holdBack(bool hold);
    void showRows();  ///< shows rows held back and scrolls to the last one
    /// The cells of the selection, a tab between columns, a line end between rows.
    QString selectedText(bool withHeader) const;
    /// All rows in the same way, the header first; "" without a column.
    QString wholeText() const;

    void setHint(const QString& hint);  ///< grey text of an empty grid: what to do next
    void setHeaderToolTip(int col, const QString& tip);
    QRect cellRect(int row, int col) const;  ///< of a cell (fixed ones too), pixels in this widget's coordinates
    QMenu* contextMenu() const { return m_menu; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void keyboardSearch(const QString&) override {}  ///< typing moves nothing

signals:
    /// A left press and its release on one cell, after Row and Col moved; on a row number: of that row's column 1.
    void Click();
    void MouseDown(int button, int x, int y);  ///< 1 left, 2 right, 4 middle; pixels; before Click
    void Scroll();
    void RowColChange();  ///< the user moved to another cell, by key or click

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    struct Cell {
        int row = 0, col = 0;  // row 0: none
        bool operator==(const Cell&) const = default;
    };

    template <class Change>
    void restructure(Change change);
    void placeCurrent();
    void moveTo(Cell cell);
    void click(Cell cell);
    Cell cellAt(const QMouseEvent& event) const;
    void copy(bool withHeader) const;
    void fitRows();
    void fillWidth();
    void showTopRowWhole();

    GridModel* m_model;
    GridSelection* m_selection;
    QMenu* m_menu;
    GridCorner* m_corner;
    QString m_hint;
    std::vector<int> m_widths;  // twips a column
    int m_row = 0;
    int m_col = 1;
    bool m_placing = false;
    bool m_heldBack = false;
    bool m_lastColumnFills = false;
    Cell m_pressed;  // by the left button, until its release
};

/// Column 0 of rows 1 to Rows-1 gets its row number.
inline void RenumberGrid(MSFlexGrid& grid) { grid.renumber(); }
