#pragma once
// The names that stand in and on the files of a project.

#include <string_view>

/// The parameter files of a project, all optional.
namespace files {
inline constexpr std::string_view settings = "其他参数.txt";
inline constexpr std::string_view horizontal = "平曲线参数.txt";
inline constexpr std::string_view vertical = "竖曲线参数.txt";
inline constexpr std::string_view breaks = "断链参数.txt";
inline constexpr std::string_view traverse = "导线点参数.txt";
inline constexpr std::string_view superelevation = "超高参数.txt";
inline constexpr std::string_view widths = "超高宽度参数.txt";
inline constexpr std::string_view leftFill = "左幅填方参数.txt";
inline constexpr std::string_view rightFill = "右幅填方参数.txt";
inline constexpr std::string_view leftCut = "左幅挖方参数.txt";
inline constexpr std::string_view rightCut = "右幅挖方参数.txt";
}  // namespace files

/// What the first line of 其他参数.txt may say: how the horizontal alignment is typed.
namespace model {
inline constexpr std::string_view byIntersectionPoints = "交点法";
inline constexpr std::string_view byBlocks = "积木法";
}  // namespace model
