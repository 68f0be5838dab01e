#include "app/MenuCommands.h"

#include "app/Help.h"
#include "app/frmAbout.h"
#include "editors/windows/frmSelect.h"
#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "tools/windows/frmFhdx.h"
#include "tools/windows/frmQljs.h"
#include "tools/windows/frmZbzfs.h"

namespace {

/// A fresh form at each opening; the main window waits until it has unloaded.
template <class Screen>
void show(QWidget* caller)
{
    Screen screen;
    screen.showModal(caller);
}

void showHelp(QWidget*) { openHelp(); }

// clang-format off
constexpr MenuCommand kCommands[] = {
    {"Project",     "工程",             ""},
    {"EditProject", "编辑线路参数",     "Project", 1, "编辑线路参数", true, show<frmSelect>},
    {"Calc",        "计算",             "", 0, "", true},
    {"Fy",          "由桩号求坐标",     "Calc"},
    {"ClacOne",     "计算单个点坐标",   "Fy", 2, "计算单个点坐标", true, show<frmDgdZb>},
    {"pljs",        "批量计算坐标",     "Fy", 3, "批量计算坐标", true, show<frmPlfy>},
    {"Fs",          "由坐标求桩号",     "Calc", 4, "坐标反算桩号偏距", true, show<frmFs>},
    {"gc",          "中边桩高程",       "Calc"},
    {"ClacOneGc",   "计算单个点高程",   "gc", 5, "计算单个点高程", true, show<frmDgdGc>},
    {"pljsGc",      "批量计算高程",     "gc", 6, "批量计算高程", true, show<frmPlGc>},
    {"Jgwzb",       "结构物角点坐标",   "Calc", 7, "结构物角点坐标", true, show<frmJgw>},
    {"tool",        "工具",             ""},
    {"Zbzfs",       "坐标正反算",       "tool", 8, "坐标正反算", false, show<frmZbzfs>},
    {"Fhdx",        "附和导线一般平差", "tool", 9, "附和导线平差", false, show<frmFhdx>},
    {"qlbjjs",      "曲率半径计算",     "tool", 10, "曲率半径计算", false, show<frmQljs>},
    {"Help",        "帮助",             ""},
    {"sysm",        "软件使用说明",     "Help", 0, "", false, showHelp},
    {"About",       "关于",             "Help", 0, "", false, show<frmAbout>},
};
// clang-format on

}  // namespace

std::span<const MenuCommand> menuCommands() { return kCommands; }
