#pragma once
// Driving real windows: named controls, modal dialogs answered while they are up, the seams to the machine replaced.

#include "ui/Platform.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <QtTest/QTest>

#include <functional>
#include <vector>

/// The control of that name in the window; a missing one ends the test program at once.
template <class Control>
Control& named(const QWidget& window, const char* name)
{
    auto* control = window.findChild<Control*>(QString::fromUtf8(name));
    if (!control) qFatal("no control %s", name);
    return *control;
}

inline void click(const QWidget& window, const char* name)
{
    QTest::mouseClick(&named<QWidget>(window, name), Qt::LeftButton);
}

inline QString textOf(const QWidget& window, const char* box) { return named<QLineEdit>(window, box).text(); }
inline void type(const QWidget& window, const char* box, const char* text)
{
    named<QLineEdit>(window, box).setText(QString::fromUtf8(text));
}

/// While `open` shows a modal window, `use` works on it; what is still open then is closed.
inline void useModal(const std::function<void()>& open, const std::function<void(QWidget&)>& use)
{
    bool shown = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* window = QApplication::activeModalWidget();
        if (!window) return;
        shown = true;
        use(*window);
        if (auto* left = QApplication::activeModalWidget()) left->close();
    });
    open();
    QVERIFY2(shown, "no modal window came up");
}

/// No program is started, no process ended, no key held: what was asked for is kept.
class ScriptedPlatform {
public:
    std::vector<QString> opened;  ///< files and addresses
    std::vector<int> ended;       ///< exit codes
    bool opens = true;            ///< what open() answers

    ScriptedPlatform()
    {
        platform() = {.keyIsDown = [](int) { return false; },
                      .open =
                          [this](const QString& what) {
                              opened.push_back(what);
                              return opens;
                          },
                      .endProcess = [this](int code) { ended.push_back(code); }};
    }
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;
    ~ScriptedPlatform() { platform() = m_usual; }

private:
    Platform m_usual = platform();
};
