// The seven sheets and the way to save them.

#include "base/RunTimeError.h"
#include "screens/Export.h"

#include "base/ReplaceFile.h"
#include "office/Xls.h"
#include "project/Workspace.h"
#include "screens/Jgw.h"
#include "support/ProjectFolder.h"
#include "support/ScreenTest.h"
#include "support/ScriptedDialogs.h"

#include <filesystem>
#include <unistd.h>

namespace {

struct Column {
    std::string letter;
    double width;
    std::string header;
    std::string cell;  // "grid 3", "station" or "parameters"
    bool operator==(const Column&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Column& c)
{
    return out << c.letter << " " << c.width << " " << c.header << " <- " << c.cell;
}

std::vector<Column> columns(const ExportLayout& layout)
{
    std::vector<Column> list;
    for (const auto& column : layout.columns) {
        std::string letter(1, static_cast<char>('a' + list.size()));
        list.push_back({letter, column.width, std::string(column.header),
                        column.source == kStationColumn ? "station"
                        : column.source == kOwnColumn   ? "parameters"
                                                        : "grid " + std::to_string(column.source)});
    }
    return list;
}

const std::vector<Column> kCoordinates{
    {"a", 6, "序号", "grid 0"},          {"b", 14, "里   程", "grid 1"},  {"c", 14, "中 边 桩", "grid 2"},
    {"d", 16, "夹   角", "grid 3"},      {"e", 16, "方 位 角", "grid 4"}, {"f", 12, "距  离", "grid 5"},
    {"g", 12, "X 坐 标", "grid 6"},      {"h", 12, "Y 坐 标", "grid 7"},  {"i", 16, "切线方位角", "grid 8"},
    {"j", 20, "测 站 坐 标", "station"},
};

}  // namespace

TEST(ExportLayouts, Coordinates)
{
    EXPECT_EQ(columns(kDgdZbExport), kCoordinates);
    EXPECT_EQ(columns(kPlfyExport), kCoordinates);
    EXPECT_EQ(kDgdZbExport.textColumns, 10);
    EXPECT_EQ(kPlfyExport.textColumns, 10);
}

TEST(ExportLayouts, InverseStakes)
{
    EXPECT_EQ(columns(kFsExport), (std::vector<Column>{{"a", 10, "序号", "grid 0"},
                                                       {"b", 18, "X 坐 标", "grid 1"},
                                                       {"c", 18, "Y 坐 标", "grid 2"},
                                                       {"d", 18, "反 算 里 程", "grid 3"},
                                                       {"e", 18, "反 算 偏 距", "grid 4"}}));
    EXPECT_EQ(kFsExport.textColumns, 5);
}

TEST(ExportLayouts, OneElevation)
{
    EXPECT_EQ(columns(kDgdGcExport), (std::vector<Column>{{"a", 6, "序号", "grid 0"},
                                                          {"b", 14, "里   程", "grid 1"},
                                                          {"c", 14, "中 边 桩", "grid 2"},
                                                          {"d", 14, "高   程", "grid 3"}}));
    EXPECT_EQ(kDgdGcExport.textColumns, 4);
}

TEST(ExportLayouts, ARunOfElevationsHasItsTextFormatOnFourOfEightColumns)
{
    EXPECT_EQ(columns(kPlGcExport), (std::vector<Column>{{"a", 6, "序号", "grid 0"},
                                                         {"b", 14, "里   程", "grid 1"},
                                                         {"c", 14, "中 边 桩", "grid 2"},
                                                         {"d", 14, "高   程", "grid 3"},
                                                         {"e", 14, "中 边 桩", "grid 4"},
                                                         {"f", 14, "高   程", "grid 5"},
                                                         {"g", 14, "中 边 桩", "grid 6"},
                                                         {"h", 14, "高   程", "grid 7"}}));
    EXPECT_EQ(kPlGcExport.textColumns, 4);
}

TEST(ExportLayouts, Corners)
{
    auto wanted = kCoordinates;
    wanted[2] = {"c", 8, "点位置", "grid 2"};
    wanted.push_back({"k", 50, "参  数", "parameters"});
    EXPECT_EQ(columns(kJgwExport), wanted);
    EXPECT_EQ(kJgwExport.textColumns, 11);
}

TEST(ExportLayouts, MainPoints)
{
    const Texts headers{"序号",      "交点编号",       "第一切线长", "第二切线长",     "第一缓曲长", "第二缓曲长",
                        "ZH点里程",  "ZH点X坐标",      "ZH点Y坐标",  "ZH点切线方位角", "HY点里程",   "HY点X坐标",
                        "HY点Y坐标", "HY点切线方位角", "YH点里程",   "YH点X坐标",      "YH点Y坐标",  "YH点切线方位角",
                        "HZ点里程",  "HZ点X坐标",      "HZ点Y坐标",  "HZ点切线方位角"};
    const std::vector<double> widths{6, 14, 14, 16, 16, 12, 12, 12, 16};  // then 20 each
    std::vector<Column> wanted;
    for (std::size_t i = 0; i < headers.size(); ++i)
        wanted.push_back({std::string(1, static_cast<char>('a' + i)), i < widths.size() ? widths[i] : 20, headers[i],
                          "grid " + std::to_string(i)});
    EXPECT_EQ(columns(kZdcsExport), wanted);
    EXPECT_EQ(kZdcsExport.textColumns, 22);
    EXPECT_FALSE(kZdcsExport.needsRows);
}

namespace {

struct Export : FreshTables<testing::Test> {
    Screen screen{kElevationRunColumns};

