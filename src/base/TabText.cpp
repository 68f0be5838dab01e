#include "base/TabText.h"

std::string TabText(const CellRows& rows)
{
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += '\t';
            const std::string& cell = row[i];
            if (cell.find_first_of("\t\r\n\"") == std::string::npos) {
                text += cell;
                continue;
            }
            text += '"';
            for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
            text += '"';
        }
        text += "\r\n";
    }
    return text;
}

CellRows RowsOfTabText(std::string_view text)
{
    CellRows rows;
    std::size_t i = 0;
    while (i < text.size()) {
        auto& row = rows.emplace_back();
        for (bool lineGoesOn = true; lineGoesOn;) {
            auto& cell = row.emplace_back();
            // A quote counts where it opens the cell; until its fellow everything belongs to the cell.
            if (i < text.size() && text[i] == '"') {
                for (++i; i < text.size(); ++i) {
                    if (text[i] != '"')
                        cell += text[i];
                    else if (i + 1 < text.size() && text[i + 1] == '"')
                        cell += text[i++];
                    else
                        break;
                }
                ++i;
            }
            while (i < text.size() && text[i] != '\t' && text[i] != '\r' && text[i] != '\n') cell += text[i++];
            lineGoesOn = i < text.size() && text[i] == '\t';
            if (lineGoesOn) ++i;
        }
        if (i < text.size()) i += text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n' ? 2 : 1;
    }
    return rows;
}
