#pragma once
// A calculation window under test, worked with real keys and clicks.

#include "base/GridText.h"
#include "controls/XPButton.h"
#include "office/Xls.h"
#include "screens/Export.h"
#include "support/ScriptedDialogs.h"
#include "support/Tables.h"
#include "ui/Fields.h"
#include "ui/MSFlexGrid.h"
#include "ui/Platform.h"

#include <QCheckBox>
#include <QTemporaryDir>
#include <QtTest>

/// Straight to the north from X 1000, Y 2000: stake 0 to 1000, so that X is 1000 + stake and Y is 2000 + offset.
inline void straightNorth() { setElements({{0, 1000, 2000, 0, 0, 0}, {1000, 2000, 2000, 0, 0, 0}}); }

/// Four traverse points; P0 lies 100 m west of the straight's start.
inline void fourPoints()
{
    gDxdName = {"P0", "P1", "P2", "P3"};
    gDxdX = {1000, 1100.5, 1200, 1300};
    gDxdY = {1900, 2000.25, 2100, 2200};
    gDxdCount = 3;
}

/// A profile with one sharp grade change: 100 at 0, 110 at 500, 105 at 1000; no cross slope.
inline void sharpProfile()
{
    gSqxLc = {0, 500, 1000};
    gSqxGc = {100, 110, 105};
    gSqxR = {0, 0, 0};
    gSqxCount = 2;
}

template <class Form>
struct Driven {
    Form form;

    template <class... Args>
    explicit Driven(Args&&... args) : form(std::forward<Args>(args)...)
    {
        form.show();
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form)) qFatal("the window does not come up");
    }

    template <class Control>
    Control* get(const char* name)
    {
        auto* control = form.template findChild<Control*>(QString::fromUtf8(name));
        if (!control) qFatal("no control %s", name);
        return control;
    }
    QLineEdit* box(const char* name) { return get<QLineEdit>(name); }
    PickList* list(const char* name) { return get<PickList>(name); }
    QString text(const char* name) { return box(name)->text(); }

    /// Empties the box and types.
    void type(const char* name, const char* keys)
    {
        box(name)->clear();
        QTest::keyClicks(box(name), QString::fromUtf8(keys));
    }
    void click(const char* name) { QTest::mouseClick(get<XPButton>(name), Qt::LeftButton); }
    void tick(const char* name) { QTest::keyClick(get<QCheckBox>(name), Qt::Key_Space); }
    void pick(const char* name, int index)
    {
        auto* combo = list(name);
        combo->setFocus();
        while (combo->ListIndex() < index) QTest::keyClick(combo, Qt::Key_Down);
        while (combo->ListIndex() > index) QTest::keyClick(combo, Qt::Key_Up);
    }
    bool focused(const char* name) { return form.focusWidget() == get<QWidget>(name); }
    bool open(const char* name) { return !box(name)->isReadOnly(); }

    MSFlexGrid& grid() { return *form.template findChild<MSFlexGrid*>(); }
    int rows() { return grid().Rows() - 1; }
    QStringList row(int number)
    {
        QStringList cells;
        for (int col = 0; col < grid().Cols(); ++col) cells << grid().TextMatrix(number, col);
        return cells;
    }
    QStringList column(int col)
    {
        QStringList cells;
        for (int r = 1; r <= rows(); ++r) cells << grid().TextMatrix(r, col);
        return cells;
    }
};

/// A calculation window that tells what its rows are as a workbook of a layout.
template <class Form>
struct WithWorkbook : Form {
    QByteArray workbook(const ExportLayout& layout)
    {
        return QByteArray::fromStdString(XlsBytes(ResultSheet(layout, this->exportData())));
    }
};

/// The save button writes the rows in this layout.
template <class Form>
void savesInLayout(Driven<WithWorkbook<Form>>& f, ScriptedDialogs& dialogs, const char* button,
                   const ExportLayout& layout)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("saved.xls")));
    dialogs.save(file.fileName().toStdString());
    f.click(button);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), f.form.workbook(layout));
}

/// Every control of the window keeps its relative place and size: this box, in its frame, and the grid.
template <class Form>
void stretchesWithItsControls(Driven<Form>& f, const char* box)
{
    const QSize size = f.form.size();
    const std::vector<QWidget*> controls{f.box(box), f.box(box)->parentWidget(), &f.grid()};
    std::vector<QRect> before;
    for (const auto* control : controls) before.push_back(control->geometry());
    f.form.resize(size * 2);
    QTest::qWait(1);
    for (std::size_t i = 0; i < controls.size(); ++i)
        if (controls[i] != &f.form)
            QCOMPARE(controls[i]->geometry(), QRect(before[i].topLeft() * 2, before[i].size() * 2));
    f.form.resize(size);
    QTest::qWait(1);
    for (std::size_t i = 0; i < controls.size(); ++i)
        if (controls[i] != &f.form) QCOMPARE(controls[i]->geometry(), before[i]);
}

/// Tables of a fresh process, and the machine answered: the end of the process is noted, not carried out.
struct Machine {
    ScriptedDialogs dialogs;
    int ended = -1;
    Platform before = platform();

    Machine()
    {
        shared = {};
        platform().endProcess = [this](int code) { ended = code; };
        platform().keyIsDown = [](int) { return false; };
    }
    ~Machine()
    {
        platform() = before;
        shared = {};
    }
};

/// A text file of a batch, gone with the test.
struct BatchText {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("points.txt"));

    explicit BatchText(const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) qFatal("no file");
        file.write(bytes);
    }
    QByteArray bytes() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("gone");
    }
};

/// The station controls of a form: a pick shows the point's coordinates, the check box opens the boxes and empties
/// them.
template <class Driver>
void stationFollowsPickAndCheckBox(Driver& f, const char* pick, const char* typed, const char* x, const char* y)
{
    f.pick(pick, 1);
    QCOMPARE(f.text(x) + u' ' + f.text(y), QStringLiteral("1100.5 2000.25"));
    QVERIFY(!f.open(x) && !f.open(y));
    f.tick(typed);
    QVERIFY(f.open(x) && f.open(y) && f.focused(x));
    QVERIFY(f.list(pick)->isEnabled());
    f.tick(typed);
    QVERIFY(!f.open(x) && !f.open(y));
    QCOMPARE(f.text(x) + f.text(y), QString());
}

inline Msg refused(const char* text, const char* title = "错误") { return {text, title, Icon::Exclamation}; }

#define COMPARE_MESSAGES(dialogs, ...)                                                                                 \
    do {                                                                                                               \
        const std::vector<Msg> wanted_{__VA_ARGS__};                                                                   \
        QCOMPARE((dialogs).messages.size(), wanted_.size());                                                           \
        for (std::size_t i_ = 0; i_ < wanted_.size(); ++i_) {                                                          \
            QCOMPARE((dialogs).messages[i_].text.c_str(), wanted_[i_].text.c_str());                                   \
            QVERIFY((dialogs).messages[i_] == wanted_[i_]);                                                            \
        }                                                                                                              \
        (dialogs).messages.clear();                                                                                    \
    } while (false)
