// What a reader of drawings needs beside the shapes: tables with their counts, references that lead somewhere, the
// view.

#include "office/Dxf.h"
#include "office/DxfReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// The drawings that the tests look at: nothing, everything, and more of everything than one.
std::vector<Drawing> drawings()
{
    Drawing more = dxf::sample();
    more.styles.push_back({"二", "Arial", false, true, 0, 34});
    more.blocks.push_back({"空", {0, 0}, {}});
    more.blocks.push_back({"圆", {1, 1}, {Drawing::Circle{{1, 1}, 2}, Drawing::Text{{0, 0}, 1, "A", "二"}}});
    return {{}, dxf::sample(), more};
}

/// Handle of a record: group 5, of a dimension style 105; "" where it has none.
std::string handleOf(const dxf::Record& record)
{
    const auto own = record.all(record.type == "DIMSTYLE" ? 105 : 5);
    return own.empty() ? "" : own.front();
}

/// Every record with a handle.
std::map<std::string, dxf::Record> byHandle(const std::string& bytes)
{
    std::map<std::string, dxf::Record> all;
    for (const auto& record : dxf::records(bytes))
        if (record.type != "SECTION" && !handleOf(record).empty()) all.emplace(handleOf(record), record);
    return all;
}

/// The names of a dictionary and the handles behind them.
std::map<std::string, std::string> entries(const dxf::Record& dictionary)
{
    const auto names = dictionary.all(3), handles = dictionary.all(350);
    EXPECT_EQ(names.size(), handles.size());
    std::map<std::string, std::string> all;
    for (std::size_t i = 0; i < names.size() && i < handles.size(); ++i) all.emplace(names[i], handles[i]);
    return all;
}

std::string fileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

TEST(DxfStructure, EveryTableIsThereOnceAndCountsItsRecords)
{
    for (const auto& drawing : drawings()) {
        std::vector<std::string> tables;
        std::string open;
        long said = 0, found = 0;
        for (const auto& record : dxf::section(DxfBytes(drawing), "TABLES")) {
            if (record.type == "TABLE") {
                EXPECT_EQ(open, "");
                open = record.value(2);
                tables.push_back(open);
                said = std::stol(record.value(70));
                found = 0;
            } else if (record.type == "ENDTAB") {
                EXPECT_EQ(found, said) << open;
                open.clear();
            } else {
                EXPECT_EQ(record.type, open);
                ++found;
            }
        }
        EXPECT_EQ(open, "");
        EXPECT_THAT(tables, ElementsAre("VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE",
                                        "BLOCK_RECORD"));
    }
}

TEST(DxfStructure, EveryRecordBelongsToItsTable)
{
    const auto all = byHandle(DxfBytes(dxf::sample()));
    std::string table;
    for (const auto& record : dxf::section(DxfBytes(dxf::sample()), "TABLES")) {
        if (record.type == "TABLE") {
            table = handleOf(record);
            EXPECT_EQ(record.value(330), "0");
            EXPECT_EQ(record.value(100), "AcDbSymbolTable");
        } else if (record.type != "ENDTAB") {
            EXPECT_EQ(record.value(330), table) << record.type;
            EXPECT_EQ(record.value(100), "AcDbSymbolTableRecord") << record.type;
        }
    }
}

