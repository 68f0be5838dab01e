#include "editors/EditorTable.h"

#include "base/Numbers.h"
#include "base/ParameterFiles.h"
#include "base/RunTimeError.h"

#include <array>

namespace {

using enum KeyFilter;
using enum Quantity;

constexpr std::string_view kStakeTip = "里程，单位米，直接填数字：K12+345.678 填 12345.678";
constexpr std::string_view kNorthTip = "X 坐标（向北为正），单位米";
constexpr std::string_view kEastTip = "Y 坐标（向东为正），单位米";
constexpr std::string_view kElevationTip = "高程，单位米，向上为正";
constexpr std::string_view kSpiralTip = "缓和曲线长度，单位米；没有缓和曲线时填 0";
constexpr std::string_view kCrossSlopeTip = "横坡，单位 %；由路中线向外侧下降为负";
constexpr std::string_view kWidthTip = "宽度，单位米，自中线量起；填正数";
constexpr std::string_view kBlockRadiusTip = "半径，单位米；右转为正，左转为负，直线填 0";

struct Field {
    std::string_view header;
    KeyFilter filter;
    std::string_view tip;
    Quantity quantity = Quantity::Plain;
};

/// The sequence column and the data columns, all but the first of one width.
std::vector<EditorColumn> columns(int sequenceWidth, int width, std::initializer_list<Field> fields)
{
    std::vector<EditorColumn> made{{.header = "序  号", .width = sequenceWidth}};
    for (const Field& f : fields) {
        const bool isStake = f.tip == kStakeTip;
        const Quantity quantity = isStake ? Stake : f.tip == kCrossSlopeTip ? Slope : f.quantity;
        made.push_back({std::string(f.header), f.filter, width, std::string(f.tip), isStake, quantity});
    }
    return made;
}

/// The columns from `last` down to 1: what the rules of the left mouse button look at unless told otherwise.
std::vector<int> downFrom(int last)
{
    std::vector<int> checked;
    for (int col = last; col >= 1; --col) checked.push_back(col);
    return checked;
}

/// Fills in what follows from the columns, for the editors that do nothing special there.
EditorTable completed(EditorTable table)
{
    if (table.required == 0) table.required = table.lastColumn();
    if (table.addRowChecked.empty()) table.addRowChecked = downFrom(table.required);
    if (table.incompleteChecked.empty()) table.incompleteChecked = downFrom(table.required);
    return table;
}

}  // namespace

std::vector<FrameBox> EditorTable::frameBoxes() const
{
    std::vector<FrameBox> all;
    for (const EditorFrame& frame : frames) all.insert(all.end(), frame.boxes.begin(), frame.boxes.end());
    return all;
}

const EditorTable& JdpqxTable()
{
    static const EditorTable table = completed({
        .stem = "Jdpqx",
        .caption = "平曲线交点法参数",
        .file = files::horizontal,
        .columns = columns(1500, 1500,
                           {{"交点编号", Any, "交点的名称，任意文字（不含逗号）"},
                            {"交点X坐标", Signed, kNorthTip},
                            {"交点Y坐标", Signed, kEastTip},
                            {"第一缓曲长", Unsigned, kSpiralTip},
                            {"第二缓曲长", Unsigned, kSpiralTip},
                            {"曲线半径", Unsigned, "半径，单位米；填正数，左转右转由交点的位置决定"}}),
        .frames = {{"Frame1",
                    "起点(必须为ZH点或者ZH点前直线上的一点)",
                    {{"txtJdpqxQdLc", "里程", "请先输入起点里程！", kStakeTip, Stake},
                     {"txtJdpqxQdX", "X坐标", "请先输入起点X坐标！", kNorthTip},
                     {"txtJdpqxQdy", "Y坐标", "请先输入起点Y坐标！", kEastTip}}},
                   {"Frame2",
                    "终点(必须为HZ点或者HZ点后直线上一点)",
                    {{"txtJdpqxZdx", "X坐标", "请先输入终点X坐标！", kNorthTip},
                     {"txtJdpqxZdy", "Y坐标", "请先输入终点Y坐标！", kEastTip}}}},
        .noRowMessage = "至少需要输入一个交点！",
        .loadsProject = true,
    });
    return table;
}

