#include "office/Dxf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

namespace {

using Group = std::pair<int, std::string>;

std::vector<Group> groups(const std::string& bytes)
{
    std::vector<Group> all;
    std::istringstream in(bytes);
    for (std::string code, value; std::getline(in, code) && std::getline(in, value);) {
        EXPECT_EQ(code.back(), '\r');
        EXPECT_EQ(value.back(), '\r');
        all.emplace_back(std::stoi(code), value.substr(0, value.size() - 1));
    }
    return all;
}

/// The groups of every record of a type, its type left out.
std::vector<std::vector<Group>> records(const std::string& bytes, const std::string& type)
{
    std::vector<std::vector<Group>> found;
    bool inside = false;
    for (const auto& group : groups(bytes)) {
        if (group.first == 0) {
            inside = group.second == type;
            if (inside) found.emplace_back();
        } else if (inside) {
            found.back().push_back(group);
        }
    }
    return found;
}

std::string value(const std::vector<Group>& record, int code)
{
    for (const auto& [each, text] : record)
        if (each == code) return text;
    return "(none)";
}

Drawing sample()
{
    Drawing drawing;
    drawing.styles.push_back({"样式", "宋体", true, false, 134, 2});
    drawing.activeStyle = "样式";
    drawing.blocks.push_back({"块", {4, 1.67}, {Drawing::Line{{0, 0}, {10, 5}}}});
    drawing.entities = {Drawing::Polyline{{{1, 2}, {3.5, -4}}},
                        Drawing::Line{{0.1, -0.0}, {1e6, 1e-7}},
                        Drawing::Circle{{7, 8}, 15},
                        Drawing::Text{{5, 6}, 100, "点^1\n", "样式"},
                        Drawing::Text{{5, 6}, 2, "A", "没有"},
                        Drawing::Insert{"块", {1, 1}, 5, 30}};
    return drawing;
}

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
    EXPECT_EQ(value(line, 10), "0.1");
    EXPECT_EQ(value(line, 20), "0.0");
    EXPECT_EQ(value(line, 11), "1000000.0");
    EXPECT_EQ(value(line, 21), "0.0000001");
}

TEST(Dxf, TextsStayOneLine)
{
    const auto texts = records(DxfBytes(sample()), "TEXT");
    EXPECT_EQ(value(texts.at(0), 1), "点^ 1^J");
    EXPECT_EQ(value(texts.at(0), 7), "样式");
    EXPECT_EQ(value(texts.at(1), 7), "Standard");  // a style that is not there
}

TEST(Dxf, StyleOfAnOutlineFont)
{
    const auto style = records(DxfBytes(sample()), "STYLE").at(1);
    EXPECT_EQ(value(style, 2), "样式");
    EXPECT_EQ(value(style, 1000), "宋体");
    EXPECT_EQ(value(style, 1071), std::to_string(0x2000000 + 134 * 256 + 2));
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
    EXPECT_NEAR(std::stod(value(view, 12)), 295, 1e-9);
    EXPECT_NEAR(std::stod(value(view, 22)), 55, 1e-9);
    EXPECT_GT(std::stod(value(view, 40)) * std::stod(value(view, 41)), 410);
}

TEST(Dxf, EmptyDrawingIsAFileToo)
{
    EXPECT_TRUE(ExtentsOf({}).empty);
    EXPECT_TRUE(DxfBytes({}).ends_with("EOF\r\n"));
}

TEST(Dxf, SameDrawingSameBytes) { EXPECT_EQ(DxfBytes(sample()), DxfBytes(sample())); }

}  // namespace
