#include "editors/EditorFile.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "editors/EditorText.h"
#include "project/Backups.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

Msg notice(const std::string& text) { return {text, "注意", Icon::Exclamation}; }

Row frames(const EditorTable& t) { return Row(t.frameBoxes().size(), "7"); }

/// Content that an editor may save: two full rows, the second one with other texts.
GridText twoRows(const EditorTable& t) { return gridOf(t, {fullRow(t, "1"), fullRow(t, "22")}); }

// Load

TEST(EditorFile, RowsOfAPlainFile)
{
    const EditorContent c = EditorContentOf(DlTable(), "100,120\r\n200,190\r\n");
    EXPECT_EQ(c.rows, (Rows{{"100", "120"}, {"200", "190"}}));
    EXPECT_TRUE(c.frameTexts.empty());
}

TEST(EditorFile, AnEmptyFileIsOneBlankRow)
{
    for (const EditorTable& t : everyTable()) {
        const EditorContent c = EditorContentOf(t, "");
        EXPECT_EQ(c.rows, Rows{fullRow(t, "")}) << t.stem;
        EXPECT_EQ(c.frameTexts, Row(t.frameBoxes().size()));
    }
}

TEST(EditorFile, AFileWithoutACommaIsOneBlankRow)
{
    for (const EditorTable& t : everyTable())
        EXPECT_EQ(EditorContentOf(t, "abc\r\n\r\n").rows, Rows{fullRow(t, "")}) << t.stem;
}

TEST(EditorFile, AMissingFileIsOneBlankRowAndIsNotMade)
{
    const ProjectFolder folder;
    EXPECT_EQ(LoadEditor(DlTable()).rows, (Rows{{"", ""}}));
    EXPECT_FALSE(folder.has("断链参数.txt"));
}

TEST(EditorFile, LinesBehindTheLastCommaAreIgnored)
{
    EXPECT_EQ(EditorContentOf(DlTable(), "1,2\r\nabc\r\n\r\n").rows, (Rows{{"1", "2"}}));
}

TEST(EditorFile, ALineWithoutACommaBetweenIsARow)
{
    EXPECT_EQ(EditorContentOf(DlTable(), "1,2\r\nabc\r\n\r\n3,4\r\n").rows,
              (Rows{{"1", "2"}, {"abc", ""}, {"", ""}, {"3", "4"}}));
}

TEST(EditorFile, SurplusFieldsAreIgnoredAndMissingOnesAreEmpty)
{
    EXPECT_EQ(EditorContentOf(DlTable(), "1,2,3\r\n4,5\r\n").rows, (Rows{{"1", "2"}, {"4", "5"}}));
    EXPECT_EQ(EditorContentOf(CgTable(), "1,2\r\n").rows, (Rows{{"1", "2", "", "", "", ""}}));
}

TEST(EditorFile, ALastLineWithoutLineEndIsARow)
{
    EXPECT_EQ(EditorContentOf(DlTable(), "1,2\r\n3,4").rows, (Rows{{"1", "2"}, {"3", "4"}}));
}

TEST(EditorFile, StartAndEndLinesGoIntoTheFrames)
{
    const EditorContent jd = EditorContentOf(JdpqxTable(), "0,10,20\r\nJD1,1,2,3,4,5\r\nJD2,6,7,8,9,10\r\n30,40\r\n");
    EXPECT_EQ(jd.frameTexts, (Row{"0", "10", "20", "30", "40"}));
    EXPECT_EQ(jd.rows, (Rows{{"JD1", "1", "2", "3", "4", "5"}, {"JD2", "6", "7", "8", "9", "10"}}));
    const EditorContent sq = EditorContentOf(SqxTable(), "0,10\r\n50,12,1000\r\n100,11\r\n");
    EXPECT_EQ(sq.frameTexts, (Row{"0", "10", "100", "11"}));
    EXPECT_EQ(sq.rows, (Rows{{"50", "12", "1000"}}));
}

