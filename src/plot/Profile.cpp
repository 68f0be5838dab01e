#include "plot/Profile.h"

#include "plot/ProfileBands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace plot {

std::vector<GradeChange> gradeChanges(const Tables& t)
{
    std::vector<GradeChange> all;
    const std::size_t n = t.sqxLc.size();
    const auto grade = [&](std::size_t i) {
        const double run = t.sqxLc[i] - t.sqxLc[i - 1];
        return run == 0 ? 0 : (t.sqxGc[i] - t.sqxGc[i - 1]) / run;
    };
    for (std::size_t i = 1; i + 1 < n; ++i) {
        GradeChange c{.stake = t.sqxLc[i], .elevation = t.sqxGc[i], .radius = t.sqxR[i]};
        c.before = grade(i);
        c.behind = grade(i + 1);
        c.tangent = std::abs((c.behind - c.before) * c.radius / 2);
        c.rise = c.radius == 0 ? 0 : c.tangent * c.tangent / (2 * std::abs(c.radius));
        c.crest = c.behind < c.before;
        all.push_back(c);
    }
    return all;
}

std::vector<Extreme> extremes(const Tables& t)
{
    const GradeIndex grades(t);
    std::vector<Extreme> all;
    for (const auto& c : gradeChanges(t)) {
        if (c.before * c.behind > 0 || c.before == c.behind) continue;
        // The grade falls off from before to behind in proportion to length.
        const double stake = c.start() + 2 * c.tangent * (c.before / (c.before - c.behind));
        if (const auto e = surfaceAt(t, stake, 0, &grades)) all.push_back({stake, *e, c.crest});
    }
    return all;
}

std::optional<std::pair<double, double>> heightsBetween(const Tables& t, double from, double to)
{
    const GradeIndex grades(t);
    std::optional<std::pair<double, double>> found;
    const auto add = [&](double stake) {
        if (stake < from || stake > to) return;
        const auto e = surfaceAt(t, stake, 0, &grades);
        if (!e) return;
        if (!found) found = {*e, *e};
        found = {std::min(found->first, *e), std::max(found->second, *e)};
    };
    for (int i = 0; i <= 50; ++i) add(from + (to - from) * i / 50);
    for (const auto& c : gradeChanges(t))
        for (const double s : {c.start(), c.end()}) add(s);
    for (const auto& x : extremes(t)) add(x.stake);
    for (const auto& c : gradeChanges(t))  // the corners are drawn, too
        if (found && c.stake >= from && c.stake <= to)
            found = {std::min(found->first, c.elevation), std::max(found->second, c.elevation)};
    return found;
}

void fitHeights(const Tables& t, ProfileView& view)
{
    const auto heights = heightsBetween(t, view.from, view.to);
    if (!heights) return;
    const double room = (view.height - 34) * view.mm;  // labels stand above and below the line
    view.exaggeration = 1;
    for (const double times : {1, 2, 5, 10, 20, 50, 100})
        if ((heights->second - heights->first) * times <= room) view.exaggeration = times;
    const double step = niceStep(10 * view.mm / view.exaggeration);
    const double middle = (heights->first + heights->second) / 2, half = view.height * view.mm / view.exaggeration / 2;
    view.datum = std::round((middle - half) / step) * step;
}

Point inProfile(const ProfileView& view, double stake, double elevation)
{
    return {(stake - view.from) / view.mm, (elevation - view.datum) * view.exaggeration / view.mm};
}

namespace {

class ProfileDrawing {
public:
    ProfileDrawing(const Road& road, const ProfileView& view)
        : m_road(road), m_t(road.tables()), m_view(view), m_width((view.to - view.from) / view.mm),
          m_labels(Box{{-kBandTitles, 0}, {m_width + 2, view.height}})
    {}

    Picture draw()
    {
        grid();
        if (m_t.sqxLc.size() > 1) {
            corners();
            gradeLine();
            cornerTexts();
            extremeTexts();
            curveEndTexts();
        }
        m_out.polyline(Layer::Bands, {{0, 0}, {m_width, 0}, {m_width, m_view.height}, {0, m_view.height}}, true);
        m_out.add(m_texts);
        m_out.add(profileBands(m_road, m_view));
        return std::move(m_out);
    }

private:
    Point place(double stake, double elevation) const { return inProfile(m_view, stake, elevation); }
    bool seen(double stake) const { return m_view.from <= stake && stake <= m_view.to; }
    Layer orAmber(Layer layer) const { return m_view.stale.vertical ? Layer::Amber : layer; }

