#pragma once
// The first data column of a wide grid, kept in sight while the others are scrolled sideways under it.

#include <QWidget>

class QTableView;

/// Shows itself over the left edge of the grid's cells once they are scrolled. A click on it is one on the row number.
class PinnedColumn : public QWidget {
    Q_OBJECT
public:
    explicit PinnedColumn(QTableView& grid);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();
    void uncover();

    QTableView& m_grid;
    const QObject* m_cells;  ///< the grid's viewport
};
