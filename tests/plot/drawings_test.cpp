// Plan, profile and section, and the sheets that they go on.

#include "PlotTest.h"

#include "engine/Elevation.h"
#include "plot/Drawings.h"
#include "plot/ProjectPlot.h"
#include "plot/TitleBlock.h"
#include "project/LoadProject.h"
#include "support/RandomRoute.h"

#include <cmath>
#include <random>

using namespace plot;
using testing::Contains;
using testing::HasSubstr;

namespace {

struct PlotDrawings : FreshTables<testing::Test> {};

Picture planAt(const Road& road, double mm)
{
    PlanView view;
    view.mm = mm;
    view.tolerance = mm / 100;
    return Plan(road).picture(view);
}

}  // namespace

TEST_F(PlotDrawings, NoTextLiesOverAnotherInAnyPlan)
{
    for (const char* name : {"示例一", "示例二"}) {
        const Sample sample(name);
        const Road road(shared.tables);
        for (const double mm : {0.5, 2.0, 5.0, 20.0}) EXPECT_THAT(overlaps(planAt(road, mm)), testing::IsEmpty()) << mm;
    }
    std::mt19937_64 random(3);
    for (int round = 0; round < 2; ++round) {
        shared = {};
        setRoute(randomVertices(random, 40), 1234.5);
        setBreaks({{3000, 3020}, {5000, 4990}});
        const Road road(shared.tables);
        for (const double mm : {2.0, 10.0, 50.0}) EXPECT_THAT(overlaps(planAt(road, mm)), testing::IsEmpty()) << mm;
    }
}

TEST_F(PlotDrawings, ThePlanSaysWhatStandsAlongTheRoad)
{
    const Sample sample("示例一");
    const auto words = wordsOf(planAt(Road(shared.tables), 2));
    EXPECT_THAT(words, Contains("断链 K13+380.000=K13+412.360"));
    EXPECT_THAT(words, Contains("断链 K16+300.000=K16+284.215"));
    EXPECT_THAT(words, Contains("JD10"));
    EXPECT_THAT(words, Contains("GP01"));
    EXPECT_THAT(words, Contains("K13+300"));
    EXPECT_THAT(words, Contains("R=420  L=245.33")) << "from ZH to HZ, as in the superelevation file";
    EXPECT_THAT(words, Contains(HasSubstr("ZH K12+364.042"))) << "where the superelevation file says that it begins";
    EXPECT_THAT(words, Contains(HasSubstr("终点 K18+553.408")));
}

TEST_F(PlotDrawings, AWindowHasTheNumbersOfItsGridAtItsEdges)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    PlanView view;
    view.mm = 0.5;
    const Point middle = road.poseAt(13690 - 32.36)->at;
    view.window = Box{middle, middle}.grown(80);
    view.room = {view.window.low,
                 {view.window.high.x, view.window.low.y},
                 view.window.high,
                 {view.window.low.x, view.window.high.y}};
    const auto words = wordsOf(Plan(road).picture(view));
    EXPECT_THAT(words, Contains("X 2857000"));
    EXPECT_THAT(words, Contains("Y 513900"));
}

TEST_F(PlotDrawings, TheNumbersAtTheEdgesStandBesideWhatIsBlocked)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    PlanView view;
    view.mm = 2.3;
    const Point middle = road.poseAt(13690 - 32.36)->at;
    view.window = {middle - Point{148, 122}, middle + Point{149, 123}};
    const Point low = view.window.low, high = view.window.high;
    view.room = {low, {high.x, low.y}, high, {low.x, high.y}};
    view.blocked = {{low, {low.x + 130, low.y}, {low.x + 130, low.y + 33}, {low.x, low.y + 33}},
                    {{low.x, high.y - 62}, {low.x + 133, high.y - 62}, {low.x + 133, high.y}, {low.x, high.y}}};
    EXPECT_THAT(wordsOf(Plan(road).picture(view)), Contains(testing::StartsWith("X 285")));
}

TEST_F(PlotDrawings, ADrawingMovesNothingShared)
{
    const Sample sample("示例一");
    const Shared before = shared;
    const Road road(shared.tables);
    const auto slopes = slopesOf(ProjectPath(gProject), shared.tables);
    for (const auto kind : {Order::Plan, Order::Profile, Order::Section}) {
        Order order = orderOf(road, kind);
        order.stake = 12560;
        EXPECT_EQ(refusalOf(road, order), "");
        (void)sheetsOf(road, order, slopes);
        (void)dxfOf(road, order, slopes);
    }
    EXPECT_EQ(shared, before);
}

