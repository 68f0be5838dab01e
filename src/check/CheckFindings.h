#pragma once
// Where the rules of the check put what they find.

#include "check/Check.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Below this many metres a difference is rounding, and nobody is told.
inline constexpr double kTellMetres = 0.001 - 1e-9;

/// Metres with three decimals.
std::string Metres(double value);
/// The value with at most one decimal.
std::string OneDecimal(double value);

/// A slope with at most three decimals.
std::string Percent(double slope);

/// The findings of one project: bounded for each file, however damaged it is.
class Findings {
public:
    void add(Finding finding);
    void add(const std::string& file, int line, int field, std::string_view text,
             Severity severity = Severity::Warning);
    /// Adds `text` and the metres behind it, unless they are rounding.
    void addMetres(const std::string& file, int line, int field, const std::string& text, double metres,
                   Severity severity = Severity::Warning);
    /// Takes over what `other` holds.
    void append(Findings other);
    /// All of them, grouped by file in the order in which the files were first spoken of.
    std::vector<Finding> take();

private:
    struct OfFile {
        std::vector<Finding> told;
        long long more = 0;
    };
    OfFile& of(const std::string& file);
    std::vector<std::pair<std::string, OfFile>> m_files;
};
