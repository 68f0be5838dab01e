#include "check/CheckFindings.h"

#include "base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace {

/// Beyond this no decimals are shown: the number is a slip of the hand.
constexpr double kHuge = 1e12;

std::string huge(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr};
}

}  // namespace

std::string Metres(double value) { return std::abs(value) < kHuge ? FormatFixed3(value) : huge(value); }
std::string OneDecimal(double value)
{
    return std::abs(value) < kHuge ? LeadingZeroText(Round(value, 1)) : huge(value);
}

std::string Percent(double slope)
{
    return (std::abs(slope) < kHuge ? LeadingZeroText(Round(slope, 3)) : huge(slope)) + "%";
}

Findings::OfFile& Findings::of(const std::string& file)
{
    auto place = std::find_if(m_files.begin(), m_files.end(), [&](auto& f) { return f.first == file; });
    if (place == m_files.end()) place = m_files.insert(place, {file, {}});
    return place->second;
}

void Findings::add(Finding finding)
{
    auto& file = of(finding.file);
    if (file.told.size() < kFindingsPerFile)
        file.told.push_back(std::move(finding));
    else
        ++file.more;
}

void Findings::add(const std::string& file, int line, int field, std::string_view text, Severity severity)
{
    auto& place = of(file);
    if (place.told.size() < kFindingsPerFile)
        place.told.push_back({file, line, field, std::string(text), {}, severity});
    else
        ++place.more;  // a million blank lines are only counted
}

void Findings::append(Findings other)
{
    for (auto& [name, file] : other.m_files) {
        for (auto& finding : file.told) add(std::move(finding));
        of(name).more += file.more;
    }
}

void Findings::addMetres(const std::string& file, int line, int field, const std::string& text, double metres,
                         Severity severity)
{
    if (metres >= kTellMetres) add({file, line, field, text + Metres(metres) + "米", {metres, "米"}, severity});
}

std::vector<Finding> Findings::take()
{
    std::vector<Finding> all;
    for (auto& [name, file] : m_files) {
        std::move(file.told.begin(), file.told.end(), std::back_inserter(all));
        if (file.more)
            all.push_back({name,
                           0,
                           0,
                           "另有" + std::to_string(file.more) + "个问题没有列出",
                           {static_cast<double>(file.more), "个"}});
    }
    m_files.clear();
    return all;
}
