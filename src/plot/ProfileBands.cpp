#include "plot/ProfileBands.h"

#include "engine/Elevation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string_view>

namespace plot {

namespace {

/// What a number beyond the largest value takes of a band, with its distance to the line and to the edge, mm.
constexpr double kNumberRoom = 3.3;

class BandsDrawing {
public:
    BandsDrawing(const Road& road, const ProfileView& view)
        : m_road(road), m_t(road.tables()), m_view(view), m_width((view.to - view.from) / view.mm)
    {}

    Picture draw()
    {
        using Self = BandsDrawing;
        struct Band {
            std::string_view title, second;
            double height;
            void (Self::*draw)(double top, double height);
        };
        static constexpr std::array kBands{Band{"坡度(%)", "坡长(m)", 10, &Self::grades},
                                           Band{"设计高程", "(m)", 13, &Self::elevations},
                                           Band{"里程桩号", "", 13, &Self::stakes},
                                           Band{"直线及平曲线", "上右 下左", 12, &Self::curvature},
                                           Band{"超高(%)", "左蓝 右橙", 12, &Self::crossfalls},
                                           Band{"路基宽度(m)", "上左 下右", 10, &Self::widths}};
        double top = 0;
        for (const auto& band : kBands) {
            const double bottom = top - band.height, middle = top - band.height / 2;
            m_out.polyline(Layer::Bands,
                           {{-kBandTitles, bottom}, {m_width, bottom}, {m_width, top}, {-kBandTitles, top}}, true);
            m_out.line(Layer::Bands, {0, bottom}, {0, top});
            const bool two = !band.second.empty();
            title(band.title, middle + (two ? 2 : 0), 2.4);
            if (two) title(band.second, middle - 2.2, 1.9);
            m_labels = Labels(Box{{0, bottom}, {m_width, top}});
            (this->*band.draw)(top, band.height);
            top = bottom;
        }
        return std::move(m_out);
    }

private:
    double x(double stake) const { return (stake - m_view.from) / m_view.mm; }
    bool seen(double stake) const { return m_view.from - 1e-9 <= stake && stake <= m_view.to + 1e-9; }
    Layer orAmber(Layer layer, bool stale) const { return stale ? Layer::Amber : layer; }
    void title(std::string_view text, double y, double height)
    {
        m_out.text(Layer::BandTexts, {{-kBandTitles / 2, y}, height, std::string(text), 0, Align::Centre});
    }
    bool put(Point at, double height, const std::string& text, double rotation = 0)
    {
        return m_labels.put(m_out, Layer::BandTexts, Text{at, height, text, rotation, Align::Centre}, 0.5);
    }
    /// A polyline of values over the stakes, cut at the sides of the graph.
    void graph(Layer layer, const std::vector<Point>& points)
    {
        Picture all;
        all.polyline(layer, points);
        m_out.add(clipped(all, Box{{0, -1e6}, {m_width, 1e6}}, 0.01));
    }

    void grades(double top, double height)
    {
        const auto& lc = m_t.sqxLc;
        const double bottom = top - height;
        for (std::size_t i = 1; i < lc.size(); ++i) {
            const double a = std::clamp(x(lc[i - 1]), 0.0, m_width), b = std::clamp(x(lc[i]), 0.0, m_width);
            if (!(b > a) || (b - a < 1 && lc.size() > 10)) continue;  // a hatching would say nothing
            const double run = lc[i] - lc[i - 1], rise = m_t.sqxGc[i] - m_t.sqxGc[i - 1];
            const double grade = run == 0 ? 0 : rise / run;
            const double slant = grade == 0 ? 0 : grade > 0 ? height / 2 : -height / 2;
            const double middle = top - height / 2;
            m_out.line(orAmber(Layer::GradeLine, m_view.stale.vertical), {a, middle - slant}, {b, middle + slant});
            if (seen(lc[i])) m_out.line(Layer::Bands, {x(lc[i]), bottom}, {x(lc[i]), top});
            // Each number in the corner that the slant leaves free.
            const std::string percent = shortest(grade * 100, 3), length = shortest(run, 3);
            const double shift = slant == 0 ? 0 : (b - a) / 5 * (slant > 0 ? -1 : 1);
            const double w = std::max(textWidth(percent), textWidth(length)) * 2;
            if (b - a < w + 2) continue;
            const double reach = std::max(0.0, (b - a - w) / 2 - 0.5);
            const double by = std::clamp(shift, -reach, reach);
            put({(a + b) / 2 + by, top - 2.4}, 2, percent);
            put({(a + b) / 2 - by, bottom + 2.4}, 2, length);
        }
    }