    Export()
    {
        gProject = "示例一";
        screen.rows.row({{"K0+000.000", "中桩", "231.46", "左5米", "231.345", "右5米", "007"}, {}});
        screen.rows.row({{"K0+050.000", "中桩", "232.635"}, {}});
    }
    ~Export() override { gProject.clear(); }
    ExportData data() const { return {screen.grid.text(), screen.state.rows, {}}; }
    Worksheet sheet() const { return ResultSheet(kPlGcExport, data()); }
};

int weight(const Worksheet& sheet, const char* cell, int edge) { return sheet.style(cell).line(edge).weight; }

}  // namespace

TEST_F(Export, TitleIsMergedCentredAndHasNoBorder)
{
    const auto s = sheet();
    EXPECT_EQ(s.text("A1"), "示例一");
    EXPECT_EQ(s.mergeArea("A1"), CellRange("A1:h1"));
    EXPECT_EQ(s.merges().size(), 1u);
    for (const char* cell : {"A1", "h1"}) {
        EXPECT_EQ(s.style(cell).horizontal, xlCenter);
        EXPECT_EQ(s.style(cell).vertical, xlCenter);
        for (const int edge : {xlEdgeLeft, xlEdgeTop, xlEdgeRight}) EXPECT_EQ(weight(s, cell, edge), xlNone);
    }
}

TEST_F(Export, PagesAreLandscapeWithTheirHeadAndNumbers)
{
    const PageSetup wanted{.landscape = true, .fitToWidth = true, .titleRows = 2, .pageNumbers = true};
    for (const auto* layout :
         {&kDgdZbExport, &kPlfyExport, &kFsExport, &kDgdGcExport, &kPlGcExport, &kJgwExport, &kZdcsExport}) {
        Screen none(kMainPointColumns);
        EXPECT_EQ(ResultSheet(*layout, {none.grid.text(), 0, ""}).page, wanted);
    }
}

TEST_F(Export, TheProposedNameIsOneThatEveryFileSystemHolds)
{
    gProject = "示例一";
    EXPECT_EQ(ProposedName("批量放样", "xls"), "示例一 批量放样.xls");
    gProject = R"(a\b/c:d*e?f"g<h>i|j)"
               "\tk";
    EXPECT_EQ(ProposedName("主点参数", "pdf"), "a_b_c_d_e_f_g_h_i_j_k 主点参数.pdf");
    gProject = "";
    EXPECT_EQ(ProposedName("批量放样", "xls"), "批量放样.xls");
    gProject.clear();
    for (int i = 0; i < 200; ++i) gProject += "路";
    const std::string longest = ProposedName("批量放样", "xls");
    EXPECT_LE(longest.size(), 204u);
    EXPECT_EQ(longest, gProject.substr(0, 198) + ".xls") << "whole characters";
    gProject.clear();
}

TEST_F(Export, HeadersInRow2AndGridRowRInRowRPlus2)
{
    const auto s = sheet();
    EXPECT_EQ(s.text("a2"), "序号");
    EXPECT_EQ(s.text("h2"), "高   程");
    EXPECT_EQ(s.text("a3"), "1");
    EXPECT_EQ(s.text("b3"), "K0+000.000");
    EXPECT_EQ(s.text("d4"), "232.635");
    EXPECT_EQ(s.rows(), 4);
    EXPECT_EQ(s.cols(), 8);
}

