#include "office/StyleTable.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::size_t kMostLooks = 4000;
constexpr int kFirstOwnFormat = 164;
// Readers expect the standard font four times over; and number 4 is never given.
constexpr std::size_t kStandardFonts = 4;

template <class T>
std::size_t placeOf(std::vector<T>& list, const T& item)
{
    const auto found = std::ranges::find(list, item);
    const auto place = static_cast<std::size_t>(found - list.begin());
    if (found == list.end()) list.push_back(item);
    return place;
}

}  // namespace

StyleTable::StyleTable()
{
    const CellStyle standard;
    m_fonts.assign(kStandardFonts, {standard.fontName, standard.fontSize});
    add(standard);
}

int StyleTable::fontNumber(const CellStyle& style)
{
    const auto place = placeOf(m_fonts, {style.fontName, style.fontSize, style.bold, style.italic});
    return static_cast<int>(place < kStandardFonts ? place : place + 1);
}

int StyleTable::formatNumber(const std::string& format)
{
    static const std::map<std::string, int> builtIn{{"General", 0}, {"0", 1}, {"0.00", 2}, {"@", 49}};
    const auto found = builtIn.find(format);
    return found != builtIn.end() ? found->second : kFirstOwnFormat + static_cast<int>(placeOf(m_formats, format));
}

int StyleTable::add(const CellStyle& style)
{
    const auto [entry, isNew] = m_numbers.try_emplace(style, kStandardCell + static_cast<int>(m_looks.size()));
    if (isNew) {
        if (m_looks.size() == kMostLooks) throw std::length_error("a workbook holds at most 4000 different looks");
        m_looks.push_back({fontNumber(style), formatNumber(style.numberFormat), style});
    }
    return entry->second;
}

void StyleTable::write(std::string& out) const
{
    for (const auto& font : m_fonts) biff::font(out, font);
    for (std::size_t i = 0; i < m_formats.size(); ++i)
        biff::format(out, kFirstOwnFormat + static_cast<int>(i), m_formats[i]);
    for (int i = 0; i < kStandardCell; ++i) biff::styleXf(out, i == 0);
    for (const auto& look : m_looks) biff::cellXf(out, look.font, look.format, look.style);
    biff::normalStyle(out);
}
