#include "faults/Operations.h"

#include "app/frmMain.h"
#include "base/CodePage.h"
#include "editors/windows/EditorForm.h"
#include "editors/windows/frmBpjs.h"
#include "editors/windows/frmPqxSelect.h"
#include "editors/windows/frmSelect.h"
#include "editors/windows/frmSelectCg.h"
#include "office/windows/DrawingWindow.h"
#include "office/windows/SheetWindow.h"
#include "phone/Phone.h"
#include "project/Workspace.h"
#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "screens/windows/frmZdcs.h"
#include "support/Windows.h"
#include "ui/MSFlexGrid.h"

#include <QAction>
#include <QCheckBox>
#include <QRadioButton>

#include <filesystem>
#include <fstream>
#include <utility>

namespace fs = std::filesystem;

namespace faults {

namespace {

constexpr const char* kFirst = "示例一";   // by intersection points
constexpr const char* kSecond = "示例二";  // by blocks
constexpr const char* kFresh = "新建的";   // never opened: four lines of settings, nothing else

std::string outputs() { return gAppPath + "/输出"; }

/// The shown form of that name.
Form* formOf(const char* name)
{
    for (auto* window : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<Form*>(window);
            form && form->isVisible() && form->objectName() == QLatin1String(name))
            return form;
    return nullptr;
}

/// Runs `open`; while the form of that name stands, `use` works on it, and then it goes without being saved.
void whileOpen(Answers& answers, const char* name, const std::function<void()>& open,
               const std::function<void(Form&)>& use)
{
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* form = formOf(name);
        if (!form) return;
        use(*form);
        if (auto* left = formOf(name)) {
            answers.closing = true;
            left->unload();
            answers.closing = false;
        }
    });
    timer.start(0);
    open();
}

void showMain(const std::function<void(frmMain&)>& use)
{
    frmMain main;
    main.show();
    if (main.isVisible()) use(main);
    main.hide();
}

void choose(frmMain& main, const char* list, const char* name)
{
    auto& box = named<ListBox>(main, list);
    const auto found = box.findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (!found.isEmpty()) box.setCurrentItem(found.front());
}

/// In the wizard: the option, the editor behind it, its first cell written anew with the same value, 保 存.
Operation editor(const char* name, const char* form, const char* stem, int option, const char* project)
{
    return {.name = name, .run = [=](Answers& answers) {
                gProject = project;
                frmSelect wizard;
                wizard.show();
                named<QRadioButton>(wizard, ("optCs" + std::to_string(option)).c_str()).setChecked(true);
                whileOpen(
                    answers, form, [&] { click(wizard, "cmdSelectNext"); },
                    [&](Form& shown) {
                        auto& editing = static_cast<EditorForm&>(shown);
                        auto& grid = named<MSFlexGrid>(shown, (std::string("Msfg") + stem).c_str());
                        if (grid.Cols() < 2) return;  // of side slopes whose settings could not be read
                        grid.setTextMatrix(1, 1, QStringLiteral("0") + grid.TextMatrix(1, 1));
                        editing.Edited = true;
                        click(shown, (std::string("cmd") + stem + "Save").c_str());
                    });
                wizard.hide();
            }};
}

/// A calculation window: its texts, its button, then the rows saved over last week's file or into a new one.
template <class Screen>
Operation result(const char* name, std::vector<std::pair<const char*, const char*>> texts, const char* calculate,
                 const char* save, const char* file)
{
    return {.name = name, .run = [=](Answers& answers) {
                gProject = kFirst;
                answers.path = outputs() + "/" + file;
                Screen screen;
                screen.show();
                for (const auto& [box, text] : texts) type(screen, box, text);
                if (calculate) click(screen, calculate);
                click(screen, save);
                answers.closing = true;
                screen.unload();
                answers.closing = false;
            }};
}

/// A run over the points of a text file, from which blank lines are removed.
template <class Screen>
Operation fileRun(const char* name, const char* button, const char* lines)
{
    return {.name = name,
            .run =
                [=](Answers& answers) {
                    gProject = kFirst;
                    answers.path = outputs() + "/points.txt";
                    Screen screen;
                    screen.show();
                    click(screen, button);
                    answers.closing = true;
                    screen.unload();
                    answers.closing = false;
                },
            .silent = true,
            .before = [=] { std::ofstream(outputs() + "/points.txt", std::ios::binary) << lines; }};
}

