#include "plot/Drawings.h"

#include "plot/Angles.h"
#include "plot/Dxf.h"

#include <algorithm>

namespace plot {

namespace {

double scaleOf(const Road& road, const Order& order)
{
    if (order.scale) return *order.scale;
    if (order.kind == Order::Profile) return profileScale(order.paper, order.from, order.to);
    return planScale(road, order.paper, order.from, order.to);
}

PlanView viewOf(const Order& order)
{
    PlanView view;
    view.marked = order.marked;
    view.other = order.other;
    view.stale = order.stale;
    return view;
}

Picture planModel(const Road& road, const Order& order)
{
    PlanView view = viewOf(order);
    // Without a wish for a scale the texts are those of 1 : 2000, which most plans have.
    view.mm = order.scale.value_or(2000) / 1000;
    view.tolerance = 5e-4;
    view.from = order.from;
    view.to = order.to;
    Picture picture = Plan(road).picture(view);
    const Box box = extents(picture);
    const auto at = [&](const Picture& part, Point where) {
        Transform by;
        by.scale = view.mm;
        by.shift = where;
        picture.add(transformed(part, by));
    };
    at(northArrow(0), {box.high.x, box.high.y + 16 * view.mm});
    at(scaleBar(view.mm), {box.high.x - 80 * view.mm, box.high.y + 12 * view.mm});
    at(planLegend(road, view), {box.low.x, box.high.y});
    if (order.scale) {
        const auto sheets = planSheets(road, view, order.paper, *order.scale, order.from, order.to, {});
        for (std::size_t i = 0; i < sheets.size() && sheets.size() > 1; ++i) {
            const auto& corners = sheets[i].outline;
            const Point along = corners[1] - corners[0], up = corners[3] - corners[0];
            picture.polyline(Layer::Match, corners, true);
            picture.text(Layer::Match,
                         {corners[0] + (4 * view.mm / length(along)) * along + (4 * view.mm / length(up)) * up,
                          3 * view.mm, "第 " + std::to_string(i + 1) + " 张", angleOf(along)});
        }
    }
    return picture;
}

Picture profileModel(const Road& road, const Order& order)
{
    ProfileView view{.from = order.from, .to = order.to, .mm = scaleOf(road, order) / 1000, .stale = order.stale};
    if (const auto heights = heightsBetween(road.tables(), view.from, view.to)) {
        view.exaggeration = order.exaggeration > 0 ? order.exaggeration : 10;
        const double rise = (heights->second - heights->first) * view.exaggeration / view.mm;
        view.height = std::max(60.0, rise + 40);
        const double step = niceStep(10 * view.mm / view.exaggeration);
        view.datum = std::floor((heights->first - 20 * view.mm / view.exaggeration) / step) * step;
    }
    Transform by;
    by.scale = view.mm;
    Picture picture = transformed(profilePicture(road, view), by);
    picture.origin = {view.from, view.datum * view.exaggeration};
    return picture;
}

}  // namespace

Order orderOf(const Road& road, Order::Kind kind)
{
    Order order;
    order.kind = kind;
    order.from = road.start();
    order.to = road.end();
    const auto& lc = road.tables().sqxLc;
    if (kind == Order::Profile && lc.size() > 1) {
        order.from = std::min(lc.front(), road.empty() ? lc.front() : road.start());
        order.to = std::max(lc.back(), road.empty() ? lc.back() : road.end());
    }
    return order;
}

std::string refusalOf(const Road& road, const Order& order)
{
    const Tables& t = road.tables();
    if (order.kind == Order::Plan && road.empty()) return "没有平曲线参数，画不出平面图";
    if (order.kind == Order::Profile && t.sqxLc.size() < 2) return "没有竖曲线参数，画不出纵断面图";
    if (order.kind == Order::Section && !surfaceAt(t, order.stake, 0)) return "这个里程没有设计高程，画不出横断面图";
    if (order.kind != Order::Section && !(order.to > order.from)) return "结束里程不在开始里程之后";
    return {};
}

std::vector<Sheet> sheetsOf(const Road& road, const Order& order, const SlopeFiles& slopes)
{
    const SheetTexts texts{order.project};
    if (order.kind == Order::Plan)
        return planSheets(road, viewOf(order), order.paper, scaleOf(road, order), order.from, order.to, texts);
    if (order.kind == Order::Profile)
        return profileSheets(road, order.paper, scaleOf(road, order), order.exaggeration, order.from, order.to, texts,
                             order.stale);
    const Section section = sectionOf(road, order.stake, order.thickness, slopes);
    return {sectionSheet(road, section, order.paper, order.scale.value_or(sectionScale(section, order.paper)), texts,
                         order.stale)};
}

std::string dxfOf(const Road& road, const Order& order, const SlopeFiles& slopes)
{
    if (order.kind == Order::Plan) {
        const double mm = order.scale.value_or(2000) / 1000;
        return dxfOf(planModel(road, order), mm);
    }
    if (order.kind == Order::Profile) return dxfOf(profileModel(road, order), scaleOf(road, order) / 1000);
    const Section section = sectionOf(road, order.stake, order.thickness, slopes);
    const double mm = order.scale.value_or(100) / 1000;
    return dxfOf(sectionPicture(road, section, {.mm = mm, .slopes = true, .stale = order.stale}), mm);
}

}  // namespace plot
