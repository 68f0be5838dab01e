#include "plot/Sheets.h"

#include "plot/Angles.h"
#include "plot/TitleBlock.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plot {

namespace {

constexpr double kPad = 16;  // mm that labels take around the line

Box windowOf(Paper paper) { return {{kBinding, kEdge + kStrip}, {paper.width - kEdge, paper.height - kEdge}}; }

std::vector<Point> cornersOf(const Box& box)
{
    return {box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}};
}

/// Points of the centre line, close enough to each other for laying sheets along them.
std::vector<StakePose> samples(const Road& road, double from, double to, double step)
{
    std::vector<StakePose> all;
    for (const auto& e : road.elements()) {
        const double a = std::max(e.from, from), b = std::min(e.to, to);
        if (!(b > a)) continue;
        const int n = static_cast<int>(std::clamp(std::ceil((b - a) / step), 1.0, 20000.0));
        for (int i = all.empty() ? 0 : 1; i <= n; ++i) {
            const double stake = a + (b - a) * i / n;
            all.push_back({stake, road.poseOn(e, stake)});
        }
    }
    return all;
}

Box boxOf(const std::vector<StakePose>& points, std::size_t first, std::size_t last, const Transform& by)
{
    Box box;
    for (std::size_t i = first; i <= last; ++i) box.add(by(points[i].pose.at));
    return box;
}

/// How a stretch lies on its sheet: its chord runs level, or north is up where all of the road has room so.
struct Laid {
    std::size_t first = 0, last = 0;
    double turn = 0;
};
double levelTurn(const std::vector<StakePose>& points, std::size_t first, std::size_t last)
{
    return -angleOf(points[last].pose.at - points[first].pose.at);
}

std::vector<Laid> layOut(const std::vector<StakePose>& points, double scale, const Box& window)
{
    std::vector<Laid> laid;
    const double mm = scale / 1000, w = (window.width() - 2 * kPad) * mm, h = (window.height() - 2 * kPad) * mm;
    const auto fits = [&](std::size_t first, std::size_t last, double turn) {
        const Box box = boxOf(points, first, last, turned(turn, 1));
        return box.width() <= w && box.height() <= h;
    };
    if (points.size() < 2) return laid;
    if (fits(0, points.size() - 1, 0)) return {{0, points.size() - 1, 0}};
    for (std::size_t first = 0; first + 1 < points.size();) {
        std::size_t last = first + 1;
        while (last + 1 < points.size() && fits(first, last + 1, levelTurn(points, first, last + 1))) ++last;
        laid.push_back({first, last, levelTurn(points, first, last)});
        first = last;
    }
    return laid;
}

}  // namespace

double planScale(const Road& road, Paper paper, double from, double to)
{
    const auto points = samples(road, from, to, std::max(1.0, (to - from) / 2000));
    if (points.empty()) return 1000;
    const Box box = boxOf(points, 0, points.size() - 1, {}), window = windowOf(paper);
    const double least =
        1000 * std::max(box.width() / (window.width() - 2 * kPad), box.height() / (window.height() - 2 * kPad));
    return std::max(100.0, niceStep(least));
}

double profileScale(Paper paper, double from, double to)
{
    return std::max(100.0, niceStep(1000 * (to - from) / (windowOf(paper).width() - kBandTitles - 8)));
}

double sectionScale(const Section& section, Paper paper)
{
    double widest = 1, low = 1e9, high = -1e9;
    for (const auto& p : section.points) widest = std::max(widest, std::abs(p.offset));
    for (const auto& s : section.slopes)
        for (const Point p : s.points) {
            widest = std::max(widest, std::abs(p.x));
            low = std::min(low, p.y);
            high = std::max(high, p.y);
        }
    const double highest = std::max(1.0, high - low);
    const Box window = windowOf(paper);
    const double least =
        1000 * std::max(2 * widest / (window.width() - 20), highest / std::max(20.0, window.height() - 70));
    for (const double scale : {20, 50, 100, 150, 200, 250, 300, 400, 500})
        if (scale >= least) return scale;
    return niceStep(least);
}

