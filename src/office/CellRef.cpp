#include "office/CellRef.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

[[noreturn]] void refuse(std::string_view address)
{
    throw std::invalid_argument("no cell address: " + std::string(address));
}

int letterValue(char c)
{
    if (c >= 'a' && c <= 'z') return c - 'a' + 1;
    if (c >= 'A' && c <= 'Z') return c - 'A' + 1;
    return 0;
}

/// Takes the letters off the front of `rest`; 0 where there are none.
int takeColumn(std::string_view& rest)
{
    int col = 0;
    for (; !rest.empty() && letterValue(rest[0]) && col <= kSheetCols; rest.remove_prefix(1))
        col = col * 26 + letterValue(rest[0]);
    return col;
}

}  // namespace

CellRef::CellRef(int r, int c) : row(r), col(c)
{
    if (row < 1 || row > kSheetRows || col < 1 || col > kSheetCols)
        throw std::out_of_range("no such cell: row " + std::to_string(row) + ", column " + std::to_string(col));
}

CellRef CellRef::fromText(std::string_view address)
{
    auto rest = address;
    const int col = takeColumn(rest);
    if (col == 0 || rest.empty() || rest[0] < '0' || rest[0] > '9') refuse(address);
    int row = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), row);
    if (end != rest.data() + rest.size()) refuse(address);
    if (error != std::errc()) row = kSheetRows + 1;
    return {row, col};
}

std::string CellRef::address() const { return ColumnLetters(col) + std::to_string(row); }

CellRange::CellRange(CellRef a, CellRef b)
    : first(std::min(a.row, b.row), std::min(a.col, b.col)), last(std::max(a.row, b.row), std::max(a.col, b.col))
{}

CellRange CellRange::fromText(std::string_view address)
{
    const auto colon = address.find(':');
    if (colon == std::string_view::npos) return CellRef(address);
    const auto left = address.substr(0, colon);
    const auto right = address.substr(colon + 1);
    auto leftRest = left;
    auto rightRest = right;
    const int leftCol = takeColumn(leftRest);
    const int rightCol = takeColumn(rightRest);
    if (leftCol && rightCol && leftRest.empty() && rightRest.empty())
        return {CellRef(1, leftCol), CellRef(kSheetRows, rightCol)};
    return {CellRef(left), CellRef(right)};
}

std::string CellRange::address() const
{
    return first == last ? first.address() : first.address() + ':' + last.address();
}

std::string ColumnLetters(int col)
{
    std::string letters;
    for (; col > 0; col = (col - 1) / 26) letters.insert(letters.begin(), static_cast<char>('A' + (col - 1) % 26));
    return letters;
}
