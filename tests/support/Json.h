#pragma once
// A JSON text read for a test; the library behind it is compiled once.
//
//     const auto rows = ReadJson::from(text);
//     EXPECT_EQ(rows[0]["stake"], 12100); EXPECT_EQ(rows[0]["distance"], nullptr);

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A value. What a test takes for there and is not ends it by an exception.
class ReadJson {
public:
    static ReadJson from(const std::string& text);
    ReadJson operator[](const std::string& key) const;
    ReadJson operator[](std::size_t index) const;
    bool has(const std::string& key) const;
    std::size_t size() const;
    std::vector<std::pair<std::string, ReadJson>> members() const;  ///< of an object, in their order
    std::vector<ReadJson> elements() const;                         ///< of an array

    bool isNumber() const;
    bool isText() const;
    double number() const;
    std::string text() const;

    bool operator==(const ReadJson& other) const;
    bool operator==(double value) const { return isNumber() && number() == value; }
    bool operator==(std::string_view value) const { return isText() && text() == value; }
    bool operator==(std::nullptr_t) const;
    friend std::ostream& operator<<(std::ostream& out, const ReadJson& json);

private:
    struct Node;
    explicit ReadJson(std::shared_ptr<const Node> node) : m_node(std::move(node)) {}
    std::shared_ptr<const Node> m_node;  ///< a copy of its own
};
