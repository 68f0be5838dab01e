#pragma once
// Long work in a handler: the window shows how far it is and stays alive, Esc abandons it, nothing else can be started.

#include <QElapsedTimer>
#include <QFrame>

#include <QString>

#include <functional>

class QLabel;

/// Shows itself over the foot of a widget once the work has lasted a moment. In the turns of the event loop that it
/// takes, the program accepts no input but Esc.
class BusyRow : public QFrame {
    Q_OBJECT
public:
    explicit BusyRow(QWidget* over);

    /// Called often; now and then shows the text and takes a turn.
    void tick(const std::function<QString()>& text);
    bool abandoned() const { return m_abandoned; }

private:
    QLabel* m_label;
    QElapsedTimer m_sinceStart, m_sinceTurn;
    bool m_abandoned = false;
};