    void grid()
    {
        const double perMetre = m_view.exaggeration / m_view.mm, step = niceStep(10 / perMetre);
        for (double e = std::ceil(m_view.datum / step - 1e-9) * step; (e - m_view.datum) * perMetre <= m_view.height;
             e += step) {
            const double y = (e - m_view.datum) * perMetre;
            m_out.line(Layer::Ground, {0, y}, {m_width, y});
            m_labels.put(m_texts, Layer::Bands,
                         Text{{-1.5, y},
                              2,
                              fixed(e, step < 0.1 ? 2
                                       : step < 1 ? 1
                                                  : 0),
                              0,
                              Align::Right},
                         0.3);
        }
        forMultiples(m_road, m_view, niceStep(16 * m_view.mm), [&](double stake) {
            const double x = place(stake, 0).x;
            m_out.line(Layer::Ground, {x, 0}, {x, m_view.height});
        });
    }

    void corners()
    {
        std::vector<Point> points;
        for (std::size_t i = 0; i < m_t.sqxLc.size(); ++i) points.push_back(place(m_t.sqxLc[i], m_t.sqxGc[i]));
        Picture all;
        all.polyline(Layer::Polygon, std::move(points));
        m_out.add(clipped(all, room(), 0.01));
    }
    Box room() const { return {{0, 0}, {m_width, m_view.height}}; }

    void gradeLine()
    {
        Picture all;
        const auto stretch = [&](Layer layer, double from, double to, double radius) {
            from = std::max(from, m_view.from);
            to = std::min(to, m_view.to);
            if (!(to > from)) return;
            // Chords within 0.02 mm of paper: a parabola of that radius leaves its chord by length squared over 8 R.
            const double length = std::sqrt(8 * 0.02 * m_view.mm / m_view.exaggeration * std::max(radius, 1.0));
            const int n = radius == 0 ? 1 : static_cast<int>(std::clamp(std::ceil((to - from) / length), 1.0, 2000.0));
            std::vector<Point> points;
            for (int i = 0; i <= n; ++i) {
                const double stake = from + (to - from) * i / n;
                if (const auto e = surfaceAt(m_t, stake, 0, &m_grades)) points.push_back(place(stake, *e));
            }
            for (std::size_t k = 1; k < points.size(); ++k) blockLine(points[k - 1], points[k]);
            if (points.size() > 1) all.polyline(orAmber(layer), std::move(points));
        };
        double from = m_t.sqxLc.front();
        for (const auto& c : gradeChanges(m_t)) {
            stretch(Layer::GradeLine, from, c.start(), 0);
            stretch(Layer::VerticalCurve, c.start(), c.end(), std::abs(c.radius));
            from = c.end();
        }
        stretch(Layer::GradeLine, from, m_t.sqxLc.back(), 0);
        if (gradeChanges(m_t).empty()) {  // two points are no profile to the engine, but a line
            all.polyline(orAmber(Layer::GradeLine),
                         {place(m_t.sqxLc.front(), m_t.sqxGc.front()), place(m_t.sqxLc.back(), m_t.sqxGc.back())});
        }
        m_out.add(clipped(all, room(), 0.01));
    }

    /// No text over the line.
    void blockLine(Point a, Point b)
    {
        if (!(a == b)) m_labels.block(strip(a, b));
    }
    /// A millimetre wide along a line.
    static std::vector<Point> strip(Point a, Point b)
    {
        const Point d = b - a, up = 0.5 / length(d) * Point{-d.y, d.x};
        return {a - up, b - up, b + up, a + up};
    }

