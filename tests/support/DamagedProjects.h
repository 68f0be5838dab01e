#pragma once
// Damaged projects: a sample, one text in one of its files replaced, and what the check says about it.
//
//     const std::string folder = damagedProject("14-radius-0").makeIn(workspace);

#include "base/CodePage.h"
#include "support/ProjectFolder.h"

#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

struct DamagedProject {
    std::string_view name;         ///< of its folder
    std::string_view sample;       ///< what it is made from
    std::string_view file;         ///< the damaged one, in UTF-8
    std::string_view from, to;     ///< what stands there once, and what replaces it
    std::string_view where, text;  ///< of the finding: file:line:field, and a part of its words
    enum { CodePage, Utf8 } saved = CodePage;

    /// @return the project's folder beneath `parent`
    std::string makeIn(const std::filesystem::path& parent) const
    {
        const auto folder = parent / name;
        std::filesystem::create_directories(parent);
        std::filesystem::copy(samples() / sample, folder);
        const auto path = (folder / file).string();
        std::string whole = Utf8FromCp936(ProjectFolder::bytesOf(path));
        const auto at = whole.find(from);
        if (at == std::string::npos || whole.find(from, at + 1) != std::string::npos)
            throw std::logic_error(std::string(name) + ": what it replaces does not stand there once");
        whole.replace(at, from.size(), to);
        std::ofstream(path, std::ios::binary | std::ios::trunc) << (saved == Utf8 ? whole : Cp936FromUtf8(whole));
        return folder.string();
    }
    friend std::ostream& operator<<(std::ostream& out, const DamagedProject& project) { return out << project.name; }
    static std::filesystem::path samples() { return VM_SOURCE_DIR "/samples"; }
};

inline constexpr std::string_view kPoints = "示例一", kBlocks = "示例二";  // 交点法, 积木法

