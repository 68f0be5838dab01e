#pragma once
// A calculation screen without its window, and roads that are easy to reckon with.

#include "base/RunTimeError.h"
#include "dialogs/ResultTable.h"
#include "screens/Columns.h"
#include "support/Tables.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

inline std::ostream& operator<<(std::ostream& out, const Refusal& r)
{
    return out << r.msg.title << ": " << r.msg.text << " -> " << (r.field.empty() ? "(no field)" : r.field);
}

/// Grid, row counter and data-changed flag of one screen.
struct Screen {
    explicit Screen(std::span<const GridColumn> columns) : grid(Headers(columns)) {}

    PlainRows grid;
    ResultTable rows{grid};
    ScreenState& state = rows.state;

    /// The cells of a data row, row number included, up to the last one that was written.
    std::vector<std::string> row(int number) const
    {
        std::vector<std::string> cells;
        for (int col = 0; col < grid.text().cols(); ++col) cells.push_back(grid.text().text(number, col));
        while (!cells.empty() && cells.back().empty()) cells.pop_back();
        return cells;
    }
    std::vector<std::string> column(int col) const
    {
        std::vector<std::string> cells;
        for (int row = 1; row < grid.text().rows(); ++row) cells.push_back(grid.text().text(row, col));
        return cells;
    }
    std::vector<std::string> warnings() const
    {
        std::vector<std::string> texts;
        for (int row = 1; row < grid.text().rows(); ++row) texts.push_back(grid.text().warning(row));
        return texts;
    }
};

using Texts = std::vector<std::string>;

/// A box with OK and the exclamation icon.
inline Refusal refusal(const std::string& text, const std::string& title, const std::string& field = {},
                       Icon icon = Icon::Exclamation)
{
    return {{.text = text, .title = title, .icon = icon}, field};
}
inline Refusal notANumber() { return refusal("请输入正确的数值！", "错误"); }
inline Refusal gap() { return refusal("桩号不存在，请检查断链数据！", "注意"); }

/// Expects a refusal, or none.
inline void expectRefusal(const Outcome& outcome, const std::optional<Refusal>& wanted, const std::string& about = {})
{
    ASSERT_EQ(outcome.refusal.has_value(), wanted.has_value())
        << about << (outcome.refusal ? " refused: " + outcome.refusal->msg.text : " went through");
    if (wanted) {
        EXPECT_EQ(*outcome.refusal, *wanted) << about;
    }
}

/// Defects of an input in the order in which a screen looks at them. Each alone gives its refusal, and of any two
/// neighbours the first one speaks.
template <class Input>
struct Defect {
    std::string name;
    std::function<void(Input&)> make;
    Refusal refusal;
};
template <class Input>
void expectOrder(const Input& good, const std::vector<Defect<Input>>& defects,
                 const std::function<Outcome(const Input&)>& calc)
{
    for (std::size_t i = 0; i < defects.size(); ++i) {
        Input bad = good;
        defects[i].make(bad);
        expectRefusal(calc(bad), defects[i].refusal, defects[i].name);
        if (i + 1 == defects.size()) break;
        defects[i + 1].make(bad);
        expectRefusal(calc(bad), defects[i].refusal, defects[i].name + " before " + defects[i + 1].name);
    }
}

/// Straight to the north from X 1000, Y 2000: stake 0 to 1000, so that X is 1000 + stake and Y is 2000 + offset.
inline void straightNorth() { setElements({{0, 1000, 2000, 0, 0, 0}, {1000, 2000, 2000, 0, 0, 0}}); }

/// A profile with one sharp grade change: 100 at 0, 110 at 500, 105 at 1000; no cross slope.
inline void sharpProfile()
{
    gSqxLc = {0, 500, 1000};
    gSqxGc = {100, 110, 105};
    gSqxR = {0, 0, 0};
    gSqxCount = 2;
}

/// Runs a handler that has no trap and gives the number of its run-time error, 0 where there was none.
template <class Body>
int fatalError(Body&& body)
{
    try {
        body();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}
