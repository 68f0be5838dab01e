#pragma once
// Every window of the program, one after the other, filled as in use, on a workspace of its own with the samples in it.

#include "app/CheckTurns.h"
#include "app/ListBox.h"
#include "app/frmAbout.h"
#include "app/frmFz.h"
#include "app/frmHf.h"
#include "app/frmJc.h"
#include "app/frmMain.h"
#include "app/frmNewProjects.h"
#include "base/FileBytes.h"
#include "controls/XPButton.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmCgkd.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmPqxSelect.h"
#include "editors/windows/frmSelect.h"
#include "editors/windows/frmSelectCg.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfy.h"
#include "editors/windows/frmTfz.h"
#include "editors/windows/frmWfy.h"
#include "editors/windows/frmWfz.h"
#include "exchange/ProjectExport.h"
#include "exchange/windows/frmDr.h"
#include "exchange/windows/frmDrBg.h"
#include "exchange/windows/frmScbj.h"
#include "office/windows/DrawingWindow.h"
#include "office/windows/SheetWindow.h"
#include "phone/Phone.h"
#include "phone/windows/frmSjName.h"
#include "project/Workspace.h"
#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPl.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "screens/windows/frmZdcs.h"
#include "tools/ExampleTraverse.h"
#include "tools/windows/frmFhdx.h"
#include "tools/windows/frmQljs.h"
#include "tools/windows/frmZbzfs.h"
#include "ui/Theme.h"
#include "ui/frmZt.h"
#include "views/frmHdm.h"
#include "views/frmPmt.h"
#include "views/frmZdm.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace every_window {

/// What is done with a window that is shown; it is hidden again afterwards.
using Seen = std::function<void(QWidget&)>;

/// Says yes to everything; what is wrong stands on standard error.
class SilentDialogs final : public Dialogs {
public:
    bool box(const Msg& msg) override
    {
        if (msg.icon != Icon::Information) qWarning("%s", msg.text.c_str());
        return true;
    }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return {}; }
    std::optional<std::string> saveFile(std::string_view) override { return {}; }
};

/// Shows the window and waits until it has the focus. A field that is filled in before would keep its text cursor
/// where another one gets it.
inline void shown(QWidget& window)
{
    window.show();
    window.activateWindow();
    for (const QDeadlineTimer patience(5000); !window.isActiveWindow() && !patience.hasExpired();)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    QApplication::processEvents();
}

inline void show(const Seen& seen, QWidget& window)
{
    shown(window);
    seen(window);
    window.hide();
}

template <class Form>
void open(const Seen& seen, const std::function<void(Form&)>& prepare = {})
{
    Form form;
    if (prepare) prepare(form);
    show(seen, form);
}

inline void type(QWidget& form, std::initializer_list<std::pair<const char*, const char*>> texts)
{
    for (const auto& [box, text] : texts)
        form.findChild<QLineEdit*>(QString::fromUtf8(box))->setText(QString::fromUtf8(text));
}

inline void pick(QWidget& form, const char* list, int item)
{
    auto* picked = form.findChild<PickList*>(QString::fromUtf8(list));
    picked->setCurrentIndex(item);
    emit picked->activated(item);
}

inline void check(QWidget& form, const char* box)
{
    form.findChild<QCheckBox*>(QString::fromUtf8(box))->setChecked(true);
}

inline void click(QWidget& form, const char* button)
{
    emit form.findChild<XPButton*>(QString::fromUtf8(button))->Click();
}