TEST_F(PlotDrawings, SheetsFollowTheRoadWithoutAGap)
{
    for (const char* name : {"示例一", "示例二"}) {
        const Sample sample(name);
        const Road road(shared.tables);
        for (const auto& [paper, scale] : {std::pair{kA4, 1000.0}, {kA3, 2000.0}, {kA4, 500.0}}) {
            Order order = orderOf(road, Order::Plan);
            order.paper = paper;
            order.scale = scale;
            const auto sheets = sheetsOf(road, order, {});
            ASSERT_FALSE(sheets.empty());
            double at = road.start();
            for (const auto& sheet : sheets) {
                EXPECT_NEAR(sheet.from, at, 1e-9);
                at = sheet.to;
                // Its window is as large on the ground as on paper by the scale, and holds its piece of the road.
                const Point w = sheet.outline[1] - sheet.outline[0], h = sheet.outline[3] - sheet.outline[0];
                EXPECT_NEAR(length(w), (paper.width - kBinding - kEdge) * scale / 1000, 1e-6);
                for (int i = 0; i <= 50; ++i) {
                    const Point p = road.poseAt(sheet.from + (sheet.to - sheet.from) * i / 50)->at - sheet.outline[0];
                    const double u = (p.x * w.x + p.y * w.y) / (length(w) * length(w)),
                                 v = (p.x * h.x + p.y * h.y) / (length(h) * length(h));
                    EXPECT_TRUE(u > 0 && u < 1 && v > 0 && v < 1) << i;
                }
                EXPECT_THAT(overlaps(sheet.parts[0].picture), testing::IsEmpty());
            }
            EXPECT_NEAR(at, road.end(), 1e-9);
            if (sheets.size() > 1) {
                EXPECT_THAT(wordsOf(sheets[0].parts[1].picture), Contains(HasSubstr("接第 2 张")));
            }
        }
    }
}

// The whole road in grey, what the sheet holds over it, and the sheet's outline: one similarity takes the road there.
TEST_F(PlotDrawings, TheKeyPlanShowsWhereTheSheetLies)
{
    const auto linesOf = [](const Picture& picture, Layer layer) {
        std::vector<Polyline> all;
        for (const auto& entity : picture.entities)
            if (const auto* line = std::get_if<Polyline>(&entity.shape); line && entity.layer == layer)
                all.push_back(*line);
        return all;
    };
    for (const char* name : {"示例一", "示例二"}) {
        const Sample sample(name);
        const Road road(shared.tables);
        for (const double scale : {500.0, 2000.0, 100000.0}) {
            Order order = orderOf(road, Order::Plan);
            order.paper = kA4;
            order.scale = scale;
            const auto sheets = sheetsOf(road, order, {});
            for (std::size_t i = 0; i < sheets.size(); ++i) {
                SCOPED_TRACE(testing::Message() << name << " 1:" << scale << " sheet " << i + 1);
                const Picture picture = keyPlan(road, sheets, i);
                Box grey;
                for (const auto& line : linesOf(picture, Layer::OtherRoad))
                    for (const Point p : line.points) grey.add(p);
                EXPECT_TRUE(Box({0, 0}, {58, kStrip}).holds(grey.low) && Box({0, 0}, {58, kStrip}).holds(grey.high));
                const double k = std::max(grey.width() / road.box().width(), grey.height() / road.box().height());
                const auto there = [&](Point p) { return grey.centre() + k * (p - road.box().centre()); };
                const auto near = [](Point a, Point b) { return length(a - b) < 0.3; };
                const auto here = linesOf(picture, Layer::Picked);
                ASSERT_FALSE(here.empty());
                EXPECT_TRUE(near(here.front().points.front(), there(road.poseAt(sheets[i].from)->at)));
                const double last = std::min(sheets[i].to, road.end() - 1e-6);  // the end itself belongs to no element
                EXPECT_TRUE(near(here.back().points.back(), there(road.poseAt(last)->at)));
                double drawn = 0;
                for (const auto& line : here)
                    for (std::size_t p = 1; p < line.points.size(); ++p)
                        drawn += length(line.points[p] - line.points[p - 1]);
                EXPECT_NEAR(drawn, k * (sheets[i].to - sheets[i].from), 0.3 + 0.03 * drawn);
                // The outline of this sheet alone, cut off at the edge of the box; none where one sheet holds all.
                std::vector<Point> corners;
                for (const auto& line : linesOf(picture, Layer::Frame))
                    for (const Point p : line.points)
                        if (p.x > 1.01 && p.x < 56.99 && p.y > 1.01 && p.y < kStrip - 1.01) corners.push_back(p);
                EXPECT_EQ(corners.empty(), sheets.size() == 1);
                for (const Point p : corners) {
                    const auto& outline = sheets[i].outline;
                    EXPECT_TRUE(std::any_of(outline.begin(), outline.end(),
                                            [&](Point corner) { return near(p, there(corner)); }))
                        << p.x << ' ' << p.y;
                }
            }
        }
    }
}