const EditorTable& JmpqxTable()
{
    static const EditorTable table = completed({
        .stem = "Jmpqx",
        .caption = "平曲线积木法参数",
        .file = files::horizontal,
        .columns = columns(1500, 1500,
                           {{"起点里程", Signed, kStakeTip},
                            {"终点里程", Signed, kStakeTip},
                            {"起点X坐标", Signed, kNorthTip},
                            {"起点Y坐标", Signed, kEastTip},
                            {"起点方位角", Signed, "切线方位角，度.分秒：123°45′30″ 填 123.4530；由北顺时针", Angle},
                            {"起点半径", Signed, kBlockRadiusTip},
                            {"终点半径", Signed, kBlockRadiusTip}}),
        .fillIn = {.carried = {{2, 1}, {7, 6}}, .computesStart = true},
        .enterMoves = false,
    });
    return table;
}

const EditorTable& SqxTable()
{
    static const EditorTable table = completed({
        .stem = "Sqx",
        .caption = "竖曲线参数",
        .file = files::vertical,
        .columns = columns(2300, 2300,
                           {{"变坡点里程", Signed, kStakeTip},
                            {"变坡点高程", Signed, kElevationTip},
                            {"竖曲线半径", Unsigned, "半径，单位米；填正数，凸形凹形由坡度决定"}}),
        .frames = {{"Frame1",
                    "起点（必须在竖曲线起点或竖曲线前的直线）",
                    {{"txtSqxQdLc", "起点里程", "请先输入起点里程！", kStakeTip, Stake},
                     {"txtSqxQdgc", "起点高程", "请先输入起点高程！", kElevationTip}}},
                   {"Frame2",
                    "终点（必须在竖曲线终点或竖曲线后的直线）",
                    {{"txtSqxZdlc", "终点里程", "请先输入终点里程！", kStakeTip, Stake},
                     {"txtSqxZdgc", "终点高程", "请先输入终点高程！", kElevationTip}}}},
        .noRowMessage = "至少需要输入一个变坡点！",
    });
    return table;
}

const EditorTable& CgTable()
{
    static const EditorTable table = completed({
        .stem = "Cg",
        .caption = "超高参数",
        .file = files::superelevation,
        .columns = columns(1700, 1700,
                           {{"变化起点里程", Signed, kStakeTip},
                            {"起点左幅坡度", Signed, kCrossSlopeTip},
                            {"起点右幅坡度", Signed, kCrossSlopeTip},
                            {"变化终点里程", Signed, kStakeTip},
                            {"终点左幅坡度", Signed, kCrossSlopeTip},
                            {"终点右幅坡度", Signed, kCrossSlopeTip}}),
        .fillIn = {.carried = {{4, 1}, {5, 2}, {6, 3}}},
    });
    return table;
}

const EditorTable& CgkdTable()
{
    static const EditorTable table = completed({
        .stem = "Cgkd",
        .caption = "超高宽度参数",
        .file = files::widths,
        .columns = columns(600, 1200,
                           {{"变化起点里程", Signed, kStakeTip},
                            {"变化终点里程", Signed, kStakeTip},
                            {"中央分隔带宽度", Unsigned, "全宽，单位米；没有分隔带时填 0"},
                            {"起点左幅路基宽度", Unsigned, kWidthTip},
                            {"起点右幅路基宽度", Unsigned, kWidthTip},
                            {"起点左幅路肩宽度", Unsigned, "路肩宽度，单位米；填正数"},
                            {"起点右幅路肩宽度", Unsigned, "路肩宽度，单位米；填正数"},
                            {"终点左幅路基宽度", Unsigned, kWidthTip},
                            {"终点右幅路基宽度", Unsigned, kWidthTip},
                            {"终点左幅路肩宽度", Unsigned, "路肩宽度，单位米；填正数"},
                            {"终点右幅路肩宽度", Unsigned, "路肩宽度，单位米；填正数"},
                            {"路肩坡度", Signed, kCrossSlopeTip}}),
        // Kept on purpose: column 1 stands where 11 would, so the right end shoulder does not count here.
        .addRowChecked = {12, 1, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1},
        .fillIn = {.carried = {{2, 1}, {8, 4}, {9, 5}, {10, 6}, {11, 7}}},
        .scales = true,
    });
    return table;
}