TEST(EditorFile, OneOrTwoLinesWhereStartAndEndAreExpectedLeaveOneBlankRow)
{
    EXPECT_EQ(EditorContentOf(SqxTable(), "0,10\r\n100,11\r\n").rows, (Rows{{"", "", ""}}));
    EXPECT_EQ(EditorContentOf(SqxTable(), "0,10\r\n100,11\r\n").frameTexts, (Row{"0", "10", "100", "11"}));
    EXPECT_EQ(EditorContentOf(SqxTable(), "0,10\r\n").rows, (Rows{{"", "", ""}}));
    EXPECT_EQ(EditorContentOf(SqxTable(), "0,10\r\n").frameTexts, (Row{"0", "10", "0", "10"}));
    EXPECT_EQ(EditorContentOf(JdpqxTable(), "0,10\r\n").frameTexts, (Row{"0", "10", "", "0", "10"}));
}

TEST(EditorFile, SlopePaddingIsSkipped)
{
    EXPECT_EQ(
        EditorContentOf(SlopeTable(kTfz, 1), "1,2,3,4,5,6,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n").rows,
        (Rows{{"1", "2", "3", "4", "5", "6"}}));
}

TEST(EditorFile, WithMoreGradesTheOldEndBlockBelongsToTheStartAndThePaddingComesUpAsCells)
{
    const std::string line =
        EditorBytes(SlopeTable(kTfz, 1), gridOf(SlopeTable(kTfz, 1), {{"1", "2", "3", "4", "5", "6"}}), {});
    EXPECT_EQ(EditorContentOf(SlopeTable(kTfz, 2), line).rows,
              (Rows{{"1", "2", "3", "4", "5", "6", "0", "0", "0", "0", "0", "0"}}));
}

TEST(EditorFile, WithFewerGradesTheRestOfTheOldStartBlockIsTakenForTheEnd)
{
    const EditorTable two = SlopeTable(kWfy, 2);
    const std::string line =
        EditorBytes(two, gridOf(two, {{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}}), {});
    EXPECT_EQ(EditorContentOf(SlopeTable(kWfy, 1), line).rows, (Rows{{"1", "2", "3", "4", "5", "6"}}));
}

TEST(EditorFile, ANameWithACommaReadsBackAsTwoFields)
{
    const GridText cells = gridOf(DxdTable(), {{"A,B", "1", "2", "x"}});
    const std::string bytes = EditorBytes(DxdTable(), cells, {});
    EXPECT_EQ(bytes, "A,B,1,2,x\r\n");
    EXPECT_EQ(EditorContentOf(DxdTable(), bytes).rows, (Rows{{"A", "B", "1", "2"}}));
}

// Checks

TEST(EditorFile, ARowWithAnyTextNeedsEveryRequiredColumn)
{
    for (const EditorTable& t : everyTable())
        for (int col = 1; col <= t.lastColumn(); ++col) {
            Row only(static_cast<std::size_t>(t.lastColumn()));
            only[static_cast<std::size_t>(col - 1)] = "5";
            const Outcome lone = CheckEditor(t, gridOf(t, {fullRow(t), only}), frames(t));
            ASSERT_TRUE(lone.refusal) << t.stem << col;
            EXPECT_EQ(lone.refusal->msg, notice("请输入完整的数据！"));
            EXPECT_EQ(lone.refusal->field, "");

            const bool remark = t.stem == "Dxd" && col == 4;
            EXPECT_EQ(CheckEditor(t, gridOf(t, {fullRow(t), rowWithout(t, col)}), frames(t)).refusal.has_value(),
                      !remark)
                << t.stem << col;
        }
}

TEST(EditorFile, ARemarkAloneIsRefusedAndARowWithoutOnePasses)
{
    EXPECT_TRUE(CheckEditor(DxdTable(), gridOf(DxdTable(), {{"", "", "", "remark"}}), {}).refusal);
    EXPECT_FALSE(CheckEditor(DxdTable(), gridOf(DxdTable(), {{"A", "1", "2", ""}}), {}).refusal);
}