TEST_F(PlotDrawings, GradeChangesFollowTheTextbook)
{
    // i1 = +2 %, i2 = -1 %, R = 4000: T = 60, E = T squared over 2 R = 0.45; the crest lies 80 m behind the start.
    shared.tables.sqxLc = {0, 1000, 2000};
    shared.tables.sqxGc = {100, 120, 110};
    shared.tables.sqxR = {0, 4000, 0};
    shared.tables.sqxCount = 2;
    shared.tables.cgType = "0";
    const auto changes = gradeChanges(shared.tables);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_NEAR(changes[0].tangent, 60, 1e-9);
    EXPECT_NEAR(changes[0].rise, 0.45, 1e-9);
    EXPECT_TRUE(changes[0].crest);
    const auto tops = extremes(shared.tables);
    ASSERT_EQ(tops.size(), 1u);
    EXPECT_NEAR(tops[0].stake, 940 + 80, 1e-9);
    EXPECT_NEAR(tops[0].elevation, 118.8 + 0.8, 1e-9);  // the start is at 118.8, half of 2 % over 80 m above
    EXPECT_TRUE(tops[0].high);
}

TEST_F(PlotDrawings, TheProfileStandsToScale)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    ProfileView view{.from = 12000, .to = 13000, .mm = 2, .exaggeration = 10, .datum = 220, .height = 130};
    const Point p = inProfile(view, 12560, 244.62);
    EXPECT_NEAR(p.x, 280, 1e-9);        // 560 m at 1 : 2000
    EXPECT_NEAR(p.y, 24.62 * 5, 1e-9);  // 24.62 m at 1 : 200
    const Picture picture = profilePicture(road, view);
    const auto words = wordsOf(picture);
    EXPECT_THAT(words, Contains("2.35"));  // (244.62 - 231.46) / 560
    EXPECT_THAT(words, Contains("K12+560.000  244.620"));
    EXPECT_THAT(overlaps(picture), testing::IsEmpty());
}

TEST_F(PlotDrawings, TheLargestCrossfallAndWidthHaveTheirNumbers)
{
    const Sample sample("示例二");
    const Road road(shared.tables);
    ProfileView view{.from = road.start(), .to = road.end(), .mm = 5, .exaggeration = 10, .datum = 70, .height = 60};
    EXPECT_THAT(wordsOf(profilePicture(road, view)), testing::IsSupersetOf({"8", "-8", "5.75"}));
    shared.tables.cgkdG = {0, 1200};  // one width from end to end
    shared.tables.cgkdCount = 1;
    for (auto* column : {&shared.tables.cgkdA, &shared.tables.cgkdB}) column->assign(2, 12.25);
    for (auto* column : {&shared.tables.cgkdC, &shared.tables.cgkdD, &shared.tables.cgkdE, &shared.tables.cgkdF})
        column->assign(2, 0.75);
    const auto words = wordsOf(profilePicture(road, view));
    EXPECT_EQ(std::count(words.begin(), words.end(), "12.25"), 2);
}

TEST_F(PlotDrawings, NoTextLiesOverAnotherInAnyProfile)
{
    for (const char* name : {"示例一", "示例二"}) {
        const Sample sample(name);
        const Road road(shared.tables);
        for (const double scale : {500.0, 2000.0, 20000.0})
            for (const Paper paper : {kA3, kA4}) {
                Order order = orderOf(road, Order::Profile);
                order.scale = scale;
                order.paper = paper;
                for (const auto& sheet : sheetsOf(road, order, {}))
                    EXPECT_THAT(overlaps(sheet.parts[0].picture), testing::IsEmpty());
            }
    }
}

