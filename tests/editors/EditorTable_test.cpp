// The tables of the editors against literals.
#include "editors/EditorTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using enum KeyFilter;
using Texts = std::vector<std::string>;
using Columns = std::vector<int>;

Texts headers(const EditorTable& table)
{
    Texts all;
    for (const EditorColumn& column : table.columns) all.push_back(column.header);
    return all;
}

std::vector<KeyFilter> filters(const EditorTable& table)
{
    std::vector<KeyFilter> all;
    for (std::size_t col = 1; col < table.columns.size(); ++col) all.push_back(table.columns[col].filter);
    return all;
}

Columns widths(const EditorTable& table)
{
    Columns all;
    for (const EditorColumn& column : table.columns) all.push_back(column.width);
    return all;
}

/// Switches of a table in one text: what the editor does otherwise than most.
std::string otherwise(const EditorTable& t)
{
    std::string all;
    if (t.canBlank) all += "can blank, ";
    if (!t.hasInsert) all += "no insert, ";
    if (!t.enterMoves) all += "no Enter, ";
    if (t.scrollHides) all += "scroll hides, ";
    if (t.scales) all += "scales, ";
    if (t.loadsProject) all += "loads project, ";
    return all;
}

TEST(EditorTable, Jdpqx)
{
    const EditorTable& t = JdpqxTable();
    EXPECT_EQ(t.stem, "Jdpqx");
    EXPECT_EQ(t.caption, "平曲线交点法参数");
    EXPECT_EQ(t.file, "平曲线参数.txt");
    EXPECT_EQ(headers(t),
              (Texts{"序  号", "交点编号", "交点X坐标", "交点Y坐标", "第一缓曲长", "第二缓曲长", "曲线半径"}));
    EXPECT_EQ(filters(t), (std::vector{Any, Signed, Signed, Unsigned, Unsigned, Unsigned}));
    EXPECT_EQ(widths(t), Columns(7, 1500));
    EXPECT_EQ(t.lastColumn(), 6);
    EXPECT_EQ(t.writtenBy(), 5);
    EXPECT_EQ(t.required, 6);
    EXPECT_EQ(t.addRowChecked, (Columns{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.noRowMessage, "至少需要输入一个交点！");
    EXPECT_EQ(t.fillIn, FillInRule{});
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "loads project, ");

    ASSERT_EQ(t.frames.size(), 2u);
    EXPECT_EQ(t.frames[0].control, "Frame1");
    EXPECT_EQ(t.frames[0].caption, "起点(必须为ZH点或者ZH点前直线上的一点)");
    EXPECT_EQ(t.frames[1].control, "Frame2");
    EXPECT_EQ(t.frames[1].caption, "终点(必须为HZ点或者HZ点后直线上一点)");
    ASSERT_EQ(t.frames[0].boxes.size(), 3u);
    ASSERT_EQ(t.frames[1].boxes.size(), 2u);
    constexpr std::string_view boxes[][3] = {{"txtJdpqxQdLc", "里程", "请先输入起点里程！"},
                                             {"txtJdpqxQdX", "X坐标", "请先输入起点X坐标！"},
                                             {"txtJdpqxQdy", "Y坐标", "请先输入起点Y坐标！"},
                                             {"txtJdpqxZdx", "X坐标", "请先输入终点X坐标！"},
                                             {"txtJdpqxZdy", "Y坐标", "请先输入终点Y坐标！"}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(t.frameBoxes()[i].control, boxes[i][0]);
        EXPECT_EQ(t.frameBoxes()[i].label, boxes[i][1]);
        EXPECT_EQ(t.frameBoxes()[i].emptyMessage, boxes[i][2]);
    }
}

TEST(EditorTable, Jmpqx)
{
    const EditorTable& t = JmpqxTable();
    EXPECT_EQ(t.stem, "Jmpqx");
    EXPECT_EQ(t.caption, "平曲线积木法参数");
    EXPECT_EQ(t.file, "平曲线参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "起点里程", "终点里程", "起点X坐标", "起点Y坐标", "起点方位角", "起点半径",
                                 "终点半径"}));
    EXPECT_EQ(filters(t), std::vector(7, Signed));
    EXPECT_EQ(widths(t), Columns(8, 1500));
    EXPECT_EQ(t.writtenBy(), 6);
    EXPECT_EQ(t.required, 7);
    EXPECT_EQ(t.addRowChecked, (Columns{7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.frames.size(), 0u);
    EXPECT_EQ(t.noRowMessage, "");
    EXPECT_EQ(t.fillIn, (FillInRule{{{2, 1}, {7, 6}}, true}));
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "no Enter, ");
}

