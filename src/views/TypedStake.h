#pragma once
// A stake as people type it, K12+345.678 or 12345.678, as the screens of single points take it.

#include <optional>
#include <string>

struct Tables;

/// The continuous stake; nothing for a text that is none and for one in the numbers that a jump skips.
std::optional<double> typedStake(const Tables& t, std::string text);
