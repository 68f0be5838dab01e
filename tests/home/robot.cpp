// robot [once]: the program itself with a user inside who opens every window and every dialog, and leaves by 退出程序.
// With `once` that user leaves at once. Says on standard output what came up, a name a line.

#include "app/Start.h"
#include "controls/XPButton.h"
#include "ui/DocumentWindow.h"
#include "ui/Form.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

using Step = std::function<void()>;

bool leavesAtOnce = false;
constexpr int kPace = 10;         // ms between two steps
constexpr int kPatience = 60000;  // ms for everything

template <class Control>
Control& named(QWidget& window, const QString& name)
{
    auto* control = window.findChild<Control*>(name);
    if (!control) qFatal("no control %s", qPrintable(name));
    return *control;
}

void click(QWidget& window, const QString& name) { emit named<XPButton>(window, name).Click(); }
void type(QWidget& window, const QString& name, const QString& text) { named<QLineEdit>(window, name).setText(text); }

QString scratch(const char* file) { return QCoreApplication::applicationDirPath() + u'/' + QString::fromUtf8(file); }

/// What the user does in a window, a step at a time; a step may bring up the next window.
std::vector<Step> stepsIn(QWidget& window)
{
    const QString name = window.objectName();
    const auto clicks = [&](std::initializer_list<const char*> buttons) {
        std::vector<Step> steps;
        for (const char* button : buttons)
            steps.push_back([&window, button] { click(window, QString::fromUtf8(button)); });
        return steps;
    };
    const auto types = [&](std::initializer_list<std::pair<const char*, const char*>> texts) {
        for (const auto& [box, text] : texts) type(window, QString::fromUtf8(box), QString::fromUtf8(text));
    };
    if (name == u"frmMain") {
        if (leavesAtOnce) return clicks({"cmdExit"});
        std::vector<Step> steps = clicks({"cmdNewProjects"});
        const auto pick = [&](const char* list, std::initializer_list<const char*> buttons) {
            steps.push_back([&window, list] { named<QListWidget>(window, QString::fromUtf8(list)).setCurrentRow(0); });
            for (auto& step : clicks(buttons)) steps.push_back(step);
        };
        pick("lstProjects", {"cmdOpenProjects", "butZh", "cmdProjectsDel"});
        pick("lstSj", {"butDel"});
        for (const char* item : {"EditProject", "ClacOne", "pljs", "Fs", "ClacOneGc", "pljsGc", "Jgwzb", "Zbzfs",
                                 "Fhdx", "qlbjjs", "sysm", "About"})
            steps.push_back([&window, item] { named<QAction>(window, QString::fromUtf8(item)).trigger(); });
        steps.push_back([&window] { click(window, QStringLiteral("cmdExit")); });
        return steps;
    }
    if (name == u"frmNewProjects") {
        types({{"txtNewProjects", "乙"}});
        return clicks({"cmdNewProjectsOK"});
    }
    if (name == u"frmSjName") {
        types({{"txtsjName", "a"}});
        return clicks({"sjXmOK"});
    }
    if (name == u"frmSelect") {
        std::vector<Step> steps;
        for (int option = 0; option < 11; ++option)
            steps.push_back([&window, option] {
                named<QRadioButton>(window, QStringLiteral("optCs%1").arg(option)).setChecked(true);
                click(window, QStringLiteral("cmdSelectNext"));
            });
        steps.push_back([&window] { click(window, QStringLiteral("cmdSelectBack")); });
        return steps;
    }
    if (name == u"frmDgdZb") {
        types({{"txtDgdZbFylc", "12500"}});
        return clicks({"butDgdCalc", "butDgdSave", "butDgdBack"});
    }
    if (name == u"frmPlfy") return clicks({"bugPlfy", "butPlzbSave", "butPlzbBack"});
    if (name == u"frmFs") return clicks({"butPlfs", "butFsSave", "butFsBack"});
    if (name == u"frmDgdGc") {
        types({{"txtDgdGcFylc", "12500"}});
        return clicks({"butDgdGcCalc", "butDgdGcSave", "butDgdBack"});
    }
    if (name == u"frmPlGc") return clicks({"bugPlgc", "butPlGcSave", "butPlBack"});
    if (name == u"frmJgw") return clicks({"butTxt", "pljs", "butJgwSave", "butJgwBack"});
    if (name == u"frmPl") return clicks({"butCancel"});
    if (name == u"frmZdcs") return clicks({"butZdSave", "butZdBack"});
    if (name == u"frmJdpqx") return clicks({"butJdView", "cmdJdpqxSave", "cmdJdpqxBack"});
    if (name == u"frmBpjs") return clicks({"cmdPdjsCancel"});
    if (name == u"frmFhdx") {
        types({{"txtDxd", "6"}});
        auto steps = clicks({"butFhdxBg"});
        for (const char* command : {"另存为", "导出PDF", "打印"})
            steps.push_back([command] {
                for (auto* top : QApplication::topLevelWidgets())
                    if (qobject_cast<DocumentWindow*>(top)) named<QAction>(*top, QString::fromUtf8(command)).trigger();
            });
        for (auto& step : clicks({"butFhdxCalc", "butFhdxBack"})) steps.push_back(step);
        return steps;
    }
    for (auto* button : window.findChildren<XPButton*>())
        if (const QString back = button->objectName(); back.endsWith(u"Back"))
            return {[&window, back] { click(window, back); }};
    return {[&window] { window.close(); }};
}

/// One step in the window on top.
void act()
{
    QTimer::singleShot(kPace, [] { act(); });  // goes on inside whatever comes up now
    static QHash<QWidget*, int> done;
    static QSet<QWidget*> busy;
    auto* window = QApplication::activeModalWidget();
    for (auto* top : QApplication::topLevelWidgets())
        if (!window && top->objectName() == u"frmMain") window = top;
    if (!window || !window->isVisible()) {  // on the way out, a sheet is still open
        for (auto* top : QApplication::topLevelWidgets())
            if (qobject_cast<DocumentWindow*>(top)) top->close();
        return;
    }
    const bool isNew = !window->property("seen").toBool();
    window->setProperty("seen", true);
    if (isNew) {
        done[window] = 0;
        std::printf("%s\n", qPrintable(window->objectName().isEmpty() ? window->metaObject()->className()
                                                                      : window->objectName()));
        return;
    }
    if (auto* box = qobject_cast<QMessageBox*>(window)) {
        box->buttons().constLast()->click();  // 确定, 否
    } else if (auto* dialog = qobject_cast<QFileDialog*>(window)) {
        const bool opens = dialog->acceptMode() == QFileDialog::AcceptOpen;
        auto* edit = dialog->findChild<QLineEdit*>();
        edit->setText(scratch(opens ? "points.txt" : "saved"));
        QMetaObject::invokeMethod(dialog, "accept");
    } else if (auto* print = qobject_cast<QPrintDialog*>(window)) {
        print->reject();
    } else if (!busy.contains(window)) {  // not in a turn that its own work takes
        const auto steps = stepsIn(*window);
        if (done[window] == static_cast<int>(steps.size())) return;
        busy.insert(window);
        steps[static_cast<std::size_t>(done[window]++)]();
        busy.remove(window);
    }
}

void begin()
{
    QTimer::singleShot(kPace, [] { act(); });
    QTimer::singleShot(kPatience, [] {
        auto* window = QApplication::activeModalWidget();
        qFatal("no way on from %s", window ? qPrintable(window->objectName() + window->windowTitle()) : "the start");
    });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(begin)

int main(int argc, char** argv)
{
    leavesAtOnce = argc > 1;
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    return runVelumark(argc, argv);
}
