#pragma once
// The one way a statement fails: a run-time error with its number, thrown by few checked helpers.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// A statement that failed in a way the user of the program can meet.
class RunTimeError : public std::exception {
public:
    enum Number {
        Overflow = 6,
        Subscript = 9,
        DivisionByZero = 11,
        TypeMismatch = 13,
        FileNotFound = 53,
        PathAccess = 75,
        PathNotFound = 76,
    };
    explicit RunTimeError(Number number) noexcept : m_number(number) {}
    /// @param choked  the text that could not be taken as what it should be
    RunTimeError(Number number, std::string_view choked)
        : m_number(number), m_choked(std::make_shared<const std::string>(choked))
    {}
    Number number() const noexcept { return m_number; }
    /// What happened, in Chinese, UTF-8, for the box that shows it.
    const char* what() const noexcept override;

    /// The text that it choked on, UTF-8 or bytes of a file; "" where it was none.
    std::string_view choked() const noexcept { return m_choked ? std::string_view(*m_choked) : std::string_view(); }

private:
    Number m_number;
    std::shared_ptr<const std::string> m_choked;  // shared: copying an exception throws nothing
};

/// Runs one assignment or one call; a run-time error drops it and the next statement runs. True: it went through.
template <class Statement>
bool attempt(Statement&& statement)
{
    try {
        statement();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

/// value, or Overflow where it is infinite or no number.
inline double checked(double value)
{
    if (!std::isfinite(value)) throw RunTimeError(RunTimeError::Overflow);
    return value;
}

/// a / b, or DivisionByZero where b is 0, or Overflow.
inline double quotient(double a, double b)
{
    if (b == 0) throw RunTimeError(RunTimeError::DivisionByZero);
    return checked(a / b);
}

/// items[index], or Subscript where there is none.
template <class Items>
decltype(auto) at(Items&& items, std::ptrdiff_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) throw RunTimeError(RunTimeError::Subscript);
    return std::forward<Items>(items)[static_cast<std::size_t>(index)];
}

/// A 16-bit count, or Overflow.
inline std::int16_t toInt16(long long value)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(RunTimeError::Overflow);
    return static_cast<std::int16_t>(value);
}