inline constexpr DamagedProject kDamagedProjects[] = {
    // what the lines of a file look like
    {"01-field-no-number", kPoints, "平曲线参数.txt", "2857049.832", "28570a9.832", "平曲线参数.txt:4:2", "不是数字"},
    {"02-field-empty", kPoints, "超高宽度参数.txt", "5,5.4,0.75,0.75,-4\r\n13627.448", ",5.4,0.75,0.75,-4\r\n13627.448",
     "超高宽度参数.txt:2:8", "是空的"},
    {"03-short-row", kPoints, "超高参数.txt", ",12539.37,4,-4\r\n", ",12539.37,4\r\n", "超高参数.txt:3",
     "应为6项，缺少"},
    {"04-long-row", kPoints, "超高参数.txt", ",12972.609,-2,-2", ",12972.609,-2,-2,1", "超高参数.txt:5",
     "应为6项，多余"},
    {"05-line-without-comma", kPoints, "导线点参数.txt", "GP02,2856710.993,513531.019,", "GP02", "导线点参数.txt:2",
     "没有逗号"},
    {"06-never-loads", kPoints, "断链参数.txt", "13380,13412.36\r\n16300,16284.215", "abc", "断链参数.txt:1",
     "程序会停住不动"},
    {"07-blank-line", kPoints, "竖曲线参数.txt", "13960,", "\r\n13960,", "竖曲线参数.txt:4", "空行"},
    {"08-no-final-line-end", kPoints, "导线点参数.txt", "516712.186,\r\n", "516712.186,", "导线点参数.txt:4",
     "没有以回车换行结尾"},
    {"09-utf8", kPoints, "导线点参数.txt", "GP01", "GP01", "导线点参数.txt", "UTF-8", DamagedProject::Utf8},
    {"32-lone-line-feed", kPoints, "超高宽度参数.txt", "-4\r\n13567.448,13627", "-4\n13567.448,13627",
     "超高宽度参数.txt:1", "单独的回车"},
    // the settings
    {"10-model-unknown", kBlocks, "其他参数.txt", "积木法", "积木", "其他参数.txt:1", "不是交点法或积木法"},
    {"11-rows-of-blocks", kBlocks, "其他参数.txt", "积木法", "交点法", "平曲线参数.txt:1", "积木法的7项"},
    {"12-rows-of-points", kPoints, "其他参数.txt", "交点法", "积木法", "平曲线参数.txt:1", "交点法的格式"},
    {"30-form-unknown", kPoints, "其他参数.txt", "线性", "直线", "其他参数.txt:2", "不是线性或三次抛物线"},
    // the alignment
    {"14-radius-0", kPoints, "平曲线参数.txt", "50,60,125", "50,60,0", "平曲线参数.txt:5:6", "半径为0"},
    {"15-tangents-overlap", kPoints, "平曲线参数.txt", "70,60,260", "70,60,2600", "平曲线参数.txt:3", "切线重叠"},
    {"16-spirals-too-long", kPoints, "平曲线参数.txt", "60,70,420", "60,330,420", "平曲线参数.txt:2", "缓和曲线太长"},
    {"17-due-south", kPoints, "平曲线参数.txt", "2859111.72,517169.714,55,60,450\r\n2859337.032,517613.829",
     "2857946.557,516778.269,55,60,450\r\n2857486.557,516478.269", "平曲线参数.txt:11", "正南"},
    {"31-same-intersection", kPoints, "平曲线参数.txt", "JD5", "JD2", "平曲线参数.txt:6:1", "重复"},
    {"18-blocks-apart", kBlocks, "平曲线参数.txt", "2857305.792,513863.097,", "2857305.807,513863.097,",
     "平曲线参数.txt:6", "不衔接"},
    {"19-azimuth-apart", kBlocks, "平曲线参数.txt", "135.370801", "135.372001", "平曲线参数.txt:9", "方位角相差"},
    {"27-block-stakes-apart", kBlocks, "平曲线参数.txt", "200.818,235.818,", "200.818,236.318,", "平曲线参数.txt",
     "终点里程相差"},
    // what lies along it
    {"20-breaks-out-of-order", kPoints, "断链参数.txt", "13380,13412.36\r\n16300,16284.215",
     "16300,16284.215\r\n13380,13412.36", "断链参数.txt:2:1", "从小到大"},
    {"13-stakes-fall", kPoints, "竖曲线参数.txt", "13960,", "13100,", "竖曲线参数.txt:4:1", "里程没有增大"},
    {"21-vertical-curves-overlap", kPoints, "竖曲线参数.txt", "260.241,4500", "260.241,30000", "竖曲线参数.txt:4",
     "重叠"},
    {"26-stake-in-gap", kPoints, "竖曲线参数.txt", "13150,", "13400,", "竖曲线参数.txt:3:1", "断链跳过"},
    {"28-no-grade-change", kBlocks, "竖曲线参数.txt",
     "168,89.696,1800\r\n395,81.07,1500\r\n640,87.072,2000\r\n905,82.037,2600\r\n", "", "竖曲线参数.txt:2",
     "没有变坡点"},
    {"22-widths-short", kPoints, "超高宽度参数.txt", "17538.958,18553.408,", "17538.958,18500,", "超高宽度参数.txt",
     "终点之前"},
    {"23-superelevation-hole", kPoints, "超高参数.txt", "\r\n12972.609,", "\r\n12984.609,", "超高参数.txt:6:1",
     "没有数据"},
    {"24-superelevation-late", kPoints, "超高参数.txt", "12000,", "12050,", "超高参数.txt:1", "起点之后"},
    {"25-same-point-name", kPoints, "导线点参数.txt", "D03", "GP01", "导线点参数.txt:3:1", "重复"},
    {"29-slope-fields", kPoints, "左幅填方参数.txt", "14050,5,1.5,8,2,1.75,0,", "14050,5,1.5,8,2,1.75,0,0,",
     "左幅填方参数.txt:2", "应为30项"},
};

/// @throws std::logic_error where none has that name
inline const DamagedProject& damagedProject(std::string_view name)
{
    for (const auto& project : kDamagedProjects)
        if (project.name == name) return project;
    throw std::logic_error("no damaged project " + std::string(name));
}
