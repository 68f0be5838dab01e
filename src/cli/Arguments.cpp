#include "cli/Arguments.h"

#include <algorithm>

const Option* FindOption(std::span<const Option> known, std::string_view name)
{
    const auto found =
        std::find_if(known.begin(), known.end(), [&](const Option& o) { return o.name == name || o.alias == name; });
    return found == known.end() ? nullptr : &*found;
}

std::vector<WayOption> OptionsOf(Way way)
{
    std::vector<WayOption> options;
    while (!way.empty()) {
        const auto end = std::min(way.find(' '), way.size());
        auto word = way.substr(0, end);
        way.remove_prefix(std::min(end + 1, way.size()));
        const bool optional = word.starts_with('[');
        if (optional) word = word.substr(1, word.size() - 2);
        options.push_back({word, !optional});
    }
    return options;
}

Arguments::Arguments(std::span<const std::string> words, std::span<const Option> known)
{
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        // A number below 0 is a value, and so is the single "-" of standard input.
        const bool isOption =
            word.size() > 1 && word[0] == '-' && (word[1] == '-' || (word[1] >= 'a' && word[1] <= 'z'));
        if (!isOption) {
            m_words.push_back(word);
            continue;
        }
        const auto equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const Option* option = FindOption(known, name);
        if (!option) throw WrongUsage("没有选项 " + name);
        const auto [place, first] = m_values.try_emplace(std::string(option->name));
        if (!first) throw WrongUsage("选项 " + std::string(option->name) + " 只能给一次");
        std::string& value = place->second;
        if (option->value.empty()) {
            if (equals != std::string::npos) throw WrongUsage("选项 " + name + " 不带值");
        } else if (equals != std::string::npos) {
            value = word.substr(equals + 1);
        } else if (i + 1 < words.size()) {
            value = words[++i];
        } else {
            throw WrongUsage("选项 " + name + " 后面缺少" + std::string(option->value));
        }
    }
}

std::string Arguments::value(std::string_view name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::string() : found->second;
}

Way Arguments::choose(std::span<const Way> ways) const
{
    std::string selectors;
    Way chosen;
    for (const Way way : ways) {
        const auto selector = OptionsOf(way).front().name;
        selectors += (selectors.empty() ? "" : " 或 ") + std::string(selector);
        if (!has(selector)) continue;
        if (!chosen.empty())
            throw WrongUsage(std::string(OptionsOf(chosen).front().name) + " 和 " + std::string(selector) +
                             " 只能用一个");
        chosen = way;
    }
    if (chosen.empty()) throw WrongUsage("缺少 " + selectors);

    const auto fitting = OptionsOf(chosen);
    for (const auto& [name, required] : fitting)
        if (required && !has(name)) throw WrongUsage("缺少 " + std::string(name));
    // An option that belongs to another way only does not fit; options that every command has belong to none.
    for (const Way way : ways)
        for (const auto& other : OptionsOf(way)) {
            const bool fits =
                std::any_of(fitting.begin(), fitting.end(), [&](const auto& f) { return f.name == other.name; });
            if (!fits && has(other.name))
                throw WrongUsage(std::string(other.name) + " 不能和 " + std::string(fitting.front().name) + " 一起用");
        }
    return chosen;
}
