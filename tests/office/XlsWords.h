#pragma once
// The records of a workbook in words, one a line, so that two workbooks can be compared by eye or by diff.

#include "office/XlsReader.h"

#include <cstdio>
#include <sstream>

namespace xls {

inline std::string hex(std::uint64_t value)
{
    char text[20];
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(value));
    return text;
}

inline std::string exact(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

inline std::string hexBytes(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        char two[8];
        std::snprintf(two, sizeof two, "%s%02X", text.empty() ? "" : " ", static_cast<unsigned char>(byte));
        text += two;
    }
    return text;
}

inline std::string quoted(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) out += c == '\n' ? "\\n" : std::string(1, c);
    return out + '"';
}

inline std::string placeOf(Bytes& bytes)
{
    const auto row = int(bytes.u16()) + 1, col = int(bytes.u16()) + 1;
    return CellRef(row, col).address();
}

inline std::string lineWords(unsigned code, unsigned color)
{
    static const std::map<unsigned, std::string> names{
        {0, "none"}, {1, "thin"}, {2, "medium"}, {5, "thick"}, {7, "hair"}};
    const auto found = names.find(code);
    const auto name = found != names.end() ? found->second : "line " + std::to_string(code);
    return !code ? name : name + " colour " + std::to_string(color);
}

inline std::string xfWords(Bytes& bytes)
{
    std::ostringstream out;
    out << "font " << bytes.u16() << ", format " << bytes.u16();
    const auto flags = bytes.u16();
    out << (flags & 4 ? ", a style" : ", of style " + std::to_string(flags >> 4));
    const auto alignment = bytes.u8();
    static const char* const across[]{"general", "left", "centre", "right", "fill", "justify", "across", "distributed"};
    static const char* const down[]{"top", "centre", "bottom", "justify", "distributed", "?", "?", "?"};
    out << ", across " << across[alignment & 7] << ", down " << down[alignment >> 4 & 7]
        << (alignment & 8 ? ", wrap" : "");
    bytes.u16();
    out << ", own " << hex(bytes.u8());
    const auto lines = bytes.u32(), more = bytes.u32();
    const auto fill = bytes.u16();
    out << ", left " << lineWords(lines & 15, lines >> 16 & 127) << ", right "
        << lineWords(lines >> 4 & 15, lines >> 23 & 127) << ", top " << lineWords(lines >> 8 & 15, more & 127)
        << ", bottom " << lineWords(lines >> 12 & 15, more >> 7 & 127) << ", diagonal "
        << lineWords(more >> 21 & 15, more >> 14 & 127) << (lines >> 30 & 1 ? " down" : "")
        << (lines >> 31 ? " up" : "") << ", fill "
        << (more >> 26 ? "solid colour " + std::to_string(fill & 127) : "none");
    return out.str();
}

