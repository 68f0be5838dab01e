#pragma once
// Long work in a handler: the window shows how far it is and stays alive, Esc abandons it, nothing else can be started.

#include <QElapsedTimer>
#include <QFrame>

#include <QString>

#include <functional>

class QLabel;

/// While one stands, the program takes no input but Esc. It shows itself over the foot of a widget once the work has
/// lasted a moment, and takes its turns of the event loop by itself.
class BusyRow : public QFrame {
    Q_OBJECT
public:
    explicit BusyRow(QWidget* over);
    ~BusyRow() override;

    /// Called often; now and then shows the text and lets the window paint. True: it did.
    bool tick(const std::function<QString()>& text);
    bool abandoned() const { return m_abandoned; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* m_label;
    QElapsedTimer m_sinceStart, m_sinceTurn;
    bool m_abandoned = false;
};