TEST(EditorFile, BlankRowsPass)
{
    for (const EditorTable& t : everyTable())
        EXPECT_FALSE(CheckEditor(t, gridOf(t, {fullRow(t), {}, fullRow(t), {}}), frames(t)).refusal) << t.stem;
}

TEST(EditorFile, OnlyTheTwoEditorsWithFramesNeedARow)
{
    for (const EditorTable& t : everyTable()) {
        const Outcome blank = CheckEditor(t, gridOf(t, {{}}), frames(t));
        if (t.stem == "Jdpqx") {
            ASSERT_TRUE(blank.refusal);
            EXPECT_EQ(blank.refusal->msg, notice("至少需要输入一个交点！"));
        } else if (t.stem == "Sqx") {
            ASSERT_TRUE(blank.refusal);
            EXPECT_EQ(blank.refusal->msg, notice("至少需要输入一个变坡点！"));
        } else {
            EXPECT_FALSE(blank.refusal) << t.stem;
        }
    }
}

TEST(EditorFile, TheFirstRowItselfMustBeFilled)
{
    const Outcome o = CheckEditor(SqxTable(), gridOf(SqxTable(), {{}, {"1", "2", "3"}}), frames(SqxTable()));
    ASSERT_TRUE(o.refusal);
    EXPECT_EQ(o.refusal->msg, notice("至少需要输入一个变坡点！"));
}

/// Everything is wrong at first; each check that is met is mended, and the next one speaks.
TEST(EditorFile, OrderOfTheChecksOfTheIntersectionPoints)
{
    Row boxes(5, "  ");
    GridText cells = gridOf(JdpqxTable(), {{"JD1"}});
    const std::pair<const char*, const char*> order[] = {{"txtJdpqxQdLc", "请先输入起点里程！"},
                                                         {"txtJdpqxQdX", "请先输入起点X坐标！"},
                                                         {"txtJdpqxQdy", "请先输入起点Y坐标！"},
                                                         {"txtJdpqxZdx", "请先输入终点X坐标！"},
                                                         {"txtJdpqxZdy", "请先输入终点Y坐标！"}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(CheckEditor(JdpqxTable(), cells, boxes).refusal, (Refusal{notice(order[i].second), order[i].first}));
        boxes[i] = "1";
    }
    EXPECT_EQ(CheckEditor(JdpqxTable(), cells, boxes).refusal, (Refusal{notice("请输入完整的数据！"), ""}));
    cells.setText(1, 1, "");
    EXPECT_EQ(CheckEditor(JdpqxTable(), cells, boxes).refusal, (Refusal{notice("至少需要输入一个交点！"), ""}));
}

TEST(EditorFile, OrderOfTheChecksOfTheVerticalCurve)
{
    Row boxes(4);
    GridText cells = gridOf(SqxTable(), {{"1"}});
    const std::pair<const char*, const char*> order[] = {{"txtSqxQdLc", "请先输入起点里程！"},
                                                         {"txtSqxQdgc", "请先输入起点高程！"},
                                                         {"txtSqxZdlc", "请先输入终点里程！"},
                                                         {"txtSqxZdgc", "请先输入终点高程！"}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(CheckEditor(SqxTable(), cells, boxes).refusal, (Refusal{notice(order[i].second), order[i].first}));
        boxes[i] = "1";
    }
    EXPECT_EQ(CheckEditor(SqxTable(), cells, boxes).refusal, (Refusal{notice("请输入完整的数据！"), ""}));
    cells.setText(1, 1, "");
    EXPECT_EQ(CheckEditor(SqxTable(), cells, boxes).refusal, (Refusal{notice("至少需要输入一个变坡点！"), ""}));
}

// Bytes