/// The words of one record; bytes that have no words follow in hexadecimal.
inline std::string words(const std::vector<Record>& list, std::size_t at)
{
    const auto& [kind, place, body] = list[at];
    Bytes bytes(body);
    std::ostringstream out;
    switch (kind) {
    case 0x0809: {
        const auto version = bytes.u16(), what = bytes.u16();
        out << "BOF " << (what == 5 ? "globals" : what == 16 ? "sheet" : "?") << ", version " << hex(version);
        break;
    }
    case 0x000A:
        out << "EOF";
        break;
    case 0x0042:
        out << "CODEPAGE " << bytes.u16();
        break;
    case 0x003D:
        out << "WINDOW1";
        break;
    case 0x0022:
        out << "DATEMODE " << bytes.u16();
        break;
    case 0x0031: {
        out << "FONT " << bytes.u16() / 20.0 << " points";
        const auto flags = bytes.u16();
        out << (flags & 1 ? ", bold" : "") << (flags & 2 ? ", italic" : "");
        out << ", colour " << hex(bytes.u16());
        out << ", weight " << bytes.u16();
        bytes.take(4);
        out << ", character set " << bytes.u8();
        bytes.u8();
        const auto length = bytes.u8();
        out << ", " << quoted(text(bytes, length));
        break;
    }
    case 0x041E: {
        out << "FORMAT " << bytes.u16();
        const auto length = bytes.u16();
        out << " " << quoted(text(bytes, length));
        break;
    }
    case 0x00E0:
        out << "XF " << xfWords(bytes);
        break;
    case 0x0293:
        out << "STYLE";
        break;
    case 0x0085: {
        out << "BOUNDSHEET at " << bytes.u32();
        out << ", kind " << bytes.u16();
        const auto length = bytes.u8();
        out << ", " << quoted(text(bytes, length));
        break;
    }
    case 0x00FC: {
        const auto table = stringTable(list, at);
        out << "SST " << table.uses << " uses";
        for (const auto& entry : table.texts) out << "\n    " << quoted(entry);
        bytes.take(body.size());
        break;
    }
    case 0x003C:
        out << "CONTINUE " << body.size() << " bytes";
        bytes.take(body.size());
        break;
    case 0x0225:
        bytes.u16();
        out << "DEFROWHEIGHT " << bytes.u16() / 20.0;
        break;
    case 0x0015: {
        const auto length = bytes.u16();
        out << "FOOTER " << quoted(text(bytes, length));
        break;
    }
    case 0x0081:
        out << "WSBOOL " << hex(bytes.u16());
        break;
    case 0x0026:
        out << "LEFTMARGIN " << exact(bytes.f64());
        break;
    case 0x0027:
        out << "RIGHTMARGIN " << exact(bytes.f64());
        break;
    case 0x0028:
        out << "TOPMARGIN " << exact(bytes.f64());
        break;
    case 0x0029:
        out << "BOTTOMMARGIN " << exact(bytes.f64());
        break;
    case 0x00A1: {
        out << "SETUP paper " << bytes.u16();
        out << ", scale " << bytes.u16();
        out << ", first page " << bytes.u16();
        out << ", pages across " << bytes.u16();
        out << ", down " << bytes.u16();
        out << (bytes.u16() & 2 ? ", upright" : ", landscape");
        bytes.take(4);
        out << ", header " << exact(bytes.f64());
        out << ", footer " << exact(bytes.f64());
        break;
    }
    case 0x0055:
        out << "DEFCOLWIDTH " << bytes.u16();
        break;
    case 0x007D: {
        const auto first = int(bytes.u16()) + 1, last = int(bytes.u16()) + 1;
        out << "COLINFO " << ColumnLetters(first) << " to " << ColumnLetters(last) << ", width " << bytes.u16()
            << "/256";
        out << ", XF " << bytes.u16();
        break;
    }
    case 0x0200: {
        out << "DIMENSIONS rows " << bytes.u32();
        out << " to " << bytes.u32();
        out << ", columns " << bytes.u16();
        out << " to " << bytes.u16();
        break;
    }
    case 0x0208: {
        out << "ROW " << bytes.u16() + 1;
        const auto first = bytes.u16(), end = bytes.u16();
        out << ", columns " << first << " to " << end << ", " << bytes.u16() / 20.0 << " points";
        bytes.take(4);
        if (bytes.u32() & 0x40) out << " set";
        break;
    }
    case 0x0201:
        out << "BLANK " << placeOf(bytes);
        out << " XF " << bytes.u16();
        break;
    case 0x00BE:
        out << "MULBLANK " << placeOf(bytes) << " XF";
        while (bytes.left() > 2) out << " " << bytes.u16();
        out << " to column " << ColumnLetters(int(bytes.u16()) + 1);
        break;
    case 0x0203:
        out << "NUMBER " << placeOf(bytes);
        out << " XF " << bytes.u16();
        out << " " << exact(bytes.f64());
        break;
    case 0x027E:
        out << "RK " << placeOf(bytes);
        out << " XF " << bytes.u16();
        out << " " << exact(shortNumber(bytes.u32()));
        break;
    case 0x00FD:
        out << "LABELSST " << placeOf(bytes);
        out << " XF " << bytes.u16();
        out << " text " << bytes.u32();
        break;
    case 0x023E:
        out << "WINDOW2 " << hex(bytes.u16());
        break;
    case 0x001D: {
        bytes.take(9);
        const auto row1 = int(bytes.u16()), row2 = int(bytes.u16()), col1 = int(bytes.u8()), col2 = int(bytes.u8());
        out << "SELECTION " << CellRange(row1 + 1, col1 + 1, row2 + 1, col2 + 1).address();
        break;
    }
    case 0x00E5: {
        out << "MERGEDCELLS";
        for (auto count = bytes.u16(); count; --count) {
            const auto row1 = int(bytes.u16()), row2 = int(bytes.u16()), col1 = int(bytes.u16()),
                       col2 = int(bytes.u16());
            out << " " << CellRange(row1 + 1, col1 + 1, row2 + 1, col2 + 1).address();
        }
        break;
    }
    default:
        out << "record " << hex(kind);
    }
    if (bytes.left()) out << " | " << hexBytes(bytes.take(bytes.left()));
    return out.str();
}

inline std::string words(std::string_view file)
{
    const auto stream = workbookStream(file);
    const auto list = records(stream);
    std::string out;
    for (std::size_t at = 0; at < list.size(); ++at) out += words(list, at) + '\n';
    return out;
}

}  // namespace xls