    /// The changes that have room for their marks: of a long road on one screen a few would be an accident.
    std::vector<GradeChange> shownChanges() const
    {
        const auto all = gradeChanges(m_t);
        std::vector<GradeChange> shown;
        for (std::size_t i = 0; i < all.size(); ++i) {
            double room = 1e9;
            if (i > 0) room = std::min(room, all[i].stake - all[i - 1].stake);
            if (i + 1 < all.size()) room = std::min(room, all[i + 1].stake - all[i].stake);
            if (room >= 2 * m_view.mm) shown.push_back(all[i]);
        }
        return shown;
    }
    void cornerTexts()
    {
        for (const auto& c : shownChanges()) {
            for (const double s : {c.start(), c.end()})
                if (seen(s) && c.tangent > 0)
                    if (const auto e = surfaceAt(m_t, s, 0, &m_grades)) {
                        const Point p = place(s, *e);
                        m_out.line(Layer::VerticalCurve, {p.x, p.y - 1.2}, {p.x, p.y + 1.2});
                    }
            if (!seen(c.stake)) continue;
            const Point corner = place(c.stake, c.elevation);
            m_out.circle(Layer::Polygon, corner, 0.6);
            const std::array<std::string, 3> lines{m_road.stakeText(c.stake) + "  " + fixed(c.elevation, 3),
                                                   (c.crest ? "凸 R=" : "凹 R=") + shortest(c.radius, 3) +
                                                       "  E=" + fixed(c.rise, 3),
                                                   "T=" + fixed(c.tangent, 3)};
            leader(corner, lines, c.crest, Layer::BandTexts);
        }
    }
    void curveEndTexts()
    {
        for (const auto& c : gradeChanges(m_t)) {
            if (2 * c.tangent / m_view.mm < 12) continue;
            for (const auto& [s, name] : {std::pair{c.start(), "起 "}, {c.end(), "终 "}}) {
                const auto e = surfaceAt(m_t, s, 0, &m_grades);
                if (!e || !seen(s)) continue;
                const Point p = place(s, *e);
                const double away = c.crest ? -2 : 2;
                const Text text{
                    {p.x, p.y + away}, 1.8, name + m_road.stakeText(s), 90, c.crest ? Align::Right : Align::Left};
                m_labels.put(m_texts, Layer::BandTexts, text, 0.6);
            }
        }
    }
    /// Lines of text over a crest or under a sag, at the first distance that is free, with a line to the corner. It may
    /// cross the line of grades; what is written already only where there is no other place.
    void leader(Point at, std::span<const std::string> lines, bool up, Layer layer)
    {
        for (const bool clear : {true, false})
            for (const double side : {up ? 1.0 : -1.0, up ? -1.0 : 1.0})
                for (const double away : {5.0, 9.0, 14.0, 20.0, 27.0, 35.0})
                    for (const double shift : {0.0, 0.5, -0.5})
                        if (leaderTo(at, {shift, side * away}, lines, layer, clear)) return;
    }
    /// @param way  how far the words stand aside, as a share of their width, and away, mm
    bool leaderTo(Point at, Point way, std::span<const std::string> lines, Layer layer, bool clear)
    {
        const double height = 2, row = 3.2, high = row * static_cast<double>(lines.size());
        double width = 0;
        for (const auto& line : lines) width = std::max(width, textWidth(line) * height);
        const double top = way.y > 0 ? at.y + way.y + high : at.y + way.y;
        const double aside = way.x * (width + 2) - width / 2;
        const double left = std::clamp(at.x + aside, 0.5, std::max(0.5, m_width - width - 0.5));
        const Point end{std::clamp(at.x, left, left + width), way.y > 0 ? top - high : top};
        const std::vector<Point> area{
            {left - 0.5, top - high}, {left + width + 0.5, top - high}, {left + width + 0.5, top}, {left - 0.5, top}};
        if ((clear && !m_written.isFree(strip(at, end))) || !m_labels.takeArea(area)) return false;
        m_texts.line(Layer::Bands, at, end);
        blockLine(at, end);
        m_written.block(area);
        m_written.block(strip(at, end));
        for (std::size_t k = 0; k < lines.size(); ++k)
            m_texts.text(layer, {{left, top - row * (static_cast<double>(k) + 0.5)}, height, lines[k]});
        return true;
    }
    void extremeTexts()
    {
        const auto shown = shownChanges();
        for (const auto& x : extremes(m_t)) {
            if (!seen(x.stake) || std::none_of(shown.begin(), shown.end(), [&](const GradeChange& c) {
                    return c.start() <= x.stake && x.stake <= c.end();
                }))
                continue;
            const Point p = place(x.stake, x.elevation);
            const double s = x.high ? 1 : -1;
            m_out.polyline(Layer::Breaks, {p, {p.x - 1, p.y + s * 1.8}, {p.x + 1, p.y + s * 1.8}}, true);
            const std::string words =
                (x.high ? "最高点 " : "最低点 ") + m_road.stakeText(x.stake) + "  " + fixed(x.elevation, 3);
            // On the other side of the line than the words of the corner.
            leader(p, {&words, 1}, !x.high, Layer::Breaks);
        }
    }

    const Road& m_road;
    const Tables& m_t;
    const GradeIndex m_grades{m_t};
    const ProfileView& m_view;
    double m_width;
    Labels m_labels, m_written;  ///< all that keeps texts off; leaders and their words alone
    Picture m_out, m_texts;
};

}  // namespace

Picture profilePicture(const Road& road, const ProfileView& view) { return ProfileDrawing(road, view).draw(); }

}  // namespace plot
