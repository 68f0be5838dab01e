// Which window edits a line of a project's file, and at which cell.

#include "editors/TextPlace.h"
#include "editors/Wizard.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const EditorPlace& place, std::ostream* out)
{
    *out << "row " << place.row << " col " << place.col << " box " << place.frameBox;
}

namespace {

constexpr auto kSettings = "其他参数.txt";

TEST(TextPlace, EachFileHasTheOptionOfItsEditor)
{
    const ProjectFolder folder{{kSettings, "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"}};
    const EditorTable tables[] = {DxdTable(), JdpqxTable(), SqxTable(), CgTable(), CgkdTable(), DlTable()};
    for (int option = 0; option < 6; ++option) EXPECT_EQ(OptionOf({std::string(tables[option].file), 3, 1}), option);
    const SlopeKind slopes[] = {kTfz, kTfy, kWfz, kWfy};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(OptionOf({std::string(slopes[i].file), 0, 0}), 7 + i);
    EXPECT_EQ(OptionOf({"导入报告.txt", 1, 1}), std::nullopt);
}

TEST(TextPlace, TheSettingsAreEditedAsFarAsTheyCanBe)
{
    const ProjectFolder folder{{kSettings, "abc\r\n线性\r\n9\r\n3\r\n12\r\n"}};
    EXPECT_EQ(OptionOf({kSettings, 0, 0}), std::nullopt);
    EXPECT_EQ(OptionOf({kSettings, 1, 0}), std::nullopt) << "a model is chosen once";
    EXPECT_EQ(OptionOf({kSettings, 2, 0}), std::nullopt);
    for (int line = 3; line <= 5; ++line) EXPECT_EQ(OptionOf({kSettings, line, 0}), 6);
    EXPECT_EQ(OptionOf({kSettings, 6, 0}), std::nullopt);
    folder.write(kSettings, "未设置\r\n未设置\r\n未设置\r\n未设置\r\n未设置\r\n");
    EXPECT_EQ(OptionOf({kSettings, 1, 0}), 1);
    EXPECT_EQ(OptionOf({kSettings, 2, 0}), 3);
    folder.remove(kSettings);
    EXPECT_EQ(OptionOf({kSettings, 1, 0}), std::nullopt);
}

TEST(TextPlace, ALineIsARowAndAFieldAColumn)
{
    const std::string bytes = "0,-2,-2,100,-2,-2\r\n100,-2,-2,200,4,-4\r\n\r\n200,1,2,300,4,5\r\nabc\r\n";
    const auto at = [&](int line, int field) { return PlaceInEditor(CgTable(), bytes, line, field); };
    EXPECT_EQ(at(2, 4), (EditorPlace{2, 4}));
    EXPECT_EQ(at(2, 0), (EditorPlace{2, 1})) << "the whole line";
    EXPECT_EQ(at(2, 9), (EditorPlace{2, 6})) << "beyond the columns";
    EXPECT_EQ(at(3, 0), (EditorPlace{3, 1})) << "a blank line is a row too";
    EXPECT_EQ(at(4, 1), (EditorPlace{4, 1}));
    EXPECT_EQ(at(5, 0), std::nullopt) << "behind the last comma";
    EXPECT_EQ(at(0, 0), std::nullopt);
    EXPECT_EQ(at(99, 1), std::nullopt);
    EXPECT_EQ(PlaceInEditor(CgTable(), "", 1, 1), std::nullopt);
}

TEST(TextPlace, FirstAndLastLineAreTheBoxesAboveTheGrid)
{
    const std::string bytes = "0,1,2\r\nJD1,3,4,5,6,7\r\nJD2,8,9,10,11,12\r\n13,14\r\n";
    const auto at = [&](int line, int field) { return PlaceInEditor(JdpqxTable(), bytes, line, field); };
    EXPECT_EQ(at(1, 0), (EditorPlace{0, 0, 0}));
    EXPECT_EQ(at(1, 3), (EditorPlace{0, 0, 2}));
    EXPECT_EQ(at(1, 7), (EditorPlace{0, 0, 2}));
    EXPECT_EQ(at(2, 6), (EditorPlace{1, 6}));
    EXPECT_EQ(at(3, 1), (EditorPlace{2, 1}));
    EXPECT_EQ(at(4, 1), (EditorPlace{0, 0, 3}));
    EXPECT_EQ(at(4, 2), (EditorPlace{0, 0, 4}));
    EXPECT_EQ(at(4, 3), (EditorPlace{0, 0, 4}));
    EXPECT_EQ(at(5, 1), std::nullopt);
    // One line alone is both; its fields show in the boxes of the first one too.
    EXPECT_EQ(PlaceInEditor(SqxTable(), "0,100\r\n", 1, 2), (EditorPlace{0, 0, 1}));
}

TEST(TextPlace, OfASlopeTheGradesDecideHowManyColumnsThereAre)
{
    const std::string bytes = "0,5,1.5,100,5,1.5,0,0,0,0\r\n";
    EXPECT_EQ(PlaceInEditor(SlopeTable(kTfz, 1), bytes, 1, 4), (EditorPlace{1, 4}));
    EXPECT_EQ(PlaceInEditor(SlopeTable(kTfz, 1), bytes, 1, 10), (EditorPlace{1, 6}));
    EXPECT_EQ(PlaceInEditor(SlopeTable(kTfz, 2), bytes, 1, 10), (EditorPlace{1, 10}));
    EXPECT_EQ(PlaceInEditor(SlopeTable(kTfz, 0), bytes, 1, 1), std::nullopt) << "nothing can be edited";
}

}  // namespace
