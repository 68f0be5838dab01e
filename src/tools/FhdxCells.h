#pragma once
// Cells of the traverse sheet as numbers: how the adjustment and the plan read and write.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "office/Worksheet.h"

#include <string>

/// A row, counted as everywhere in 16 bits. Throws Overflow past them.
inline int FhdxRow(int row) { return toInt16(row); }

inline CellRef FhdxCell(char column, int row) { return CellRef(row, column - 'a' + 1); }

/// The number in a cell, 0 for an empty one. Throws TypeMismatch for a text that is no number.
inline double FhdxNumber(const Worksheet& sheet, char column, int row)
{
    const CellRef cell = FhdxCell(column, row);
    const auto number = sheet.number(cell);
    return number ? *number : ParseNumber(sheet.text(cell));
}

class FhdxCells {
public:
    explicit FhdxCells(Worksheet& sheet) : m_sheet(sheet) {}

    Worksheet& sheet() const { return m_sheet; }
    double number(char column, int row) const { return FhdxNumber(m_sheet, column, row); }
    /// Throws Overflow where it is none that a cell can hold. -0 is written as 0.
    void write(char column, int row, double number) const
    {
        m_sheet.setNumber(FhdxCell(column, row), checked(number) + 0.0);
    }
    /// As if typed: a number text becomes a number.
    void write(char column, int row, const std::string& text) const { m_sheet.setValue(FhdxCell(column, row), text); }

private:
    Worksheet& m_sheet;
};
