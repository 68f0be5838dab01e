#include "base/DesignNumber.h"

#include "base/Utf8.h"

#include <cstddef>

namespace {

// Signs that have no character of their own among the plain ones; no text can hold these bytes.
constexpr char kDegree = 1, kMinute = 2, kSecond = 3;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// One character in plain writing; 0 for one that no number has.
char plainCharacter(char32_t c)
{
    constexpr char32_t fullWidth = 0xFF01 - U'!';
    if (c >= 0xFF01 && c <= 0xFF5E) c -= fullWidth;
    switch (c) {
    case 0x00A0:
    case 0x3000:
        return ' ';
    case 0x2212:
        return '-';
    case 0x00B0:
        return kDegree;
    case U'\'':
    case 0x2019:
    case 0x2032:
        return kMinute;
    case U'"':
    case 0x201D:
    case 0x2033:
        return kSecond;
    default:
        return c < 128 && std::string_view("0123456789.,+-%K ").find(static_cast<char>(c)) != std::string_view::npos
                   ? static_cast<char>(c)
                   : '\0';
    }
}

/// In plain characters and without blanks; nothing where one of them parts two digits.
std::optional<std::string> plainCharacters(std::string_view text)
{
    std::string plain;
    bool blank = false;
    const auto ofNumber = [](char c) { return isDigit(c) || c == '.' || c == ','; };
    while (!text.empty()) {
        const char c = plainCharacter(TakeCharacter(text));
        if (c == '\0') return std::nullopt;
        if (c == ' ') {
            blank = true;
            continue;
        }
        if (blank && !plain.empty() && ofNumber(plain.back()) && ofNumber(c)) return std::nullopt;
        blank = false;
        plain += c;
    }
    return plain;
}

/// Takes a text from its front, piece by piece.
class Pieces {
public:
    explicit Pieces(std::string_view text) : m_rest(text) {}
    bool atEnd() const { return m_rest.empty(); }
    bool take(char c)
    {
        if (m_rest.empty() || m_rest.front() != c) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    /// As many digits as stand there; false where that is not from `least` to `most`.
    bool takeDigits(std::string& into, std::size_t least, std::size_t most = std::string_view::npos)
    {
        std::size_t n = 0;
        while (n < m_rest.size() && isDigit(m_rest[n])) ++n;
        if (n < least || n > most) return false;
        into.append(m_rest.substr(0, n));
        m_rest.remove_prefix(n);
        return true;
    }
    /// A point and digits behind it, or neither.
    bool takeDecimals(std::string& into)
    {
        if (!take('.')) return true;
        into += '.';
        return takeDigits(into, 1);
    }

private:
    std::string_view m_rest;
};

/// The number that the whole text is, without its sign.
using Reading = bool (*)(Pieces, std::string&);

bool isPlain(Pieces text, std::string& number)
{
    if (!text.takeDigits(number, 0) || !text.takeDecimals(number)) return false;
    return text.atEnd() && !number.empty();
}

bool isPercent(Pieces text, std::string& number)
{
    return text.takeDigits(number, 0) && text.takeDecimals(number) && !number.empty() && text.take('%') && text.atEnd();
}

bool hasThousands(Pieces text, std::string& number)
{
    if (!text.takeDigits(number, 1, 3) || !text.take(',')) return false;
    do {
        if (!text.takeDigits(number, 3, 3)) return false;
    } while (text.take(','));
    if (!text.take('.')) return false;
    number += '.';
    return text.takeDigits(number, 1) && text.atEnd();
}

/// Without zeros that only fill up the front.
std::string withoutLeadingZeros(const std::string& number)
{
    std::size_t zeros = 0;
    while (zeros + 1 < number.size() && number[zeros] == '0' && isDigit(number[zeros + 1])) ++zeros;
    return number.substr(zeros);
}

bool isStake(Pieces text, std::string& number)
{
    std::string stake;
    if (!text.take('K') || !text.takeDigits(stake, 1) || !text.take('+') || !text.takeDigits(stake, 3, 3) ||
        !text.takeDecimals(stake) || !text.atEnd())
        return false;
    number = withoutLeadingZeros(stake);
    return true;
}

bool isAngle(Pieces text, std::string& number)
{
    std::string degrees, minutes, seconds, decimals;
    if (!text.takeDigits(degrees, 1, 3) || !text.take(kDegree) || !text.takeDigits(minutes, 1, 2) ||
        !text.take(kMinute) || !text.takeDigits(seconds, 1, 2) || !text.takeDecimals(decimals) || !text.take(kSecond) ||
        !text.atEnd())
        return false;
    for (std::string* part : {&minutes, &seconds})
        if (part->size() == 1) part->insert(0, 1, '0');
    if (minutes > "59" || seconds > "59") return false;
    if (!decimals.empty()) decimals.erase(0, 1);  // the point
    number = withoutLeadingZeros(degrees) + "." + minutes + seconds + decimals;
    return true;
}

}  // namespace

std::optional<std::string> PlainNumber(std::string_view text, Quantity quantity)
{
    const auto characters = plainCharacters(text);
    if (!characters || characters->empty()) return characters;
    std::string_view body = *characters;
    const bool negative = body.front() == '-';
    if (negative || body.front() == '+') body.remove_prefix(1);

    const auto is = [&](Reading reading) -> std::optional<std::string> {
        std::string number;
        if (!reading(Pieces(body), number)) return std::nullopt;
        return (negative ? "-" : "") + number;
    };
    if (auto plain = is(isPlain)) return plain;
    if (auto plain = is(hasThousands)) return plain;
    switch (quantity) {
    case Quantity::Stake:
        return is(isStake);
    case Quantity::Slope:
        return is(isPercent);
    case Quantity::Angle:
        return is(isAngle);
    case Quantity::Plain:
        break;
    }
    return std::nullopt;
}