TEST(EditorFile, FileOfTheIntersectionPointsReadsStartRowsEnd)
{
    EXPECT_EQ(EditorBytes(JdpqxTable(), gridOf(JdpqxTable(), {{"JD1", "1", "2", "0", "0", "5"}}),
                          {" 0 ", "10", "20", "30", " 40"}),
              "0,10,20\r\nJD1,1,2,0,0,5\r\n30,40\r\n");
}

TEST(EditorFile, FileOfTheVerticalCurveReadsStartRowsEnd)
{
    EXPECT_EQ(EditorBytes(SqxTable(), gridOf(SqxTable(), {{"50", "12", "1000"}, {}, {"60", "13", "900"}}),
                          {"0", "10", "100", "11"}),
              "0,10\r\n50,12,1000\r\n60,13,900\r\n100,11\r\n");
}

TEST(EditorFile, TheRemarkMayBeEmptyAndTheLineHasFourFields)
{
    EXPECT_EQ(EditorBytes(DxdTable(), gridOf(DxdTable(), {{"A", "1", "2", ""}, {"B", "3", "4", "r"}}), {}),
              "A,1,2,\r\nB,3,4,r\r\n");
}

TEST(EditorFile, ChineseGoesToDiskInTheCodePage)
{
    EXPECT_EQ(EditorBytes(DxdTable(), gridOf(DxdTable(), {{"点", "1", "2", ""}}), {}), "\xB5\xE3,1,2,\r\n");
}

TEST(EditorFile, ARowIsWrittenByItsLastColumnButOne)
{
    for (const EditorTable& t : everyTable()) {
        Row only(static_cast<std::size_t>(t.lastColumn()));
        only[static_cast<std::size_t>(t.lastColumn() - 2)] = "5";
        const std::string none = EditorBytes(t, gridOf(t, {rowWithout(t, t.lastColumn() - 1)}), frames(t));
        const std::string one = EditorBytes(t, gridOf(t, {only}), frames(t));
        const auto count = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
        const auto frameLines = static_cast<std::ptrdiff_t>(t.frames.size());
        EXPECT_EQ(count(none), frameLines) << t.stem;
        EXPECT_EQ(count(one), frameLines + 1) << t.stem;
    }
}

TEST(EditorFile, ALineEndInACellCutsItInEveryEditor)
{
    for (const EditorTable& t : everyTable()) {
        Row cut = fullRow(t, "1\r\n2");
        EXPECT_EQ(EditorBytes(t, gridOf(t, {cut}), frames(t)), EditorBytes(t, gridOf(t, {fullRow(t, "1")}), frames(t)))
            << t.stem;
    }
}

TEST(EditorFile, ALineFeedAloneIsNoLineEnd)
{
    EXPECT_EQ(EditorBytes(DlTable(), gridOf(DlTable(), {{"1\n2", "3"}}), {}), "1\n2,3\r\n");
}

TEST(EditorFile, AnAllBlankGridIsAnEmptyFile)
{
    for (const EditorTable& t : everyTable())
        if (t.frames.empty()) {
            EXPECT_EQ(EditorBytes(t, gridOf(t, {{}, {}}), {}), "") << t.stem;
        }
}

/// Zeros behind the real fields, by grade count.
TEST(EditorFile, SlopeLinesHoldThirtyOrSixtyFields)
{
    constexpr int fillZeros[] = {0, 24, 18, 12, 6, 0};
    constexpr int cutZeros[] = {0, 54, 48, 42, 36, 30, 24, 18, 12, 6, 0};
    for (const SlopeKind& kind : {kTfz, kTfy, kWfz, kWfy})
        for (int g = 1; g <= kind.gradeLimit; ++g) {
            const EditorTable t = SlopeTable(kind, g);
            std::string expected = "7";
            for (int i = 1; i < 6 * g; ++i) expected += ",7";
            for (int i = 0; i < (kind.gradeLimit == 5 ? fillZeros : cutZeros)[g]; ++i) expected += ",0";
            EXPECT_EQ(EditorBytes(t, gridOf(t, {fullRow(t, "7")}), {}), expected + "\r\n") << t.stem << g;
        }
}

