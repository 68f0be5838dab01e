#pragma once
// Names by which this program knows again what it has written into a file of another form.

#include <string_view>

namespace marks {
inline constexpr std::string_view kProgram = "Velumark";
inline constexpr std::string_view kTyped = "Velumark";   ///< the Feature with the lines of the parameter files
inline constexpr std::string_view kTraverse = "导线点";  ///< the group of traverse points
}  // namespace marks
