#pragma once
// What is left of the program's input while a load hangs.

#include "ui/InputGuard.h"

class QWidget;

/// While one stands, only the button and the window's close box take input, by mouse and keyboard.
class WaysOut : public InputGuard {
public:
    WaysOut(QWidget& window, QWidget& button) : m_window(window), m_button(button) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isWayOut(const QObject* watched, const QEvent& event) const;

    QWidget &m_window, &m_button;
};
