#pragma once
// What the calculation screens alone say, each text once.

#include "dialogs/Messages.h"

#include <string_view>

namespace message {

// Titles
inline constexpr std::string_view kSuccess = "成功";

// Any handler
inline constexpr std::string_view kNotANumber = "请输入正确的数值！";

// Stakes
inline constexpr std::string_view kNoStake = "计算里程不能为空！";
inline constexpr std::string_view kNoStart = "开始里程不能为空！";
inline constexpr std::string_view kNoEnd = "结束里程不能为空！";
inline constexpr std::string_view kStartIsEnd = "开始里程不能等于结束里程！";
inline constexpr std::string_view kStartBeforeRoute = "开始里程不能小于起点里程！";
inline constexpr std::string_view kEndBeyondRoute = "结束里程不能大于终点里程！";
inline constexpr std::string_view kBeforeRoute = "不能小于起点里程！";
inline constexpr std::string_view kBeyondRoute = "不能大于终点里程！";
inline constexpr std::string_view kNoStep = "间距不能为空！";
inline constexpr std::string_view kStepIsZero = "间距不能为0！";

// Offsets and stations
inline constexpr std::string_view kNoOffset = "偏距不能为空！";
inline constexpr std::string_view kNoSkew = "夹角不能为空！";
inline constexpr std::string_view kNoX = "X坐标不能为空！";
inline constexpr std::string_view kNoY = "Y坐标不能为空！";

// Elevations
inline constexpr std::string_view kNoProfile = "还未输入竖曲线参数！";
inline constexpr std::string_view kBeforeProfile = "计算里程不能小于竖曲线起点里程！";
inline constexpr std::string_view kBeyondProfile = "计算里程不能大于竖曲线终点里程！";

// Structures
inline constexpr std::string_view kNoCentre = "结构物中心里程不能为空！";
inline constexpr std::string_view kNoKq = "K前不能为空！";
inline constexpr std::string_view kNoKh = "K后不能为空！";
inline constexpr std::string_view kNoZz = "Z左不能为空！";
inline constexpr std::string_view kNoZy = "Z右不能为空！";
inline constexpr std::string_view kNoRunStart = "批量计算起点不能为空！";
inline constexpr std::string_view kNoRunEnd = "批量计算终点不能为空！";
inline constexpr std::string_view kNoRunStep = "批量计算间距不能为空！";
inline constexpr std::string_view kRunStepIsZero = "批量计算间距不能为0！";
inline constexpr std::string_view kRunStartIsEnd = "批量计算起点不能等于批量计算终点！";

inline constexpr std::string_view kNoMainPoints = "请先输入参数！";

// Saving
inline constexpr std::string_view kSaveChanges = "数据已改变，是否保存？";

}  // namespace message
