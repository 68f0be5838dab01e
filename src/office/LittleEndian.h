#pragma once
// Numbers as bytes, the low byte first.

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>

template <std::unsigned_integral T>
void appendLittleEndian(std::string& out, T value)
{
    char bytes[sizeof(T)];
    for (std::size_t i = 0; i < sizeof(T); ++i) bytes[i] = static_cast<char>(value >> (8 * i) & 0xFF);
    out.append(bytes, sizeof(T));
}

inline void appendLittleEndian(std::string& out, double value)
{
    appendLittleEndian(out, std::bit_cast<std::uint64_t>(value));
}
