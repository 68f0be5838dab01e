#pragma once
// The records of a workbook's stream and its string table, read as strictly as CompoundReader.h.

#include "office/CompoundReader.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace xls {

// --- Records
// ----------------------------------------------------------------------------------------------------------

struct Record {
    unsigned kind = 0;
    std::size_t place = 0;  // in the stream
    std::string body;
};

inline std::vector<Record> records(std::string_view stream)
{
    std::vector<Record> found;
    Bytes bytes(stream);
    int depth = 0, substreams = 0;
    while (substreams < 2 || depth) {
        Record record;
        record.place = stream.size() - bytes.left();
        record.kind = bytes.u16();
        const auto size = bytes.u16();
        must(size <= 8224, "a record that is too long");
        record.body = bytes.take(size);
        if (record.kind == 0x0809) ++depth;
        if (record.kind == 0x000A) --depth, ++substreams;
        must(depth == 1 || record.kind == 0x000A, "a record outside of a substream");
        found.push_back(std::move(record));
    }
    while (bytes.left()) must(bytes.u8() == 0, "something behind the last record");
    return found;
}

inline std::string utf8(const std::vector<unsigned>& units)
{
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        unsigned c = units[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000)
            c = 0x10000 + ((c - 0xD800) * 0x400) + (units[++i] - 0xDC00);
        if (c < 0x80) {
            text += char(c);
        } else if (c < 0x800) {
            text += char(0xC0 + c / 64);
            text += char(0x80 + c % 64);
        } else if (c < 0x10000) {
            text += char(0xE0 + c / 4096);
            text += char(0x80 + c / 64 % 64);
            text += char(0x80 + c % 64);
        } else {
            text += char(0xF0 + c / 262144);
            text += char(0x80 + c / 4096 % 64);
            text += char(0x80 + c / 64 % 64);
            text += char(0x80 + c % 64);
        }
    }
    return text;
}

/// Flags byte and characters that stand whole in one record.
inline std::string text(Bytes& bytes, std::size_t count)
{
    const auto flags = bytes.u8();
    must(flags <= 1, "rich text is not expected");
    std::vector<unsigned> units;
    for (std::size_t i = 0; i < count; ++i) units.push_back(flags ? bytes.u16() : bytes.u8());
    return utf8(units);
}

/// The string table at records[at] and its continuations; `cutTexts` names those that go on in a CONTINUE.
struct StringTableRead {
    std::uint32_t uses = 0;
    std::vector<std::string> texts;
    std::vector<std::size_t> cutTexts;  // numbers of texts cut between two records
};

inline StringTableRead stringTable(const std::vector<Record>& list, std::size_t at)
{
    StringTableRead table;
    Bytes bytes(list[at].body);
    table.uses = bytes.u32();
    const auto count = bytes.u32();
    const auto goOn = [&] {
        must(++at < list.size() && list[at].kind == 0x003C, "the string table ends too early");
        bytes = Bytes(list[at].body);
    };
    for (std::uint32_t i = 0; i < count; ++i) {
        if (!bytes.left()) goOn();
        const auto length = bytes.u16();
        auto wide = bytes.u8();
        must(wide <= 1, "rich text is not expected");
        std::vector<unsigned> units;
        while (units.size() < length) {
            if (!bytes.left()) {
                goOn();
                wide = bytes.u8();
                must(wide <= 1, "flags at the head of a continuation");
                if (table.cutTexts.empty() || table.cutTexts.back() != i) table.cutTexts.push_back(i);
            }
            units.push_back(wide ? bytes.u16() : bytes.u8());
        }
        table.texts.push_back(utf8(units));
    }
    must(!bytes.left(), "something behind the string table");
    must(at + 1 >= list.size() || list[at + 1].kind != 0x003C, "a continuation too many");
    return table;
}

}  // namespace xls