TEST_F(Export, TextFormatKeepsTextsAndBeyondItNumbersAreNumbers)
{
    const auto s = sheet();
    for (const char* cell : {"a1", "d1", "a3", "d4"}) EXPECT_EQ(s.style(cell).numberFormat, "@") << cell;
    for (const char* cell : {"e1", "e3", "h4"}) EXPECT_EQ(s.style(cell).numberFormat, "General") << cell;
    EXPECT_EQ(s.value("d3"), CellValue("231.46"));
    EXPECT_EQ(s.value("a3"), CellValue("1"));
    EXPECT_EQ(s.value("e3"), CellValue("左5米"));
    EXPECT_EQ(s.value("f3"), CellValue(231.345));
    EXPECT_EQ(s.value("h3"), CellValue(7.0));
    EXPECT_EQ(s.value("f4"), CellValue()) << "a cell that the screen leaves empty stays empty";
}

TEST_F(Export, AProjectWhoseNameIsANumberKeepsItAsText)
{
    gProject = "0123";
    EXPECT_EQ(sheet().value("A1"), CellValue("0123"));
}

TEST_F(Export, OutlineMediumInsideThinNoDiagonals)
{
    const auto s = sheet();
    for (const char* cell : {"a2", "h2", "a4", "h4", "d3"}) {
        EXPECT_EQ(s.style(cell).horizontal, xlCenter);
        EXPECT_EQ(s.style(cell).vertical, xlCenter);
        EXPECT_EQ(weight(s, cell, xlDiagonalDown), xlNone);
        EXPECT_EQ(weight(s, cell, xlDiagonalUp), xlNone);
    }
    for (const char* cell : {"a2", "d2", "h2"}) EXPECT_EQ(weight(s, cell, xlEdgeTop), xlMedium) << cell;
    for (const char* cell : {"a4", "d4", "h4"}) EXPECT_EQ(weight(s, cell, xlEdgeBottom), xlMedium) << cell;
    for (const char* cell : {"a2", "a3", "a4"}) EXPECT_EQ(weight(s, cell, xlEdgeLeft), xlMedium) << cell;
    for (const char* cell : {"h2", "h3", "h4"}) EXPECT_EQ(weight(s, cell, xlEdgeRight), xlMedium) << cell;
    for (const int edge : {xlEdgeLeft, xlEdgeTop, xlEdgeRight, xlEdgeBottom}) {
        EXPECT_EQ(weight(s, "d3", edge), xlThin);
        EXPECT_EQ(s.style("d3").line(edge).colorIndex, xlColorIndexAutomatic);
    }
    EXPECT_EQ(weight(s, "a2", xlEdgeBottom), xlThin);
    EXPECT_EQ(weight(s, "a2", xlEdgeRight), xlThin);
}

TEST_F(Export, WidthsOfTheLayout)
{
    const auto s = sheet();
    EXPECT_EQ(s.columnWidth(1), 6);
    EXPECT_EQ(s.columnWidth(8), 14);
    EXPECT_EQ(s.columnWidths().size(), 8u);
    EXPECT_TRUE(s.rowHeights().empty());
}

TEST_F(Export, StationTextIsThatOfTheSave)
{
    Screen coordinates(kCoordinateColumns);
    coordinates.rows.row({{"K0+000.000", "中桩", "无", "a", "b", "c", "d", "e"}, {}});
    coordinates.rows.row({{"K0+001.000", "中桩", "无", "a", "b", "c", "d", "e"}, {}});
    gStationX = 2856355.635;
    gStationY = .5;
    const auto s = ResultSheet(kDgdZbExport, {coordinates.grid.text(), 2, "GP01"});
    EXPECT_EQ(s.text("j3"), "GP01 2856355.635,.5");
    EXPECT_EQ(s.text("j4"), s.text("j3"));
    EXPECT_EQ(StationText(""), " 2856355.635,.5") << "nothing picked leaves the blank";
}

