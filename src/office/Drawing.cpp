#include "office/Drawing.h"

#include "base/Utf8.h"

#include "base/Trig.h"

#include <algorithm>

namespace {

template <class Named>
const Named* find(const std::vector<Named>& all, const std::string& name)
{
    const auto found = std::find_if(all.begin(), all.end(), [&](const Named& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

/// In heights: an ideograph is about as wide as the line is high, a letter half of it.
double textWidth(std::string_view text)
{
    double width = 0;
    while (!text.empty()) width += TakeCharacter(text) < 0x80 ? 0.75 : 1.5;
    return width;
}

struct Gather {
    const Drawing& drawing;
    DrawingExtents& extents;

    void operator()(const Drawing::Polyline& polyline) const
    {
        for (const auto& point : polyline.points) extents.add(point);
    }
    void operator()(const Drawing::Line& line) const
    {
        extents.add(line.from);
        extents.add(line.to);
    }
    void operator()(const Drawing::Circle& circle) const
    {
        extents.add({circle.centre.x - circle.radius, circle.centre.y - circle.radius});
        extents.add({circle.centre.x + circle.radius, circle.centre.y + circle.radius});
    }
    void operator()(const Drawing::Text& text) const
    {
        extents.add(text.at);
        extents.add({text.at.x + textWidth(text.text) * text.height, text.at.y + text.height});
    }
    void operator()(const Drawing::Insert& insert) const
    {
        const auto* block = drawing.block(insert.block);
        if (!block) return;
        DrawingExtents own;
        for (const auto& entity : block->entities) std::visit(Gather{drawing, own}, entity);
        if (own.empty) return;
        for (const double x : {own.low.x, own.high.x})
            for (const double y : {own.low.y, own.high.y}) extents.add(Placed(insert, *block, {x, y}));
    }
};

}  // namespace

const Drawing::Block* Drawing::block(const std::string& name) const { return find(blocks, name); }
const Drawing::TextStyle* Drawing::textStyle(const std::string& name) const { return find(styles, name); }

void DrawingExtents::add(Drawing::Point point)
{
    low = empty ? point : Drawing::Point{std::min(low.x, point.x), std::min(low.y, point.y)};
    high = empty ? point : Drawing::Point{std::max(high.x, point.x), std::max(high.y, point.y)};
    empty = false;
}

DrawingExtents ExtentsOf(const Drawing& drawing)
{
    DrawingExtents extents;
    for (const auto& entity : drawing.entities) std::visit(Gather{drawing, extents}, entity);
    return extents;
}

Drawing::Point Placed(const Drawing::Insert& insert, const Drawing::Block& block, Drawing::Point point)
{
    const double x = (point.x - block.base.x) * insert.scale, y = (point.y - block.base.y) * insert.scale;
    const double turn = insert.rotation * 3.14159265358979323846 / 180;
    if (turn == 0) return {insert.at.x + x, insert.at.y + y};
    return {insert.at.x + x * trig::cos(turn) - y * trig::sin(turn),
            insert.at.y + x * trig::sin(turn) + y * trig::cos(turn)};
}