    double interval() const { return niceStep(4 * m_view.mm); }
    void elevations(double top, double height)
    {
        forMultiples(m_road, m_view, interval(), [&](double stake) {
            const auto e = surfaceAt(m_t, stake, 0, &m_grades);
            if (!e) return;
            m_out.line(Layer::Bands, {x(stake), top}, {x(stake), top - 1});
            put({x(stake), top - height / 2 - 0.3}, 1.9, fixed(*e, 3), 90);
        });
    }
    void stakes(double top, double height)
    {
        forMultiples(m_road, m_view, interval(), [&](double stake) {
            m_out.line(Layer::Bands, {x(stake), top}, {x(stake), top - 1});
            const std::string text = m_road.shortStakeText(stake);
            // From K100 on a stake is longer than the band is high at the usual size.
            const double size = std::min(1.9, (height - 1.8) / textWidth(text));
            put({x(stake), top - height / 2 - 0.3}, size, text, 90);
        });
        for (const auto& b : m_road.breaks())
            if (seen(b.stake)) m_out.line(Layer::Breaks, {x(b.stake), top}, {x(b.stake), top - height});
    }

    void curvature(double top, double height)
    {
        const double middle = top - height / 2, reach = height / 2 - 1.5;
        const auto level = [&](double r) { return middle + (r == 0 ? 0 : r > 0 ? reach : -reach); };
        for (const auto& e : m_road.elements()) {
            if (e.to < e.from || e.to < m_view.from || e.from > m_view.to) continue;
            const Layer layer = orAmber(layerOf(e.bend), m_view.stale.horizontal);
            graph(layer, {{x(e.from), level(e.r1)}, {x(e.to), level(e.r2)}});
            const double a = std::max(0.0, x(e.from)), b = std::min(m_width, x(e.to));
            const std::string length = "L=" + fixed(e.length(), 2);
            const std::string first = e.bend == Bend::Arc ? "R=" + shortest(std::abs(e.r1), 3)
                                      : e.parameter()     ? "A=" + fixed(*e.parameter(), 2)
                                                          : length;
            if (b - a < std::max(textWidth(first), textWidth(length)) * 1.8 + 1) continue;
            const double side = e.r1 + e.r2 >= 0 ? -1 : 1;  // towards the middle
            const double y = e.bend == Bend::Straight ? middle + 2 : level(e.r1 == 0 ? e.r2 : e.r1) + side * 2;
            put({(a + b) / 2, e.bend == Bend::Spiral ? middle - side * -3.2 : y}, 1.8, first);
            if (e.bend == Bend::Arc) put({(a + b) / 2, y + side * 2.8}, 1.8, length);
        }
    }