TEST_F(Export, ParametersStandOnEveryRowOfTheirGroupOfFour)
{
    Screen corners(kCornerColumns);
    JgwStructures structures;
    for (int i = 0; i < 8; ++i) corners.rows.row({{"K0+000.000", "左前点"}, {}});
    structures.add("1", "2.50", "3", "4");
    structures.add("5", "6", "7", "8");
    const auto sheet = [&](bool skewEnds) {
        return ResultSheet(kJgwExport, {corners.grid.text(), corners.state.rows, {}, [&](int row) {
                                            return JgwParameters(structures, skewEnds, row);
                                        }});
    };
    for (const char* cell : {"k3", "k6"}) EXPECT_EQ(sheet(true).text(cell), "斜交斜做：K前1,K后2.50,Z左3,Z右4");
    for (const char* cell : {"k7", "k10"}) EXPECT_EQ(sheet(false).text(cell), "斜交正做：K前5,K后6,Z左7,Z右8");
    // A deleted row shifts the rows of later structures against their groups.
    corners.rows.deleteCursorRow();
    EXPECT_EQ(sheet(true).text("k6"), "斜交斜做：K前1,K后2.50,Z左3,Z右4") << "the first row of the second structure";
    EXPECT_EQ(sheet(true).text("k9"), "斜交斜做：K前5,K后6,Z左7,Z右8");
}

TEST_F(Export, The101stStructureHasNoParameters)
{
    Screen corners(kCornerColumns);
    JgwStructures structures;
    structures.count = 101;
    for (int i = 0; i < 404; ++i) corners.rows.row({{"K0+000.000"}, {}});
    EXPECT_EQ(fatalError([&] {
                  ResultSheet(kJgwExport, {corners.grid.text(), corners.state.rows, {}, [&](int row) {
                                               return JgwParameters(structures, true, row);
                                           }});
              }),
              RunTimeError::Subscript);
}

TEST_F(Export, AnEmptyMainPointTableIsASheetOfHeaders)
{
    Screen points(kMainPointColumns);
    const auto s = ResultSheet(kZdcsExport, {points.grid.text(), 0, {}});
    EXPECT_EQ(s.mergeArea("A1"), CellRange("A1:v1"));
    EXPECT_EQ(s.text("v2"), "HZ点切线方位角");
    EXPECT_EQ(s.rows(), 2);
    EXPECT_EQ(weight(s, "a2", xlEdgeBottom), xlMedium);
}

TEST_F(Export, BeyondSheetRow32767ItOverflows)
{
    Screen many(kElevationColumns);
    for (int i = 0; i < 32766; ++i) many.rows.row({{"a"}, {}});
    EXPECT_EQ(fatalError([&] { ResultSheet(kDgdGcExport, {many.grid.text(), 32766, {}}); }), RunTimeError::Overflow);
    EXPECT_EQ(ResultSheet(kDgdGcExport, {many.grid.text(), 32765, {}}).rows(), 32767);
}

TEST_F(Export, ATextThatNoCellHoldsOverflows)
{
    screen.rows.row({{std::string(32768, '1')}, {}});
    EXPECT_EQ(fatalError([&] { sheet(); }), RunTimeError::Overflow);
}

TEST_F(Export, ACounterBeyondTheGridReadsPastTheRows)
{
    EXPECT_EQ(fatalError([&] { ResultSheet(kPlGcExport, {screen.grid.text(), 3, {}}); }), RunTimeError::Subscript);
}

namespace {

struct Save : Export {
    ScriptedDialogs dialogs;
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("velumark-save-" + std::to_string(getpid()));
    std::string path = (folder / "结果").string();  // no extension is added
    std::vector<bool> waits;

    Save()
    {
        std::filesystem::create_directories(folder);
        screen.rows.changed();
    }
    ~Save() override { std::filesystem::remove_all(folder); }
    void save(const ExportLayout& layout = kPlGcExport)
    {
        waits.clear();
        SaveResult(layout, data(), &screen.state, [this](bool shown) { waits.push_back(shown); });
    }
    std::string bytes() const { return ProjectFolder::bytesOf(path); }
};

const Msg kSavedBox{"保存成功！", "成功", Icon::Information};
const Msg kOverwriteQuestion{"文件已存在！是否覆盖？", "注意", Icon::Question, Msg::YesNo, Msg::No};

}  // namespace

TEST_F(Save, WritesUnderTheNameAsGivenAndTakesTheFlagBack)
{
    dialogs.save(path);
    save();
    EXPECT_EQ(bytes(), XlsBytes(sheet()));
    EXPECT_EQ(dialogs.filters, (Texts{"(*.xls)|*.xls"}));
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{kSavedBox}));
    EXPECT_EQ(waits, (std::vector<bool>{true, false}));
    EXPECT_FALSE(screen.state.changed);
    EXPECT_EQ(screen.state.rows, 2);
}

TEST_F(Save, NoRowsNoFile)
{
    screen.state.rows = 0;
    save();
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{{"没有计算数据，无需保存！", "注意", Icon::Exclamation}}));
    EXPECT_TRUE(waits.empty());
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, MainPointsAreSavedWithoutThatTest)
{
    dialogs.save(path);
    SaveResult(kZdcsExport, {screen.grid.text(), 0, {}}, nullptr, [](bool) {});
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{kSavedBox}));
}

