#pragma once
// A .dxf file as its groups and records, for tests.

#include "office/Drawing.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace dxf {

using Group = std::pair<int, std::string>;

/// A type and what follows it up to the next one.
struct Record {
    std::string type;
    std::vector<Group> groups;

    /// The values of a code, in order.
    std::vector<std::string> all(int code) const
    {
        std::vector<std::string> found;
        for (const auto& [each, text] : groups)
            if (each == code) found.push_back(text);
        return found;
    }
    /// The first value of a code.
    std::string value(int code) const
    {
        const auto found = all(code);
        return found.empty() ? "(none)" : found.front();
    }
};

inline std::vector<Group> groups(const std::string& bytes)
{
    std::vector<Group> all;
    std::istringstream in(bytes);
    for (std::string code, value; std::getline(in, code) && std::getline(in, value);) {
        if (!code.ends_with('\r') || !value.ends_with('\r')) throw std::runtime_error("a line end without CR");
        all.emplace_back(std::stoi(code), value.substr(0, value.size() - 1));
    }
    return all;
}

/// Every record of the file in order, SECTION, TABLE and their ends among them.
inline std::vector<Record> records(const std::string& bytes)
{
    std::vector<Record> found;
    for (const auto& [code, text] : groups(bytes)) {
        if (code == 0)
            found.push_back({text, {}});
        else if (!found.empty())
            found.back().groups.emplace_back(code, text);
    }
    return found;
}

/// The records of a type.
inline std::vector<Record> records(const std::string& bytes, const std::string& type)
{
    auto all = records(bytes);
    std::erase_if(all, [&](const Record& record) { return record.type != type; });
    return all;
}

/// The records between SECTION and ENDSEC of that name.
inline std::vector<Record> section(const std::string& bytes, const std::string& name)
{
    const auto all = records(bytes);
    const auto begin = std::find_if(all.begin(), all.end(), [&](const Record& record) {
        return record.type == "SECTION" && record.value(2) == name;
    });
    const auto end = std::find_if(begin, all.end(), [](const Record& record) { return record.type == "ENDSEC"; });
    return begin == all.end() ? std::vector<Record>{} : std::vector<Record>(begin + 1, end);
}

/// The first group in which two files differ, in words; "" where they are the same.
inline std::string differenceInWords(const std::string& kept, const std::string& now)
{
    const auto before = groups(kept), after = groups(now);
    const auto word = [](const std::vector<Group>& all, std::size_t i) {
        return i < all.size() ? std::to_string(all[i].first) + " " + all[i].second : std::string("the end");
    };
    std::string place;
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
        if (i < before.size() && (before[i].first == 0 || before[i].first == 9)) place = before[i].second;
        if (word(before, i) != word(after, i))
            return "group " + std::to_string(i) + ", in " + place + ": " + word(before, i) + " became " +
                   word(after, i);
    }
    return kept == now ? "" : "bytes around the groups";
}

/// A drawing of everything that a drawing can hold, texts and styles that need care among them.
inline Drawing sample()
{
    Drawing drawing;
    drawing.styles.push_back({"样式", "宋体", true, false, 134, 2});
    drawing.activeStyle = "样式";
    drawing.blocks.push_back({"块", {4, 1.67}, {Drawing::Line{{0, 0}, {10, 5}}}});
    drawing.entities = {Drawing::Polyline{{{1, 2}, {3.5, -4}}},
                        Drawing::Line{{0.1, -0.0}, {1e6, 1e-7}},
                        Drawing::Circle{{7, 8}, 15},
                        Drawing::Text{{5, 6}, 100, "点^1\n", "样式"},
                        Drawing::Text{{5, 6}, 2, "A", "没有"},
                        Drawing::Insert{"块", {1, 1}, 5, 30}};
    return drawing;
}

}  // namespace dxf