TEST_F(PlotDrawings, ARoadOfManyElementsCanBeReadAsAWhole)
{
    std::mt19937_64 random(500);
    setRoute(randomVertices(random, 500));
    for (int i = 0; i < 900; ++i) {
        shared.tables.sqxLc.push_back(i * 400);
        shared.tables.sqxGc.push_back(i % 2);
        shared.tables.sqxR.push_back(4000);
    }
    shared.tables.sqxCount = 899;
    shared.tables.cgType = "0";
    const Road road(shared.tables);
    const auto plan = planAt(road, 2000);
    for (const auto& words : wordsOf(plan)) EXPECT_FALSE(words.starts_with("JD")) << words;
    EXPECT_THAT(wordsOf(plan), Contains(testing::StartsWith("起点 K")));
    EXPECT_THAT(wordsOf(plan), Contains(testing::StartsWith("终点 K")));
    EXPECT_THAT(wordsOf(plan), Contains("K100+000"));
    EXPECT_LT(std::count_if(plan.entities.begin(), plan.entities.end(),
                            [](const Entity& e) { return e.layer == Layer::Ticks; }),
              40);
    const auto whole = wordsOf(profilePicture(road, {.from = road.start(), .to = road.end(), .mm = 1800}));
    EXPECT_THAT(whole, Contains("K310+000")) << "as long a stake as there is fits into its band";
    for (const auto& words : whole) EXPECT_FALSE(words.starts_with("最")) << words;
    const auto part = wordsOf(profilePicture(road, {.from = 310000, .to = 312000, .mm = 10}));
    EXPECT_THAT(part, Contains("K310+100"));
    EXPECT_THAT(part, Contains(testing::StartsWith("最高点 K310+")));
}

TEST_F(PlotDrawings, BothEndsOfTheRoadAreNamedInAWindow)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    PlanView view;
    view.mm = 49;
    const Point middle = road.box().centre();
    const Box window{middle - Point{3200, 2650}, middle + Point{3200, 2650}};
    view.window = window;
    view.room = {window.low, {window.high.x, window.low.y}, window.high, {window.low.x, window.high.y}};
    const Point arrow = window.high - Point{700, 1060};
    view.blocked = {{arrow, {window.high.x, arrow.y}, window.high, {arrow.x, window.high.y}}};
    const auto words = wordsOf(Plan(road).picture(view));
    EXPECT_THAT(words, Contains("起点 K12+000.000"));
    EXPECT_THAT(words, Contains("终点 K18+553.408"));
}

TEST_F(PlotDrawings, ASectionHasTheElevationsOfTheEngine)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    const Section section = sectionOf(road, 12400, 0.18, slopesOf(ProjectPath(gProject), shared.tables));
    ASSERT_EQ(section.points.size(), 5u);  // no median in this road
    EXPECT_EQ(section.points[0].offset, -5);
    EXPECT_EQ(section.points[1].offset, -4.25);
    // Crossfalls as the files give them, from the centre outwards: each over its own width.
    const double falls[] = {*section.points[0].slope, *section.points[1].slope, *section.points[3].slope,
                            *section.points[4].slope};
    EXPECT_FALSE(section.points[2].slope);
    for (const int i : {0, 1, 2, 3}) {
        const bool left = i < 2, shoulder = i == 0 || i == 3;
        const double out = shoulder ? 0.75 : 4.25;
        const double outer = elevationAt(shared.tables, 12400, (left ? -1 : 1) * (shoulder ? 5 : 4.25));
        const double inner = elevationAt(shared.tables, 12400, (left ? -1 : 1) * (shoulder ? 4.25 : 0));
        EXPECT_NEAR(falls[i], (outer - inner) / out, 1e-12);
    }
    for (const auto& p : section.points) {
        EXPECT_EQ(*p.surface, elevationAt(shared.tables, 12400, p.offset));
        EXPECT_NEAR(*p.bottom, *p.surface - 0.18, 1e-12);
    }
    const auto world = worldPoints(road, section);
    for (std::size_t i = 0; i < world.size(); ++i)
        EXPECT_NEAR(length(world[i] - world[2]), std::abs(section.points[i].offset), 1e-9);
}