inline void showScreens(const Seen& seen)
{
    open<frmDgdZb>(seen, [](auto& form) {
        shown(form);
        pick(form, "comDgdCz", 0);
        for (const char* stake : {"12340", "12400", "12460"}) {
            type(form, {{"txtDgdZbFylc", stake}});
            for (const int side : {0, 1, 2}) {
                pick(form, "comDgdZbz", side);
                if (side > 0) type(form, {{"txtDgdPj", "12.25"}});
                click(form, "butDgdCalc");
            }
        }
    });
    open<frmPlfy>(seen, [](auto& form) {
        shown(form);
        pick(form, "comPlzbCz", 0);
        type(form, {{"txtPlzbQdlc", "12300"}, {"txtPlzbZdlc", "12600"}, {"txtPlzbBc", "20"}, {"txtPlzbPj", "12.25"}});
        click(form, "butPlzbCalc");
    });
    open<frmFs>(seen, [](auto& form) {
        shown(form);
        for (const auto& [x, y] :
             {std::pair{"2856486.5", "512730.9"}, {"2856540.2", "512815.4"}, {"2856580.7", "512909.1"}}) {
            type(form, {{"txtFsx", x}, {"txtFsY", y}});
            click(form, "butFsCalc");
        }
    });
    open<frmDgdGc>(seen, [](auto& form) {
        shown(form);
        for (const char* stake : {"12340", "12400", "12460"}) {
            type(form, {{"txtDgdGcFylc", stake}});
            for (const int side : {0, 1, 2}) {
                pick(form, "comDgdGcz", side);
                if (side > 0) type(form, {{"txtDgdGcPj", "12.25"}});
                click(form, "butDgdGcCalc");
            }
        }
    });
    open<frmPlGc>(seen, [](auto& form) {
        shown(form);
        type(form, {{"txtPlGcQdlc", "12300"}, {"txtPlGcZdlc", "12600"}, {"txtPlGcPj", "12.25"}, {"txtPlGcJj", "20"}});
        click(form, "butPlGcCalc");
    });
    frmJgw structures;
    shown(structures);
    pick(structures, "comJgwCz", 0);
    check(structures, "cheJgwJj");
    type(structures, {{"txtJgwJj", "75"}, {"txtJgwKq", "4"}, {"txtJgwKh", "4"}, {"txtJgwZz", "9"}, {"txtJgwZy", "9"}});
    for (const char* stake : {"12345", "12480", "12650"}) {
        type(structures, {{"txtJgwFylc", stake}});
        click(structures, "butJgwCalc");
    }
    show(seen, structures);
    frmPl range(structures);
    type(range, {{"txtQdlc", "12300"}, {"txtZdlc", "12600"}, {"txtBc", "100"}});
    show(seen, range);
    open<frmZdcs>(seen);
}

inline void showViews(const Seen& seen)
{
    open<frmPmt>(seen, [](auto& form) {
        shown(form);
        type(form, {{"txtLc", "13690"}});
        click(form, "cmdZd");
    });
    open<frmZdm>(seen);
    open<frmHdm>(seen, [](auto& form) {
        shown(form);
        check(form, "cheLm");
        type(form, {{"txtLmhd", "0.62"}, {"txtLc", "12800"}});
        click(form, "cmdZd");
    });
}

/// What the check finds in the project after some slips of the hand, which are undone again.
inline void showCheck(const Seen& seen)
{
    const auto exchange = [](std::string_view file, const std::string& from, const std::string& to) {
        const std::string path = ProjectPath(gProject) + "/" + std::string(file);
        std::string bytes = ReadBytes(path);
        const auto at = bytes.find(from);
        if (at == std::string::npos) qFatal("%s does not hold %s", path.c_str(), from.c_str());
        std::ofstream(path, std::ios::binary) << bytes.replace(at, from.size(), to);
    };
    const std::tuple<std::string_view, const char*, const char*> slips[] = {
        {files::horizontal, "2857049.832", "28570a9.832"},
        {files::vertical, "13960,", "13060,"},
        {files::superelevation, ",12972.609,-2,-2", ",12972.609,-2"}};
    for (const auto& [file, right, wrong] : slips) exchange(file, right, wrong);
    CheckTurns turns;
    turns.start();
    while (turns.running()) QApplication::processEvents(QEventLoop::AllEvents, 20);
    frmJc found(turns);
    show(seen, found);
    for (const auto& [file, right, wrong] : slips) exchange(file, wrong, right);
}

