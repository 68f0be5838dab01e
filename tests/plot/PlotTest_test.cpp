#include "PlotTest.h"

#include "base/Numbers.h"
#include "engine/Element.h"
#include "project/LoadProject.h"

#include <cmath>

Sample::Sample(const std::string& name)
{
    for (const auto& file : std::filesystem::directory_iterator(std::string(VM_SOURCE_DIR "/samples/") + name))
        std::filesystem::copy_file(file.path(), folder.path(file.path().filename().string()));
    LoadProject();
}

void setPlainRoad()
{
    const auto hy = elementEnd(60, 0, 1 / 200.0, 0, 1100, 500, 60);
    const double fwj = DegToDms(hy.fwjDeg);
    setElements({{0, 1000, 500, 0, 0, 0},
                 {100, 1100, 500, 0, 0, 200},
                 {160, hy.x, hy.y, fwj, 200, 200},
                 {210.0001, 0, 0, 0, 0, 0}});
}

namespace {

/// The range of the corners' distances along a direction.
std::pair<double, double> range(const std::vector<plot::Point>& corners, plot::Point along)
{
    std::pair<double, double> r{1e300, -1e300};
    for (const auto& p : corners) {
        const double d = p.x * along.x + p.y * along.y;
        r = {std::min(r.first, d), std::max(r.second, d)};
    }
    return r;
}

bool parted(const std::vector<plot::Point>& a, const std::vector<plot::Point>& b)
{
    for (const auto* of : {&a, &b})
        for (std::size_t i = 0; i < 2; ++i) {
            const plot::Point along = (*of)[i + 1] - (*of)[i];
            const auto ra = range(a, along), rb = range(b, along);
            if (ra.second <= rb.first || rb.second <= ra.first) return true;
        }
    return false;
}

}  // namespace

std::vector<std::string> overlaps(const plot::Picture& picture)
{
    const auto texts = textsOf(picture);
    std::vector<std::vector<plot::Point>> corners;
    std::vector<plot::Box> boxes(texts.size());
    for (const auto& text : texts) {
        corners.push_back(plot::cornersOf(text));
        for (const auto& corner : corners.back()) boxes[corners.size() - 1].add(corner);
    }
    std::vector<std::string> found;
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (boxes[i].meets(boxes[k]) && !parted(corners[i], corners[k]))
                found.push_back(texts[k].text + " / " + texts[i].text);
    return found;
}

TEST(PlotTest, OverlapsAreSeen)
{
    plot::Picture two;
    two.text(plot::Layer::Stakes, {{0, 0}, 2, "K12+300"});
    two.text(plot::Layer::Stakes, {{0, 4}, 2, "K12+400"});
    EXPECT_TRUE(overlaps(two).empty());
    two.text(plot::Layer::Stakes, {{5, -3}, 2, "K12+500", 90});
    EXPECT_EQ(overlaps(two).size(), 2u);
}
