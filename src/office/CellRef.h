#pragma once
// Cells and blocks of cells by place or by address. Rows and columns count from 1, as in the addresses.

#include <compare>
#include <concepts>
#include <string>
#include <string_view>

inline constexpr int kSheetRows = 65536;
inline constexpr int kSheetCols = 256;

template <class T>
concept Address = std::convertible_to<const T&, std::string_view>;

/// One cell: (7, 2) or "b7"; letters in either case. Throws std::invalid_argument for a text that is no address and
/// std::out_of_range for a place beyond the sheet.
struct CellRef {
    int row = 1;
    int col = 1;

    CellRef() = default;
    CellRef(int row, int col);
    CellRef(const Address auto& address) : CellRef(fromText(address)) {}

    /// The address, "B7".
    std::string address() const;
    auto operator<=>(const CellRef&) const = default;

private:
    static CellRef fromText(std::string_view address);
};

/// A block by its corners: {first, last}, "A2:j10", one cell "b7", or whole columns "b:b". Corners come in any order;
/// `first` is the upper left one. Throws as CellRef.
struct CellRange {
    CellRef first;
    CellRef last;

    CellRange() = default;
    CellRange(CellRef cell) : first(cell), last(cell) {}
    CellRange(int row, int col) : CellRange(CellRef(row, col)) {}
    CellRange(CellRef corner, CellRef opposite);
    CellRange(int row1, int col1, int row2, int col2) : CellRange(CellRef(row1, col1), CellRef(row2, col2)) {}
    CellRange(const Address auto& address) : CellRange(fromText(address)) {}

    int rows() const { return last.row - first.row + 1; }
    int cols() const { return last.col - first.col + 1; }
    bool contains(CellRef cell) const
    {
        return cell.row >= first.row && cell.row <= last.row && cell.col >= first.col && cell.col <= last.col;
    }
    bool meets(const CellRange& other) const
    {
        return first.row <= other.last.row && other.first.row <= last.row && first.col <= other.last.col &&
               other.first.col <= last.col;
    }
    /// The address, "A2:J10", or "B7" for one cell.
    std::string address() const;
    auto operator<=>(const CellRange&) const = default;

private:
    static CellRange fromText(std::string_view address);
};

/// The letters of a column: 1 is A, 256 is IV.
std::string ColumnLetters(int col);
