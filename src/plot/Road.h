#pragma once
// The road of the tables as shapes: what the views and the drawings are made of. Nothing here moves a shared value.
// Points are drawing coordinates (x east, y north, from the road's origin), stakes are continuous, lengths metres.

#include "engine/Elevation.h"
#include "engine/XYToStake.h"
#include "plot/Picture.h"
#include "tables/CalcTables.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace plot {

struct Pose {
    Point at;
    double azDeg = 0;  ///< tangent, clockwise from north
};
struct StakePose {
    double stake = 0;
    Pose pose;
};

enum class Bend { Straight, Spiral, Arc };
inline Layer layerOf(Bend bend)
{
    return bend == Bend::Straight ? Layer::Straight : bend == Bend::Spiral ? Layer::Spiral : Layer::Arc;
}

/// One element that has a length.
struct Element {
    std::size_t row = 0;      ///< of the tables
    double from = 0, to = 0;  ///< `to` is the smaller one where curves overlap and the stakes run backward
    double r1 = 0, r2 = 0;    ///< m, positive right, 0 straight
    Bend bend = Bend::Straight;
    Pose start = {}, end = {};
    Box box = {};

    double length() const { return to - from; }
    /// Parameter of a spiral: the root of length over change of curvature, m.
    std::optional<double> parameter() const;
};

/// Where the numbers along the road run on without a jump.
struct NominalPiece {
    double from = 0, to = 0;  ///< continuous
    double shift = 0;         ///< nominal less continuous
    bool secondPass = false;
};
/// A chainage break as it is written.
struct BreakPoint {
    double stake = 0;            ///< continuous
    double back = 0, ahead = 0;  ///< nominal
};
/// A named point where the curvature changes its law.
struct MainPoint {
    std::string name = {};  ///< ZH, HY, QZ, YH, HZ, ZY, YZ, GQ, and 起点, 终点
    double stake = 0;
    Pose pose = {};
    double room = 0;         ///< length of the shorter element beside it
    std::string label = {};  ///< name and stake
};
/// An intersection point with its curve.
struct Vertex {
    std::string name = {};
    Point at = {};
    double turnDeg = 0;  ///< positive right
    double radius = 0, ls1 = 0, ls2 = 0, t1 = 0, t2 = 0, length = 0;
};

/// The nearest point of the road.
struct FootPoint {
    std::size_t element = 0;  ///< index into elements
    double stake = 0;
    double offset = 0;  ///< positive right
    Pose pose = {};
};

class Road {
public:
    explicit Road(const Tables& tables);

    const Tables& tables() const { return *m_tables; }
    Point origin() const { return m_origin; }  ///< east and north of the local origin
    const std::vector<Element>& elements() const { return m_elements; }
    bool empty() const { return m_elements.empty(); }
    double start() const { return m_start; }
    double end() const { return m_end; }  ///< without what the closing row adds
    Box box() const { return m_box; }
    const std::vector<NominalPiece>& pieces() const { return m_pieces; }
    const std::vector<BreakPoint>& breaks() const { return m_breaks; }
    const std::vector<MainPoint>& mainPoints() const { return m_mainPoints; }
    /// The polygon with its first and last point; empty where the tables stem from blocks.
    const std::vector<Vertex>& polygon() const { return m_polygon; }

    Point local(double x, double y) const { return {y - m_origin.x, x - m_origin.y}; }  ///< of north and east
    const Element* elementAt(double stake) const;
    std::optional<Pose> poseAt(double stake) const;
    Pose poseOn(const Element& element, double stake) const;
    /// Points from one stake of the element to another, both included, chords within `tolerance` of the line.
    std::vector<StakePose> flattened(const Element& element, double from, double to, double tolerance) const;
    /// True where an element is an arc: it as one, between two of its stakes.
    Arc arcOf(const Element& element, double from, double to) const;
    std::optional<FootPoint> footOf(Point p) const;

    /// K12+345.678, by the breaks; a minus before it on the second pass of an overlap.
    std::string stakeText(double stake) const;
    /// The shortest such text: K12+300.
    std::string shortStakeText(double stake) const;

private:
    void readElements();
    void findPieces();
    void findMainPoints();
    void findPolygon();
    std::optional<FootPoint> footOn(std::size_t index, Point p) const;

    const Tables* m_tables;
    Point m_origin;
    double m_start = 0, m_end = 0;
    Box m_box;
    std::vector<Element> m_elements;
    std::vector<NominalPiece> m_pieces;
    std::vector<BreakPoint> m_breaks;
    std::vector<MainPoint> m_mainPoints;
    std::vector<Vertex> m_polygon;
};

/// True where the tables were compiled from intersection points, which the work arrays of that compile still tell.
bool fromIntersectionPoints(const Tables& t);
/// Elevation of the surface; nothing where the tables do not say. Stakes beyond the profile have none either.
std::optional<double> surfaceAt(const Tables& t, double stake, double offset, const GradeIndex* index = nullptr);
/// Crossfall of the roadway, a fraction, positive upwards from the centre. @param side -1 left, 1 right
std::optional<double> crossfallAt(const Tables& t, double stake, int side);
/// A number with so many decimals, no -0.
std::string fixed(double value, int decimals);
/// The same without zeros at its end.
std::string shortest(double value, int decimals);
/// 1, 2 or 5 times a power of ten, not below `least`.
double niceStep(double least);

}  // namespace plot
