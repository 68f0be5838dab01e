#pragma once
// Enough of JSON to read the published examples in tests/data. A missing member or a wrong kind throws.

#include <cctype>
#include <charconv>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct Json {
    std::variant<std::nullptr_t, bool, double, std::string, std::vector<Json>, std::map<std::string, Json>> value;

    const Json& operator[](const std::string& member) const
    {
        return std::get<std::map<std::string, Json>>(value).at(member);
    }
    const Json& operator[](std::size_t i) const { return items().at(i); }
    const std::vector<Json>& items() const { return std::get<std::vector<Json>>(value); }
    double number() const { return std::get<double>(value); }
    const std::string& text() const { return std::get<std::string>(value); }
};

class JsonReader {
public:
    static Json parse(std::string_view text)
    {
        JsonReader reader(text);
        Json value = reader.readValue();
        reader.skipBlanks();
        if (!reader.m_rest.empty()) throw std::runtime_error("text behind the value");
        return value;
    }
    /// A file of tests/data.
    static Json parseFile(const std::string& name)
    {
        std::ifstream in(std::string(VM_TEST_DATA "/") + name, std::ios::binary);
        if (!in) throw std::runtime_error("no file " + name);
        return parse(std::string(std::istreambuf_iterator<char>(in), {}));
    }

private:
    explicit JsonReader(std::string_view text) : m_rest(text) {}

    void skipBlanks()
    {
        while (!m_rest.empty() && std::isspace(static_cast<unsigned char>(m_rest[0]))) m_rest.remove_prefix(1);
    }
    bool accept(std::string_view token)
    {
        skipBlanks();
        if (!m_rest.starts_with(token)) return false;
        m_rest.remove_prefix(token.size());
        return true;
    }
    void expect(std::string_view token)
    {
        if (!accept(token)) throw std::runtime_error("no " + std::string(token) + " at " + std::string(m_rest, 0, 20));
    }
    std::string readText()
    {
        expect("\"");
        std::string text;
        while (!m_rest.empty() && m_rest[0] != '"') {
            if (m_rest[0] == '\\') m_rest.remove_prefix(1);
            if (m_rest.empty()) break;
            text += m_rest[0];
            m_rest.remove_prefix(1);
        }
        expect("\"");
        return text;
    }
    Json readValue()
    {
        skipBlanks();
        if (accept("{")) {
            std::map<std::string, Json> members;
            while (!accept("}")) {
                if (!members.empty()) expect(",");
                std::string name = readText();
                expect(":");
                members[std::move(name)] = readValue();
            }
            return {members};
        }
        if (accept("[")) {
            std::vector<Json> items;
            while (!accept("]")) {
                if (!items.empty()) expect(",");
                items.push_back(readValue());
            }
            return {items};
        }
        if (m_rest.starts_with('"')) return {readText()};
        if (accept("true")) return {true};
        if (accept("false")) return {false};
        if (accept("null")) return {nullptr};
        double number = 0;
        const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
        if (error != std::errc()) throw std::runtime_error("no value at " + std::string(m_rest, 0, 20));
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return {number};
    }

    std::string_view m_rest;
};
