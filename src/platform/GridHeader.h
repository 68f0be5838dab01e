#pragma once
// The fixed parts of a grid widget: the header row, and the corner over the sequence column.

#include <QHeaderView>

class GridModel;
class QAbstractButton;
class QTableView;

inline constexpr int kLeastColumn = 24;  ///< pixels that a dragged column keeps

/// Header texts that their column cannot hold go on in a second line.
class WrappingHeader : public QHeaderView {
public:
    explicit WrappingHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    QSize sectionSizeFromContents(int section) const override;
};

/// Shows the text of cell (0, 0) in the corner of a table view; its right edge drags the sequence column's width.
class GridCorner : public QObject {
    Q_OBJECT
public:
    GridCorner(QTableView& grid, const GridModel& model);
    QWidget* widget() const;

signals:
    void dragged(int pixels);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paint();

    QAbstractButton* m_button;
    const GridModel& m_model;
    int m_grip = -1;  // pixels from the pointer to the right edge while it is dragged
};