TEST_F(PlotDrawings, CrossfallsAreNamedFromTheCentreOutwards)
{
    const Sample sample("示例一");  // 2 % down on both sides before K12+364, the shoulder 4 % down
    const Section section = sectionOf(Road(shared.tables), 12100, 0, {});
    for (const auto& [i, wanted] : {std::pair{0, -0.04}, {1, -0.02}, {3, -0.02}, {4, -0.04}})
        EXPECT_NEAR(*section.points[static_cast<std::size_t>(i)].slope, wanted, 2e-3) << "elevations are in mm";
}

TEST_F(PlotDrawings, AMedianSplitsTheSection)
{
    const Sample sample("示例一");
    for (auto& width : shared.tables.cgkdC) width = 2;
    const Section section = sectionOf(Road(shared.tables), 12400, 0, {});
    ASSERT_EQ(section.points.size(), 7u);
    EXPECT_EQ(section.points[2].offset, -1);
    EXPECT_EQ(*section.points[2].surface, *section.points[3].surface) << "level inside the median";
}

TEST_F(PlotDrawings, SlopesAreReadByTheGradesOfTheSettings)
{
    const std::string line = "100,5,1.5,8,2,1.75,200,6,1.5,10,2,2,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    const auto rows = readSlopes(line, 2, shared.tables);
    ASSERT_EQ(rows.size(), 1u);
    const auto ladder = ladderAt(rows, 150);
    ASSERT_TRUE(ladder);
    EXPECT_EQ(ladder->width, 5.5);
    ASSERT_EQ(ladder->grades.size(), 2u);
    EXPECT_EQ(ladder->grades[0].slope, 1.5);
    EXPECT_EQ(ladder->grades[0].height, 9);
    EXPECT_EQ(ladder->grades[1].berm, 2);
    EXPECT_EQ(ladder->grades[1].slope, 1.875);
    EXPECT_FALSE(ladderAt(rows, 99.9));
    EXPECT_TRUE(readSlopes(line, 0, shared.tables).empty());
    EXPECT_TRUE(readSlopes("100,5\r\nabc\r\n", 2, shared.tables).empty());
}

TEST_F(PlotDrawings, SlopesAreMarkedAsASketch)
{
    const Sample sample("示例一");
    const Road road(shared.tables);
    const auto slopes = slopesOf(ProjectPath(gProject), shared.tables);
    const Section fill = sectionOf(road, 12200, 0, slopes), cut = sectionOf(road, 12800, 0, slopes);
    ASSERT_EQ(fill.slopes.size(), 2u);
    EXPECT_FALSE(fill.slopes[0].cut);
    EXPECT_EQ(fill.slopes[0].labels, (std::vector<std::string>{"1:1.5", "1:1.75"}));
    ASSERT_EQ(cut.slopes.size(), 2u);
    EXPECT_EQ(cut.slopes[0].labels, (std::vector<std::string>{"1:0.5", "1:0.75", "1:1"}));
    EXPECT_EQ(std::abs(cut.slopes[0].points[0].x), 6.2) << "behind the ditch";
    EXPECT_THAT(wordsOf(sectionPicture(road, cut, {.mm = 0.1})), Contains("挖方（示意）"));
    EXPECT_THAT(wordsOf(sectionPicture(road, fill, {.mm = 0.1})), Contains("填方（示意）"));
    EXPECT_THAT(overlaps(sectionPicture(road, cut, {.mm = 0.1})), testing::IsEmpty());
}

TEST_F(PlotDrawings, WhatCannotBeDrawnSaysWhy)
{
    const Road road(shared.tables);
    EXPECT_EQ(refusalOf(road, orderOf(road, Order::Plan)), "没有平曲线参数，画不出平面图");
    EXPECT_EQ(refusalOf(road, orderOf(road, Order::Profile)), "没有竖曲线参数，画不出纵断面图");
    EXPECT_EQ(refusalOf(road, orderOf(road, Order::Section)), "这个里程没有设计高程，画不出横断面图");
}