template <class Window, class Document>
Operation document(const char* name, Document make, const char* command, const char* file)
{
    return {.name = name, .run = [=](Answers& answers) {
                answers.path = outputs() + "/" + file;
                auto window = std::make_unique<Window>(make(), QStringLiteral("附合导线"));
                window->setAttribute(Qt::WA_DeleteOnClose, false);
                auto* action = window->template findChild<QAction*>(QString::fromUtf8(command));
                if (!action) qFatal("no command %s", command);
                action->trigger();
            }};
}

Worksheet sheet()
{
    Worksheet made;
    for (int row = 1; row <= 40; ++row) made.setValue({row, 1 + row % 7}, "点" + std::to_string(row));
    return made;
}

Drawing plan()
{
    Drawing made;
    for (int i = 0; i < 60; ++i) made.entities.push_back(Drawing::Circle{{i * 10.0, i * 7.0}, 5});
    return made;
}

void newProject(Answers& answers)
{
    showMain([&](frmMain& main) {
        whileOpen(
            answers, "frmNewProjects", [&] { click(main, "cmdNewProjects"); },
            [](Form& dialog) {
                type(dialog, "txtNewProjects", "又一个");
                click(dialog, "cmdNewProjectsOK");
            });
    });
}

void convert(Answers& answers, const char* project, const char* name)
{
    showMain([&](frmMain& main) {
        choose(main, "lstProjects", project);
        whileOpen(
            answers, "frmSjName", [&] { click(main, "butZh"); },
            [&](Form& dialog) {
                type(dialog, "txtsjName", name);
                click(dialog, "sjXmOK");
            });
    });
}

void slopeSettings(Answers&)
{
    gProject = kFirst;
    frmBpjs form;
    form.show();
    type(form, "txtTfJs", "3");
    type(form, "txtWfJs", "4");
    type(form, "txtXzcs", "12");
    click(form, "cmdBpjsOk");
    form.hide();
}

template <class Choice>
void settingsChoice(Answers& answers, const char* ok, const char* next)
{
    gProject = kFresh;
    Choice form;
    form.show();
    whileOpen(
        answers, next, [&] { click(form, ok); }, [](Form&) {});
    form.hide();
}

/// Files of a project that the load cleans: blank lines in three, two missing, four lines of settings.
void makeUncleaned()
{
    const auto folder = gAppPath + "/参数文件/" + kFirst + "/";
    for (const char* file : {"导线点参数.txt", "平曲线参数.txt", "超高参数.txt"}) {
        std::ifstream in(folder + file, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(in), {}};
        in.close();
        std::ofstream(folder + file, std::ios::binary) << bytes << "\r\n\r\n";
    }
    for (const char* file : {"断链参数.txt", "超高宽度参数.txt"}) fs::remove(folder + file);
    std::ofstream(folder + "其他参数.txt", std::ios::binary) << Cp936FromUtf8("交点法\r\n线性\r\n未设置\r\n未设置\r\n");
}

