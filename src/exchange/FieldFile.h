#pragma once
// Point lists of total stations and GNSS receivers, out and in.
// Sources: the comma list is the .dat of the country's mapping programs (point, code, Y, X, H); GSI is the word format
// of a maker of instruments: words of 8 or 16 digits behind a word index, 11 point number, 71 remark, 81 east, 82
// north, 83 height, unit 0 a millimetre.

#include "exchange/FieldPoints.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class FieldColumn { Name, Code, Stake, Offset, X, Y, H };

struct FieldFormat {
    enum Kind { Dat, Csv, Txt, Gsi16, Gsi8 } kind = Dat;
    std::vector<FieldColumn> columns;  ///< of Csv and Txt
    std::string separator = ",";
    bool codePage936 = false;  ///< else UTF-8, with mark in Csv
};
/// By the ending of a file's name, with its usual columns. Nothing for an ending that is none of these.
std::optional<FieldFormat> FieldFormatOf(std::string_view path);
/// name,code,stake,offset,x,y,h or the Chinese headers. @throws ExchangeError for another word
std::vector<FieldColumn> FieldColumnsOf(const std::string& list);

class FieldWriter {
public:
    explicit FieldWriter(FieldFormat format) : m_format(std::move(format)) {}
    std::string begin() const;  ///< mark and header, "" where the form has none
    /// A line with its end. @throws ExchangeError that names the point where a field does not fit
    std::string line(const FieldPoint& point);

private:
    std::string gsi(const FieldPoint& point);

    FieldFormat m_format;
    std::size_t m_number = 0;
};

/// A point as it was measured.
struct MeasuredPoint {
    std::string name;
    double x = 0, y = 0;  ///< m, north and east
    std::optional<double> h;
};
/// A .dat of five fields is point, code, Y, X, H; a line of four is point, X, Y, H, in a .csv too unless a header names
/// its columns; .gsi by its words. UTF-8 or code page 936. @throws ExchangeError that names the line
std::vector<MeasuredPoint> ReadMeasured(std::string_view path, std::string_view bytes);
