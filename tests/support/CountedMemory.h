#pragma once
// What this program gets by new, counted and bounded; CountedMemory.cpp holds the operators, for the programs that link
// it.

#include <atomic>
#include <cstddef>

namespace counted {
inline std::atomic<long long> held{0}, most{0};   ///< bytes now, and the most of them so far
inline std::atomic<std::size_t> largestBlock{0};  ///< that there is memory for; 0: any
}  // namespace counted