void openProject(Answers&)
{
    showMain([](frmMain& main) {
        choose(main, "lstProjects", kFirst);
        click(main, "cmdOpenProjects");
    });
}

}  // namespace

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all{
        {.name = "start", .run = [](Answers&) { showMain([](frmMain&) {}); }},
        {.name = "start_in_an_empty_folder",
         .run = [](Answers&) { showMain([](frmMain&) {}); },
         .before =
             [] {
                 fs::remove_all(gAppPath + "/参数文件");
                 fs::remove_all(gAppPath + "/SJCS");
             }},
        {.name = "open", .run = openProject, .silent = true},
        {.name = "open_and_clean", .run = openProject, .silent = true, .before = makeUncleaned},
        {.name = "open_a_fresh_project",
         .run =
             [](Answers&) {
                 showMain([](frmMain& main) {
                     choose(main, "lstProjects", kFresh);
                     click(main, "cmdOpenProjects");
                 });
             },
         .silent = true},
        editor("edit_traverse_points", "frmDxd", "Dxd", 0, kFirst),
        editor("edit_intersection_points", "frmJdpqx", "Jdpqx", 1, kFirst),
        editor("edit_blocks", "frmJmpqx", "Jmpqx", 1, kSecond),
        editor("edit_profile", "frmSqx", "Sqx", 2, kFirst),
        editor("edit_superelevation", "frmCg", "Cg", 3, kFirst),
        editor("edit_widths", "frmCgkd", "Cgkd", 4, kFirst),
        editor("edit_breaks", "frmDl", "Dl", 5, kFirst),
        editor("edit_left_fill", "frmTfz", "Tfz", 7, kFirst),
        editor("edit_right_fill", "frmTfy", "Tfy", 8, kFirst),
        editor("edit_left_cut", "frmWfz", "Wfz", 9, kFirst),
        editor("edit_right_cut", "frmWfy", "Wfy", 10, kFirst),
        {.name = "choose_model",
         .run = [](Answers& a) { settingsChoice<frmPqxSelect>(a, "cmdPqxSelectOk", "frmJdpqx"); }},
        {.name = "choose_superelevation",
         .run = [](Answers& a) { settingsChoice<frmSelectCg>(a, "cmdCgSelectOk", "frmCg"); }},
        {.name = "slope_settings", .run = slopeSettings},
        {.name = "new_project", .run = newProject},
        {.name = "delete_project",
         .run =
             [](Answers&) {
                 showMain([](frmMain& main) {
                     choose(main, "lstProjects", kFirst);
                     click(main, "cmdProjectsDel");
                 });
             }},
        {.name = "convert", .run = [](Answers& a) { convert(a, kFirst, "road2"); }},
        {.name = "convert_a_fresh_project", .run = [](Answers& a) { convert(a, kFresh, "road3"); }},
        {.name = "convert_again", .run = [](Answers& a) { convert(a, kFirst, "road1"); }},
        {.name = "remove_phone_project",
         .run =
             [](Answers&) {
                 showMain([](frmMain& main) {
                     choose(main, "lstSj", "road1");
                     click(main, "butDel");
                 });
             }},
        result<frmDgdZb>("save_point", {{"txtDgdZbFylc", "12500"}}, "butDgdCalc", "butDgdSave", "new.xls"),
        result<frmDgdZb>("save_point_again", {{"txtDgdZbFylc", "12500"}}, "butDgdCalc", "butDgdSave", "old.xls"),
        result<frmPlfy>("save_points", {{"txtPlzbQdlc", "12000"}, {"txtPlzbZdlc", "13000"}, {"txtPlzbBc", "20"}},
                        "butPlzbCalc", "butPlzbSave", "old.xls"),
        result<frmFs>("save_stakes", {{"txtFsx", "2856575"}, {"txtFsY", "512894"}}, "butFsCalc", "butFsSave",
                      "new.xls"),
        result<frmDgdGc>("save_elevation", {{"txtDgdGcFylc", "12500"}}, "butDgdGcCalc", "butDgdGcSave", "old.xls"),
        result<frmPlGc>("save_elevations", {{"txtPlGcQdlc", "12000"}, {"txtPlGcZdlc", "13000"}, {"txtPlGcJj", "20"}},
                        "butPlGcCalc", "butPlGcSave", "new.xls"),
        result<frmJgw>(
            "save_corners",
            {{"txtJgwFylc", "12500"}, {"txtJgwKq", "5"}, {"txtJgwKh", "5"}, {"txtJgwZz", "3"}, {"txtJgwZy", "4"}},
            "butJgwCalc", "butJgwSave", "old.xls"),
        result<frmZdcs>("save_main_points", {}, nullptr, "butZdSave", "new.xls"),
        fileRun<frmPlfy>("points_from_a_file", "bugPlfy", "12100,0\r\n\r\n12200,5\r\n"),
        fileRun<frmFs>("stakes_from_a_file", "butPlfs", "2856575,512894\r\n\r\n2856575,512890\r\n"),
        fileRun<frmPlGc>("elevations_from_a_file", "bugPlgc", "12100,0\r\n\r\n12200,5\r\n"),
        document<SheetWindow>("save_sheet", sheet, "另存为", "old.xls"),
        document<SheetWindow>("print_sheet_to_a_file", sheet, "导出PDF", "new.pdf"),
        document<DrawingWindow>("save_drawing", plan, "另存为", "new.dxf"),
        document<DrawingWindow>("picture_of_a_drawing", plan, "导出PNG", "new.png"),
    };
    return all;
}

void makeWorkspace(const std::string& samples)
{
    fs::create_directories(WorkspacePath());
    for (const char* project : {kFirst, kSecond})
        fs::copy(samples + "/" + project, ProjectPath(project), fs::copy_options::recursive);
    std::ofstream(WorkspacePath() + "/项目名称.txt", std::ios::binary)
        << Cp936FromUtf8(std::string(kFirst) + "\r\n" + kSecond + "\r\n");
    if (!CreateProject(kFresh)) qFatal("no fresh project");
    gProject = kSecond;
    if (ExportForPhone("road1") != PhoneExport::Added) qFatal("no phone project");
    fs::create_directories(outputs());
    std::ofstream(outputs() + "/old.xls", std::ios::binary) << std::string(3000, 'o');
}

}  // namespace faults