inline void showExchange(const Seen& seen)
{
    std::vector<std::string> report;
    frmDr import(landxml::File::fromBytes(ProjectAsLandXml(ProjectPath("示例一"), "示例一", report)));
    type(import, {{"txtDrMc", "滨河路"}});
    show(seen, import);
    frmDrBg told(QStringLiteral("导出报告"), {fromUtf8(report.empty() ? "没有不能带走的内容" : report[0])});
    show(seen, told);
    frmFz copied(QStringLiteral("示例一"));
    show(seen, copied);
    keepReplaced(files::breaks, "100,120\r\n");
    keepReplaced(files::vertical, "0,10\r\n50,12,900\r\n");
    frmHf kept(QStringLiteral("示例一"));
    kept.findChild<ListBox*>(QStringLiteral("lstHf"))->setCurrentRow(0);
    show(seen, kept);
    showCheck(seen);
    frmScbj compared(shared.tables, {{"A1", 2856486.512, 512730.907, {}}, {"A2", 2856540.203, 512815.415, 52.31}});
    type(compared, {{"txtScbjPm", "0.02"}, {"txtScbjGc", "0.02"}});
    shown(compared);
    click(compared, "butScbjCalc");
    show(seen, compared);
}

inline void showEditors(const Seen& seen)
{
    open<frmSelect>(seen);
    open<frmPqxSelect>(seen);
    open<frmJdpqx>(seen);
    gProject = "示例二";
    open<frmJmpqx>(seen);
    gProject = "示例一";
    open<frmSqx>(seen);
    open<frmSelectCg>(seen);
    open<frmCg>(seen);
    open<frmCgkd>(seen);
    open<frmDl>(seen);
    open<frmDxd>(seen);
    open<frmBpjs>(seen);
    open<frmTfz>(seen);
    open<frmTfy>(seen);
    open<frmWfz>(seen);
    open<frmWfy>(seen);
    frmZt pasted({{"第 1 行“起点里程”", "K12+345.678", "12345.678"},
                  {"第 1 行“起点X坐标”", "2,856,486.512", "2856486.512"},
                  {"第 1 行“起点方位角”", "123°45′30″", "123.4530"}});
    show(seen, pasted);
}

inline void showTools(const Seen& seen)
{
    open<frmZbzfs>(seen, [](auto& form) {
        type(
            form,
            {{"txtZsCzX", "3456789.123"}, {"txtZsCzY", "456123.456"}, {"txtZsFwj", "125.3015"}, {"txtZsJl", "186.42"}});
        click(form, "butZsCalc");
        type(form, {{"txtFsCzx", "3456789.123"},
                    {"txtFsCzy", "456123.456"},
                    {"txtFsHsX", "3456912.408"},
                    {"txtFsHsY", "456001.772"}});
        click(form, "butFsCalc");
    });
    open<frmQljs>(seen, [](auto& form) {
        type(form, {{"txtA", "100"}, {"txtR", "200"}, {"txtL0", "30"}});
        emit form.template findChild<QPushButton*>(QStringLiteral("Command1"))->clicked();
    });
    open<frmFhdx>(seen, [](auto& form) { type(form, {{"txtDxd", "7"}}); });
    auto traverse = exampleTraverse();
    AdjustFhdx(traverse, true);
    DrawingWindow plan(DrawFhdx(traverse));
    plan.setObjectName(QStringLiteral("DrawingWindow"));
    show(seen, plan);
    SheetWindow sheet(std::move(traverse), QStringLiteral("附合导线计算表"));
    sheet.setObjectName(QStringLiteral("SheetWindow"));
    show(seen, sheet);
}

}  // namespace every_window

/// Shows all of them, each filled, to `seen`. Needs an application with the theme.
inline void forEveryWindow(const every_window::Seen& seen)
{
    using namespace every_window;
    SilentDialogs silent;
    setDialogs(&silent);
    QTemporaryDir workspace;
    gAppPath = workspace.path().toStdString();
    namespace fs = std::filesystem;
    fs::copy(VM_SOURCE_DIR "/samples", WorkspacePath(), fs::copy_options::recursive);
    gProject = "示例一";
    ExportForPhone("road1");

    open<frmMain>(seen, [](frmMain& form) {
        shown(form);
        form.findChild<ListBox*>(QStringLiteral("lstProjects"))->setCurrentRow(0);
        click(form, "cmdOpenProjects");
    });
    open<frmAbout>(seen);
    open<frmNewProjects>(seen, [](auto& form) { type(form, {{"txtNewProjects", "滨河路"}}); });
    open<frmSjName>(seen, [](auto& form) { type(form, {{"txtsjName", "binhe"}}); });
    showScreens(seen);
    showViews(seen);
    showExchange(seen);
    showEditors(seen);
    showTools(seen);
    setDialogs(nullptr);
}
