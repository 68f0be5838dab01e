#pragma once
// Text files dropped on a window.

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>

/// Watches a window. A dropped text file (.txt, .csv) is handed over once the drop itself is over, as the one who
/// dropped it waits until then; anything else that has a file in it is refused, by the boxes of the window too: they
/// would take its address as text. While a window stands over this one nothing is taken.
class FileDrop : public QObject {
public:
    using Take = std::function<void(const QString& path)>;
    /// @param take  may be empty: no file is taken then
    FileDrop(QWidget* window, Take take);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_window;
    Take m_take;
};
