#pragma once
// Where two states differ, in words: member, row, both values. Empty where every bit is the same, the sign of a zero
// included.

#include "tables/TableList.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <type_traits>

namespace shared_diff {

template <class Value>
std::string show(const Value& value)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        return '"' + value + '"';
    } else {
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", static_cast<double>(value));
        return text;
    }
}

template <class Value>
bool same(const Value& a, const Value& b)
{
    if constexpr (std::is_same_v<Value, double>)
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    else
        return a == b;
}

template <class Value>
void compare(std::string& out, const std::string& name, const Value& a, const Value& b)
{
    if (!same(a, b)) out += name + ": " + show(a) + " instead of " + show(b) + "\n";
}

template <class Value>
void compare(std::string& out, const std::string& name, const std::vector<Value>& a, const std::vector<Value>& b)
{
    if (a.size() != b.size()) {
        out += name + ": " + std::to_string(a.size()) + " rows instead of " + std::to_string(b.size()) + "\n";
        return;
    }
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!same(a[i], b[i])) compare(out, name + "(" + std::to_string(i) + ")", a[i], b[i]);
}

}  // namespace shared_diff

/// What `actual` holds instead of what `expected` holds.
inline std::string differences(const Shared& actual, const Shared& expected)
{
    std::string out;
    forEachSharedMember([&out](std::string_view name, const auto& a,
                               const auto& b) { shared_diff::compare(out, std::string(name), a, b); },
                        actual, expected);
    if (out.empty() && !(actual == expected)) out = "a member that is not listed here\n";
    return out;
}
