#pragma once
// What a grid widget shows of its GridText: row 0 as horizontal header, column 0 as vertical header, the rest as cells.

#include "base/GridText.h"
#include "dialogs/Outcome.h"

#include <QAbstractTableModel>

#include <map>
#include <string>
#include <utility>
#include <vector>

class GridModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    const GridText& text() const { return m_text; }
    void setRows(int rows);
    void setCols(int cols);
    void setText(int row, int col, std::string text);
    void keepBytes(int row, int col, std::string bytes) { m_text.keepBytes(row, col, std::move(bytes)); }
    void insertRow(int row);
    void removeRow(int row);
    void clear();
    void append(ResultRow row);
    void renumber();

    void holdBack(bool hold) { m_hold = hold; }
    void showAll();  ///< rows appended while held back become visible

    void setAlignment(int col, Qt::Alignment alignment);
    void setHeaderToolTip(int col, const QString& tip);
    void setCurrentRow(int row) { m_currentRow = row; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_shown; }
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Qt::Alignment alignment(int col) const;

    GridText m_text;
    std::map<int, Qt::Alignment> m_alignments;
    std::map<int, QString> m_headerToolTips;
    int m_shown = 0;     // data rows that the view knows
    int m_numbered = 0;  // rows 1 to m_numbered hold their number in column 0
    int m_currentRow = 0;
    bool m_hold = false;
};