std::vector<Sheet> planSheets(const Road& road, PlanView view, Paper paper, double scale, double from, double to,
                              const SheetTexts& texts)
{
    std::vector<Sheet> sheets;
    const Box window = windowOf(paper);
    const auto points = samples(road, from, to, scale / 1000);
    const auto laid = layOut(points, scale, window);
    view.mm = scale / 1000;
    view.tolerance = std::min(0.01 * view.mm, 0.02);
    view.crosses = true;
    Plan plan(road);
    for (std::size_t i = 0; i < laid.size(); ++i) {
        const auto& [first, last, turn] = laid[i];
        Transform toPaper = turned(turn, 1 / view.mm);
        const Point centre = boxOf(points, first, last, toPaper).centre();
        toPaper.shift = window.centre() - centre;

        PlanView here = view;
        here.turn = turn;
        here.from = points[first].stake;
        here.to = points[last].stake;
        for (const Point corner : cornersOf(window.grown(-1))) here.room.push_back(toPaper.inverse(corner));
        for (const Point corner : cornersOf(window)) here.window.add(toPaper.inverse(corner));

        Sheet sheet{paper, {}, here.from, here.to, {}};
        for (const Point corner : cornersOf(window)) sheet.outline.push_back(toPaper.inverse(corner));
        Picture over;
        const auto block = [&](const Box& area) {
            auto& corners = here.blocked.emplace_back();
            for (const Point corner : cornersOf(area)) corners.push_back(toPaper.inverse(corner));
        };
        const Point arrow{window.high.x - 12, window.high.y - 13};
        Transform toCorner;
        toCorner.shift = arrow;
        over.add(transformed(northArrow(turn), toCorner));
        block(Box{arrow, arrow}.grown(11));
        // Match lines across the road, with the number of the sheet that goes on behind them.
        for (const bool atEnd : {false, true}) {
            if (atEnd ? i + 1 == laid.size() : i == 0) continue;
            const Pose& pose = points[atEnd ? last : first].pose;
            const Point at = toPaper(pose.at), across = toPaper(pose.at + rightOf(pose.azDeg)) - at;
            const Point unit = (1 / length(across)) * across;
            Picture line;
            line.line(Layer::Match, at - 1000 * unit, at + 1000 * unit);
            const Picture inside = clipped(line, window, 0.01);
            over.add(inside);
            if (inside.entities.empty()) continue;
            const auto& ends = std::get<Polyline>(inside.entities[0].shape).points;
            const Point low = ends.front().y < ends.back().y ? ends.front() : ends.back();
            const double angle = upright(angleOf(unit));
            const std::string words = "接第 " + std::to_string(atEnd ? i + 2 : i) + " 张  " +
                                      road.stakeText(points[atEnd ? last : first].stake);
            const Point up = ends.front().y < ends.back().y ? unit : -1 * unit;
            const Point beside = (atEnd ? -1.0 : 1.0) * Point{std::abs(up.y), -up.x * (up.y < 0 ? -1 : 1)};
            const bool flips = directionOf(angle).y < 0;
            const Text text{low + 3 * up + 2.2 * beside, 2.2, words, angle, flips ? Align::Right : Align::Left};
            over.text(Layer::Match, text);
            auto corners = cornersOf(text);
            for (auto& corner : corners) corner = toPaper.inverse(corner);
            here.blocked.push_back(std::move(corners));
        }
        sheet.parts.push_back({window, transformed(plan.picture(here), toPaper)});
        sheet.parts.push_back({window, std::move(over)});
        sheets.push_back(std::move(sheet));
    }
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const TitleTexts title{.project = texts.project,
                               .drawing = "线路平面图",
                               .scale = "1:" + shortest(scale, 0),
                               .stakes = road.stakeText(sheets[i].from) + "～" + road.stakeText(sheets[i].to),
                               .number = i + 1,
                               .count = sheets.size()};
        Picture strip = titleBlock(paper, title);
        strip.add(placed(planLegend(road, view), {kBinding + 60, kEdge}));
        strip.add(placed(scaleBar(view.mm), {kBinding + 62, kEdge + 3}));
        strip.add(placed(keyPlan(road, sheets, i), {kBinding, kEdge}));
        sheets[i].parts.push_back({{}, std::move(strip)});
    }
    return sheets;
}