TEST(EditorFile, FiveFillGradesEndOnTheLastRealField)
{
    const EditorTable t = SlopeTable(kTfy, 5);
    EXPECT_EQ(EditorBytes(t, gridOf(t, {fullRow(t, "7")}), {}),
              "7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7,7\r\n");
}

TEST(EditorFile, AnyGradeCountReadsALineOfAnyOther)
{
    for (const SlopeKind& kind : {kTfz, kWfy})
        for (int written = 1; written <= kind.gradeLimit; ++written)
            for (int read = 1; read <= kind.gradeLimit; ++read) {
                const EditorTable from = SlopeTable(kind, written), to = SlopeTable(kind, read);
                const auto rows = EditorContentOf(to, EditorBytes(from, gridOf(from, {fullRow(from, "7")}), {})).rows;
                ASSERT_EQ(rows.size(), 1u);
                for (int col = 1; col <= 6 * read; ++col)
                    EXPECT_EQ(rows[0][static_cast<std::size_t>(col - 1)], col <= 6 * written ? "7" : "0");
            }
}

// Save

TEST(EditorFile, ARefusalLeavesTheFileAlone)
{
    const ProjectFolder folder{{"断链参数.txt", "1,2\r\n"}};
    EXPECT_FALSE(SaveEditor(DlTable(), gridOf(DlTable(), {{"5", ""}}), {}));
    EXPECT_EQ(folder.bytes("断链参数.txt"), "1,2\r\n");
}

TEST(EditorFile, SaveReplacesTheWholeFile)
{
    for (const EditorTable& t : everyTable()) {
        const ProjectFolder folder{{std::string(t.file), "old,old,old\r\nold,old\r\n"}};
        EXPECT_TRUE(SaveEditor(t, twoRows(t), frames(t)));
        EXPECT_EQ(folder.bytes(std::string(t.file)), EditorBytes(t, twoRows(t), frames(t))) << t.stem;
        const EditorContent back = LoadEditor(t);
        EXPECT_EQ(back.rows, (Rows{fullRow(t, "1"), fullRow(t, "22")})) << t.stem;
        EXPECT_EQ(back.frameTexts, frames(t)) << t.stem;
    }
}

TEST(EditorFile, SaveKeepsTheRowsThatItReplaces)
{
    for (const EditorTable& t : everyTable()) {
        const std::string file(t.file), old = "old,old,old\r\n\xFF\xFE,old\r\n";
        const ProjectFolder folder;
        folder.writeBytes(file, old);
        const Shared before = shared;
        EXPECT_TRUE(SaveEditor(t, twoRows(t), frames(t)));
        const auto kept = BackupsOf(gProject);
        ASSERT_EQ(kept.size(), 1u) << t.stem;
        EXPECT_EQ(kept[0].file, file);
        EXPECT_EQ(folder.bytesOf(kept[0].path), old);
        EXPECT_TRUE(SaveEditor(t, twoRows(t), frames(t)));
        EXPECT_EQ(BackupsOf(gProject).size(), 1u) << "the same bytes again lose nothing";
        EXPECT_EQ(shared, before);
        EXPECT_EQ(folder.filesIn(ProjectPath(gProject)).size(), 1u);
    }
}

TEST(EditorFile, SaveKeepsNothingWhereNoRowIsLost)
{
    const EditorTable t = DlTable();
    for (const char* old : {"", "\r\n", "no row\r\n"}) {
        const ProjectFolder folder{{std::string(t.file), old}};
        EXPECT_TRUE(SaveEditor(t, twoRows(t), frames(t)));
        EXPECT_FALSE(std::filesystem::exists(gAppPath + "/备份"));
    }
    const ProjectFolder folder{{std::string(t.file), "1,2\r\n"}};
    EXPECT_FALSE(SaveEditor(t, gridOf(t, {{"5", ""}}), {}));
    EXPECT_FALSE(std::filesystem::exists(gAppPath + "/备份")) << "a refused one";
}

