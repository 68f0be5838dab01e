#include "support/Json.h"

#include <nlohmann/json.hpp>

struct ReadJson::Node : nlohmann::ordered_json {
    using ordered_json = nlohmann::ordered_json;
    explicit Node(const ordered_json& json) : ordered_json(json) {}
    static ReadJson of(const ordered_json& json) { return ReadJson(std::make_shared<const Node>(json)); }
    const ordered_json& value() const { return *this; }
};

ReadJson ReadJson::from(const std::string& text) { return Node::of(nlohmann::ordered_json::parse(text)); }
ReadJson ReadJson::operator[](const std::string& key) const { return Node::of(m_node->value().at(key)); }
ReadJson ReadJson::operator[](std::size_t index) const { return Node::of(m_node->value().at(index)); }
bool ReadJson::has(const std::string& key) const { return m_node->contains(key); }
std::size_t ReadJson::size() const { return m_node->size(); }

std::vector<std::pair<std::string, ReadJson>> ReadJson::members() const
{
    std::vector<std::pair<std::string, ReadJson>> all;
    for (const auto& [key, value] : m_node->items()) all.emplace_back(key, Node::of(value));
    return all;
}

std::vector<ReadJson> ReadJson::elements() const
{
    std::vector<ReadJson> all;
    for (const auto& value : m_node->value()) all.push_back(Node::of(value));
    return all;
}

bool ReadJson::isNumber() const { return m_node->is_number(); }
bool ReadJson::isText() const { return m_node->is_string(); }
double ReadJson::number() const { return m_node->value().get<double>(); }
std::string ReadJson::text() const { return m_node->value().get<std::string>(); }
bool ReadJson::operator==(const ReadJson& other) const { return m_node->value() == other.m_node->value(); }
bool ReadJson::operator==(std::nullptr_t) const { return m_node->is_null(); }
std::ostream& operator<<(std::ostream& out, const ReadJson& json) { return out << json.m_node->dump(); }
