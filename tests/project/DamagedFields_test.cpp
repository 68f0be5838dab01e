// Each field that a compile reads is damaged by itself, and the whole state that results is compared with a second
// formulation of the load: in a fresh process, and after another project.

#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ReferenceLoad.h"
#include "support/ScriptedDialogs.h"
#include "support/SharedDiff.h"

#include <gtest/gtest.h>

namespace {

using reference::Files;

/// Right with unequal spirals, left over 90 degrees, right without spirals; a jump and an overlap; four rows a table.
const Files kByPoints{
    {"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "1000,5000,3000\r\n"
                       "JD1,5400.5,3100.25,40.123,50.37,200.05\r\n"
                       "JD2,5600,3600,30,30,90\r\n"
                       "JD3,5200.125,3550,0,0,150\r\n"
                       "5100,3900\r\n"},
    {"断链参数.txt", "1200,1230\r\n1500,1490\r\n1700,1705\r\n"},
    {"导线点参数.txt", "G1,5000.5,3000.25,山\r\nG2,5100,3100,\r\nG3,5200,3200,x\r\n"},
    {"竖曲线参数.txt", "1000,100.5\r\n1180,104,3000\r\n1400,101,4000\r\n1800,108\r\n"},
    {"超高参数.txt", "1000,-2,-2,1100,4,-4\r\n1100,4,-4,1300,-3,5\r\n1300,-3,5,1800,2,2\r\n"},
    {"超高宽度参数.txt", "1000,1100,2,5,6,1,1.5,7,8,.75,.5,-4\r\n"
                         "1100,1300,2.5,7,8,.75,.5,7.5,8.5,1,1.25,-3\r\n"
                         "1300,1800,3,9,10,2,2.5,11,12,3,3.5,4\r\n"},
};

Files byBlocks()
{
    auto files = kByPoints;
    files["其他参数.txt"] = "积木法\r\n三次抛物线\r\n2\r\n3\r\n12\r\n";
    files["平曲线参数.txt"] = "1000,1100,5000,3000,30.1520,0,0\r\n"
                              "1100,1190,5086.4,3050.4,30.1520,0,-250\r\n"
                              "1190,1400,5160,3090,19.5535,-250,-120\r\n";
    return files;
}

/// Another project, larger and smaller in its parts.
const Files kOther{
    {"其他参数.txt", "交点法\r\n三次抛物线\r\n1\r\n1\r\n0\r\n"},
    {"平曲线参数.txt", "0,0,0\r\n甲,200,50,20,20,100\r\n乙,300,300,10,15,80\r\n丙,600,320,0,10,120\r\n"
                       "丁,700,600,25,0,90\r\n900,500\r\n"},
    {"断链参数.txt", "50,60\r\n"},
    {"导线点参数.txt", "老点,9,8,\r\n"},
    {"竖曲线参数.txt", "0,9\r\n900,8\r\n"},
    {"超高参数.txt", "0,-1,-1.5,900,-1,-1.5\r\n"},
    {"超高宽度参数.txt", "0,900,1,2,3,4,5,6,7,8,9,10\r\n"},
};

/// A text in rows of fields and back.
struct Table {
    std::vector<std::vector<std::string>> rows;

    explicit Table(const std::string& text)
    {
        auto lines = reference::cut(text, "\r\n");
        lines.pop_back();
        for (const auto& line : lines) rows.push_back(reference::cut(line, ","));
    }
    std::string text() const
    {
        std::string all;
        for (const auto& row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i) all += (i ? "," : "") + row[i];
            all += "\r\n";
        }
        return all;
    }
};

/// What may happen to a field: no number, empty, too large, cut off with everything behind it, zero, the other sign.
struct Damage {
    const char* name;
    void (*apply)(std::vector<std::string>& row, std::size_t field);
};
const Damage kDamages[] = {
    {"no number", [](auto& row, auto field) { row[field] = "1.2.3"; }},
    {"empty", [](auto& row, auto field) { row[field].clear(); }},
    {"too large", [](auto& row, auto field) { row[field] = "1e999"; }},
    {"cut off", [](auto& row, auto field) { row.resize(field); }},
    {"zero", [](auto& row, auto field) { row[field] = "0"; }},
    {"negative", [](auto& row, auto field) { row[field].insert(0, "-"); }},
    {"at the edge of a double", [](auto& row, auto field) { row[field] = "1.7e308"; }},
    {"tiny", [](auto& row, auto field) { row[field] = "1e-200"; }},
};

