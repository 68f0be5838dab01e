#include "check/CheckRules.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// The compiled end of a road lies some millimetres beside the true one; a table may end that much before it.
constexpr double kEndTolerance = 0.05;

/// A row whose name stands in an earlier one.
struct Again {
    std::uint32_t row, before;
};

/// In the order of the rows.
std::vector<Again> namedAgain(const CheckedFile& file, std::size_t first, std::size_t end)
{
    std::vector<std::uint32_t> order(end > first ? end - first : 0);
    std::iota(order.begin(), order.end(), static_cast<std::uint32_t>(first));
    const auto name = [&](std::uint32_t row) { return file[row].raw(0); };
    std::sort(order.begin(), order.end(), [&](auto a, auto b) {
        const auto left = name(a), right = name(b);
        return left != right ? left < right : a < b;
    });
    std::vector<Again> found;
    for (std::size_t i = 1, same = 0; i < order.size(); ++i) {
        if (name(order[i]) != name(order[same]))
            same = i;
        else if (!name(order[i]).empty())
            found.push_back({order[i], order[same]});
    }
    std::sort(found.begin(), found.end(), [](auto& a, auto& b) { return a.row < b.row; });
    return found;
}

}  // namespace

void CheckDuplicates(std::shared_ptr<const CheckedFile> file, std::size_t first, std::size_t end, std::string what,
                     CheckSteps& steps, Findings& findings)
{
    steps.once([=, &steps, &findings] {
        const auto found = std::make_shared<std::vector<Again>>(namedAgain(*file, first, end));
        steps.rows(found->size(), [=, &findings](std::size_t i) {
            const auto [row, before] = (*found)[i];
            findings.add(file->name, (*file)[row].line, 1,
                         what + "“" + (*file)[row].text(0) + "”与第" + std::to_string((*file)[before].line) + "行重复");
        });
    });
}

void CheckGaps(std::shared_ptr<const CheckedFile> file, std::vector<std::size_t> fields, const CheckBreaks& breaks,
               CheckSteps& steps, Findings& findings)
{
    const std::size_t rows = file->size();
    steps.rows(rows, [file = std::move(file), fields = std::move(fields), &breaks, &findings](std::size_t i) {
        for (const auto field : fields) {
            const auto stake = (*file)[i].read(field);
            if (stake && breaks.place(*stake).inGap)
                findings.add(file->name, (*file)[i].line, static_cast<int>(field) + 1,
                             "里程落在断链跳过的一段里，打开项目时到这里就停止", Severity::Error);
        }
    });
}

void CheckGrows(const std::string& file, int line, int field, const std::string& what, double before, double stake,
                Findings& findings)
{
    if (stake == before)
        findings.add(file, line, field, what + "，与前一个里程相同");
    else
        findings.addMetres(file, line, field, what + "，退回", before - stake);
}

void CheckCovers(const CheckedFile& file, std::size_t first, std::size_t last, const CheckedRoad& road,
                 const CheckBreaks& breaks, Findings& findings)
{
    if (file.size() == 0) return;
    const std::string least = road.exact ? "" : "至少";
    const auto told = [&](const CheckedRow& row, const std::string& text, double metres) {
        findings.add({file.name, row.line, 0, text + Metres(metres) + "米没有数据", {metres, "米"}});
    };
    const auto from = file[0].read(first), to = file.back().read(last);
    if (from && road.start && breaks.continuous(*from) > *road.start + kEndTolerance)
        told(file[0], "路线起点之后的", breaks.continuous(*from) - *road.start);
    if (to && road.end && breaks.continuous(*to) < *road.end - kEndTolerance)
        told(file.back(), "路线终点之前的" + least, *road.end - breaks.continuous(*to));
}
