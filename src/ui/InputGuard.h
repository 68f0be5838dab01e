#pragma once
// Turns of the event loop that take no input.

#include <QObject>

/// While one stands, no key, click, wheel or close request reaches the program; what came is dropped, not kept for
/// later, and Esc is remembered. Timers run and windows paint.
class InputGuard : public QObject {
public:
    InputGuard();
    bool sawEscape() const { return m_sawEscape; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_sawEscape = false;
};