    /// Values at the rows of a table and, where they change, between them.
    std::vector<double> stakesOf(const Tables::Column& rows) const
    {
        std::vector<double> all;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (i > 0) {
                for (int k = 1; k < 8; ++k) all.push_back(rows[i - 1] + (rows[i] - rows[i - 1]) * k / 8);
                all.push_back(rows[i] - 2e-4);
            }
            if (i + 1 < rows.size()) all.push_back(rows[i]);
        }
        return all;
    }
    void crossfalls(double top, double height)
    {
        const double middle = top - height / 2;
        double most = 0.02;
        for (const auto* column : {&m_t.cgA, &m_t.cgB})
            for (const double v : *column) most = std::max(most, std::abs(v));
        const double scale = (height / 2 - kNumberRoom) / most;
        graph(Layer::Ground, {{0, middle}, {m_width, middle}});
        for (const int side : {-1, 1}) {
            std::vector<Point> points;
            for (const double s : stakesOf(m_t.cgLc))
                if (const auto p = crossfallAt(m_t, s, side)) points.push_back({x(s), middle + *p * scale});
            graph(orAmber(side < 0 ? Layer::GradeLine : Layer::VerticalCurve, m_view.stale.crossfall), points);
        }
        values(m_t.cgLc, [&](double s, int side) -> std::optional<Text> {
            const auto p = crossfallAt(m_t, s, side);
            if (!p) return {};
            const auto other = crossfallAt(m_t, s, -side);
            const double away = other && *other == *p ? -side : *p >= 0 ? 1 : -1;
            return Text{{x(s), middle + *p * scale + 1.7 * away}, 1.7, shortest(*p * 100, 2), 0, Align::Centre};
        });
    }
    void widths(double top, double height)
    {
        const double middle = top - height / 2;
        double most = 1;
        for (const auto* column : {&m_t.cgkdA, &m_t.cgkdB})
            for (const double v : *column) most = std::max(most, v);
        const double scale = (height / 2 - kNumberRoom) / most;
        graph(Layer::Ground, {{0, middle}, {m_width, middle}});
        const auto width = [&](double s, int side) {
            const RoadSection section = sectionAt(m_t, s);
            return side < 0 ? section.left.width : section.right.width;
        };
        for (const int side : {-1, 1}) {
            std::vector<Point> points;
            for (const double s : stakesOf(m_t.cgkdG)) points.push_back({x(s), middle - side * width(s, side) * scale});
            graph(orAmber(Layer::Edges, m_view.stale.widths), points);
        }
        values(m_t.cgkdG, [&](double s, int side) -> std::optional<Text> {
            const double w = width(s, side);
            if (w <= 0) return {};
            return Text{{x(s), middle - side * (w * scale + 1.7)}, 1.7, shortest(w, 3), 0, Align::Centre};
        });
    }
    /// A number in the middle of each stretch that keeps its value.
    void values(const Tables::Column& rows, const std::function<std::optional<Text>(double, int)>& text)
    {
        for (const int side : {-1, 1}) {
            std::string value;
            double from = 0, to = 0;
            const auto flush = [&] {
                const double a = std::max(from, m_view.from), b = std::min(to, m_view.to);
                if (value.empty() || !(b > a)) return;
                if (const auto middle = text((a + b) / 2, side)) m_labels.put(m_out, Layer::BandTexts, *middle, 0.8);
            };
            for (std::size_t i = 1; i < rows.size(); ++i) {
                const double a = rows[i - 1], b = rows[i];
                if (!(b > a)) continue;
                const auto start = text(a + 1e-3, side), end = text(b - 1e-3, side), middle = text((a + b) / 2, side);
                // Where a value changes, the numbers before and behind tell it.
                const bool kept = start && end && middle && start->text == end->text && start->text == middle->text;
                if (kept && start->text == value && a - to < 1e-3) {
                    to = b;
                    continue;
                }
                flush();
                value = kept ? start->text : "";
                from = a;
                to = b;
            }
            flush();
        }
    }

    const Road& m_road;
    const Tables& m_t;
    const GradeIndex m_grades{m_t};
    const ProfileView& m_view;
    double m_width;
    Labels m_labels;
    Picture m_out;
};

}  // namespace

Picture profileBands(const Road& road, const ProfileView& view) { return BandsDrawing(road, view).draw(); }

}  // namespace plot
