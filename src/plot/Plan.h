#pragma once
// 线路平面图: the road from above, with what stands along it, as far as a window shows it.

#include "plot/Labels.h"
#include "plot/Road.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace plot {

/// A computed point of a result grid, or the corners of a structure.
struct Marked {
    std::vector<Point> points;  ///< local; more than one: an outline
    std::string label;
    bool picked = false;
};

/// Groups of tables that may not be what the project's files say: they are shown in amber.
struct Stale {
    bool horizontal = false, breaks = false, traverse = false, vertical = false, crossfall = false, widths = false;
    bool operator==(const Stale&) const = default;
};

struct PlanView {
    Box window;               ///< what is to be seen, local; an empty one: everything
    double mm = 1;            ///< ground that one millimetre of paper shows, m: the measure of texts and marks
    double tolerance = 1e-3;  ///< of polylines for spirals and edges, m
    double turn = 0;          ///< how the paper turns the plan, degrees anticlockwise: texts stand upright there
    std::vector<Point> room;  ///< convex, anticlockwise: texts keep inside; empty: anywhere
    std::vector<std::vector<Point>> blocked;  ///< convex, anticlockwise: no text stands there
    bool crosses = false;                     ///< the coordinate grid as crosses with their numbers, else as lines
    double from = 0, to = 0;                  ///< stakes that are drawn, where `to` is the larger one
    std::optional<std::size_t> picked;        ///< index of an element
    std::span<const Marked> marked;
    const Road* other = nullptr;  ///< a second road, in grey
    Stale stale;
};

class Plan {
public:
    explicit Plan(const Road& road) : m_road(&road), m_shapes(road.elements().size()) {}

    /// All that the window shows. Keeps the shapes of elements for the next call.
    Picture picture(const PlanView& view);

private:
    friend class PlanDrawing;
    struct EdgePoint {
        Pose pose;
        double left = 0, right = 0;            ///< widths, m
        double leftSlope = 0, rightSlope = 0;  ///< fraction, upwards from the centre positive
    };
    struct Shape {
        double tolerance = 0, from = 0, to = 0;
        std::vector<StakePose> line;
        double edgeTolerance = 0;
        std::vector<EdgePoint> edges;
    };
    const Road* m_road;
    std::vector<Shape> m_shapes;
};

/// The colour of a crossfall, blue downwards and orange upwards from the centre. @param slope fraction
Colour crossfallColour(double slope);

/// A text that runs away from the road at a right angle. @param side 1 right, -1 left; @param gap m from the line
Text beside(const Pose& pose, int side, double gap, double height, std::string text, double turn);

}  // namespace plot
