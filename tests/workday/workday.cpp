// workday: the program itself with a user inside who does a day's work in its windows: a new project with an alignment,
// a break and a traverse point; a sample opened, calculated, saved; a conversion for the phone; a traverse; a project
// deleted. What every box says goes to standard output, so that two systems' days can be compared to the letter.
// Beside the program there are 参数文件 with the samples and 点.txt with stakes and offsets.

#include "app/Start.h"
#include "controls/XPButton.h"
#include "office/windows/SheetView.h"
#include "office/windows/SheetWindow.h"
#include "ui/MSFlexGrid.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTimer>
#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>

// After windows.h, which it needs.
#include <dlgs.h>
#endif

#include <cstdio>
#include <functional>
#include <vector>

namespace {

/// What is done while a window is on top: a form by its name, `kBox` or `kFile`.
struct Step {
    QString window;
    std::function<void(QWidget*)> work;
};

constexpr const char* kBox = "a box";
constexpr const char* kFile = "a file dialog";
constexpr int kPace = 20;          // ms between two looks
constexpr int kPatience = 280000;  // ms for the whole day

std::vector<Step> steps;
std::size_t next = 0;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }
QString beside(const QString& file) { return QCoreApplication::applicationDirPath() + u'/' + file; }

template <class Control>
Control& named(QWidget& window, const QString& name)
{
    auto* control = window.findChild<Control*>(name);
    if (!control) qFatal("no control %s", qPrintable(name));
    return *control;
}

void clickOn(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton, {}, control.rect().center()); }

/// By keys where the keyboard has them, else as an input method commits it.
void typeInto(QWidget& control, const QString& typed)
{
    for (const QChar c : typed) {
        if (c.unicode() < 128) {
            QTest::keyClick(&control, c.toLatin1());
        } else {
            QInputMethodEvent commit;
            commit.setCommitString(c);
            QApplication::sendEvent(&control, &commit);
        }
    }
}

// The words of the script

void in(const char* window, std::function<void(QWidget*)> work) { steps.push_back({text(window), std::move(work)}); }

void click(const char* window, const char* button)
{
    in(window, [button](QWidget* at) { clickOn(named<XPButton>(*at, text(button))); });
}

void type(const char* window, const char* box, const char* typed)
{
    in(window, [box, typed](QWidget* at) {
        auto& field = named<QLineEdit>(*at, text(box));
        field.setFocus();
        field.selectAll();
        typeInto(field, text(typed));
    });
}

void pick(const char* project)
{
    in("frmMain", [project](QWidget* at) {
        auto& list = named<QListWidget>(*at, QStringLiteral("lstProjects"));
        const auto found = list.findItems(text(project), Qt::MatchExactly);
        if (found.isEmpty()) qFatal("%s is not listed", project);
        list.setCurrentItem(found.first());
    });
}

void menu(const char* command)
{
    in("frmMain", [command](QWidget* at) { named<QAction>(*at, text(command)).trigger(); });
}

void choose(const char* window, const char* option)
{
    in(window, [option](QWidget* at) { clickOn(named<QRadioButton>(*at, text(option))); });
}

/// Cells of an editor's row, from the first column on.
void row(const char* editor, const char* stem, int number, std::initializer_list<const char*> cells)
{
    int col = 0;
    for (const char* cell : cells) {
        ++col;
        in(editor, [=](QWidget* at) {
            auto& grid = named<MSFlexGrid>(*at, QStringLiteral("Msfg") + text(stem));
            grid.scrollTo(grid.model()->index(number - 1, col - 1));
            const QPoint middle = grid.viewport()->mapFrom(&grid, grid.cellRect(number, col).center());
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middle);
            typeInto(named<QLineEdit>(*at, QStringLiteral("txt") + text(stem) + QStringLiteral("Input")), text(cell));
        });
    }
}

