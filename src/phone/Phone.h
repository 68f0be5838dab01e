#pragma once
// The copy of a project for the phone: the same texts under short names, in UTF-16, in a folder of SJCS beside the
// program; SJCS/XMMC.txt lists what is there. A snapshot: later changes of the project do not reach it.

#include <array>
#include <string>

/// A parameter file of the project and its name on the phone.
struct PhoneFile {
    const char* source;
    const char* target;
};
inline constexpr std::array<PhoneFile, 11> kPhoneFiles{{
    {"其他参数.txt", "QTCS.txt"},
    {"导线点参数.txt", "DXD.txt"},
    {"平曲线参数.txt", "PQX.txt"},
    {"竖曲线参数.txt", "SQX.txt"},
    {"超高参数.txt", "CG.txt"},
    {"超高宽度参数.txt", "CGKD.txt"},
    {"断链参数.txt", "DL.txt"},
    {"左幅填方参数.txt", "ZFTF.txt"},
    {"右幅填方参数.txt", "YFTF.txt"},
    {"左幅挖方参数.txt", "ZFWF.txt"},
    {"右幅挖方参数.txt", "YFWF.txt"},
}};

/// A key that the box for the name takes: a digit, a letter or backspace (8).
bool IsPhoneNameKey(int keyAscii);

enum class PhoneExport {
    Stopped,   ///< a box said why; nothing was written
    Declined,  ///< the user keeps what stands under that name
    Added,     ///< a new line of the list, all files written
    Replaced,  ///< listed before, all files written anew
};

/// Exports gProject under the typed name, with all boxes through the desk.
/// @throws RunTimeError where a file cannot be read or written
PhoneExport ExportForPhone(const std::string& typedName);

/// The exported project of row `index` goes: its line of the list, and the folder of that name. The other rows are
/// paired with the lines of the list by position.
/// @param count rows of the shown list
/// @throws RunTimeError where the list has fewer lines, or something cannot be removed
void RemovePhoneProject(int index, int count, const std::string& name);
