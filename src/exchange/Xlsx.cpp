#include "exchange/Xlsx.h"

#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/RunTimeError.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>
#include <xlsxwriter.h>

namespace {

/// A file that is gone with this object; the library writes to names alone.
class Temporary {
public:
    Temporary()
    {
        std::random_device chance;
        m_path = std::filesystem::temp_directory_path() /
                 ("velumark-" + std::to_string(chance()) + "-" + std::to_string(chance()) + ".xlsx");
        const auto text = m_path.u8string();
        m_name.assign(text.begin(), text.end());
    }
    ~Temporary()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);  // not the name: Windows reads narrow ones in its own code page
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    const std::string& name() const { return m_name; }

private:
    std::filesystem::path m_path;
    std::string m_name;
};

bool isStake(const std::string& text) { return text.starts_with("K") || text.starts_with("-K"); }

class Workbook {
public:
    explicit Workbook(const XlsxTable& table) : m_table(table), m_book(workbook_new(m_file.name().c_str()))
    {
        lxw_doc_properties properties{};
        properties.created = 946684800;  // one table, one file: no clock in it
        workbook_set_properties(m_book, &properties);
        for (const bool amber : {false, true}) {
            m_general[amber] = format(nullptr, amber);
            m_fixed[amber] = format("0.000", amber);
            m_stake[amber] = format("\"K\"0\"+\"000.000", amber);
            m_angle[amber] = format("0.000000", amber);
        }
        m_header = format(nullptr, false);
        format_set_bold(m_header);
        format_set_bottom(m_header, LXW_BORDER_THIN);
    }

    std::string bytes()
    {
        fill(sheet("数值"), true);
        fill(sheet("文本"), false);
        const auto error = workbook_close(m_book);
        if (error != LXW_NO_ERROR)
            throw FileError(m_file.name(), FileError::Writing, std::make_error_code(std::errc::io_error));
        return ReadBytes(m_file.name());
    }

private:
    lxw_format* format(const char* number, bool amber)
    {
        auto* made = workbook_add_format(m_book);
        format_set_align(made, LXW_ALIGN_CENTER);
        if (number) format_set_num_format(made, number);
        if (amber) format_set_bg_color(made, 0xFFF3CD);
        return made;
    }

    lxw_worksheet* sheet(const char* name)
    {
        auto* made = workbook_add_worksheet(m_book, name);
        worksheet_freeze_panes(made, 1, 0);
        worksheet_repeat_rows(made, 0, 0);
        worksheet_set_paper(made, 9);  // A4
        worksheet_set_landscape(made);
        worksheet_fit_to_pages(made, 1, 0);
        std::string head = "&C";
        for (const char c : m_table.title) head.append(c == '&' ? 2 : 1, c);
        if (head.size() < 250) worksheet_set_header(made, head.c_str());
        worksheet_set_footer(made, "&C&P / &N");
        for (int c = 0; c < m_table.grid.cols(); ++c)
            worksheet_set_column(made, static_cast<lxw_col_t>(c), static_cast<lxw_col_t>(c), c == 0 ? 8 : 18, nullptr);
        return made;
    }

    void fill(lxw_worksheet* made, bool numbers)
    {
        const auto& grid = m_table.grid;
        for (int r = 0; r < grid.rows(); ++r) {
            const auto at = static_cast<std::size_t>(r);
            const bool amber = at < m_table.marked.size() && m_table.marked[at];
            for (int c = 0; c < grid.cols(); ++c) {
                const std::string& text = grid.text(r, c);
                const auto value = r > 0 && numbers ? grid.shown(r, c) : std::nullopt;
                lxw_error error = LXW_NO_ERROR;
                const auto row = static_cast<lxw_row_t>(r);
                const auto col = static_cast<lxw_col_t>(c);
                if (value)
                    error = worksheet_write_number(made, row, col, *value, numberFormat(text, amber));
                else if (r > 0 && numbers && c == 0)
                    error = worksheet_write_number(made, row, col, r, m_general[amber]);
                else if (!text.empty())
                    error = worksheet_write_string(made, row, col, text.c_str(), r == 0 ? m_header : m_general[amber]);
                if (error != LXW_NO_ERROR) throw RunTimeError(RunTimeError::Overflow);
            }
        }
    }

    lxw_format* numberFormat(const std::string& text, bool amber) const
    {
        if (isStake(text)) return m_stake[amber];
        if (text.find("度") != std::string::npos) return m_angle[amber];
        return text.find('.') != std::string::npos ? m_fixed[amber] : m_general[amber];
    }

    const XlsxTable& m_table;
    Temporary m_file;
    lxw_workbook* m_book;
    lxw_format *m_general[2], *m_fixed[2], *m_stake[2], *m_angle[2], *m_header;
};

}  // namespace

std::string XlsxBytes(const XlsxTable& table) { return Workbook(table).bytes(); }
