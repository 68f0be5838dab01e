#pragma once
// What this program gets by new, counted and bounded; check_bounds_test.cpp holds the operators.

#include <atomic>
#include <cstddef>

namespace counted {
inline std::atomic<long long> held{0}, most{0};   ///< bytes now, and the most of them so far
inline std::atomic<std::size_t> largestBlock{0};  ///< that there is memory for; 0: any
}  // namespace counted
