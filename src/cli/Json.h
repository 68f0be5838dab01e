#pragma once
// Results as JSON. The library behind it is compiled in Json.cpp alone.

#include "cli/Output.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

/// What a member of an object may be; a table is its rows, as Json(OutputTable) has them.
using JsonValue = std::variant<std::nullptr_t, bool, int, double, std::string, std::vector<double>,
                               std::vector<std::string>, OutputTable>;

/// An object on indented lines, its members in the order given. Doubles are written so that they read back the same,
/// bytes that are no UTF-8 are replaced.
std::string JsonObject(const std::vector<std::pair<std::string, JsonValue>>& members);
