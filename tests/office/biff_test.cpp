// The bytes of each kind of record, from the format documents.

#include "office/Biff.h"

#include "office/StringTable.h"
#include "office/StyleTable.h"
#include "office/XlsWords.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// The bytes that a record function appends.
template <class... Given, class... Args>
std::string bytesOf(void (*append)(std::string&, Given...), Args&&... args)
{
    std::string out;
    append(out, std::forward<Args>(args)...);
    return xls::hexBytes(out);
}

/// The body of a look's XF record.
std::string bodyOfXf(const CellStyle& style)
{
    std::string out;
    biff::cellXf(out, 0, 0, style);
    EXPECT_EQ(xls::hexBytes(out.substr(0, 4)), "E0 00 14 00");
    return xls::hexBytes(out.substr(4));
}

}  // namespace

TEST(Biff, Bof)
{
    EXPECT_EQ(bytesOf(biff::bof, biff::Substream::Globals),
              "09 08 10 00 00 06 05 00 BB 0D CC 07 00 00 00 00 06 00 00 00");
    EXPECT_EQ(bytesOf(biff::bof, biff::Substream::Sheet),
              "09 08 10 00 00 06 10 00 BB 0D CC 07 00 00 00 00 06 00 00 00");
}

TEST(Biff, Eof) { EXPECT_EQ(bytesOf(biff::eof), "0A 00 00 00"); }

TEST(Biff, CodePage) { EXPECT_EQ(bytesOf(biff::codePage), "42 00 02 00 B0 04"); }

TEST(Biff, DateMode) { EXPECT_EQ(bytesOf(biff::dateMode), "22 00 02 00 00 00"); }

TEST(Biff, Window1)
{
    EXPECT_EQ(bytesOf(biff::window1), "3D 00 12 00 00 00 00 00 00 4B F8 2A 38 00 00 00 00 00 01 00 58 02");
}

TEST(Biff, FontChinese)
{
    EXPECT_EQ(bytesOf(biff::font, biff::Font{"黑体", 20, false, false}),
              "31 00 14 00 90 01 00 00 FF 7F 90 01 00 00 00 00 86 00 02 01 D1 9E 53 4F");
}

TEST(Biff, FontBoldItalicAscii)
{
    EXPECT_EQ(bytesOf(biff::font, biff::Font{"Ar", 10.5, true, true}),
              "31 00 12 00 D2 00 03 00 FF 7F BC 02 00 00 00 00 00 00 02 00 41 72");
}

TEST(Biff, Format) { EXPECT_EQ(bytesOf(biff::format, 164, "0.0"), "1E 04 08 00 A4 00 03 00 00 30 2E 30"); }

TEST(Biff, XfOfStyles)
{
    EXPECT_EQ(bytesOf(biff::styleXf, true), "E0 00 14 00 00 00 00 00 F5 FF 20 00 00 00 00 00 00 00 00 00 00 00 C0 20");
    EXPECT_EQ(bytesOf(biff::styleXf, false), "E0 00 14 00 00 00 00 00 F5 FF 20 00 00 F4 00 00 00 00 00 00 00 00 C0 20");
}

TEST(Biff, XfOfThePlainCell) { EXPECT_EQ(bodyOfXf({}), "00 00 00 00 01 00 20 00 00 00 00 00 00 00 00 00 00 00 C0 20"); }

TEST(Biff, XfFontAndFormat)
{
    EXPECT_EQ(bytesOf(biff::cellXf, 5, 49, CellStyle()),
              "E0 00 14 00 05 00 31 00 01 00 20 00 00 0C 00 00 00 00 00 00 00 00 C0 20");
}

TEST(Biff, XfAlignment)
{
    CellStyle style;
    style.horizontal = style.vertical = xlCenter;
    style.wrap = true;
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 1A 00 00 10 00 00 00 00 00 00 00 00 C0 20");
    style.horizontal = xlRight;
    style.vertical = xlTop;
    style.wrap = false;
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 03 00 00 10 00 00 00 00 00 00 00 00 C0 20");
}

TEST(Biff, XfLines)
{
    // left medium 2, right thin 1, top thick 5, bottom hair 7, all of the automatic colour 64
    CellStyle style;
    style.line(xlEdgeLeft).weight = xlMedium;
    style.line(xlEdgeRight).weight = xlThin;
    style.line(xlEdgeTop).weight = xlThick;
    style.line(xlEdgeBottom).weight = xlHairline;
    // 0x7512 | 64 << 16 | 64 << 23 = 0x20407512;  64 | 64 << 7 = 0x2040
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 20 00 00 20 12 75 40 20 40 20 00 00 C0 20");
}

TEST(Biff, XfDiagonalsAndColours)
{
    CellStyle style;
    style.line(xlDiagonalDown) = {xlThin, 3};
    // down: bit 30; colour 3 + 7 = 10 << 14, thin 1 << 21 = 0x228000
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 20 00 00 20 00 00 00 40 00 80 22 00 C0 20");
    style.line(xlDiagonalUp) = {xlThin, 3};
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 20 00 00 20 00 00 00 C0 00 80 22 00 C0 20");
}

