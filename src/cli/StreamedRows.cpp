#include "cli/StreamedRows.h"

#include <ostream>
#include <string>
#include <utility>

namespace {

constexpr int kBlock = 1024;  // rows

/// A rendered array without its brackets.
std::string_view itemsOf(std::string_view array)
{
    array.remove_prefix(array.find('[') + 1);
    return array.substr(0, array.find_last_not_of("]\n") + 1);
}

}  // namespace

StreamedRows::StreamedRows(const Call& call, const std::vector<std::string_view>& headers,
                           std::span<const TypedColumn> typed)
    : m_call(call), m_typed(typed)
{
    if (call.format != Format::Csv && call.format != Format::Json)
        throw WrongUsage("--no-limit 只能和 --format csv 或 --format json 一起用");
    if (call.args.has("-o")) throw WrongUsage("--no-limit 写到标准输出，不能和 -o 一起用");
    m_block.setCols(static_cast<int>(headers.size()));
    m_block.setRows(1);
    for (std::size_t i = 0; i < headers.size(); ++i) m_block.setText(0, static_cast<int>(i), std::string(headers[i]));
}

void StreamedRows::row(ResultRow row)
{
    ++m_rows;
    if (!row.warning.empty() && !m_call.args.has("--quiet"))
        m_call.err << "第" << m_rows << "行结果：" << row.warning << '\n';
    m_notes.add(row.notes);
    m_block.append(std::move(row.cells), std::move(row.warning));
    m_block.setText(m_block.rows() - 1, 0, std::to_string(m_rows));
    if (m_block.rows() > kBlock) writeBlock();
}

bool StreamedRows::abandoned() { return !m_call.out.good(); }

void StreamedRows::writeBlock()
{
    if (m_call.format == Format::Csv) {
        const std::string lines = Csv(m_block, "\n");
        m_call.out << std::string_view(lines).substr(m_begun ? lines.find('\n') + 1 : 0);
    } else {
        const std::string array = Json({m_block, m_typed});
        m_call.out << (m_begun ? "," : "[") << itemsOf(array);
    }
    m_begun = true;
    m_block.setRows(1);
}

void StreamedRows::end()
{
    if (m_block.rows() > 1 || !m_begun) writeBlock();
    if (m_call.format == Format::Json) m_call.out << (m_rows > 0 ? "\n]\n" : "]\n");
    if (!m_call.args.has("--quiet")) m_call.err << m_notes.lines();
}
