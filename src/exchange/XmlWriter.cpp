#include "exchange/XmlWriter.h"

std::string XmlEscaped(std::string_view text)
{
    std::string out;
    for (const char c : text) switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\t':
            out += "&#9;";
            break;
        case '\n':
            out += "&#10;";
            break;
        case '\r':
            out += "&#13;";
            break;
        default:
            out += static_cast<unsigned char>(c) < 0x20 ? '?' : c;
        }
    return out;
}

void XmlWriter::begin(std::string_view name, Attributes attributes)
{
    m_text.append(2 * m_open.size(), ' ').append("<").append(name);
    for (const auto& [attribute, value] : attributes)
        m_text.append(" ").append(attribute).append("=\"").append(XmlEscaped(value)).append("\"");
}

void XmlWriter::open(std::string_view name, Attributes attributes)
{
    begin(name, attributes);
    m_text += ">\n";
    m_open.emplace_back(name);
}

void XmlWriter::close()
{
    const std::string name = m_open.back();
    m_open.pop_back();
    m_text.append(2 * m_open.size(), ' ').append("</").append(name).append(">\n");
}

void XmlWriter::leaf(std::string_view name, Attributes attributes, std::string_view text)
{
    begin(name, attributes);
    if (text.empty())
        m_text += "/>\n";
    else
        m_text.append(">").append(XmlEscaped(text)).append("</").append(name).append(">\n");
}
