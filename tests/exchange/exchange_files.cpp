// Files for other programs' readers: exchange_files FOLDER.

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "exchange/FieldFile.h"
#include "exchange/MapFile.h"
#include "exchange/NumberText.h"
#include "exchange/Xlsx.h"

#include <string>

namespace {

RoadFiles road()
{
    return {{"其他参数.txt", {"积木法", "线性", "未设置", "未设置", "未设置"}},
            {"平曲线参数.txt",
             {"0,400,2856320.418,512480.736,58.2,0,0", "400,480,2856530.6144,512821.0514,58.2,0,300",
              "480,700,2856569.5571,512890.8775,65.5821,300,300"}},
            {"竖曲线参数.txt", {"0,50", "300,53,2000", "700,49"}}};
}

void writeSheet(const std::string& folder)
{
    GridText grid;
    grid.setCols(5);
    grid.setRows(3);
    for (int c = 0; c < 5; ++c) grid.setText(0, c, std::string("列") + std::to_string(c));
    grid.setCell(1, 0, NumberCell(1));
    grid.setCell(1, 1, StakeCell(12345.678));
    grid.setCell(1, 2, Fixed3Cell(2856498.5734));
    grid.setCell(1, 3, Fixed3Cell(-0.0625));
    grid.setText(1, 4, "=1+1");
    grid.setCell(2, 0, NumberCell(2));
    grid.setText(2, 1, "无");
    WriteResult(folder + "/table.xlsx", XlsxBytes({grid, "某路 & 支线", {false, true, false}}));
}

void writeMaps(const std::string& folder)
{
    const RoadFiles files = road();
    const auto compiled = Compile(files);
    MapRoad map{.name = "某路", .tables = compiled.tables, .files = files};
    FieldRun run{.from = 0, .to = 690, .step = 30, .offsets = {-10, 0, 10}};
    FieldPoints points(compiled.tables, run);
    std::string plane;
    while (const auto point = points.next()) {
        map.points.push_back(*point);
        plane += point->name + "," + FixedText(point->x, 3) + "," + FixedText(point->y, 3) + "\n";
    }
    WriteResult(folder + "/plane.txt", plane);
    WriteResult(folder + "/own.geojson", MapText(map, MapForm::GeoJson));
    map.projection = GaussKrueger{.meridian = 117};
    WriteResult(folder + "/map.geojson", MapText(map, MapForm::GeoJson));
    WriteResult(folder + "/map.kml", MapText(map, MapForm::Kml));
}

/// The same points in every form of a point list, and as plain text with all their digits.
void writeField(const std::string& folder)
{
    const RoadFiles files{{"其他参数.txt", {"积木法", "线性", "未设置", "未设置", "未设置"}},
                          {"平曲线参数.txt", {"0,400,18.4,30.7,248.2,0,0", "400,480,-130.1,-340.7,248.2,0,-300"}},
                          {"竖曲线参数.txt", {"0,2", "200,-3,2000", "300,4"}}};
    const auto compiled = Compile(files);
    const FieldRun run{.from = 0, .to = 470, .step = 12.345, .offsets = {-10.5, 0, 3.25}};
    struct Form {
        const char* path;
        FieldFormat::Kind kind;
    };
    std::string plain;
    for (const Form form : {Form{"field.dat", FieldFormat::Dat},
                            {"field.csv", FieldFormat::Csv},
                            {"field.gsi", FieldFormat::Gsi16},
                            {"small.gsi", FieldFormat::Gsi8}}) {
        FieldFormat format = *FieldFormatOf(form.path);
        format.kind = form.kind;
        FieldWriter writer(format);
        FieldPoints points(compiled.tables, run);
        std::string text = writer.begin();
        std::size_t number = 0;
        plain.clear();
        while (auto point = points.next()) {
            plain += point->name + "\t" + point->code;
            for (const double value : {point->stake, point->offset, point->x, point->y})
                plain += "\t" + FixedText(value, 9);
            plain += "\t" + (point->h ? FixedText(*point->h, 9) : "") + "\n";
            if (form.kind == FieldFormat::Gsi8) point->name = "P" + std::to_string(++number);
            text += writer.line(*point);
        }
        WriteResult(folder + "/" + form.path, text);
    }
    WriteResult(folder + "/field.txt", plain);
    FieldFormat format = *FieldFormatOf("gbk.csv");
    format.separator = "\t";
    format.codePage936 = true;
    FieldWriter writer(format);
    FieldPoints points(compiled.tables, run);
    std::string text = writer.begin();
    while (const auto point = points.next()) text += writer.line(*point);
    WriteResult(folder + "/gbk.csv", text);
}

}  // namespace

int main(int count, char** words)
{
    if (count != 2) return 2;
    writeSheet(words[1]);
    writeMaps(words[1]);
    writeField(words[1]);
    return 0;
}