std::vector<Sheet> profileSheets(const Road& road, Paper paper, double scale, double exaggeration, double from,
                                 double to, const SheetTexts& texts, const Stale& stale)
{
    std::vector<Sheet> sheets;
    const Box window = windowOf(paper);
    const double width = window.width() - kBandTitles - 8, mm = scale / 1000;
    const auto count = static_cast<std::size_t>(std::max(1.0, std::ceil((to - from) / (width * mm) - 1e-6)));
    double least = 1e9;
    for (const bool drawing : {false, true}) {  // first the exaggeration that all sheets have room for
        for (std::size_t i = 0; i < count; ++i) {
            ProfileView view{.from = from + static_cast<double>(i) * width * mm, .mm = mm, .stale = stale};
            view.to = std::min(to, view.from + width * mm);
            view.height = window.height() - kBandsHeight - 6;
            fitHeights(road.tables(), view);
            if (!drawing) {
                least = std::min(least, view.exaggeration);
                continue;
            }
            const double middle = view.datum + view.height * mm / view.exaggeration / 2;
            view.exaggeration = exaggeration > 0 ? exaggeration : least;
            const double step = niceStep(10 * mm / view.exaggeration);
            view.datum = std::round((middle - view.height * mm / view.exaggeration / 2) / step) * step;
            const TitleTexts title{.project = texts.project,
                                   .drawing = "线路纵断面图",
                                   .scale = "横 1:" + shortest(scale, 0) +
                                            "  竖 1:" + shortest(scale / view.exaggeration, 1),
                                   .stakes = road.stakeText(view.from) + "～" + road.stakeText(view.to),
                                   .number = i + 1,
                                   .count = count};
            Sheet sheet{paper, {}, view.from, view.to, {}};
            sheet.parts.push_back({window, placed(profilePicture(road, view),
                                                  {window.low.x + kBandTitles + 3, window.low.y + kBandsHeight + 2})});
            Picture strip = titleBlock(paper, title);
            strip.add(placed(profileLegend(), {kBinding, kEdge}));
            sheet.parts.push_back({{}, std::move(strip)});
            sheets.push_back(std::move(sheet));
        }
    }
    return sheets;
}

Sheet sectionSheet(const Road& road, const Section& section, Paper paper, double scale, const SheetTexts& texts,
                   const Stale& stale)
{
    const Box window = windowOf(paper);
    const double mm = scale / 1000;
    Picture picture = sectionPicture(road, section, {.mm = mm, .slopes = true, .stale = stale});
    Transform toPaper = turned(0, 1 / mm);
    const Box box = extents(picture);
    if (!box.empty()) toPaper.shift = window.centre() - toPaper(box.centre());
    Sheet sheet{paper, {}, section.stake, section.stake, {}};
    sheet.parts.push_back({window, transformed(picture, toPaper)});
    const TitleTexts title{.project = texts.project,
                           .drawing = "横断面图",
                           .scale = "1:" + shortest(scale, 0),
                           .stakes = road.stakeText(section.stake),
                           .number = 1,
                           .count = 1};
    Picture strip = titleBlock(paper, title);
    strip.add(placed(sectionLegend(section), {kBinding, kEdge}));
    sheet.parts.push_back({{}, std::move(strip)});
    return sheet;
}

}  // namespace plot
