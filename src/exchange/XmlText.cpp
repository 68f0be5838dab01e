#include "exchange/XmlText.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/Utf8.h"
#include "exchange/ExchangeError.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <optional>

namespace {

std::string fromUtf16(std::string_view bytes, bool bigEndian)
{
    if (bytes.size() % 2) throw ExchangeError("文件不是完整的 UTF-16 文本");
    std::string out;
    out.reserve(bytes.size());
    char32_t high = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
        const char32_t unit = bigEndian ? a << 8 | b : b << 8 | a;
        const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
        if (low != (high != 0)) throw ExchangeError("文件不是完整的 UTF-16 文本");
        if (low) {
            AppendCharacter(out, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
            high = 0;
        } else if (unit >= 0xD800 && unit <= 0xDBFF) {
            high = unit;
        } else {
            AppendCharacter(out, unit);
        }
    }
    if (high) throw ExchangeError("文件不是完整的 UTF-16 文本");
    return out;
}

/// The encoding that <?xml ... encoding="..."?> names, in small letters; "" where none does.
std::string declared(std::string_view bytes)
{
    if (!bytes.starts_with("<?xml")) return {};
    const auto head = bytes.substr(0, std::min(bytes.find("?>"), std::size_t{1000}));
    const auto at = head.find("encoding");
    if (at == std::string_view::npos) return {};
    const auto open = head.find_first_of("\"'", at);
    if (open == std::string_view::npos) return {};
    const auto close = head.find(head[open], open + 1);
    if (close == std::string_view::npos) return {};
    std::string name(head.substr(open + 1, close - open - 1));
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    return name;
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string fromLatin(std::string_view bytes)
{
    std::string out;
    for (const char c : bytes) AppendCharacter(out, static_cast<unsigned char>(c));
    return out;
}

}  // namespace

std::string ReadXmlFile(const std::string& path)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(filePath(path), error);
    if (!error && size > kMostXmlBytes)
        throw ExchangeError("文件太大：" + std::to_string(size / 1'000'000) + " MB，最多 " +
                            std::to_string(kMostXmlBytes / 1'000'000) + " MB");
    return ReadBytes(path);
}

std::string XmlAsUtf8(std::string bytes)
{
    if (bytes.starts_with("\xFF\xFE")) return fromUtf16(std::string_view(bytes).substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return fromUtf16(std::string_view(bytes).substr(2), true);
    if (bytes.size() > 1 && (bytes[0] == 0) != (bytes[1] == 0)) return fromUtf16(bytes, bytes[0] == 0);
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    const std::string name = declared(bytes);  // UTF-16 can't be true here: programs name it and write UTF-8
    if (isOneOf(name, {"gb2312", "gbk", "gb18030", "cp936", "936", "windows-936", "x-gbk"}))
        bytes = Utf8FromCp936(bytes);
    else if (isOneOf(name, {"iso-8859-1", "latin1", "windows-1252"}))
        bytes = fromLatin(bytes);
    else if (!isOneOf(name, {"", "utf-8", "utf8", "us-ascii", "ascii"}) && !name.starts_with("utf-16"))
        throw ExchangeError("不认识的编码“" + name + "”，请先把文件另存为 UTF-8");
    if (const auto bad = FirstBadByte(bytes); bad != std::string::npos)
        throw ExchangeError("第" + std::to_string(LineOfOffset(bytes, bad)) +
                            "行的字节不是 UTF-8，文件的编码与它所声明的不符");
    return bytes;
}

std::size_t LineOfOffset(std::string_view text, std::size_t offset)
{
    return 1 + static_cast<std::size_t>(std::count(
                   text.begin(), text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size())), '\n'));
}

namespace {

constexpr std::array<std::string_view, 13> kNotRead{
    "Surfaces", "CrossSects", "ProfSurf",  "GradeModel", "Parcels", "PipeNetworks",     "PlanFeatures",
    "Roadways", "Survey",     "Monuments", "Amendment",  "Cant",    "FeatureDictionary"};

bool isNotRead(std::string_view name) { return std::find(kNotRead.begin(), kNotRead.end(), name) != kNotRead.end(); }

/// One tag of the text, from "<" to behind ">".
struct Tag {
    std::size_t begin = 0, end = 0;
    std::string_view name;  ///< without prefix; "" for what is no element: comments, declarations
    bool closes = false, empty = false;
};

std::size_t behind(std::string_view text, std::string_view ending, std::size_t from)
{
    const auto at = text.find(ending, from);
    return at == std::string_view::npos ? text.size() : at + ending.size();
}

/// End of the tag that begins at `begin`: a ">" in an attribute's value does not count.
std::size_t tagEnd(std::string_view text, std::size_t begin)
{
    for (std::size_t i = begin + 1; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '>') return i + 1;
        if (c == '"' || c == '\'') {
            i = text.find(c, i + 1);
            if (i == std::string_view::npos) break;
        }
    }
    return text.size();
}

std::optional<Tag> nextTag(std::string_view text, std::size_t from)
{
    const auto begin = text.find('<', from);
    if (begin == std::string_view::npos) return std::nullopt;
    Tag tag{.begin = begin, .end = 0, .name = {}};
    const auto rest = text.substr(begin);
    if (rest.starts_with("<!--")) {
        tag.end = behind(text, "-->", begin + 4);
    } else if (rest.starts_with("<![CDATA[")) {
        tag.end = behind(text, "]]>", begin + 9);
    } else if (rest.starts_with("<?")) {
        tag.end = behind(text, "?>", begin + 2);
    } else if (rest.starts_with("<!")) {
        tag.end = tagEnd(text, begin);
    } else {
        tag.end = tagEnd(text, begin);
        tag.closes = rest.starts_with("</");
        const auto first = begin + (tag.closes ? 2 : 1);
        const auto last = std::min(text.find_first_of(" \t\r\n/>", first), tag.end);
        tag.name = text.substr(first, last - first);
        if (const auto colon = tag.name.find(':'); colon != std::string_view::npos) tag.name.remove_prefix(colon + 1);
        tag.empty = !tag.closes && tag.end - begin >= 3 && text[tag.end - 2] == '/';
    }
    return tag;
}

}  // namespace

void BlankWhatIsNotRead(std::string& xml)
{
    std::size_t elements = 0, from = 0, insideBegin = 0;
    int depth = 0;  // of the element that is left out, within others of its name
    std::string name;
    while (const auto tag = nextTag(xml, from)) {
        from = tag->end;
        if (name.empty()) {
            elements += !tag->name.empty() && !tag->closes;
            if (elements > kMostXmlElements)
                throw ExchangeError("文件里的元素太多（超过 " + std::to_string(kMostXmlElements) + " 个），没有导入");
            if (!tag->closes && !tag->empty && isNotRead(tag->name)) {
                name = tag->name;
                depth = 1;
                insideBegin = tag->end;
            }
        } else if (tag->name == name && !tag->empty) {
            depth += tag->closes ? -1 : 1;
            if (depth == 0) {
                const auto begin = xml.begin() + static_cast<std::ptrdiff_t>(insideBegin);
                const auto end = xml.begin() + static_cast<std::ptrdiff_t>(tag->begin);
                std::replace_if(
                    begin, end, [](char c) { return c != '\n'; }, ' ');
                name.clear();
            }
        }
    }
}
