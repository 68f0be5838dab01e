#include "office/Xls.h"

#include "office/RandomSheets.h"
#include "office/XlsWords.h"
#include "office/XlsWorkbooks.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace {

std::string fileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Lines of `now` that `before` does not hold and the other way round, marked + and -.
std::string differenceInWords(const std::string& before, const std::string& now)
{
    std::multiset<std::string> gone;
    std::string words, line;
    for (std::istringstream in(before); std::getline(in, line);) gone.insert(line);
    for (std::istringstream in(now); std::getline(in, line);) {
        if (const auto found = gone.find(line); found != gone.end())
            gone.erase(found);
        else
            words += "+ " + line + '\n';
    }
    for (const auto& missing : gone) words += "- " + missing + '\n';
    return words.empty() ? "the same records in another order" : words;
}

}  // namespace

TEST(Xls, EmptySheet)
{
    const auto file = XlsBytes({});
    EXPECT_EQ(xls::difference({}, file), "");
    EXPECT_EQ(xls::read(file).rowCount, 0);
    EXPECT_EQ(xls::read(file).colCount, 0);
}

TEST(Xls, RowsThatEachPageRepeatsAndItsNumber)
{
    Worksheet sheet;
    sheet.setText("a1", "标题");
    sheet.page.titleRows = 2;
    sheet.page.pageNumbers = true;
    const auto file = XlsBytes(sheet);
    EXPECT_EQ(xls::difference(sheet, file), "");
    EXPECT_EQ(xls::read(file).page, sheet.page);
    EXPECT_EQ(xls::read(file).footer, "&C第 &P 页，共 &N 页");
    sheet.page = {};
    EXPECT_EQ(xls::read(XlsBytes(sheet)).page, PageSetup{});
    EXPECT_EQ(xls::read(XlsBytes(sheet)).footer, "");
}

TEST(Xls, SameBytesEachTimeHoweverTheSheetCame)
{
    Worksheet there, back;
    there.setBold("a1:c3", true);
    there.setInterior("b2", 35);
    there.setValue("a1", "左");
    there.setValue("c3", "右");
    back.setInterior("b2", 35);
    back.setItalic("d4", true);
    back.setItalic("d4", false);
    back.setValue("c3", "右");
    back.setValue("a1", "左");
    back.setBold("a1:c3", true);
    EXPECT_EQ(there, back);
    EXPECT_EQ(XlsBytes(there), XlsBytes(back));
}

TEST(Xls, StreamTakesTheSameBytes)
{
    std::ostringstream out;
    SaveXls(workbooks::exported(), out);
    EXPECT_EQ(out.str(), XlsBytes(workbooks::exported()));
}

TEST(Xls, LooksAreKeptOnce)
{
    Worksheet sheet;
    for (int row = 1; row <= 300; ++row)
        for (int col = 1; col <= 20; ++col) sheet.setBold({row, col}, (row + col) % 2);
    EXPECT_EQ(xls::read(XlsBytes(sheet)).styles.size(), 15u + 2);
}

TEST(Xls, LooksThatNoCellHasAnyMoreAreLeftOut)
{
    Worksheet sheet;
    sheet.borders("a1:c9", xlEdgeTop, xlContinuous, xlThin);
    sheet.borders("a1:c9", xlEdgeTop, xlContinuous, xlMedium);
    EXPECT_EQ(xls::read(XlsBytes(sheet)).styles.size(), 15u + 2);
}

TEST(Xls, WholeColumnLookStandsInTheColumn)
{
    Worksheet sheet;
    sheet.setNumberFormat("b:c", "@");
    sheet.setValue("b2", "007");
    const auto file = XlsBytes(sheet);
    EXPECT_EQ(xls::difference(sheet, file), "");
    EXPECT_EQ(xls::read(file).cells.size(), 1u);
    EXPECT_EQ(xls::read(file).style(65536, 3).numberFormat, "@");
}

TEST(Xls, ColumnWidthInDigitsOfTheStandardFont)
{
    // A digit of the standard font is 8 pixels wide and a cell has 5 more around its text; below one digit the 13
    // pixels of a cell of one digit shrink in proportion.
    Worksheet sheet;
    sheet.setColumnWidth("a:a", 6);
    sheet.setColumnWidth("b:b", 50);
    sheet.setColumnWidth("c:c", 0.5);
    sheet.setColumnWidth("d:d", 0);
    const auto book = xls::read(XlsBytes(sheet));
    EXPECT_EQ(book.columns.at(1).width, (6u * 8 + 5) * 256 / 8);
    EXPECT_EQ(book.columns.at(2).width, (50u * 8 + 5) * 256 / 8);
    EXPECT_EQ(book.columns.at(3).width, 7u * 256 / 8);
    EXPECT_EQ(book.columns.at(4).width, 0u);
}

