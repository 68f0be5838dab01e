#pragma once
// An editor's window under real key and mouse events, and its state after each of them as one short text.

#include "controls/XPButton.h"
#include "editors/windows/EditorForm.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/Windows.h"
#include "tables/CalcTables.h"
#include "ui/MSFlexGrid.h"

#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

class EditorWindow {
public:
    explicit EditorWindow(EditorForm& shown)
        : form(shown), grid(*shown.findChild<MSFlexGrid*>(control("Msfg"))),
          box(*shown.findChild<QLineEdit*>(control("txt", "Input")))
    {
        form.show();
        activate();
    }

    EditorForm& form;
    MSFlexGrid& grid;
    QLineEdit& box;

    QString control(const char* before, const char* after = "") const
    {
        return QString::fromUtf8(before) + QString::fromUtf8(form.table().stem.data()) + QString::fromUtf8(after);
    }

    // Events

    void press(int row, int col, Qt::MouseButton button = Qt::LeftButton) const
    {
        grid.scrollTo(grid.model()->index(row - 1, col - 1));
        QTest::mousePress(grid.viewport(), button, {}, inViewport(row, col));
    }
    void release(int row, int col, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseRelease(grid.viewport(), button, {}, inViewport(row, col));
        if (!grid.contextMenu()->isVisible()) return;
        grid.contextMenu()->close();
        activate();
    }
    void click(int row, int col, Qt::MouseButton button = Qt::LeftButton) const
    {
        press(row, col, button);
        release(row, col, button);
    }
    void enterCell(int row, int col) const
    {
        grid.setFocus();
        gGridLeftDown = false;
        grid.setRow(row);
        grid.setCol(col);
        emit grid.Click();
    }
    void clickNumber(int row) const
    {
        auto* numbers = grid.verticalHeader()->viewport();
        grid.scrollTo(grid.model()->index(row - 1, 0));
        QTest::mouseClick(numbers, Qt::LeftButton, {}, numbers->mapFrom(&grid, grid.cellRect(row, 0).center()));
    }
    /// To whatever has the focus.
    void key(Qt::Key key, Qt::KeyboardModifiers with = {}) const { QTest::keyClick(focus(), key, with); }
    /// By keys where the keyboard has them, else as an input method commits it.
    void type(const char* text) const
    {
        const QString typed = QString::fromUtf8(text);
        const auto isAscii = [](QChar c) { return c.unicode() < 128; };
        if (std::all_of(typed.begin(), typed.end(), isAscii)) return QTest::keyClicks(focus(), typed);
        QInputMethodEvent commit;
        commit.setCommitString(typed);
        QApplication::sendEvent(focus(), &commit);
    }
    void enter() const { key(Qt::Key_Return); }
    void paste(const char* text) const
    {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        const auto usual = platform().keyIsDown;
        platform().keyIsDown = [](int virtualKey) { return virtualKey == kVirtualKeyControl; };
        key(Qt::Key_V, Qt::ControlModifier);
        platform().keyIsDown = usual;
    }
    /// A click on one of the row of buttons.
    void push(const char* name) const
    {
        auto* button = form.findChild<XPButton*>(control("cmd", name));
        if (!button) qFatal("no button %s", name);
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // What is seen

    QString cell(int row, int col) const { return grid.TextMatrix(row, col); }
    /// Rows 1 on, cells of a row with "," between, rows with "/".
    QString cells() const
    {
        QStringList rows;
        for (int row = 1; row < grid.Rows(); ++row) {
            QStringList texts;
            for (int col = 1; col < grid.Cols(); ++col) texts << cell(row, col);
            rows << texts.join(u',');
        }
        return rows.join(u'/');
    }
    /// "2,3 cur 1,3 rows 4 ES [12]": current cell of the grid, cell of the box, Rows, Edited, EnterStarted, the box's
    /// text; round brackets around a hidden box.
    QString state() const
    {
        return QStringLiteral("%1,%2 cur %3,%4 rows %5 %6%7 ")
                   .arg(grid.Row())
                   .arg(grid.Col())
                   .arg(form.CurRow)
                   .arg(form.CurCol)
                   .arg(grid.Rows())
                   .arg(QChar(form.Edited ? u'E' : u'-'))
                   .arg(QChar(form.EnterStarted ? u'S' : u'-')) +
               (box.isVisible() ? QStringLiteral("[%1]") : QStringLiteral("(%1)")).arg(box.text());
    }

private:
    void activate() const
    {
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form)) qFatal("the window did not become active");
    }
    QPoint inViewport(int row, int col) const
    {
        return grid.viewport()->mapFrom(&grid, grid.cellRect(row, col).center());
    }
    QWidget* focus() const { return form.focusWidget() ? form.focusWidget() : &form; }
};

/// An editor on a project of its own.
template <class F>
struct OpenedEditor {
    ScriptedDialogs dialogs;
    ScriptedPlatform seams;
    ProjectFolder folder;
    F form;
    EditorWindow w;

    QStringList frames() const
    {
        QStringList texts;
        for (const FrameBox& box : form.table().frameBoxes()) texts << textOf(form, box.control.data());
        return texts;
    }

    OpenedEditor(std::initializer_list<ProjectFolder::File> files = {}, bool leftDown = false)
        : folder(files), form(), w((gGridLeftDown = leftDown, form))
    {}
};

/// One event and the state after it.
struct Step {
    const char* what;
    std::function<void(EditorWindow&)> event;
    const char* state;
};

inline Step click(int row, int col, const char* state)
{
    return {"click", [=](EditorWindow& w) { w.click(row, col); }, state};
}
/// A cell entered as Enter does it, while the left button was not the last one pressed.
inline Step enterCell(int row, int col, const char* state)
{
    return {"enter cell", [=](EditorWindow& w) { w.enterCell(row, col); }, state};
}
inline Step rightClick(int row, int col, const char* state)
{
    return {"right click", [=](EditorWindow& w) { w.click(row, col, Qt::RightButton); }, state};
}
inline Step clickNumber(int row, const char* state)
{
    return {"click on a row number", [=](EditorWindow& w) { w.clickNumber(row); }, state};
}
inline Step press(int row, int col, const char* state)
{
    return {"press", [=](EditorWindow& w) { w.press(row, col); }, state};
}
inline Step release(int row, int col, const char* state)
{
    return {"release", [=](EditorWindow& w) { w.release(row, col); }, state};
}
inline Step type(const char* text, const char* state)
{
    return {text, [=](EditorWindow& w) { w.type(text); }, state};
}
inline Step key(Qt::Key pressed, const char* state)
{
    return {"key", [=](EditorWindow& w) { w.key(pressed); }, state};
}
inline Step enter(const char* state)
{
    return {"Enter", [](EditorWindow& w) { w.enter(); }, state};
}
inline Step push(const char* name, const char* state)
{
    return {name, [=](EditorWindow& w) { w.push(name); }, state};
}
/// The box loses the focus to the grid.
inline Step focusOut(const char* state)
{
    return {"focus out", [](EditorWindow& w) { w.grid.setFocus(); }, state};
}

/// Plays the events and compares the state after each; says which step went wrong.
inline void play(EditorWindow& window, const std::vector<Step>& steps)
{
    int number = 0;
    for (const Step& step : steps) {
        ++number;
        step.event(window);
        if (window.state() != QString::fromUtf8(step.state))
            QFAIL(qPrintable(
                QStringLiteral("step %1 (%2): %3 instead of %4; cells %5")
                    .arg(number)
                    .arg(QString::fromUtf8(step.what), window.state(), QString::fromUtf8(step.state), window.cells())));
    }
}
