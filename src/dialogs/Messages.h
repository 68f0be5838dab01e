#pragma once
// What more than one folder says, each text once, and the boxes that say it.

#include "dialogs/Dialogs.h"

#include <string>
#include <string_view>

namespace message {

// Titles
inline constexpr std::string_view kError = "错误";
inline constexpr std::string_view kNotice = "注意";

// Stations
inline constexpr std::string_view kNoStationX = "测站X坐标不能为空！";
inline constexpr std::string_view kNoStationY = "测站Y坐标不能为空！";

// Saving
inline constexpr std::string_view kNothingToSave = "没有计算数据，无需保存！";
inline constexpr std::string_view kOverwrite = "文件已存在！是否覆盖？";
inline constexpr std::string_view kSaved = "保存成功！";
inline constexpr std::string_view kSaving = "正在保存中，请耐心等待";

}  // namespace message

/// A box titled "注意".
inline Msg Notice(std::string_view text, Icon icon = Icon::Exclamation)
{
    return {std::string(text), std::string(message::kNotice), icon};
}

/// A question titled "注意"; what is chosen without looking is 否.
inline Msg Question(std::string_view text)
{
    return {std::string(text), std::string(message::kNotice), Icon::Question, Msg::YesNo, Msg::No};
}
