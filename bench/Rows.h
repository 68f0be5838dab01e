#pragma once
// The rows that the measurements of bench/bars have in common.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/// Milliseconds of one run of some work.
template <class Work>
double milliseconds(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

inline double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// @param wanted  the bar, or ""
inline void timeRow(const char* what, double ms, const char* wanted, const char* remark = "")
{
    std::printf("%-56s %9.1f ms  %-28s %s\n", what, ms, wanted, remark);
    std::fflush(stdout);
}
