#pragma once
// Roads in the three views that say more than one sample's start: an egg curve, chainage breaks, 500 points.

#include "base/CodePage.h"
#include "plot/Road.h"
#include "project/LoadProject.h"
#include "project/OpenRoad.h"
#include "support/EveryWindow.h"
#include "support/RandomRoute.h"

#include <cmath>
#include <fstream>

namespace road_shots {

using every_window::Seen;

inline void write(const std::string& file, const std::string& text)
{
    std::ofstream(ParameterFile(file), std::ios::binary | std::ios::trunc) << text;
}

/// The worked example of the help: typed, compared, looked at.
inline void drawExample(const Seen& seen)
{
    std::filesystem::copy(VM_SOURCE_DIR "/tests/data/worked_example", ProjectPath("例题"));
    gProject = "例题";
    LoadProject();
    const auto named = [&](const char* name) {
        return [&seen, name](QWidget& window) {
            window.setObjectName(QString::fromUtf8(name));
            seen(window);
        };
    };
    every_window::open<frmJdpqx>(named("example-points"));
    every_window::open<frmZdcs>(named("example-mainpoints"));
    every_window::open<frmPmt>(named("example-plan"));
}

/// A project of 500 intersection points with a break, grades of 400 m, one width and crossfall.
inline void writeLongRoad()
{
    gProject = "五百交点";
    std::filesystem::create_directories(ProjectPath(gProject));
    std::mt19937_64 random(500);
    const auto vertices = randomVertices(random, 500);
    const auto number = [](auto v) { return plot::fixed(static_cast<double>(v), 3); };
    std::string line = "0," + number(vertices.front().x) + "," + number(vertices.front().y) + "\r\n", grades, crossfall;
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        const auto& v = vertices[i];
        line += "JD" + std::to_string(i) + "," + number(v.x) + "," + number(v.y) + "," + number(v.ls1) + "," +
                number(v.ls2) + "," + number(v.r) + "\r\n";
    }
    line += number(vertices.back().x) + "," + number(vertices.back().y) + "\r\n";
    write("平曲线参数.txt", line);
    write("其他参数.txt", Cp936FromUtf8("交点法\r\n线性\r\n未设置\r\n未设置\r\n"));
    write("断链参数.txt", "150000,150030.5\r\n");
    for (int i = 0; i < 960; ++i) {
        const bool ends = i == 0 || i == 959;
        grades += std::to_string(i * 400) + "," + number(300 + 8 * std::sin(i * 1.7) + 60 * std::sin(i / 60.0)) +
                  (ends ? "\r\n" : ",4000\r\n");
    }
    write("竖曲线参数.txt", grades);
    write("超高参数.txt", "0,-2,-2,383000,-2,-2\r\n");
    write("超高宽度参数.txt", "0,383000,1,12.25,12.25,0.75,0.75,12.25,12.25,0.75,0.75,-4\r\n");
    const auto& middle = vertices[250];
    write("导线点参数.txt", "T1," + number(middle.x + 30) + "," + number(middle.y + 40) + ",\r\n");
}

template <class View, class Prepare>
void draw(const Seen& seen, const char* name, const Prepare& prepare)
{
    every_window::open<View>(
        [&](QWidget& view) {
            view.setObjectName(QString::fromUtf8(name));
            seen(view);
        },
        [&](View& view) {
            every_window::shown(view);
            prepare(view);
        });
}

inline auto at(const char* stake)
{
    return [stake](QWidget& view) {
        every_window::type(view, {{"txtLc", stake}});
        every_window::click(view, "cmdZd");
    };
}
inline void asItOpens(QWidget&) {}

inline void forEveryRoad(const Seen& seen)
{
    every_window::SilentDialogs silent;
    setDialogs(&silent);
    QTemporaryDir workspace;
    gAppPath = workspace.path().toStdString();
    std::filesystem::copy(VM_SOURCE_DIR "/samples", WorkspacePath(), std::filesystem::copy_options::recursive);
    shared = {};  // nothing of the windows before: what a project does not have would be shown as theirs
    openRoad = {};
    gProject = "示例二";
    LoadProject();
    draw<frmPmt>(seen, "plan-egg", asItOpens);
    draw<frmPmt>(seen, "plan-egg-near", at("218"));
    draw<frmZdm>(seen, "profile-egg", asItOpens);
    draw<frmHdm>(seen, "section-egg", at("218"));
    gProject = "示例一";
    LoadProject();
    draw<frmPmt>(seen, "plan-all", asItOpens);
    draw<frmPmt>(seen, "plan-break", at("13412.36"));
    draw<frmZdm>(seen, "profile-break", at("13412.36"));
    draw<frmHdm>(seen, "section-fill", at("12200"));
    shared = {};
    openRoad = {};
    drawExample(seen);
    shared = {};
    openRoad = {};
    writeLongRoad();
    LoadProject();
    draw<frmPmt>(seen, "plan-500", asItOpens);
    draw<frmPmt>(seen, "plan-500-near", at("150030.5"));
    draw<frmZdm>(seen, "profile-500", asItOpens);
    draw<frmHdm>(seen, "section-500", at("120000"));
    gProject = "示例一";  // named, not read: what the tables hold is another road's
    draw<frmPmt>(seen, "plan-doubtful", asItOpens);
    setDialogs(nullptr);
}

}  // namespace road_shots
