#include "exchange/LandXmlNode.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

using pugi::xml_node;

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
/// Programs write infinity as a large number too: over a kilometre this radius leaves a straight by 0.05 mm.
constexpr double kStraight = 1e10;

double numberOf(std::string_view text, const std::string& place)
{
    double value = 0;
    const auto plain = text.substr(text.starts_with('+') ? 1 : 0);
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error != std::errc() || end != plain.data() + plain.size() || !std::isfinite(value))
        throw ExchangeError(place + "：“" + std::string(text.substr(0, 40)) + "”不是数");
    return value;
}

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::string_view LocalName(const xml_node& node)
{
    std::string_view name = node.name();
    if (const auto colon = name.find(':'); colon != std::string_view::npos) name.remove_prefix(colon + 1);
    return name;
}

xml_node ChildOf(const xml_node& node, std::string_view name)
{
    for (const auto& child : node.children())
        if (LocalName(child) == name) return child;
    return {};
}

std::string TextOf(const xml_node& node)
{
    std::string text;
    for (const auto& piece : node.children())
        if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) text += piece.value();
    return text;
}

std::string WordOf(const xml_node& node, const char* name)
{
    std::string word(trimmed(node.attribute(name).as_string()));
    std::transform(word.begin(), word.end(), word.begin(), [](unsigned char c) { return std::tolower(c); });
    return word;
}

bool IsBlankText(std::string_view text) { return trimmed(text).empty(); }

std::vector<double> NumbersOf(std::string_view text, const std::string& place)
{
    std::vector<double> numbers;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const auto end = std::min(text.find_first_of(kBlanks), text.size());
        numbers.push_back(numberOf(text.substr(0, end), place));
        text.remove_prefix(end);
    }
    return numbers;
}

std::optional<double> NumberOf(const xml_node& node, const char* name, const std::string& place)
{
    const auto attribute = node.attribute(name);
    const auto text = trimmed(attribute.as_string());
    if (!attribute || text.empty()) return std::nullopt;
    return numberOf(text, (place.empty() ? "" : place + "的 ") + std::string(name));
}

double RadiusOf(const xml_node& node, const char* name, const std::string& place)
{
    const auto attribute = node.attribute(name);
    if (!attribute) throw ExchangeError(place + "：缺少 " + name);
    const auto text = trimmed(attribute.as_string());
    std::string word = WordOf(node, name);
    if (word.starts_with('+') || word.starts_with('-')) word.erase(0, 1);
    if (word == "inf" || word == "infinity" || word == "infinite") return 0;
    const double value = numberOf(text, place + "的 " + name);
    if (value < 0) throw ExchangeError(place + "：" + name + " 是负数，转向应由 rot 给出");
    return value < kStraight ? value : 0;
}
