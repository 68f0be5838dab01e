#include "office/DxfGroups.h"

#include <charconv>

namespace {

/// A text as one line: ^J and the like stand for control characters.
std::string oneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20)
            line += {'^', static_cast<char>(byte + 0x40)};
        else if (c == '^')
            line += "^ ";
        else
            line += c;
    }
    return line;
}

}  // namespace

void DxfGroups::text(int code, const std::string& value)
{
    const std::string number = std::to_string(code);
    m_bytes.append(number.size() < 3 ? 3 - number.size() : 0, ' ').append(number).append("\r\n");
    m_bytes.append(value).append("\r\n");
}

void DxfGroups::name(int code, const std::string& utf8) { text(code, oneLine(utf8)); }

void DxfGroups::handle(int code, DxfHandle value)
{
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, 16).ptr;
    std::string digits(buffer, end);
    for (char& c : digits)
        if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
    text(code, digits);
}

void DxfGroups::real(int code, double value)
{
    char buffer[400];
    std::string digits(buffer,
                       std::to_chars(buffer, buffer + sizeof buffer, value + 0.0, std::chars_format::fixed).ptr);
    if (digits.find('.') == std::string::npos) digits += ".0";
    text(code, digits);
}

void DxfGroups::begin(const char* section)
{
    text(0, "SECTION");
    text(2, section);
}
