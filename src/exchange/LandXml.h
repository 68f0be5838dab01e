#pragma once
// A LandXML file as it stands, in metres: what it says, nothing computed from it. Reading is strict about numbers and
// names the element at which it ends.
// Source of the format: LandXML-1.2, landxml.org, 2008.

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace landxml {

struct Point {
    double north = 0, east = 0;
};

struct Element {
    enum Kind { Line, Curve, Spiral } kind = Line;
    std::string place;  ///< 第3个单元（Spiral）
    Point start, end;
    std::optional<Point> center, pi;
    bool clockwise = false;
    std::optional<double> length, radius;
    std::optional<double> radiusStart, radiusEnd;  ///< of a spiral; 0: infinite
    std::optional<double> dirStart, dirEnd;        ///< as written
    std::optional<double> station;                 ///< of its start, where it stands
};

/// A station equation. Stations of the file are internal: they count on from the start without regard to it.
struct Equation {
    std::optional<double> internal, back;  ///< one of them stands
    double ahead = 0;
};

struct GradePoint {
    enum Kind { Corner, Parabola, Circle } kind = Corner;
    double station = 0, elevation = 0;
    double length = 0, radius = 0;
};

struct Profile {
    std::string name;
    std::vector<GradePoint> points;
};

/// The stations of one curve's superelevation, and its full slope in percent.
struct Superelevation {
    std::optional<double> beginRunout, beginRunoff, full, slope, runoff, startRunout, endRunout;
};

/// A road of the file.
struct Alignment {
    std::string name;
    double staStart = 0;
    std::optional<double> length;  ///< as written
    std::vector<Element> elements;
    std::vector<Equation> equations;
    std::optional<Profile> profile;
    std::vector<Superelevation> superelevations;
    struct Named {
        std::string name;
        Point at;
    };
    std::vector<Named> vertices;  ///< of AlignPIs
    /// Lines of parameter files that this program left beside the standard elements: file, line.
    std::vector<std::pair<std::string, std::string>> typed;
    bool own = false;                  ///< written by this program
    std::vector<std::string> leftOut;  ///< what is not carried and why, one line each
};

enum class AngleUnit { Radians, Grads, Degrees, Dms };

struct Summary {
    std::string name;
    std::optional<double> staStart, length;  ///< as far as they stand
    std::size_t elements = 0;
    bool profile = false;
};

/// An open file. @throws ExchangeError, FileError
class File {
public:
    explicit File(const std::string& path);
    /// Of bytes that somebody has read.
    static File fromBytes(std::string bytes);
    ~File();
    File(File&&) noexcept;
    File& operator=(File&&) noexcept;

    std::vector<Summary> alignments() const;
    /// By its place in alignments(). @throws ExchangeError that names the element
    Alignment alignment(std::size_t index) const;
    const std::vector<std::string>& remarks() const;  ///< about units, and what of the file is not carried
    AngleUnit directionUnit() const;  ///< radians where it does not stand; what is not known is a remark

private:
    File() = default;
    struct Inner;
    std::unique_ptr<Inner> m_inner;
};

}  // namespace landxml
