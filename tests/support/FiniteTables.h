#pragma once
// Whatever a load is given, the tables hold numbers.

#include "tables/TableList.h"

#include <cmath>
#include <string>
#include <type_traits>

/// Name and row of the first number of the tables that is infinite or none; "" where all are finite.
inline std::string firstNumberThatIsNotFinite(const Tables& tables)
{
    std::string found;
    forEachMember(
        [&found](std::string_view name, const auto& member) {
            if constexpr (std::is_same_v<std::decay_t<decltype(member)>, Tables::Column>)
                for (std::size_t row = 0; row < member.size() && found.empty(); ++row)
                    if (!std::isfinite(member[row])) found = std::string(name) + "(" + std::to_string(row) + ")";
        },
        tables);
    return found;
}
