#pragma once
// A list of names: one may be selected, none is at first; once there is a selection, only another row replaces it.

#include <QListWidget>

class ListBox : public QListWidget {
    Q_OBJECT
public:
    explicit ListBox(QWidget* parent = nullptr);

    QString Text() const;   ///< of the selection, "" for none
    int ListIndex() const;  ///< of the selection, from 0; -1 for none
    void AddItem(const QString& text) { addItem(text); }
    void Clear() { clear(); }
    void setHint(const QString& hint);  ///< grey text of an empty list: what to do next

signals:
    void DblClick();  ///< also on the empty part below the rows

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_hint;
};
