#pragma once
// Labels and their boxes side by side, in as many columns as the width holds.

#include <QLayout>

#include <vector>

/// In one line where the width allows it, each field as wide as it is. Where it does not, the fields stand in columns
/// under each other, their labels right-aligned.
class FieldFlow : public QLayout {
    Q_OBJECT
public:
    FieldFlow() { setContentsMargins(0, 0, 0, 0); }
    ~FieldFlow() override;

    /// @param box may be missing: a check box that says all
    void addField(QWidget* head, QWidget* box);

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;     ///< one line
    QSize minimumSize() const override;  ///< in a window as narrow as one may become
    void setGeometry(const QRect& rect) override;

private:
    struct Field {
        QLayoutItem* head;
        QLayoutItem* box;  // nullptr: none
    };
    struct Columns {
        std::vector<int> heads, boxes;  // widths
        int width = 0;
        bool oneLine = false;
    };
    Columns columns(int count) const;
    Columns columnsWithin(int width) const;
    int lines(const Columns& columns) const;
    int lineHeight() const;

    std::vector<Field> m_fields;
    std::vector<QLayoutItem*> m_items;  // heads and boxes in their order
};
