#pragma once
// The copy of a project for the phone: the same texts under short names, in UTF-16, in a folder of SJCS beside the
// program; SJCS/XMMC.txt lists what is there. A snapshot: later changes of the project do not reach it.

#include "base/ParameterFiles.h"
#include "dialogs/Outcome.h"

#include <array>
#include <string>
#include <string_view>

/// A parameter file of the project and its name on the phone.
struct PhoneFile {
    std::string_view source;
    std::string_view target;
};
inline constexpr std::array<PhoneFile, 11> kPhoneFiles{{
    {files::settings, "QTCS.txt"},
    {files::traverse, "DXD.txt"},
    {files::horizontal, "PQX.txt"},
    {files::vertical, "SQX.txt"},
    {files::superelevation, "CG.txt"},
    {files::widths, "CGKD.txt"},
    {files::breaks, "DL.txt"},
    {files::leftFill, "ZFTF.txt"},
    {files::rightFill, "YFTF.txt"},
    {files::leftCut, "ZFWF.txt"},
    {files::rightCut, "YFWF.txt"},
}};

/// A key that the box for the name takes: a digit, a letter or backspace (8).
bool IsPhoneNameKey(int keyAscii);

enum class PhoneExport {
    Stopped,   ///< a box said why; what was made on the way is taken back
    Declined,  ///< the user keeps what stands under that name
    Added,     ///< a new line of the list, all files written
    Replaced,  ///< listed before, all files written anew
};

/// Exports gProject under the typed name, with all boxes through the dialogs. All of it or nothing: where a file cannot
/// be read or written a box names it, and the list, the folders and the files stand as before.
PhoneExport ExportForPhone(const std::string& typedName);

/// The exported project's line of the list goes, then the folder of that name; where the folder stays, so does the
/// line.
/// @param index  row that was shown; where its line names another project by now, the name is looked for. Refused where
///               it is no longer listed; then nothing is removed
/// @param count  rows of the shown list: each but the removed one must have its piece in the file
/// @throws FileError; Subscript where a piece is missing, FileNotFound where the list is: nothing is removed then
Outcome RemovePhoneProject(int index, int count, const std::string& name);
