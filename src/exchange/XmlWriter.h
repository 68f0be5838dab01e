#pragma once
// XML as it is written: elements in order, indented, attributes escaped.

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class XmlWriter {
public:
    using Attributes = std::initializer_list<std::pair<std::string_view, std::string>>;

    XmlWriter() : m_text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") {}

    void open(std::string_view name, Attributes attributes = {});
    void close();
    /// An element with a text, or an empty one.
    void leaf(std::string_view name, Attributes attributes, std::string_view text = {});
    const std::string& text() const { return m_text; }

private:
    void begin(std::string_view name, Attributes attributes);

    std::string m_text;
    std::vector<std::string> m_open;
};

/// With entities; a character that XML cannot hold becomes a question mark.
std::string XmlEscaped(std::string_view text);