TEST(DxfStructure, TheTablesHoldWhatEveryDrawingNeeds)
{
    const auto bytes = DxfBytes({});
    const auto names = [&](const char* type) {
        std::vector<std::string> all;
        for (const auto& record : dxf::records(bytes, type)) all.push_back(record.value(2));
        return all;
    };
    EXPECT_THAT(names("VPORT"), ElementsAre("*Active"));
    EXPECT_THAT(names("LTYPE"), ElementsAre("ByBlock", "ByLayer", "Continuous"));
    EXPECT_THAT(names("LAYER"), ElementsAre("0"));
    EXPECT_THAT(names("STYLE"), ElementsAre("Standard"));
    EXPECT_THAT(names("APPID"), ElementsAre("ACAD"));
    EXPECT_THAT(names("DIMSTYLE"), ElementsAre("Standard"));
    EXPECT_THAT(names("BLOCK_RECORD"), ElementsAre("*Model_Space", "*Paper_Space"));
    // Layer 0 is on, thawed and unlocked, white, of a line type that is there.
    const auto layer = dxf::records(bytes, "LAYER").at(0);
    EXPECT_EQ(layer.value(70), "0");
    EXPECT_EQ(layer.value(62), "7");
    EXPECT_EQ(layer.value(6), "Continuous");
}

TEST(DxfStructure, OnlyTypesThatReadersKnow)
{
    const std::set<std::string> known{"SECTION", "ENDSEC",     "CLASS",        "TABLE", "ENDTAB",   "VPORT",
                                      "LTYPE",   "LAYER",      "STYLE",        "APPID", "DIMSTYLE", "BLOCK",
                                      "ENDBLK",  "LINE",       "CIRCLE",       "TEXT",  "INSERT",   "LWPOLYLINE",
                                      "LAYOUT",  "DICTIONARY", "BLOCK_RECORD", "EOF"};
    const auto last = drawings().back();
    for (const auto& record : dxf::records(DxfBytes(last))) EXPECT_TRUE(known.contains(record.type)) << record.type;

    std::vector<std::string> drawn;
    for (const auto& record : dxf::section(DxfBytes(last), "ENTITIES")) drawn.push_back(record.type);
    EXPECT_THAT(drawn, ElementsAre("LWPOLYLINE", "LINE", "CIRCLE", "TEXT", "TEXT", "INSERT"));
}

TEST(DxfStructure, EveryEntityNamesItsClass)
{
    const std::map<std::string, std::vector<std::string>> classes{
        {"LWPOLYLINE", {"AcDbEntity", "AcDbPolyline"}},   {"LINE", {"AcDbEntity", "AcDbLine"}},
        {"CIRCLE", {"AcDbEntity", "AcDbCircle"}},         {"TEXT", {"AcDbEntity", "AcDbText", "AcDbText"}},
        {"INSERT", {"AcDbEntity", "AcDbBlockReference"}},
    };
    for (const auto& record : dxf::section(DxfBytes(dxf::sample()), "ENTITIES")) {
        EXPECT_EQ(record.all(100), classes.at(record.type)) << record.type;
        EXPECT_EQ(record.value(8), "0");
    }
}

TEST(DxfStructure, EveryReferenceLeadsSomewhere)
{
    for (const auto& drawing : drawings()) {
        const auto bytes = DxfBytes(drawing);
        const auto all = byHandle(bytes);
        for (const auto& record : dxf::records(bytes)) {
            for (const int code : {330, 340, 350, 360})
                for (const auto& target : record.all(code)) {
                    // "0" is no one: who owns a table or the root, and the layout of a block that is none of a sheet.
                    const bool mayBeNone = code == 330 || (code == 340 && record.type == "BLOCK_RECORD");
                    EXPECT_TRUE(all.contains(target) || (mayBeNone && target == "0"))
                        << record.type << " " << code << " " << target;
                }
        }
    }
}

TEST(DxfStructure, EveryEntityBelongsToABlock)
{
    const auto bytes = DxfBytes(drawings().back());
    const auto all = byHandle(bytes);
    for (const char* part : {"BLOCKS", "ENTITIES"})
        for (const auto& record : dxf::section(bytes, part)) {
            ASSERT_TRUE(all.contains(record.value(330))) << record.type;
            EXPECT_EQ(all.at(record.value(330)).type, "BLOCK_RECORD") << record.type;
        }
    for (const auto& record : dxf::section(bytes, "ENTITIES"))
        EXPECT_EQ(all.at(record.value(330)).value(2), "*Model_Space");
    for (const auto& block : dxf::records(bytes, "BLOCK")) EXPECT_EQ(all.at(block.value(330)).value(2), block.value(2));
}