/// The state before: sentinels in what a load does not clear, or the tables of another project.
enum class Before { Fresh, OtherProject };

struct DamagedFields : testing::TestWithParam<std::tuple<const char*, bool, Before>> {
    ScriptedDialogs dialogs;
    ProjectFolder folder{{}, "别的"};

    void write(const Files& files) const
    {
        for (const auto& [name, text] : files) folder.write(name, text);
    }
    Shared stateBefore(Before before)
    {
        shared = {};
        gOutX = 11.5, gOutY = 22.25, gOutFwj = 33.125, gOutDist = 44;
        gCgType = "9";
        gStationX = 7;
        if (before == Before::OtherProject) {
            write(kOther);
            LoadProject();
        }
        return shared;
    }
};

std::string caseName(const testing::TestParamInfo<DamagedFields::ParamType>& param)
{
    const std::map<std::string, std::string> names{{"平曲线参数.txt", "Horizontal"},   {"断链参数.txt", "Breaks"},
                                                   {"导线点参数.txt", "Traverse"},     {"竖曲线参数.txt", "Vertical"},
                                                   {"超高参数.txt", "Superelevation"}, {"超高宽度参数.txt", "Widths"}};
    const auto& [file, points, before] = param.param;
    return names.at(file) + (points ? "ByPoints" : "ByBlocks") + (before == Before::Fresh ? "Fresh" : "AfterAnother");
}

}  // namespace

TEST_P(DamagedFields, LeaveEverythingElseAsTheRulesSay)
{
    const auto& [file, points, before] = GetParam();
    const Files whole = points ? kByPoints : byBlocks();
    const Shared start = stateBefore(before);
    folder.project("本项目");
    write(whole);

    const Table table(whole.at(file));
    int cases = 0, gaps = 0;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        for (std::size_t field = 0; field < table.rows[row].size(); ++field) {
            for (const auto& damage : kDamages) {
                Table damaged = table;
                damage.apply(damaged.rows[row], field);
                Files files = whole;
                files[file] = damaged.text();
                if (files[file].find("\r\n\r\n") != std::string::npos || files[file].starts_with("\r\n"))
                    continue;  // the row is gone whole; blank lines have tests of their own
                SCOPED_TRACE(std::string(file) + " row " + std::to_string(row) + " field " + std::to_string(field) +
                             " " + damage.name);
                folder.write(file, files[file]);
                const auto expected = reference::load(start, files);
                shared = start;
                dialogs.messages.clear();
                const Loaded loaded = LoadProject();
                ASSERT_EQ(differences(shared, expected.state), "");
                ASSERT_EQ(loaded.cutAtGap, expected.gap);
                ASSERT_EQ(dialogs.messages.size(), expected.gap ? 1u : 0u);
                ++cases;
                gaps += expected.gap;
            }
        }
    }
    EXPECT_GE(cases, 40);
    EXPECT_LT(gaps, cases);
}

INSTANTIATE_TEST_SUITE_P(EachField, DamagedFields,
                         testing::Combine(testing::Values("平曲线参数.txt", "断链参数.txt", "导线点参数.txt",
                                                          "竖曲线参数.txt", "超高参数.txt", "超高宽度参数.txt"),
                                          testing::Bool(), testing::Values(Before::Fresh, Before::OtherProject)),
                         caseName);

