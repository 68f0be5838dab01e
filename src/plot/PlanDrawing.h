#pragma once
// One call of Plan::picture, in two files: the line with what lies under and along it, and the texts and points around.

#include "plot/Angles.h"
#include "plot/Plan.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace plot {

class PlanDrawing {
public:
    PlanDrawing(Plan& plan, const PlanView& view)
        : m_plan(plan), m_road(*plan.m_road), m_view(view), m_all(view.window.empty()),
          m_window(m_all ? m_road.box().grown(30 * view.mm) : view.window), m_labels(view.room)
    {
        for (const auto& area : view.blocked) m_labels.block(area);
        m_out.origin = m_road.origin();
        m_bounded = view.to > view.from;
    }

    Picture draw()
    {
        grid();
        if (m_view.other) otherRoad(*m_view.other);
        edges();
        polygon();
        centreLine();
        ticks();
        mainPointMarks();
        breaks();
        marked();
        traverse();
        vertexNames();
        mainPointTexts();
        stakeTexts();
        curveData();
        gridTexts();
        m_out.add(m_texts);
        return std::move(m_out);
    }

private:
    double mm(double n) const { return n * m_view.mm; }
    bool seen(Point p) const { return m_window.holds(p); }
    bool covers(double stake) const { return !m_bounded || (m_view.from - 1e-9 <= stake && stake <= m_view.to + 1e-9); }
    Layer orAmber(Layer layer, bool stale) const { return stale ? Layer::Amber : layer; }
    /// The part of an element that is drawn.
    std::pair<double, double> range(const Element& e) const;
    bool drawn(const Element& e) const;

    // Coordinate grid.
    void grid();
    bool near(Point p, double distance) const;  ///< to the road, about
    void gridText(Point at, std::string text, double rotation, Align align = Align::Left);
    /// Last: they stand where the others leave room.
    void gridTexts();

    // The line itself.
    Plan::Shape& shapeOf(std::size_t i);
    void centreLine();
    /// No text over the road.
    void block(const std::vector<StakePose>& line);
    /// Where texts beside the road begin: behind its edge, m.
    double reach(double stake, int side) const;
    void lineOf(Layer layer, const Element& e, std::size_t i);
    void otherRoad(const Road& other);

    // Edges and crossfall.
    void edges();
    std::vector<Plan::EdgePoint> edgePoints(const Element& e, const std::vector<StakePose>& line) const;
    void crossfall(const std::vector<Plan::EdgePoint>& points);

    // Along the line.
    double labelStep() const { return niceStep(mm(16)); }
    /// Stakes at multiples of the interval, as people count them, with what the window shows of each element.
    template <class Visit>
    void atMultiples(double step, Visit visit);
    void ticks();
    void stakeTexts();
    void mainPointMarks();
    void mainPointTexts();
    void breaks();
    static std::string stakeDigits(double stake);

    // Vertices, traverse points, computed points.
    double averageElement() const;  ///< m
    /// A leg of the polygon is long enough for the line not to be hidden by all of them.
    bool legsCanBeSeen() const;
    void polygon();
    void vertexNames();
    /// A text at one of eight places around a point.
    bool around(Point at, const std::string& text, double height, Layer layer);
    void curveData();
    void block(Point at, const std::vector<std::string>& lines);
    void traverse();
    void marked();

    Plan& m_plan;
    const Road& m_road;
    const PlanView& m_view;
    bool m_all, m_bounded = false;
    Box m_window;
    Labels m_labels;
    Picture m_out, m_texts;
    std::vector<StakePose> m_stakes;
    std::vector<Point> m_crosses;
    std::vector<Text> m_otherTexts, m_gridTexts;
    bool m_edgesDrawn = false;
};

}  // namespace plot