TEST(Biff, XfFill)
{
    CellStyle style;
    style.fillColor = 35;
    // solid 1 << 26; 35 + 7 = 42 | 65 << 7 = 0x20AA
    EXPECT_EQ(bodyOfXf(style), "00 00 00 00 01 00 20 00 00 40 00 00 00 00 00 00 00 04 AA 20");
}

TEST(Biff, NormalStyle) { EXPECT_EQ(bytesOf(biff::normalStyle), "93 02 04 00 00 80 00 FF"); }

TEST(Biff, BoundSheet)
{
    EXPECT_EQ(bytesOf(biff::boundSheet, 0x1234, "Sheet1"), "85 00 0E 00 34 12 00 00 00 00 06 00 53 68 65 65 74 31");
}

TEST(Biff, DefaultSizes)
{
    EXPECT_EQ(bytesOf(biff::defaultRowHeight, 14.25), "25 02 04 00 00 00 1D 01");
    EXPECT_EQ(bytesOf(biff::defaultColumnWidth, 8), "55 00 02 00 08 00");
}

TEST(Biff, WsBool)
{
    EXPECT_EQ(bytesOf(biff::wsBool, false), "81 00 02 00 C1 04");
    EXPECT_EQ(bytesOf(biff::wsBool, true), "81 00 02 00 C1 05");
}

TEST(Biff, Margins)
{
    EXPECT_EQ(bytesOf(biff::margin, biff::Side::Left, 0.5), "26 00 08 00 00 00 00 00 00 00 E0 3F");
    EXPECT_EQ(bytesOf(biff::margin, biff::Side::Right, 0.75), "27 00 08 00 00 00 00 00 00 00 E8 3F");
    EXPECT_EQ(bytesOf(biff::margin, biff::Side::Top, 1.0), "28 00 08 00 00 00 00 00 00 00 F0 3F");
    EXPECT_EQ(bytesOf(biff::margin, biff::Side::Bottom, 1.0), "29 00 08 00 00 00 00 00 00 00 F0 3F");
}

TEST(Biff, Setup)
{
    EXPECT_EQ(bytesOf(biff::setup, false, false, 0.5, 0.5), "A1 00 22 00 09 00 64 00 01 00 01 00 01 00 02 00 58 02 58 "
                                                            "02 00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 E0 3F 01 00");
    EXPECT_EQ(bytesOf(biff::setup, true, true, 0.5, 0.5), "A1 00 22 00 09 00 64 00 01 00 01 00 00 00 00 00 58 02 58 02 "
                                                          "00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 E0 3F 01 00");
}

TEST(Biff, ColumnInfo)
{
    EXPECT_EQ(bytesOf(biff::columnInfo, biff::Columns{1, 3, 1696, 15}),
              "7D 00 0C 00 01 00 03 00 A0 06 0F 00 02 00 00 00");
}

TEST(Biff, Dimensions)
{
    EXPECT_EQ(bytesOf(biff::dimensions, 65536, 256), "00 02 0E 00 00 00 00 00 00 00 01 00 00 00 00 01 00 00");
}

TEST(Biff, Row)
{
    EXPECT_EQ(bytesOf(biff::row, 65535, 1, 10, 14.25, false),
              "08 02 10 00 FF FF 01 00 0A 00 1D 01 00 00 00 00 00 01 0F 00");
    EXPECT_EQ(bytesOf(biff::row, 0, 0, 0, 28.5, true), "08 02 10 00 00 00 00 00 00 00 3A 02 00 00 00 00 40 01 0F 00");
}

TEST(Biff, Blanks)
{
    EXPECT_EQ(bytesOf(biff::blank, 2, 255, 16), "01 02 06 00 02 00 FF 00 10 00");
    const std::array xfs{16, 17, 16};
    EXPECT_EQ(bytesOf(biff::multipleBlanks, 2, 4, xfs), "BE 00 0C 00 02 00 04 00 10 00 11 00 10 00 06 00");
}

TEST(Biff, NumberOfEightBytes)
{
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, 1.0 / 3), "03 02 0E 00 01 00 02 00 0F 00 55 55 55 55 55 55 D5 3F");
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, 536870912.1).substr(0, 11), "03 02 0E 00");
}

TEST(Biff, NumberOfFourBytes)
{
    const std::string head = "7E 02 0A 00 01 00 02 00 0F 00 ";
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, 1.0), head + "00 00 F0 3F");
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, 536870911.0), head + "FE FF FF 7F");
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, -536870911.0), head + "06 00 00 80");
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, 0.1), head + "2B 00 00 00");     // 10 hundredths
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, -12.34), head + "BB EC FF FF");  // (-1234 << 2) | 3
}

TEST(Biff, NegativeZeroKeepsItsSign)
{
    EXPECT_EQ(bytesOf(biff::number, 1, 2, 15, -0.0), "7E 02 0A 00 01 00 02 00 0F 00 00 00 00 80");
}

