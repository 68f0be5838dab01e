#include "office/Dxf.h"
#include "office/DxfReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using dxf::groups;
using dxf::records;
using dxf::sample;

TEST(Dxf, SectionsInOrder)
{
    std::vector<std::string> sections;
    std::string before;
    for (const auto& [code, text] : groups(DxfBytes(sample()))) {
        if (code == 2 && before == "SECTION") sections.push_back(text);
        before = text;
    }
    EXPECT_THAT(sections, testing::ElementsAre("HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"));
    EXPECT_EQ(before, "EOF");
}

TEST(Dxf, EveryHandleIsGivenOnceAndEveryOwnerExists)
{
    std::set<std::string> handles;
    std::vector<std::string> owners;
    std::string seed, name, type;
    for (const auto& [code, text] : groups(DxfBytes(sample()))) {
        if (code == 0) type = text;
        if (code == 9) name = text;
        if (code == 5 && name == "$HANDSEED" && seed.empty()) {
            seed = text;
        } else if (code == 5 || (code == 105 && type == "DIMSTYLE")) {
            EXPECT_TRUE(handles.insert(text).second) << text;
        }
        if (code == 330 && text != "0") owners.push_back(text);
    }
    for (const auto& owner : owners) EXPECT_TRUE(handles.contains(owner)) << owner;
    for (const auto& handle : handles) EXPECT_LT(std::stoi(handle, nullptr, 16), std::stoi(seed, nullptr, 16));
}

TEST(Dxf, NumbersHaveAPointAndNoExponent)
{
    const auto line = records(DxfBytes(sample()), "LINE").at(1);
    EXPECT_EQ(line.value(10), "0.1");
    EXPECT_EQ(line.value(20), "0.0");
    EXPECT_EQ(line.value(11), "1000000.0");
    EXPECT_EQ(line.value(21), "0.0000001");
}

TEST(Dxf, TextsStayOneLine)
{
    const auto texts = records(DxfBytes(sample()), "TEXT");
    EXPECT_EQ(texts.at(0).value(1), "点^ 1^J");
    EXPECT_EQ(texts.at(0).value(7), "样式");
    EXPECT_EQ(texts.at(1).value(7), "Standard");  // a style that is not there
}

TEST(Dxf, StyleOfAnOutlineFont)
{
    const auto style = records(DxfBytes(sample()), "STYLE").at(1);
    EXPECT_EQ(style.value(2), "样式");
    EXPECT_EQ(style.value(1000), "宋体");
    EXPECT_EQ(style.value(1071), std::to_string(0x2000000 + 134 * 256 + 2));
}

TEST(Dxf, ViewShowsEverything)
{
    Drawing drawing;
    drawing.entities = {Drawing::Circle{{100, 50}, 10}, Drawing::Insert{"块", {500, 50}, 2, 90}};
    drawing.blocks.push_back({"块", {0, 0}, {Drawing::Line{{0, 0}, {10, 0}}}});
    const auto extents = ExtentsOf(drawing);
    EXPECT_EQ(extents.low, (Drawing::Point{90, 40}));
    EXPECT_NEAR(extents.high.x, 500, 1e-9);
    EXPECT_NEAR(extents.high.y, 70, 1e-9);  // the line turned upright
    const auto view = records(DxfBytes(drawing), "VPORT").at(0);
    EXPECT_NEAR(std::stod(view.value(12)), 295, 1e-9);
    EXPECT_NEAR(std::stod(view.value(22)), 55, 1e-9);
    EXPECT_GT(std::stod(view.value(40)) * std::stod(view.value(41)), 410);
}

TEST(Dxf, EmptyDrawingIsAFileToo)
{
    EXPECT_TRUE(ExtentsOf({}).empty);
    EXPECT_TRUE(DxfBytes({}).ends_with("EOF\r\n"));
}

TEST(Dxf, SameDrawingSameBytes) { EXPECT_EQ(DxfBytes(sample()), DxfBytes(sample())); }

}  // namespace