TEST(EditorTable, Sqx)
{
    const EditorTable& t = SqxTable();
    EXPECT_EQ(t.stem, "Sqx");
    EXPECT_EQ(t.caption, "竖曲线参数");
    EXPECT_EQ(t.file, "竖曲线参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "变坡点里程", "变坡点高程", "竖曲线半径"}));
    EXPECT_EQ(filters(t), (std::vector{Signed, Signed, Unsigned}));
    EXPECT_EQ(widths(t), Columns(4, 2300));
    EXPECT_EQ(t.writtenBy(), 2);
    EXPECT_EQ(t.required, 3);
    EXPECT_EQ(t.addRowChecked, (Columns{3, 2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{3, 2, 1}));
    EXPECT_EQ(t.noRowMessage, "至少需要输入一个变坡点！");
    EXPECT_EQ(t.fillIn, FillInRule{});
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "");

    ASSERT_EQ(t.frames.size(), 2u);
    EXPECT_EQ(t.frames[0].caption, "起点（必须在竖曲线起点或竖曲线前的直线）");
    EXPECT_EQ(t.frames[1].caption, "终点（必须在竖曲线终点或竖曲线后的直线）");
    ASSERT_EQ(t.frames[0].boxes.size(), 2u);
    ASSERT_EQ(t.frames[1].boxes.size(), 2u);
    constexpr std::string_view boxes[][3] = {{"txtSqxQdLc", "起点里程", "请先输入起点里程！"},
                                             {"txtSqxQdgc", "起点高程", "请先输入起点高程！"},
                                             {"txtSqxZdlc", "终点里程", "请先输入终点里程！"},
                                             {"txtSqxZdgc", "终点高程", "请先输入终点高程！"}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(t.frameBoxes()[i].control, boxes[i][0]);
        EXPECT_EQ(t.frameBoxes()[i].label, boxes[i][1]);
        EXPECT_EQ(t.frameBoxes()[i].emptyMessage, boxes[i][2]);
    }
}

TEST(EditorTable, Cg)
{
    const EditorTable& t = CgTable();
    EXPECT_EQ(t.stem, "Cg");
    EXPECT_EQ(t.caption, "超高参数");
    EXPECT_EQ(t.file, "超高参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "变化起点里程", "起点左幅坡度", "起点右幅坡度", "变化终点里程",
                                 "终点左幅坡度", "终点右幅坡度"}));
    EXPECT_EQ(filters(t), std::vector(6, Signed));
    EXPECT_EQ(widths(t), Columns(7, 1700));
    EXPECT_EQ(t.writtenBy(), 5);
    EXPECT_EQ(t.required, 6);
    EXPECT_EQ(t.addRowChecked, (Columns{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.frames.size(), 0u);
    EXPECT_EQ(t.noRowMessage, "");
    EXPECT_EQ(t.fillIn, (FillInRule{{{4, 1}, {5, 2}, {6, 3}}}));
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "");
}

