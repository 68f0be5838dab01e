#pragma once
// Where texts may stand: none over another, the more important first.

#include "plot/Picture.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace plot {

class Labels {
public:
    /// @param room  convex, anticlockwise: texts keep inside it; empty: anywhere
    explicit Labels(std::vector<Point> room = {}) : m_room(std::move(room)) {}
    explicit Labels(const Box& room) : m_room{room.low, {room.high.x, room.low.y}, room.high, {room.low.x, room.high.y}}
    {}

    /// Takes the place where nothing stands yet. @param gap  that others keep, in the drawing's units
    bool take(const Text& text, double gap);
    bool takeArea(std::vector<Point> corners);      ///< the same for a convex area, corners anticlockwise
    void block(std::vector<Point> corners);         ///< a convex area where no text may stand
    bool isFree(std::vector<Point> corners) const;  ///< a convex area where nothing stands yet
    /// Puts the first of the texts that has room into the picture. False: none had.
    bool put(Picture& into, Layer layer, std::span<const Text> choices, double gap);
    bool put(Picture& into, Layer layer, const Text& text, double gap) { return put(into, layer, {&text, 1}, gap); }

private:
    struct Taken {
        Box box;
        std::vector<Point> corners;
    };
    bool isFree(const Taken& place) const;
    void add(Taken place);
    /// Visits the cells that a box touches; false where `visit` is, for one of them.
    template <class Visit>
    bool cells(const Box& box, Visit visit) const;

    std::vector<Point> m_room;
    double m_cell = 0;  ///< of the grid over all places: as large as the first of them
    std::vector<Taken> m_taken;
    std::unordered_map<std::int64_t, std::vector<std::size_t>> m_at;
};

}  // namespace plot
