#pragma once
// A drawing without paper or screen: lines, arcs, texts and fills on named layers. x runs right, y up, lengths are
// metres of the ground (or millimetres of paper after a transformation). Coordinates count from a local origin, so that
// numbers near 4e7 keep their digits where they are painted.

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace plot {

struct Point {
    double x = 0, y = 0;
    bool operator==(const Point&) const = default;
};
inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator*(double f, Point p) { return {f * p.x, f * p.y}; }
double length(Point p);

/// An upright rectangle; a fresh one holds nothing.
struct Box {
    Point low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Point high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    bool empty() const { return !(low.x <= high.x && low.y <= high.y); }
    double width() const { return high.x - low.x; }
    double height() const { return high.y - low.y; }
    Point centre() const { return {(low.x + high.x) / 2, (low.y + high.y) / 2}; }
    void add(Point p);
    void add(const Box& box);
    Box grown(double by) const { return {{low.x - by, low.y - by}, {high.x + by, high.y + by}}; }
    bool holds(Point p) const { return low.x <= p.x && p.x <= high.x && low.y <= p.y && p.y <= high.y; }
    bool meets(const Box& other) const;
    double distance(Point p) const;  ///< 0 inside
};

struct Colour {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Colour&) const = default;
};

enum class Layer {
    Straight,
    Spiral,
    Arc,  // the centre line
    Ticks,
    Stakes,
    Breaks,
    MainPoints,
    Polygon,
    CurveData,  // what stands along it
    Traverse,
    Structures,
    Edges,
    Crossfall,
    Grid,
    OtherRoad,
    Ground,
    GradeLine,
    VerticalCurve,
    Bands,
    BandTexts,  // of the profile
    Surface,
    Subgrade,
    Slopes,
    Levels,  // of the cross-section
    Frame,
    Match,
    Legend,
    Amber,
    Picked,
};
/// How a layer looks and what it is called in a file.
struct LayerLook {
    Layer layer;
    std::string_view name;  ///< Chinese, UTF-8
    Colour colour;
    double width = 0.18;  ///< of its lines, mm
    bool dashed = false;
};
const LayerLook& lookOf(Layer layer);
std::vector<LayerLook> allLayers();

struct Polyline {
    std::vector<Point> points;
    bool closed = false;
};
/// Runs anticlockwise from one angle to the other, degrees from +x; `to` is the larger one.
struct Arc {
    Point centre;
    double radius = 0, from = 0, to = 360;
};
/// A convex area of three or four corners.
struct Fill {
    std::vector<Point> points;
    Colour colour;
};
enum class Align { Left, Centre, Right };
/// One line of text; `at` lies on the line through the middle of its digits.
struct Text {
    Point at;
    double height = 0;    ///< of a digit
    std::string text;     ///< UTF-8
    double rotation = 0;  ///< degrees, anticlockwise
    Align align = Align::Left;
};
struct Entity {
    Layer layer{};
    std::variant<Polyline, Arc, Fill, Text> shape;
};

struct Picture {
    Point origin;  ///< what the coordinates count from
    std::vector<Entity> entities;

    template <class Shape>
    void put(Layer layer, Shape shape)
    {
        Entity& entity = entities.emplace_back();
        entity.layer = layer;
        entity.shape.template emplace<Shape>(std::move(shape));
    }
    void line(Layer layer, Point a, Point b) { put(layer, Polyline{{a, b}}); }
    void polyline(Layer layer, std::vector<Point> points, bool closed = false)
    {
        put(layer, Polyline{std::move(points), closed});
    }
    void circle(Layer layer, Point centre, double radius) { put(layer, Arc{centre, radius}); }
    void text(Layer layer, Text text) { put(layer, std::move(text)); }
    void add(const Picture& other) { entities.insert(entities.end(), other.entities.begin(), other.entities.end()); }
};

/// Width of a text over its height, as common outline fonts have it: a Chinese character is as wide as its em square.
double textWidth(std::string_view utf8);
/// Height of the em square over the height of a digit.
inline constexpr double kEm = 1.37;

/// Turn, scale, shift: p becomes scale * turned(p) + shift.
struct Transform {
    double cosine = 1, sine = 0, scale = 1;
    Point shift;
    bool downwards = false;  ///< y runs down in the target, as on screens

    Point operator()(Point p) const;
    Point inverse(Point p) const;
};
/// @param degrees  anticlockwise
Transform turned(double degrees, double scale);
Picture transformed(const Picture& picture, const Transform& by);

/// Points of an arc, ends included, whose chords stay within `tolerance` of it.
std::vector<Point> flattened(const Arc& arc, double tolerance);
/// The part of a picture inside a box: lines are cut at its edges, arcs become lines; texts and fills outside go.
Picture clipped(const Picture& picture, const Box& box, double tolerance);
/// Cuts a segment to what of it lies in the box; false: nothing does.
bool cut(Point& a, Point& b, const Box& box);
Box extents(const Picture& picture);
/// The four corners of a text's rectangle, anticlockwise from its lower left one.
std::vector<Point> cornersOf(const Text& text);

}  // namespace plot