TEST(EditorTable, Cgkd)
{
    const EditorTable& t = CgkdTable();
    EXPECT_EQ(t.stem, "Cgkd");
    EXPECT_EQ(t.caption, "超高宽度参数");
    EXPECT_EQ(t.file, "超高宽度参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "变化起点里程", "变化终点里程", "中央分隔带宽度", "起点左幅路基宽度",
                                 "起点右幅路基宽度", "起点左幅路肩宽度", "起点右幅路肩宽度", "终点左幅路基宽度",
                                 "终点右幅路基宽度", "终点左幅路肩宽度", "终点右幅路肩宽度", "路肩坡度"}));
    EXPECT_EQ(filters(t), (std::vector{Signed, Signed, Unsigned, Unsigned, Unsigned, Unsigned, Unsigned, Unsigned,
                                       Unsigned, Unsigned, Unsigned, Signed}));
    EXPECT_EQ(widths(t), (Columns{600, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200, 1200}));
    EXPECT_EQ(t.writtenBy(), 11);
    EXPECT_EQ(t.required, 12);
    EXPECT_EQ(t.incompleteChecked, (Columns{12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(t.noRowMessage, "");
    EXPECT_EQ(t.fillIn, (FillInRule{{{2, 1}, {8, 4}, {9, 5}, {10, 6}, {11, 7}}}));
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "scales, ");
}

TEST(EditorTable, CgkdAddRowLooksAtColumnOneInsteadOfEleven)
{
    EXPECT_EQ(CgkdTable().addRowChecked, (Columns{12, 1, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}));
}

TEST(EditorTable, Dxd)
{
    const EditorTable& t = DxdTable();
    EXPECT_EQ(t.stem, "Dxd");
    EXPECT_EQ(t.caption, "导线点设置");
    EXPECT_EQ(t.file, "导线点参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "名称", "X坐标", "Y坐标", "备注"}));
    EXPECT_EQ(filters(t), (std::vector{Any, Signed, Signed, Any}));
    EXPECT_EQ(widths(t), (Columns{1500, 1500, 1500, 1500, 8000}));
    EXPECT_EQ(t.lastColumn(), 4);
    EXPECT_EQ(t.writtenBy(), 3);
    EXPECT_EQ(t.required, 3);
    EXPECT_EQ(t.addRowChecked, (Columns{3, 2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{3, 2, 1}));
    EXPECT_EQ(t.noRowMessage, "");
    EXPECT_EQ(t.fillIn, FillInRule{});
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "can blank, no insert, scales, ");
}

TEST(EditorTable, Dl)
{
    const EditorTable& t = DlTable();
    EXPECT_EQ(t.stem, "Dl");
    EXPECT_EQ(t.caption, "断链参数");
    EXPECT_EQ(t.file, "断链参数.txt");
    EXPECT_EQ(headers(t), (Texts{"序  号", "来向里程", "去向里程"}));
    EXPECT_EQ(filters(t), (std::vector{Signed, Signed}));
    EXPECT_EQ(widths(t), Columns(3, 2000));
    EXPECT_EQ(t.writtenBy(), 1);
    EXPECT_EQ(t.required, 2);
    EXPECT_EQ(t.addRowChecked, (Columns{2, 1}));
    EXPECT_EQ(t.incompleteChecked, (Columns{2, 1}));
    EXPECT_EQ(t.noRowMessage, "");
    EXPECT_EQ(t.fillIn, FillInRule{});
    EXPECT_EQ(t.fields, 0);
    EXPECT_EQ(otherwise(t), "can blank, no insert, ");
}

TEST(EditorTable, EveryHeaderSaysItsUnitOrSign)
{
    for (const EditorTable& t : {JdpqxTable(), JmpqxTable(), SqxTable(), CgTable(), CgkdTable(), DxdTable(), DlTable(),
                                 SlopeTable(kTfz, 5), SlopeTable(kWfy, 10)})
        for (std::size_t col = 1; col < t.columns.size(); ++col) EXPECT_NE(t.columns[col].tip, "") << t.stem << col;
}

const Texts kCutLeftTen{
    "序  号",           "变化起点里程",     "起点左幅路基宽度", "起点一级边坡坡度", "起点一级边坡高度",
    "起点二级平台宽度", "起点二级边坡坡度", "起点二级边坡高度", "起点三级平台宽度", "起点三级边坡坡度",
    "起点三级边坡高度", "起点四级平台宽度", "起点四级边坡坡度", "起点四级边坡高度", "起点五级平台宽度",
    "起点五级边坡坡度", "起点五级边坡高度", "起点六级边坡宽度", "起点六级平台坡度", "起点六级边坡高度",
    "起点七级边坡宽度", "起点七级平台坡度", "起点七级边坡高度", "起点八级边坡宽度", "起点八级平台坡度",
    "起点八级边坡高度", "起点九级边坡宽度", "起点九级平台坡度", "起点九级边坡高度", "起点十级边坡宽度",
    "起点十级平台坡度", "变化终点里程",     "终点左幅路基宽度", "终点一级边坡坡度", "终点一级边坡高度",
    "终点二级平台宽度", "终点二级边坡坡度", "终点二级边坡高度", "终点三级平台宽度", "终点三级边坡坡度",
    "终点三级边坡高度", "终点四级平台宽度", "终点四级边坡坡度", "终点四级边坡高度", "终点五级平台宽度",
    "终点五级边坡坡度", "终点五级边坡高度", "终点六级平台宽度", "终点六级边坡坡度", "终点六级边坡高度",
    "终点七级平台宽度", "终点七级边坡坡度", "终点七级边坡高度", "终点八级平台宽度", "终点八级边坡坡度",
    "终点八级边坡高度", "终点九级平台宽度", "终点九级边坡坡度", "终点九级边坡高度", "终点十级平台宽度",
    "终点十级边坡坡度"};

/// A lower grade count cuts both blocks of the full list behind that grade; the other side changes one word.
Texts cutTo(int g, const std::string& side)
{
    Texts cut{kCutLeftTen[0]};
    for (const int block : {1, 31})
        for (int k = 0; k < 3 * g; ++k) {
            std::string header = kCutLeftTen[static_cast<std::size_t>(block + k)];
            if (const auto at = header.find("左幅"); at != std::string::npos) header.replace(at, 6, side);
            cut.push_back(header);
        }
    return cut;
}

TEST(SlopeTable, HeadersOfEveryGradeCountAndSide)
{
    for (const SlopeKind& kind : {kTfz, kTfy, kWfz, kWfy})
        for (int g = 1; g <= kind.gradeLimit; ++g)
            EXPECT_EQ(headers(SlopeTable(kind, g)), cutTo(g, std::string(kind.side))) << kind.stem << g;
}

TEST(SlopeTable, FillOfTwoGradesOnTheRight)
{
    EXPECT_EQ(headers(SlopeTable(kTfy, 2)),
              (Texts{"序  号", "变化起点里程", "起点右幅路基宽度", "起点一级边坡坡度", "起点一级边坡高度",
                     "起点二级平台宽度", "起点二级边坡坡度", "变化终点里程", "终点右幅路基宽度", "终点一级边坡坡度",
                     "终点一级边坡高度", "终点二级平台宽度", "终点二级边坡坡度"}));
}

TEST(SlopeTable, StartColumnsFromTheSixthGradeOnReadOtherwise)
{
    const Texts h = headers(SlopeTable(kWfy, 6));
    EXPECT_EQ(h[17], "起点六级边坡宽度");
    EXPECT_EQ(h[18], "起点六级平台坡度");
    EXPECT_EQ(h[35], "终点六级平台宽度");
    EXPECT_EQ(h[36], "终点六级边坡坡度");
}

TEST(SlopeTable, TheOddHeadersKeepTheUnsignedFilter)
{
    const EditorTable t = SlopeTable(kWfz, 10);
    for (const int col : {17, 18, 20, 21, 23, 24, 26, 27, 29, 30}) EXPECT_EQ(t.columns[col].filter, Unsigned) << col;
}

TEST(SlopeTable, EveryGradeCount)
{
    for (const SlopeKind& kind : {kTfz, kTfy, kWfz, kWfy})
        for (int g = 1; g <= kind.gradeLimit; ++g) {
            const EditorTable t = SlopeTable(kind, g);
            EXPECT_EQ(t.lastColumn(), 6 * g);
            EXPECT_EQ(t.writtenBy(), 6 * g - 1);
            EXPECT_EQ(t.required, 6 * g);
            EXPECT_EQ(t.columns[0].width, 600);
            for (int col = 1; col <= 6 * g; ++col) {
                const bool stake = col == 1 || col == 3 * g + 1;
                EXPECT_EQ(t.columns[static_cast<std::size_t>(col)].filter, stake ? Signed : Unsigned);
                EXPECT_EQ(t.columns[static_cast<std::size_t>(col)].isStake, stake);
                EXPECT_EQ(t.columns[static_cast<std::size_t>(col)].width, 1200);
            }
            ASSERT_EQ(t.addRowChecked.size(), static_cast<std::size_t>(6 * g));
            EXPECT_EQ(t.addRowChecked.front(), 6 * g);
            EXPECT_EQ(t.addRowChecked.back(), 1);
            EXPECT_TRUE(std::is_sorted(t.addRowChecked.rbegin(), t.addRowChecked.rend()));
            EXPECT_EQ(t.incompleteChecked, t.addRowChecked);
            ASSERT_EQ(t.fillIn.carried.size(), static_cast<std::size_t>(3 * g));
            for (const auto& [from, to] : t.fillIn.carried) EXPECT_EQ(from, 3 * g + to);
            EXPECT_EQ(t.fields, kind.gradeLimit == 5 ? 30 : 60);
            EXPECT_EQ(otherwise(t), "scroll hides, ");
        }
}

TEST(SlopeTable, OutsideTheLimitNoColumnIsSetUp)
{
    for (const SlopeKind& kind : {kTfz, kTfy})
        for (const int g : {-1, 0, 6}) EXPECT_TRUE(SlopeTable(kind, g).columns.empty()) << g;
    for (const SlopeKind& kind : {kWfz, kWfy})
        for (const int g : {-1, 0, 11}) EXPECT_TRUE(SlopeTable(kind, g).columns.empty()) << g;
}

TEST(SlopeTable, TheFourKinds)
{
    struct Row {
        const SlopeKind& kind;
        std::string_view stem, caption, file, side;
        int limit, line;
    };
    for (const Row& r : {Row{kTfz, "Tfz", "左幅填方参数", "左幅填方参数.txt", "左幅", 5, 2},
                         Row{kTfy, "Tfy", "右幅填方参数", "右幅填方参数.txt", "右幅", 5, 2},
                         Row{kWfz, "Wfz", "左幅挖方参数", "左幅挖方参数.txt", "左幅", 10, 3},
                         Row{kWfy, "Wfy", "右幅挖方参数", "右幅挖方参数.txt", "右幅", 10, 3}}) {
        EXPECT_EQ(r.kind.stem, r.stem);
        EXPECT_EQ(r.kind.caption, r.caption);
        EXPECT_EQ(r.kind.file, r.file);
        EXPECT_EQ(r.kind.side, r.side);
        EXPECT_EQ(r.kind.gradeLimit, r.limit);
        EXPECT_EQ(r.kind.settingsLine, r.line);
        EXPECT_EQ(SlopeTable(r.kind, 1).caption, r.caption);
        EXPECT_EQ(SlopeTable(r.kind, 1).file, r.file);
    }
}

TEST(SlopeTable, GradeCountIsTheNumberOfTheLine)
{
    EXPECT_EQ(GradeCountOf("1"), 1);
    EXPECT_EQ(GradeCountOf(" 10 "), 10);
    EXPECT_EQ(GradeCountOf("0"), 0);
    EXPECT_EQ(GradeCountOf("未设置"), 0);
    EXPECT_EQ(GradeCountOf(""), 0);
    EXPECT_EQ(GradeCountOf("-3"), 0);
    EXPECT_EQ(GradeCountOf("1e300"), 0);
}

}  // namespace