TEST(DxfStructure, RootDictionaryComesFirstAndNamesGroupsAndLayouts)
{
    const auto bytes = DxfBytes(dxf::sample());
    const auto all = byHandle(bytes);
    const auto root = dxf::section(bytes, "OBJECTS").at(0);
    ASSERT_EQ(root.type, "DICTIONARY");
    EXPECT_EQ(root.value(330), "0");
    const auto named = entries(root);
    ASSERT_EQ(named.size(), 2u);
    for (const char* name : {"ACAD_GROUP", "ACAD_LAYOUT"}) {
        ASSERT_TRUE(named.contains(name));
        EXPECT_EQ(all.at(named.at(name)).type, "DICTIONARY");
        EXPECT_EQ(all.at(named.at(name)).value(330), handleOf(root));
    }
    EXPECT_THAT(entries(all.at(named.at("ACAD_GROUP"))), IsEmpty());
    for (const auto& [name, handle] : entries(all.at(named.at("ACAD_LAYOUT")))) {
        EXPECT_EQ(all.at(handle).type, "LAYOUT") << name;
        EXPECT_EQ(all.at(handle).all(1).back(), name);
    }
}

TEST(DxfStructure, ModelAndPaperSpaceHaveOneLayoutEach)
{
    const auto bytes = DxfBytes(dxf::sample());
    const auto all = byHandle(bytes);
    struct Wanted {
        std::string block, tab, plotFlags;
    };
    // Plot flags: 1024 is the model's own, 688 the usual ones of a sheet. Layout flags: 1, line types scaled by the
    // view.
    const std::map<std::string, Wanted> wanted{{"Model", {"*Model_Space", "0", "1024"}},
                                               {"Layout1", {"*Paper_Space", "1", "688"}}};
    const auto layouts = dxf::records(bytes, "LAYOUT");
    ASSERT_EQ(layouts.size(), wanted.size());
    for (const auto& layout : layouts) {
        const auto& [block, tab, plotFlags] = wanted.at(layout.all(1).back());
        EXPECT_THAT(layout.all(100), ElementsAre("AcDbPlotSettings", "AcDbLayout"));
        EXPECT_THAT(layout.all(70), ElementsAre(plotFlags, "1"));
        EXPECT_EQ(layout.value(71), tab);
        const auto owners = layout.all(330);  // the dictionary, then the block of the layout
        ASSERT_EQ(owners.size(), 2u);
        EXPECT_EQ(all.at(owners[0]).type, "DICTIONARY");
        EXPECT_EQ(all.at(owners[1]).value(2), block);
        EXPECT_EQ(all.at(owners[1]).value(340), handleOf(layout));
    }
}

TEST(DxfStructure, TheViewIsFromAbove)
{
    for (const auto& drawing : drawings()) {
        const auto view = dxf::records(DxfBytes(drawing), "VPORT").at(0);
        const auto at = [&](int code) { return std::stod(view.value(code)); };
        EXPECT_EQ(at(16), 0);
        EXPECT_EQ(at(26), 0);
        EXPECT_EQ(at(36), 1);                                                // direction to the eye
        for (const int code : {17, 27, 37, 50, 51}) EXPECT_EQ(at(code), 0);  // target, snap and twist
        EXPECT_EQ(at(71), 0);                                                // no perspective, no clipping
        EXPECT_GT(at(40), 0);
        EXPECT_GT(at(41), 0);
    }
}

// The golden drawing: a new one is read by another program first (ctest -L readers), then kept.
TEST(DxfStructure, GoldenDrawing)
{
    const auto kept = fileBytes(VM_SOURCE_DIR "/tests/office/golden/plan.dxf");
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(dxf::differenceInWords(kept, DxfBytes(dxf::sample())), "");
}
