// export_sheets SAMPLES FOLDER [--one-page]: computes results in the sample project and saves each of the seven sheets,
// FOLDER/frm*.xls, with the texts of its grid in FOLDER/frm*.txt, tab-separated. With --one-page the sheets are fitted
// to one landscape page, for pictures.

#include "base/ReplaceFile.h"
#include "office/Xls.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"
#include "screens/Columns.h"
#include "screens/DgdGc.h"
#include "screens/DgdZb.h"
#include "screens/Export.h"
#include "screens/Fs.h"
#include "screens/Jgw.h"
#include "screens/PlGc.h"
#include "screens/Plfy.h"
#include "screens/Zdcs.h"
#include "tables/CalcTables.h"

#include <filesystem>
#include <iostream>

namespace {

std::string folder;
bool onePage = false;

struct Screen {
    PlainRows grid;
    ResultTable rows{grid};

    explicit Screen(std::span<const GridColumn> columns) : grid(Headers(columns)) {}
};

void done(const Outcome& outcome)
{
    if (outcome.refusal) throw std::runtime_error(outcome.refusal->msg.text);
}

void save(const std::string& form, const Screen& screen, const ExportLayout& layout,
          const std::function<std::string(int)>& own = {})
{
    auto sheet = ResultSheet(layout, {screen.grid.text(), screen.rows.state.rows, "GP01", own});
    if (onePage) sheet.page.landscape = sheet.page.fitToWidth = true;
    WriteBytes(folder + "/" + form + ".xls", XlsBytes(sheet));
    std::string list;
    for (int row = 1; row <= screen.rows.state.rows; ++row)
        for (int col = 0; col < screen.grid.text().cols(); ++col)
            list += screen.grid.text().text(row, col) + (col + 1 < screen.grid.text().cols() ? '\t' : '\n');
    WriteBytes(folder + "/" + form + ".txt", list);
}

void saveAll()
{
    const StationInput station{.pick = "GP01", .pickIndex = 0, .x = {}, .y = {}};
    Screen points(kCoordinateColumns), run(kCoordinateColumns), inverse(kInverseColumns), height(kElevationColumns),
        heights(kElevationRunColumns), corners(kCornerColumns), mainPoints(kMainPointColumns);

    for (const char* side : {"中桩", "左边桩", "右边桩"})
        done(CalcDgdZb({.stake = "12500", .side = side, .offset = "7.5", .skew = {}, .station = station}, points.rows));
    save("frmDgdZb", points, kDgdZbExport);

    done(CalcPlfy({.start = "12400", .end = "12600", .step = "20", .offset = "12", .skew = {}, .station = station},
                  run.rows));
    save("frmPlfy", run, kPlfyExport);

    done(CalcFs({"2856574.125", "512894.500"}, inverse.rows));
    done(CalcFs({"2856710.993", "513531.019"}, inverse.rows));
    save("frmFs", inverse, kFsExport);

    for (const char* side : {"中桩", "左边桩", "右边桩"})
        done(CalcDgdGc({.stake = "12640", .side = side, .offset = "5.25", .thickness = "0.6"}, height.rows));
    save("frmDgdGc", height, kDgdGcExport);

    done(CalcPlGc({.start = "12600", .end = "12800", .offset = "6", .step = "25", .thickness = "0.6"}, heights.rows));
    save("frmPlGc", heights, kPlGcExport);

    JgwStructures structures;
    JgwInput structure{
        .stake = "12700", .kq = "3", .kh = "3.5", .zz = "12", .zy = "12.25", .skew = {}, .station = station};
    done(CalcJgw(structure, structures, corners.rows));
    structure = {.stake = "12900",
                 .kq = "1.5",
                 .kh = "1.5",
                 .zz = "9",
                 .zy = "9",
                 .skewed = true,
                 .skew = "60.3",
                 .station = station};
    done(CalcJgw(structure, structures, corners.rows));
    save("frmJgw", corners, kJgwExport, [&](int row) { return JgwParameters(structures, true, row); });

    LoadZdcs(mainPoints.rows);
    save("frmZdcs", mainPoints, kZdcsExport);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "export_sheets SAMPLES FOLDER [--one-page]\n";
        return 2;
    }
    folder = argv[2];
    onePage = argc > 3;
    try {
        // The loader upgrades the files that it reads: it gets a copy.
        gAppPath = folder;
        gProject = "示例一";
        std::filesystem::create_directories(WorkspacePath());
        std::filesystem::copy(std::string(argv[1]) + "/" + gProject, ProjectPath(gProject),
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::overwrite_existing);
        LoadProject();
        saveAll();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
