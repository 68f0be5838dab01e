#pragma once
// A cell of a result: the text that people read, and the number that it shows.

#include "base/Numbers.h"

#include <optional>
#include <string>
#include <utility>

/// The number behind a text, as it was before it was written, and how it was written.
struct ShownNumber {
    enum class As : unsigned char {
        None,      ///< the text shows no number
        Exact,     ///< as it is
        Shortest,  ///< by NumText or FormatStake: up to 15 digits
        Fixed3,    ///< by FormatFixed3
        Dms,       ///< packed dd.mmss, by FormatDms: whole seconds
        Degrees,   ///< decimal degrees, by FormatDmsSeconds: hundredths of a second
    };
    double number = 0;
    As as = As::None;
    bool minus = false;  ///< the text is that of the number, behind a minus

    /// As it is read in the text: m, or decimal degrees for the two of angles. Nothing where the text shows no number.
    std::optional<double> shown() const;
};

struct Cell {
    std::string text;  ///< UTF-8
    ShownNumber value;

    Cell() = default;
    Cell(std::string t, ShownNumber v = {}) : text(std::move(t)), value(v) {}
    Cell(const char* t) : text(t) {}
};

inline Cell NumberCell(double number) { return {NumText(number), {number, ShownNumber::As::Shortest}}; }
inline Cell Fixed3Cell(double number) { return {FormatFixed3(number), {number, ShownNumber::As::Fixed3}}; }
inline Cell StakeCell(double stake) { return {FormatStake(stake), {stake, ShownNumber::As::Shortest}}; }
/// @param[in,out] dms  see FormatDms
inline Cell DmsCell(double& dms)
{
    const double typed = dms;
    return {FormatDms(dms), {typed, ShownNumber::As::Dms}};
}
inline Cell DmsCellOf(double dms) { return DmsCell(dms); }