TEST(Biff, LabelSst)
{
    EXPECT_EQ(bytesOf(biff::labelSst, 1, 2, 15, 66000u), "FD 00 0A 00 01 00 02 00 0F 00 D0 01 01 00");
}

TEST(Biff, Window2)
{
    EXPECT_EQ(bytesOf(biff::window2), "3E 02 12 00 B6 06 00 00 00 00 40 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(Biff, Selection)
{
    EXPECT_EQ(bytesOf(biff::selection, CellRange("b4:m12")),
              "1D 00 0F 00 03 03 00 01 00 00 00 01 00 03 00 0B 00 01 0C");
}

TEST(Biff, MergedCells)
{
    const std::array<CellRange, 2> merges{"a1:m1", "a4:a5"};
    EXPECT_EQ(bytesOf(biff::mergedCells, merges), "E5 00 12 00 02 00 00 00 00 00 00 00 0C 00 03 00 04 00 00 00 00 00");
}

TEST(StringTable, SameTextIsKeptOnce)
{
    StringTable table;
    EXPECT_EQ(table.add("ab"), 0u);
    EXPECT_EQ(table.add("左"), 1u);
    EXPECT_EQ(table.add(std::string("ab")), 0u);
    std::string out;
    table.write(out);
    EXPECT_EQ(xls::hexBytes(out), "FC 00 12 00 03 00 00 00 02 00 00 00 02 00 00 61 62 01 00 01 E6 5D");
}

TEST(StringTable, ManyTextsKeepTheirNumbers)
{
    std::vector<std::string> texts;
    for (int i = 0; i < 5000; ++i) texts.push_back("K" + std::to_string(i % 4000));
    StringTable table;
    for (int i = 0; i < 5000; ++i) ASSERT_EQ(table.add(texts[std::size_t(i)]), std::uint32_t(i % 4000));
}

TEST(StringTable, ContinuesWithinAChineseTextWithItsFlagsByte)
{
    std::string text;
    for (int i = 0; i < 5000; ++i) text += "桩";  // U+6869
    StringTable table;
    table.add(text);
    std::string out;
    table.write(out);
    // 8 bytes of counts, 3 of the text's head, 8,213 left: 4,106 units and a byte too few for one more
    EXPECT_EQ(xls::hexBytes(out.substr(0, 15)), "FC 00 1F 20 01 00 00 00 01 00 00 00 88 13 01");
    const std::size_t next = 4 + 8 + 3 + 2 * 4106;
    EXPECT_EQ(xls::hexBytes(out.substr(next, 7)), "3C 00 FD 06 01 69 68");
    EXPECT_EQ(out.size(), next + 4 + 1 + 2 * 894);
}

TEST(StringTable, HeadAndFirstUnitStayTogether)
{
    // Leaves 4 bytes in the record: room for a head and one narrow unit, not for a head and a wide one.
    const std::string filler(8224 - 8 - 3 - 4, 'x');
    for (const auto& [text, together] : {std::pair("yz", true), std::pair("桩", false)}) {
        StringTable table;
        table.add(filler);
        table.add(text);
        std::string out;
        table.write(out);
        const auto next = out.find(std::string("\x3C\0", 2), 8200);
        EXPECT_EQ(next, together ? 4 + 8224u : 4 + 8220u);
        EXPECT_EQ(xls::hexBytes(out.substr(next + 4)), together ? "00 7A" : "01 00 01 69 68");
    }
}

TEST(StyleTable, FontFourIsNeverGiven)
{
    StyleTable styles;
    CellStyle style;
    EXPECT_EQ(styles.add(style), 15);
    style.fontSize = 20;
    EXPECT_EQ(styles.add(style), 16);
    style.wrap = true;
    EXPECT_EQ(styles.add(style), 17);
    style.numberFormat = "0.0000";
    style.fontName = "黑体";
    EXPECT_EQ(styles.add(style), 18);
    EXPECT_EQ(styles.add(CellStyle()), 15);
    std::string out;
    styles.write(out);
    std::vector<unsigned> fonts, formats;
    int count = 0, formatRecords = 0;
    for (xls::Bytes bytes(out); bytes.left();) {
        const auto kind = bytes.u16(), size = bytes.u16();
        xls::Bytes body(bytes.take(size));
        count += kind == 0x0031;
        formatRecords += kind == 0x041E;
        if (kind == 0x00E0) fonts.push_back(body.u16()), formats.push_back(body.u16());
    }
    EXPECT_EQ(count, 6);
    EXPECT_EQ(formatRecords, 1);
    ASSERT_EQ(fonts.size(), 19u);
    EXPECT_EQ(std::vector(fonts.begin() + 15, fonts.end()), (std::vector{0u, 5u, 5u, 6u}));
    EXPECT_EQ(formats[18], 164u);
}

TEST(StyleTable, RefusesMoreLooksThanReadersTake)
{
    StyleTable styles;
    CellStyle style;
    style.bold = true;
    for (int i = 1; i < 4000; ++i) {
        style.fontSize = 1 + i / 20.0;
        styles.add(style);
    }
    style.fontSize = 300;
    EXPECT_THROW(styles.add(style), std::length_error);
}
