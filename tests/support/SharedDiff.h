#pragma once
// Where two states differ, in words: member, row, both values. Empty where every bit is the same, the sign of a zero
// included.

#include "project/CalcTables.h"

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
#define VM_COMPARE(member) shared_diff::compare(out, #member, actual.member, expected.member);
#define VM_COMPARE4(a, b, c, d) VM_COMPARE(a) VM_COMPARE(b) VM_COMPARE(c) VM_COMPARE(d)
    VM_COMPARE4(elemLc, elemX, elemY, elemFwj)
    VM_COMPARE4(elemR1, elemR2, elemCount, dxdName)
    VM_COMPARE4(dxdX, dxdY, dxdCount, dlBack)
    VM_COMPARE4(dlAhead, dlCum, dlCount, hasDl)
    VM_COMPARE4(sqxLc, sqxGc, sqxR, sqxCount)
    VM_COMPARE4(cgLc, cgA, cgB, cgC)
    VM_COMPARE4(cgCount, cgType, cgkdG, cgkdC)
    VM_COMPARE4(cgkdA, cgkdB, cgkdD, cgkdE)
    VM_COMPARE4(cgkdF, cgkdCount, zdJd, zdT1)
    VM_COMPARE4(zdT2, zdLs1, zdLs2, zdCount)
    VM_COMPARE4(zdZhLc, zdZhX, zdZhY, zdZhFwj)
    VM_COMPARE4(zdHyLc, zdHyX, zdHyY, zdHyFwj)
    VM_COMPARE4(zdYhLc, zdYhX, zdYhY, zdYhFwj)
    VM_COMPARE4(zdHzLc, zdHzX, zdHzY, zdHzFwj)
    VM_COMPARE4(jdLc, jdX, jdY, jdLs1)
    VM_COMPARE4(jdLs2, jdR, jdT1, jdT2)
    VM_COMPARE4(jdL, inX, inY, inLc)
    VM_COMPARE4(outX, outY, outFwj, outDist)
    VM_COMPARE4(outLcText, outOffsetText, stationX, stationY)
    VM_COMPARE4(plStart, plEnd, plStep, plBatch)
    VM_COMPARE4(gridLeftDown, pqxModel, fhdxN, fhdxN)
#undef VM_COMPARE4
#undef VM_COMPARE
    if (out.empty() && !(actual == expected)) out = "a member that is not listed here\n";
    return out;
}