// Statements of the intersection-point compile that read no field of their own fail by what others hold.
TEST(DamagedGeometry, EveryOtherStatementFailsAsTheRulesSay)
{
    ScriptedDialogs dialogs;
    const ProjectFolder folder;
    struct {
        const char *statement, *text;
    } const cases[] = {
        {"p, q, T, 1/R: radius 0 first", "0,0,0\r\nA,100,0,20,30,0\r\nB,150,90,10,20,40\r\n300,100\r\n"},
        {"p, q, T, 1/R: radius 0 later", "0,0,0\r\nA,100,0,20,30,50\r\nB,150,90,10,20,0\r\n300,100\r\n"},
        {"all radii 0", "0,0,0\r\nA,100,0,20,30,0\r\nB,150,90,10,20,0\r\n300,100\r\n"},
        {"T1, T2: deflection 0", "0,0,0\r\nA,100,100,20,30,50\r\nB,200,200,10,20,50\r\n300,100\r\n"},
        {"deflection: legs past the range", "0,0,0\r\nA,1e308,0,20,30,50\r\nB,-1e308,9,10,20,50\r\n300,100\r\n"},
        {"distance past the range", "0,0,0\r\nA,1e200,1e200,20,30,50\r\nB,200,9,10,20,50\r\n300,100\r\n"},
        {"azimuth: quotient past the range", "0,0,0\r\nA,1e-300,1e300,20,30,50\r\nB,200,9,10,20,50\r\n300,100\r\n"},
        {"p: cube of a tiny radius is 0", "0,0,0\r\nA,100,0,20,30,1e-120\r\n100,100\r\n"},
        {"p: powers of a long spiral", "0,0,0\r\nA,100,0,1e100,1e60,50\r\n100,100\r\n"},
        {"q: tiny spiral, powers are 0", "0,0,0\r\nA,100,0,1e-40,1e-30,50\r\n90,100\r\n"},
        {"big deflection, radius 0", "0,0,0\r\nA,100,0,20,30,50\r\nB,50,90,20,30,0\r\n100,-100\r\n"},
        {"arc of length 0", "0,0,0\r\nA,100,0,0,0,0\r\n100,100\r\n"},
        {"arc of length 0 with a radius", "0,0,0\r\nA,0,100,8,8,50\r\n0,200\r\n"},
        {"curve length past the range", "0,0,0\r\nA,100,0,20,30,1.7e308\r\n90,100\r\n"},
        {"stakes past the range", "1.7e308,0,0\r\nA,1e154,0,20,30,50\r\n1e154,1e154\r\n"},
        {"equal vertices", "0,0,0\r\nA,0,0,20,30,50\r\nB,0,0,20,30,50\r\n0,0\r\n"},
        {"due south", "0,0,0\r\nA,-100,0,20,30,50\r\nB,-200,0,20,30,50\r\n-100,0\r\n"},
        {"no name", "0,0,0\r\n,100,0,20,30,50\r\n100,100\r\n"},
        {"vertex without a comma", "0,0,0\r\nA\r\nB,100,0,20,30,50\r\n100,100\r\n"},
        {"two lines", "5,1,2\r\n3,4\r\n"},
        {"one line", "5,1,2\r\n"},
        {"negative radii", "0,0,0\r\nA,100,0,20,30,-50\r\nB,150,90,10,20,-40\r\n300,100\r\n"},
        {"exactly 90 left and right", "0,0,0\r\nA,100,0,20,30,50\r\nB,100,100,10,20,40\r\n300,100\r\n"},
        {"exactly 180", "0,0,0\r\nA,0,100,20,30,50\r\nB,0,50,10,20,40\r\n0,300\r\n"},
    };
    Shared fresh;
    fresh.results.outX = 1.5, fresh.results.outY = 2.5, fresh.results.outFwj = 3.5;
    for (const auto& file : kOther) folder.write(file.first, file.second);
    LoadProject();
    Shared later = shared;
    for (const Shared& start : {fresh, later}) {
        for (const auto& [statement, text] : cases) {
            SCOPED_TRACE(statement);
            const Files files{{"其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n"}, {"平曲线参数.txt", text}};
            for (const auto& [name, unused] : kOther) folder.write(name, files.count(name) ? files.at(name) : "");
            shared = start;
            LoadProject();
            EXPECT_EQ(differences(shared, reference::load(start, files).state), "");
        }
    }
}
