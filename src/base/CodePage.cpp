// The one place that knows how this platform converts code page 936.

#include "base/CodePage.h"
#include "base/RunTimeError.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

bool ascii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x80; });
}

/// Bytes of the character at the front: pairs start with 81 to FE.
std::size_t characterLength(std::string_view bytes)
{
    const auto lead = static_cast<unsigned char>(bytes[0]);
    return lead >= 0x81 && lead <= 0xFE && bytes.size() > 1 ? 2 : 1;
}

}  // namespace

#ifdef _WIN32

#include <windows.h>

namespace {

std::wstring wideFrom(unsigned page, std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int count = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), count);
    return wide;
}

/// "" where some character does not convert. Windows gives the pairs that the code page leaves to its users a place of
/// their own; they have none here, so that a file means the same on every system.
std::string convert(unsigned from, unsigned to, std::string_view text)
{
    const auto wide = wideFrom(from, text);
    if (std::any_of(wide.begin(), wide.end(), [](wchar_t c) { return c >= 0xE000 && c <= 0xF8FF; })) return {};
    const int size = static_cast<int>(wide.size());
    const DWORD strict = to == 936 ? WC_NO_BEST_FIT_CHARS : 0;
    BOOL lost = FALSE;
    BOOL* const report = to == 936 ? &lost : nullptr;
    const int count = WideCharToMultiByte(to, strict, wide.data(), size, nullptr, 0, nullptr, report);
    std::string out(static_cast<std::size_t>(count), '\0');
    WideCharToMultiByte(to, strict, wide.data(), size, out.data(), count, nullptr, report);
    return lost ? std::string() : out;
}

std::string utf8From936(std::string_view bytes) { return convert(936, CP_UTF8, bytes); }
std::string from936Utf8(std::string_view text) { return convert(CP_UTF8, 936, text); }

}  // namespace

#else

#include <iconv.h>

namespace {

/// An open conversion, kept for the life of the thread.
class Conversion {
public:
    Conversion(const char* to, const char* from) : m_handle(iconv_open(to, from))
    {
        if (m_handle == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("no conversion for code page 936");
    }
    ~Conversion() { iconv_close(m_handle); }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// "" where some character does not convert.
    std::string operator()(std::string_view text)
    {
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        std::string out(text.size() * 3, '\0');
        auto* in = const_cast<char*>(text.data());
        auto inLeft = text.size();
        auto* end = out.data();
        auto outLeft = out.size();
        if (iconv(m_handle, &in, &inLeft, &end, &outLeft) == static_cast<std::size_t>(-1)) return {};
        out.resize(out.size() - outLeft);
        return out;
    }

private:
    iconv_t m_handle;
};

// The code page has one character more than the conversion of the library: the euro sign, byte 80.
constexpr char kEuro = '\x80';
constexpr std::string_view kEuroUtf8 = "\xE2\x82\xAC";

std::string utf8From936(std::string_view bytes)
{
    static thread_local Conversion conversion("UTF-8", "CP936");
    return bytes == std::string_view(&kEuro, 1) ? std::string(kEuroUtf8) : conversion(bytes);
}

std::string from936Utf8(std::string_view text)
{
    static thread_local Conversion conversion("CP936", "UTF-8");
    std::string out;
    while (true) {
        const auto euro = text.find(kEuroUtf8);
        const auto piece = text.substr(0, euro);
        auto bytes = conversion(piece);
        if (bytes.empty() && !piece.empty()) return {};
        out += bytes;
        if (euro == std::string_view::npos) return out;
        out += kEuro;
        text.remove_prefix(euro + kEuroUtf8.size());
    }
}

}  // namespace

#endif

std::string Utf8FromCp936(std::string_view bytes)
{
    if (ascii(bytes)) return std::string(bytes);
    if (auto whole = utf8From936(bytes); !whole.empty()) return whole;
    // Something in it is unknown: character by character. The second byte of a bad pair may start the next character.
    std::string text;
    while (!bytes.empty()) {
        auto length = characterLength(bytes);
        auto character = utf8From936(bytes.substr(0, length));
        if (character.empty()) {
            character = kReplacement;
            length = 1;
        }
        text += character;
        bytes.remove_prefix(length);
    }
    return text;
}

std::string Cp936FromUtf8(std::string_view text)
{
    if (ascii(text)) return std::string(text);
    auto bytes = from936Utf8(text);
    if (bytes.empty()) throw RunTimeError(RunTimeError::TypeMismatch);
    return bytes;
}
