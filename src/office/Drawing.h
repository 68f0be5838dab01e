#pragma once
// A plan: what a drawing window shows and a .dxf file holds. x runs right, y up; lengths in drawing units.

#include <string>
#include <variant>
#include <vector>

struct Drawing {
    struct Point {
        double x = 0, y = 0;
        bool operator==(const Point&) const = default;
    };

    /// A light polyline, open, in the plane z = 0.
    struct Polyline {
        std::vector<Point> points;
        bool operator==(const Polyline&) const = default;
    };
    struct Line {
        Point from, to;
        bool operator==(const Line&) const = default;
    };
    struct Circle {
        Point centre;
        double radius = 0;
        bool operator==(const Circle&) const = default;
    };
    /// One line of text, its base line starting at `at`.
    struct Text {
        Point at;
        double height = 0;  ///< of a capital letter
        std::string text;   ///< UTF-8
        std::string style;  ///< name of a TextStyle
        bool operator==(const Text&) const = default;
    };
    /// A block's picture with its base point at `at`, the same scale on all axes.
    struct Insert {
        std::string block;
        Point at;
        double scale = 1;
        double rotation = 0;  ///< degrees, anticlockwise
        bool operator==(const Insert&) const = default;
    };
    using Entity = std::variant<Polyline, Line, Circle, Text, Insert>;

    struct TextStyle {
        std::string name;      ///< UTF-8
        std::string typeface;  ///< of an outline font, UTF-8
        bool bold = false, italic = false;
        int charSet = 0, pitchAndFamily = 0;  ///< as the windowing system numbers them
        bool operator==(const TextStyle&) const = default;
    };
    struct Block {
        std::string name;  ///< UTF-8
        Point base;
        std::vector<Entity> entities;  ///< no inserts
        bool operator==(const Block&) const = default;
    };

    std::vector<TextStyle> styles;
    std::string activeStyle;  ///< of texts to come; "" for the standard one
    std::vector<Block> blocks;
    std::vector<Entity> entities;  ///< of the model space, in drawing order

    const Block* block(const std::string& name) const;          ///< nullptr where there is none
    const TextStyle* textStyle(const std::string& name) const;  ///< nullptr where there is none
    bool operator==(const Drawing&) const = default;
};

/// The smallest upright rectangle around everything; texts with the width that letters of their height usually take.
struct DrawingExtents {
    Drawing::Point low, high;
    bool empty = true;  ///< nothing drawn: low and high say nothing

    void add(Drawing::Point point);
};
DrawingExtents ExtentsOf(const Drawing& drawing);

/// A point of a block as its insert shows it.
Drawing::Point Placed(const Drawing::Insert& insert, const Drawing::Block& block, Drawing::Point point);