TEST(EditorFile, ABackupThatFailsDoesNotStopTheSave)
{
    const EditorTable t = DlTable();
    const ProjectFolder folder{{std::string(t.file), "1,2\r\n"}};
    std::ofstream(gAppPath + "/备份") << "in the way";
    EXPECT_TRUE(SaveEditor(t, twoRows(t), frames(t)));
    EXPECT_EQ(folder.bytes(std::string(t.file)), EditorBytes(t, twoRows(t), frames(t)));
    EXPECT_TRUE(roadText().doubtful);
    EXPECT_TRUE(roadText().text.starts_with("断链参数.txt 没有备份：")) << roadText().text;
}

TEST(EditorFile, TextThatTheCodePageLacksIsNamedAndTheFileStays)
{
    const ProjectFolder folder{{"导线点参数.txt", "A,1,2,\r\n"}};
    const Outcome cell = SaveEditor(DxdTable(), gridOf(DxdTable(), {{"A", "1", "2", "😀"}}), {});
    ASSERT_TRUE(cell.refusal);
    EXPECT_EQ(cell.refusal->msg, notice("第 1 行“备注”中有文件不能保存的字符！"));
    EXPECT_EQ(folder.bytes("导线点参数.txt"), "A,1,2,\r\n");

    const Outcome box = SaveEditor(SqxTable(), gridOf(SqxTable(), {{"1", "2", "3"}}), {"1", "😀", "1", "1"});
    ASSERT_TRUE(box.refusal);
    EXPECT_EQ(box.refusal->msg, notice("“起点高程”中有文件不能保存的字符！"));
    EXPECT_EQ(box.refusal->field, "txtSqxQdgc");
    EXPECT_FALSE(folder.has("竖曲线参数.txt"));
}

/// The grid of a load.
GridText loaded(const EditorTable& table, const EditorContent& content)
{
    GridText cells = gridOf(table, content.rows);
    for (const EditorContent::Kept& kept : content.keptCells) cells.keepBytes(kept.row, kept.col, kept.bytes);
    return cells;
}

TEST(EditorFile, DamagedBytesOfAnUnchangedFieldStay)
{
    const std::string damaged = "A\xFF"
                                "B,1,2,\xB5\xE3\r\n\x81,3,4,\r\n";
    const ProjectFolder folder;
    folder.writeBytes("导线点参数.txt", damaged);
    const EditorContent c = LoadEditor(DxdTable());
    EXPECT_EQ(c.rows[0][3], "点");
    EXPECT_TRUE(SaveEditor(DxdTable(), loaded(DxdTable(), c), {}, c.keptFrames));
    EXPECT_EQ(folder.bytes("导线点参数.txt"), damaged);
}

/// Remarks that another program saved as UTF-8: bytes that code page 936 does not know, shown alike.
constexpr std::string_view kAlike[] = {"\xFF\xE4", "\xFE\xE4", "\xFF\xF5"};

std::string pointsWith(std::initializer_list<std::string_view> remarks)
{
    std::string file;
    for (const std::string_view remark : remarks) file.append("P,1,2,").append(remark).append("\r\n");
    return file;
}

TEST(EditorFile, FieldsThatLookAlikeKeepTheirOwnBytes)
{
    const std::string file = pointsWith({kAlike[0], kAlike[1], kAlike[2], kAlike[0]});
    const EditorContent c = EditorContentOf(DxdTable(), file);
    ASSERT_EQ(c.rows[0][3], c.rows[1][3]);
    ASSERT_EQ(c.rows[1][3], c.rows[2][3]);
    EXPECT_EQ(EditorBytes(DxdTable(), loaded(DxdTable(), c), {}), file);
}