const EditorTable& DxdTable()
{
    static const EditorTable table = [] {
        auto made = columns(1500, 1500,
                            {{"名称", Any, "导线点的名称，任意文字（不含逗号）"},
                             {"X坐标", Signed, kNorthTip},
                             {"Y坐标", Signed, kEastTip},
                             {"备注", Any, "说明文字，可以不填（不含逗号）"}});
        made[4].width = 8000;
        return completed({
            .stem = "Dxd",
            .caption = "导线点设置",
            .file = files::traverse,
            .columns = std::move(made),
            .required = 3,
            .canBlank = true,
            .hasInsert = false,
            .scales = true,
        });
    }();
    return table;
}

const EditorTable& DlTable()
{
    static const EditorTable table = completed({
        .stem = "Dl",
        .caption = "断链参数",
        .file = files::breaks,
        .columns = columns(
            2000, 2000,
            {{"来向里程", Signed, "断链点在来向（小里程）一侧的里程，单位米", Stake},
             {"去向里程", Signed, "断链点在去向（大里程）一侧的里程，单位米；比来向大为短链，小为长链", Stake}}),
        .canBlank = true,
        .hasInsert = false,
    });
    return table;
}

EditorTable SlopeTable(const SlopeKind& kind, int gradeCount)
{
    EditorTable table{.stem = kind.stem, .caption = kind.caption, .file = kind.file};
    table.scrollHides = true;
    if (gradeCount < 1 || gradeCount > kind.gradeLimit) return table;

    static constexpr std::array<std::string_view, 11> word{"",   "一", "二", "三", "四", "五",
                                                           "六", "七", "八", "九", "十"};
    const auto grade = [](std::string_view end, int k, std::string_view what) {
        return std::string(end) + std::string(word[static_cast<std::size_t>(k)]) + "级" + std::string(what);
    };
    table.columns.push_back({.header = "序  号", .width = 600});
    const auto add = [&](std::string header, std::string_view tip) {
        table.columns.push_back({std::move(header), Unsigned, 1200, std::string(tip)});
    };
    for (const std::string_view end : {"起点", "终点"}) {
        table.columns.push_back(
            {"变化" + std::string(end) + "里程", Signed, 1200, std::string(kStakeTip), /*isStake*/ true, Stake});
        add(std::string(end) + std::string(kind.side) + "路基宽度", "路基宽度，单位米；填正数");
        add(grade(end, 1, "边坡坡度"), "边坡坡度，按图纸填写；填正数");
        for (int k = 2; k <= gradeCount; ++k) {
            // Kept on purpose: from the sixth grade on the start columns read 边坡宽度 and 平台坡度.
            const bool swapped = end == "起点" && k >= 6;
            add(grade(end, k - 1, "边坡高度"), "边坡高度，单位米；填正数");
            add(grade(end, k, swapped ? "边坡宽度" : "平台宽度"), "平台宽度，单位米；填正数");
            add(grade(end, k, swapped ? "平台坡度" : "边坡坡度"), "边坡坡度，按图纸填写；填正数");
        }
    }
    table.fields = 6 * kind.gradeLimit;
    for (int k = 1; k <= 3 * gradeCount; ++k) table.fillIn.carried.emplace_back(3 * gradeCount + k, k);
    return completed(std::move(table));
}

int GradeCountOf(std::string_view settingsLine)
{
    double count = 0;
    attempt([&] { count = Round(ParseNumber(settingsLine), 0); });
    return count >= 1 && count <= kWfz.gradeLimit ? static_cast<int>(count) : 0;
}
