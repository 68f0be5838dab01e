#pragma once
// The grid of every screen and editor: text cells, a fixed header row, a fixed sequence column.

#include "desk/GridText.h"

#include <QTableView>

#include <string>
#include <vector>

class GridModel;

/// Positions and widths are in twips (1/15 pixel at 96 dpi). Rows and columns count from 0; row 0 is the fixed header,
/// column 0 the fixed sequence column. Texts are UTF-8 in GridText, QString here.
class MSFlexGrid : public QTableView {
    Q_OBJECT
public:
    explicit MSFlexGrid(QWidget* parent = nullptr);

    int Rows() const;
    void setRows(int rows);  ///< grows with empty rows or cuts; the current row stays inside
    int Cols() const;
    void setCols(int cols);
    int Row() const;       ///< current row; 0 while only the header stands
    void setRow(int row);  ///< throws RunTimeError Subscript outside 0..Rows-1
    int Col() const;
    void setCol(int col);
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    int ColWidth(int col) const;  ///< twips
    void setColWidth(int col, int twips);
    void setColAlignment(int col, Qt::Alignment alignment);
    int ColPos(int col) const;  ///< twips from the grid's left edge to the column, scrolling included
    int RowPos(int row) const;  ///< twips from the grid's top edge to the row, scrolling included
    void AddItem(const QString& tabSeparated, int index = -1);  ///< a row at `index`, at the end without one
    void RemoveItem(int row);  ///< throws RunTimeError where the fixed row or the last data row would go
    void Clear();              ///< every cell's text, the header included

    const GridText& text() const;  ///< all cells as one value, for saving
    /// Appends one row of cells from column 1 on; O(1) amortised. @param warning "" or a tool tip on amber
    void appendRow(std::vector<std::string> cells, const std::string& warning = {});
    void setHint(const QString& hint);       ///< grey text of an empty grid: what to do next
    QRect cellRect(int row, int col) const;  ///< of a cell (fixed ones too), pixels in this widget's coordinates

signals:
    void Click();                              ///< left or right click on a data cell, after Row and Col moved
    void MouseDown(int button, int x, int y);  ///< 1 left, 2 right, 4 middle; pixels
    void Scroll();
};

/// Column 0 of rows 1 to Rows-1 gets its row number.
void RenumberGrid(MSFlexGrid& grid);