TEST(EditorFile, KeptBytesGoWithTheirRow)
{
    const EditorContent c = EditorContentOf(DxdTable(), pointsWith({kAlike[0], kAlike[1], kAlike[2]}));
    GridText cells = loaded(DxdTable(), c);
    cells.removeRow(1);
    EXPECT_EQ(EditorBytes(DxdTable(), cells, {}), pointsWith({kAlike[1], kAlike[2]}));
    cells.insertRow(1);
    EXPECT_EQ(EditorBytes(DxdTable(), cells, {}), pointsWith({kAlike[1], kAlike[2]}));
    cells.setText(3, 4, "x");
    EXPECT_EQ(EditorBytes(DxdTable(), cells, {}), pointsWith({kAlike[1], "x"}));
}

/// Entering and leaving a cell takes the blanks around its text away, and nothing else.
TEST(EditorFile, ADamagedFieldThatWasOnlyEnteredLosesItsOuterBlanks)
{
    const EditorContent c = EditorContentOf(DxdTable(), pointsWith({" \xFF\xE4  ", "\xFE\xE4"}));
    GridText cells = loaded(DxdTable(), c);
    cells.setText(1, 4, std::string(Trim(cells.text(1, 4))));
    EXPECT_EQ(EditorBytes(DxdTable(), cells, {}), pointsWith({"\xFF\xE4", "\xFE\xE4"}));
}

TEST(EditorFile, ADamagedTextThatWasCopiedElsewhereIsRefusedByName)
{
    const ProjectFolder folder;
    const EditorContent c = EditorContentOf(DxdTable(), pointsWith({kAlike[0], "r"}));
    GridText cells = loaded(DxdTable(), c);
    cells.setText(2, 4, cells.text(1, 4));
    const Outcome saved = SaveEditor(DxdTable(), cells, {});
    ASSERT_TRUE(saved.refusal);
    EXPECT_EQ(saved.refusal->msg, notice("第 2 行“备注”中有文件不能保存的字符！"));
}

TEST(EditorFile, DamagedFrameBoxesKeepTheirOwnBytes)
{
    const std::string file = "\xFF,\xFE\r\n1,2,3\r\n\xFF\xE4,\xFE\xE4\r\n";
    const EditorContent c = EditorContentOf(SqxTable(), file);
    EXPECT_EQ(EditorBytes(SqxTable(), loaded(SqxTable(), c), c.frameTexts, c.keptFrames), file);
}

TEST(EditorFile, AFolderThatIsGoneIsAFileError)
{
    const ProjectFolder folder;
    std::filesystem::remove_all(ProjectPath(gProject));
    EXPECT_THROW(SaveEditor(DlTable(), gridOf(DlTable(), {{"1", "2"}}), {}), RunTimeError);
}

TEST(EditorFile, EverySampleFileSavedUnchangedIsTheSame)
{
    const auto sameBytes = [](const std::string& project, const EditorTable& t) {
        const std::string path = std::string(VM_SOURCE_DIR) + "/samples/" + project + "/" + std::string(t.file);
        const std::string bytes = ProjectFolder::bytesOf(path);
        ASSERT_NE(bytes, "") << path;
        const EditorContent c = EditorContentOf(t, bytes);
        EXPECT_EQ(EditorBytes(t, loaded(t, c), c.frameTexts, c.keptFrames), bytes) << path;
    };
    for (const EditorTable& t : {JdpqxTable(), SqxTable(), CgTable(), CgkdTable(), DxdTable(), DlTable(),
                                 SlopeTable(kTfz, 2), SlopeTable(kTfy, 2), SlopeTable(kWfz, 3), SlopeTable(kWfy, 3)})
        sameBytes("示例一", t);
    for (const EditorTable& t : {JmpqxTable(), SqxTable(), CgTable(), CgkdTable(), DxdTable()}) sameBytes("示例二", t);
}

}  // namespace
