#pragma once
// The fixed parts of a grid widget: the header row, and the corner over the sequence column.

#include <QHeaderView>

class GridModel;
class QAbstractButton;
class QTableView;

inline constexpr int kLeastColumn = 24;  ///< pixels that a dragged column keeps

/// The text in as few lines as the width holds, as even as they can be: no line with one character that is left over.
QString evenLines(const QString& text, const QFontMetrics& metrics, int width);

/// Header texts that their column cannot hold go on in a second line.
class WrappingHeader : public QHeaderView {
public:
    explicit WrappingHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    QSize sectionSizeFromContents(int section) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;

private:
    QString textOf(int section) const;
};

/// The row numbers. A press there and its release on the same number are a click; a drag selects rows for copying.
class RowNumbers : public QHeaderView {
    Q_OBJECT
public:
    explicit RowNumbers(QWidget* parent);

signals:
    void clicked(int section);  ///< with the left button, after its release

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int sectionAt(const QMouseEvent& event) const;  ///< -1: none
    int m_pressed = -1, m_last = -1;
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