TEST_F(PlotDrawings, GroupsOfAnotherProjectAreAmber)
{
    Sample sample("示例一");
    EXPECT_EQ(doubtsOf(shared.tables).groups, Stale{});
    EXPECT_EQ(doubtsOf(shared.tables).text, "");
    sample.folder.project("空项目", {{"断链参数.txt", "100,120\r\n"}});
    LoadProject();
    const auto [stale, text] = doubtsOf(shared.tables);
    EXPECT_TRUE(stale.horizontal && stale.vertical && stale.traverse && stale.crossfall && stale.widths);
    EXPECT_FALSE(stale.breaks);
    EXPECT_THAT(text, testing::StartsWith("此项目没有平曲线参数，沿用“测试”的数据；"));
    PlanView view;
    view.mm = 2;
    view.stale = stale;
    const Road road(shared.tables);
    const Picture picture = Plan(road).picture(view);
    for (const auto& entity : picture.entities)
        EXPECT_FALSE(entity.layer == Layer::Straight || entity.layer == Layer::Arc || entity.layer == Layer::Spiral);
    EXPECT_THAT(wordsOf(planLegend(road, view)), Contains("存疑数据"));
}

TEST_F(PlotDrawings, AFileThatChangedOnDiskMakesItsGroupDoubtful)
{
    const Sample sample("示例一");
    const std::pair<const char*, bool Stale::*> all[] = {
        {"平曲线参数.txt", &Stale::horizontal}, {"断链参数.txt", &Stale::breaks},
        {"导线点参数.txt", &Stale::traverse},   {"竖曲线参数.txt", &Stale::vertical},
        {"超高参数.txt", &Stale::crossfall},    {"超高宽度参数.txt", &Stale::widths}};
    for (const auto& [file, group] : all) {
        const std::string bytes = sample.folder.bytes(file);
        sample.folder.writeBytes(file, bytes + "1,2,3,4,5,6,7,8\r\n");
        Stale wanted;
        wanted.*group = true;
        EXPECT_EQ(doubtsOf(shared.tables).groups, wanted) << file;
        EXPECT_EQ(doubtsOf(shared.tables).text, std::string(file) + " 已修改，尚未重新读入");
        sample.folder.writeBytes(file, bytes);
        EXPECT_EQ(doubtsOf(shared.tables).groups, Stale{}) << file << ": the content counts";
    }
    // Another project's tables, read this moment, are what its files say.
    sample.folder.writeBytes("平曲线参数.txt", "");
    const auto own = roadOf(ProjectPath("示例一"));
    EXPECT_EQ(doubtsOf(own->tables).groups, Stale{});
}

TEST_F(PlotDrawings, AnEarlierLoadAndAProjectOnlyNamedMakeGroupsDoubtful)
{
    Sample sample("示例一");
    sample.folder.writeBytes("超高参数.txt", "");
    LoadProject();
    EXPECT_EQ(doubtsOf(shared.tables).groups, (Stale{.crossfall = true}));
    EXPECT_EQ(doubtsOf(shared.tables).text, "超高参数已没有数据，沿用先前读入的数据");
    sample.folder.project("新项目");  // named, not read yet
    const auto [groups, text] = doubtsOf(shared.tables);
    EXPECT_EQ(groups, (Stale{true, true, true, true, true, true}));
    EXPECT_EQ(text, "计算用“测试”的数据，编辑和表头是“新项目”");
}

TEST_F(PlotDrawings, ASecondRoadIsReadInItsPlace)
{
    const Sample sample("示例二");
    const auto before = shared;
    std::filesystem::create_directories(ProjectPath("另一条"));
    for (const auto& file : std::filesystem::directory_iterator(VM_SOURCE_DIR "/samples/示例一"))
        std::filesystem::copy_file(file.path(), ProjectPath("另一条") + "/" + file.path().filename().string());
    const auto own = roadOf(ProjectPath("另一条"));
    ASSERT_EQ(own->refusal, "");
    EXPECT_EQ(shared, before);
    EXPECT_EQ(own->road->breaks().size(), 2u);
    EXPECT_EQ(roadOf(ProjectPath("没有"))->refusal, "没有这个项目：" + ProjectPath("没有"));
    const Road road(shared.tables);
    PlanView view;
    view.mm = 5;
    view.other = own->road.get();
    const Picture picture = Plan(road).picture(view);
    EXPECT_TRUE(std::any_of(picture.entities.begin(), picture.entities.end(),
                            [](const Entity& e) { return e.layer == Layer::OtherRoad; }));
    // At its place in the world: its first point, east and north.
    const Point first = own->road->elements()[0].start.at + own->road->origin() - road.origin();
    EXPECT_NEAR(first.x + road.origin().x, 512480.736, 1e-6);
    EXPECT_NEAR(first.y + road.origin().y, 2856320.418, 1e-6);
}