/// Says what the box says, and takes the button that stands first (确定, 是) or last.
void answer(bool yes = true)
{
    in(kBox, [yes](QWidget* at) {
        auto* box = qobject_cast<QMessageBox*>(at);
        std::printf("[%s] %s\n", box->windowTitle().toUtf8().constData(), box->text().toUtf8().constData());
        for (auto* button : box->buttons()) {
            const auto role = box->buttonRole(button);
            if (role == (yes ? QMessageBox::YesRole : QMessageBox::NoRole) || role == QMessageBox::AcceptRole)
                return button->click();
        }
        qFatal("a box without that answer");
    });
}

void file(const char* name)
{
    in(kFile, [name](QWidget* at) {
        const QString path = beside(text(name));
#ifdef Q_OS_WIN
        static_cast<void>(at);
        const HWND dialog = FindWindowW(L"#32770", nullptr);
        const int box = GetDlgItem(dialog, cmb13) ? cmb13 : edt1;
        SetDlgItemTextW(dialog, box, QDir::toNativeSeparators(path).toStdWString().c_str());
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
#else
        at->findChild<QLineEdit*>()->setText(path);
        QMetaObject::invokeMethod(at, "accept");
#endif
    });
}

/// Values below each other in the sheet, Enter after each.
void down(const char* from, std::initializer_list<const char*> values)
{
    in("SheetWindow", [from, all = std::vector<const char*>(values)](QWidget* at) {
        auto& view = qobject_cast<SheetWindow*>(at)->view();
        QApplication::setActiveWindow(at);  // the form beside it may be the active one by now, and would get the keys
        view.setFocus();
        view.setCurrent(from);
        for (const char* value : all) {
            typeInto(*(QApplication::focusWidget() ? QApplication::focusWidget() : &view), text(value));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
    });
}

void aNewProject()
{
    click("frmMain", "cmdNewProjects");
    type("frmNewProjects", "txtNewProjects", "新线 A");
    click("frmNewProjects", "cmdNewProjectsOK");
    pick("新线 A");
    click("frmMain", "cmdOpenProjects");
    answer();
    menu("EditProject");
    choose("frmSelect", "optCs1");
    click("frmSelect", "cmdSelectNext");
    choose("frmPqxSelect", "optPqxSelectJd");
    click("frmPqxSelect", "cmdPqxSelectOk");
    type("frmJdpqx", "txtJdpqxQdLc", "12000");
    type("frmJdpqx", "txtJdpqxQdX", "2856320.418");
    type("frmJdpqx", "txtJdpqxQdy", "512480.736");
    row("frmJdpqx", "Jdpqx", 1, {"交点1", "2856575.075", "512894.675", "60", "70", "420"});
    type("frmJdpqx", "txtJdpqxZdx", "2856649.659");
    type("frmJdpqx", "txtJdpqxZdy", "513502.114");
    click("frmJdpqx", "cmdJdpqxSave");
    answer();
    click("frmJdpqx", "cmdJdpqxBack");
    choose("frmSelect", "optCs0");
    click("frmSelect", "cmdSelectNext");
    row("frmDxd", "Dxd", 1, {"控制点", "2856355.635", "512438.128", "山包"});
    click("frmDxd", "cmdDxdSave");
    answer();
    click("frmDxd", "cmdDxdBack");
    click("frmSelect", "cmdSelectBack");
}

void aSampleCalculated()
{
    pick("示例一");
    click("frmMain", "cmdOpenProjects");
    answer();
    menu("ClacOne");
    type("frmDgdZb", "txtDgdZbFylc", "12500");
    click("frmDgdZb", "butDgdCalc");
    type("frmDgdZb", "txtDgdZbFylc", "13210.55");
    click("frmDgdZb", "butDgdCalc");
    click("frmDgdZb", "butDgdSave");
    file("单点.xls");
    answer();
    click("frmDgdZb", "butDgdBack");
    menu("pljs");
    type("frmPlfy", "txtPlzbQdlc", "12000");
    type("frmPlfy", "txtPlzbZdlc", "14000");
    type("frmPlfy", "txtPlzbBc", "20");
    type("frmPlfy", "txtPlzbPj", "6.5");
    click("frmPlfy", "butPlzbCalc");
    click("frmPlfy", "butPlzbSave");
    file("批量 放样.xls");
    answer();
    click("frmPlfy", "butPlzbSave");
    file("批量 放样.xls");
    answer();  // 文件已存在！是否覆盖？
    answer();
    click("frmPlfy", "butPlzbBack");
    menu("pljsGc");
    click("frmPlGc", "bugPlgc");
    file("点.txt");
    click("frmPlGc", "butPlGcSave");
    file("高程.xls");
    answer();
    click("frmPlGc", "butPlBack");
}

void aConversionAndATraverse()
{
    pick("示例一");
    click("frmMain", "butZh");
    type("frmSjName", "txtsjName", "road1");
    click("frmSjName", "sjXmOK");
    answer();
    menu("Fhdx");
    type("frmFhdx", "txtDxd", "6");
    choose("frmFhdx", "optZ");
    click("frmFhdx", "butFhdxBg");
    down("a4", {"A", "B", "1", "2", "3", "4", "C", "D"});
    down("b6", {"99.0100", "167.4536", "123.1124", "189.2036", "179.5918", "129.2724"});
    down("e7", {"225.85", "139.03", "172.57", "100.07", "102.48"});
    down("l4", {"3037.7326", "2507.69"});
    down("m4", {"2063.6010", "1215.63"});
    down("l16", {"2166.74", "2851.8382"});
    down("m16", {"1757.27", "2485.7207"});
    click("frmFhdx", "butFhdxCalc");
    click("frmFhdx", "butFhdxZd");
    in("SheetWindow", [](QWidget* at) { named<QAction>(*at, QStringLiteral("另存为")).trigger(); });
    file("平差.xls");
    in("DrawingWindow", [](QWidget* at) { named<QAction>(*at, QStringLiteral("另存为")).trigger(); });
    file("导线.dxf");
    in("SheetWindow", [](QWidget* at) { at->close(); });
    in("DrawingWindow", [](QWidget* at) { at->close(); });
    click("frmFhdx", "butFhdxBack");
}

void theEnd()
{
    pick("示例二");
    click("frmMain", "cmdProjectsDel");
    answer();
    click("frmMain", "cmdExit");
}

/// The window of that name where it takes input now.
QWidget* onTop(const QString& name)
{
    auto* modal = QApplication::activeModalWidget();
    if (name == text(kBox)) return qobject_cast<QMessageBox*>(modal);
#ifdef Q_OS_WIN
    const HWND dialog = FindWindowW(L"#32770", nullptr);
    const bool asks = dialog && IsWindowVisible(dialog) && GetDlgItem(dialog, IDOK);
    if (name == text(kFile)) return asks ? QApplication::topLevelWidgets().value(0) : nullptr;
    if (asks) return nullptr;
#else
    if (name == text(kFile)) return qobject_cast<QFileDialog*>(modal);
#endif
    if (modal && modal->objectName() == name && modal->isVisible()) return modal;
    for (auto* top : QApplication::topLevelWidgets())
        if (top->objectName() == name && top->isVisible() && (!modal || top->inherits("DocumentWindow"))) return top;
    return nullptr;
}

void act()
{
    QTimer::singleShot(kPace, [] { act(); });  // goes on inside whatever comes up now
    if (next == steps.size()) return;
    static QSet<QWidget*> busy;  // in a turn of the event loop that its own work takes
    auto* window = onTop(steps[next].window);
    if (!window || busy.contains(window)) return;
    const auto step = steps[next++];
    busy.insert(window);
    step.work(window);
    busy.remove(window);
}

void begin()
{
    aNewProject();
    aSampleCalculated();
    aConversionAndATraverse();
    theEnd();
    QTimer::singleShot(kPace, [] { act(); });
    QTimer::singleShot(kPatience, [] {
        auto* window = QApplication::activeModalWidget();
        qFatal("step %d of %d waits for %s; on top is %s", static_cast<int>(next), static_cast<int>(steps.size()),
               next < steps.size() ? qPrintable(steps[next].window) : "the end",
               window ? qPrintable(window->objectName() + u' ' + window->windowTitle()) : "no modal window");
    });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    return runVelumark(argc, argv);
}