TEST(Xls, DiagonalsShareTheLineThatRunsDown)
{
    Worksheet sheet;
    sheet.borders("a1", xlDiagonalDown, xlContinuous, xlThin);
    sheet.borders("a1", xlDiagonalUp, xlContinuous, xlMedium, 3);
    const auto book = xls::read(XlsBytes(sheet));
    const CellLine thin{xlThin, xlColorIndexAutomatic};
    EXPECT_EQ(book.style(1, 1).line(xlDiagonalDown), thin);
    EXPECT_EQ(book.style(1, 1).line(xlDiagonalUp), thin);
}

TEST(Xls, MoreMergesThanARecordHolds)
{
    Worksheet sheet;
    for (int row = 1; row <= 3000; row += 2) sheet.merge({row, 1, row + 1, 1});
    EXPECT_EQ(xls::difference(sheet, XlsBytes(sheet)), "");
}

TEST(Xls, LastCellOfTheSheet)
{
    Worksheet sheet;
    sheet.setText("iv65536", "末");
    sheet.setInterior("iu65536", 35);
    const auto book = xls::read(XlsBytes(sheet));
    EXPECT_EQ(book.cells.size(), 2u);
    EXPECT_EQ(book.value(65536, 256), CellValue("末"));
    EXPECT_EQ(book.style(65536, 255).fillColor, 35);
    EXPECT_EQ(book.rowCount, 65536);
    EXPECT_EQ(book.colCount, 256);
}

TEST(Xls, WholeSheetOfLooks)
{
    Worksheet sheet;
    sheet.center({1, 1, kSheetRows, kSheetCols});
    EXPECT_LT(XlsBytes(sheet).size(), 8000u);
}

TEST(Xls, LongestText)
{
    Worksheet sheet;
    std::string text;
    for (int i = 0; i < 32767; ++i) text += "桩";
    sheet.setText("a1", text);
    sheet.setText("a2", std::string(32767, 'x'));
    const auto file = XlsBytes(sheet);
    EXPECT_EQ(xls::difference(sheet, file), "");
    EXPECT_EQ(xls::read(file).strings.cutTexts, (std::vector<std::size_t>{0, 1}));
}

TEST(Xls, StringTableCutWithinChineseTexts)
{
    const auto file = XlsBytes(workbooks::chineseTexts());
    EXPECT_EQ(xls::difference(workbooks::chineseTexts(), file), "");
    EXPECT_GT(xls::read(file).strings.cutTexts.size(), 50u);
}

TEST(Xls, SurrogatePairsAreNeverCut)
{
    for (int lead = 0; lead < 4; ++lead) {
        Worksheet sheet;
        std::string text(static_cast<std::size_t>(lead), 'x');
        for (int i = 0; i < 15000; ++i) text += "𠀀";
        sheet.setText("a1", text);
        const auto file = XlsBytes(sheet);
        EXPECT_EQ(xls::difference(sheet, file), "");
        const auto list = xls::records(xls::workbookStream(file));
        for (const auto& record : list) {
            if (record.kind != 0x003C) continue;
            EXPECT_EQ(xls::hexBytes(record.body.substr(0, 3)), "01 40 D8");
        }
    }
}

TEST(Xls, TenThousandRandomSheetsComeBackEqual)
{
    for (unsigned seed = 1; seed <= 10000; ++seed) {
        const auto sheet = random_sheets::sheet(seed);
        const auto different = xls::difference(sheet, XlsBytes(sheet));
        ASSERT_EQ(different, "") << "seed " << seed;
    }
}

TEST(Xls, DifferenceOfTwoWorkbooksCanBeRead)
{
    Worksheet before, now;
    before.setValue("b2", "12.5");
    now.setValue("b2", "-3");
    now.setBold("b2", true);
    // A font and a look are 24 bytes each, so that the sheet begins 48 bytes further on.
    EXPECT_EQ(differenceInWords(xls::words(XlsBytes(before)), xls::words(XlsBytes(now))),
              "+ FONT 12 points, bold, colour 7FFF, weight 700, character set 134, \"宋体\"\n"
              "+ XF font 5, format 0, of style 0, across general, down bottom, own 8, left none, right none, top none, "
              "bottom none, diagonal none, fill none\n"
              "+ BOUNDSHEET at 624, kind 0, \"Sheet1\"\n"
              "+ RK B2 XF 16 -3\n"
              "- BOUNDSHEET at 576, kind 0, \"Sheet1\"\n"
              "- RK B2 XF 15 12.5\n");
}

// Golden workbooks: one a feature. A new one is read by other programs first (ctest -L readers), then kept.
TEST(Xls, GoldenWorkbooks)
{
    for (const auto& [name, sheet] : workbooks::golden()) {
        const auto kept = fileBytes(VM_SOURCE_DIR "/tests/office/golden/" + std::string(name) + ".xls");
        const auto now = XlsBytes(sheet());
        ASSERT_FALSE(kept.empty()) << name;
        EXPECT_TRUE(kept == now) << name << '\n' << differenceInWords(xls::words(kept), xls::words(now));
    }
}