TEST_F(Save, CancelEndsWithoutAWord)
{
    dialogs.cancelSave();
    save();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_TRUE(waits.empty());
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, NoKeepsTheOldFileAndSaysNothing)
{
    WriteBytes(path, "old");
    dialogs.save(path).no();
    save();
    EXPECT_EQ(bytes(), "old");
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{kOverwriteQuestion}));
    EXPECT_TRUE(waits.empty());
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, TwiceAsksTheSecondTimeAndReplacesTheFile)
{
    dialogs.save(path).save(path).yes();
    save();
    screen.rows.row({{"K0+100.000"}, {}});
    save();
    EXPECT_EQ(bytes(), XlsBytes(sheet()));
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{kSavedBox, kOverwriteQuestion, kSavedBox}));
}

TEST_F(Save, TheOldFileStandsUntilTheNewOneIsWritten)
{
    WriteBytes(path, "old");
    dialogs.save(path).yes();
    SaveResult(kPlGcExport, data(), &screen.state, [this](bool) { EXPECT_NE(bytes(), ""); });
    EXPECT_NE(bytes(), "old");
}

TEST_F(Save, RowsThatDoNotFitEndWithoutAWordAndKeepTheOldFileAndTheWaitBox)
{
    WriteBytes(path, "old");
    screen.state.rows = 32766;
    dialogs.save(path).yes();
    save();
    EXPECT_EQ(bytes(), "old");
    EXPECT_EQ(dialogs.messages, (std::vector<Msg>{kOverwriteQuestion}));
    EXPECT_EQ(waits, (std::vector<bool>{true}));
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, ACounterOfAnEarlierRunEndsWithoutAWord)
{
    screen.rows.clear();  // start above the end: the grid is empty, the counter is not
    dialogs.save(path);
    save();
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(waits, (std::vector<bool>{true})) << "the wait box stays until the window closes";
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, EverySilentFailureLeavesTheWaitBox)
{
    JgwStructures structures;  // of the first hundred
    structures.count = 101;
    for (int i = screen.state.rows; i < 4 * 101; ++i) screen.rows.row({{"K0+100.000"}, {}});
    dialogs.save(path);
    SaveResult(
        kJgwExport,
        {screen.grid.text(), screen.state.rows, {}, [&](int row) { return JgwParameters(structures, true, row); }},
        &screen.state, [this](bool shown) { waits.push_back(shown); });
    EXPECT_EQ(waits, (std::vector<bool>{true})) << "101 structures";

    Screen many(kElevationColumns);
    while (many.state.rows < 32767) many.rows.row({{"a"}, {}});
    EXPECT_THROW(many.rows.row({{"a"}, {}}), RunTimeError);
    waits.clear();
    dialogs.save(path);
    SaveResult(kDgdGcExport, {many.grid.text(), many.state.rows, {}}, &many.state,
               [this](bool shown) { waits.push_back(shown); });
    EXPECT_EQ(waits, (std::vector<bool>{true})) << "32,768 rows";

    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Save, AFolderOfThatNameIsNotHarmed)
{
    std::filesystem::create_directories(std::filesystem::path(path) / "inside");
    dialogs.save(path).yes();
    save();
    EXPECT_TRUE(std::filesystem::is_directory(std::filesystem::path(path) / "inside"));
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.last().icon, Icon::Critical);
    EXPECT_NE(dialogs.last().text.find(path), std::string::npos) << "the message names the file";
    EXPECT_EQ(waits, (std::vector<bool>{true, false}));
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, AFileThatCannotBeWrittenIsNamedWithTheReason)
{
    path = (folder / "missing" / "结果.xls").string();
    dialogs.save(path);
    save();
    EXPECT_EQ(dialogs.messages,
              (std::vector<Msg>{{"无法保存文件：\n" + path + "\n文件夹不存在", "错误", Icon::Critical}}));
    EXPECT_EQ(waits, (std::vector<bool>{true, false}));
    EXPECT_TRUE(screen.state.changed);
}

TEST_F(Save, ClosingAsks)
{
    dialogs.yes().no();
    EXPECT_TRUE(AskToSave());
    EXPECT_FALSE(AskToSave());
    EXPECT_EQ(dialogs.messages[0], (Msg{"数据已改变，是否保存？", "注意", Icon::Question, Msg::YesNo}));
}
