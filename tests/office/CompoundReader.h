#pragma once
// A small strict reader of compound files, written from the format documents and not from the writer, to prove the
// writer by. Anything that is not as it must be throws std::runtime_error.

#include <bit>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace xls {

inline void must(bool holds, const std::string& what)
{
    if (!holds) throw std::runtime_error(what);
}

/// Bytes with a reading position.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}
    std::size_t left() const { return m_bytes.size() - m_at; }
    std::string_view take(std::size_t count)
    {
        must(count <= left(), "the bytes end too early");
        m_at += count;
        return m_bytes.substr(m_at - count, count);
    }
    unsigned u8() { return static_cast<unsigned>(number<1>()); }
    unsigned u16() { return static_cast<unsigned>(number<2>()); }
    std::uint32_t u32() { return static_cast<std::uint32_t>(number<4>()); }
    std::uint64_t u64() { return number<8>(); }
    double f64() { return std::bit_cast<double>(number<8>()); }

private:
    std::string_view m_bytes;
    std::size_t m_at = 0;

    template <int Count>
    std::uint64_t number()
    {
        const auto bytes = take(Count);
        std::uint64_t value = 0;
        for (int i = Count - 1; i >= 0; --i)
            value = value << 8 | static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
        return value;
    }
};

// --- Compound file
// ----------------------------------------------------------------------------------------------------

/// The stream "Workbook" of a compound file. Every sector of the file must belong to something, and to one thing only.
inline std::string workbookStream(std::string_view file)
{
    must(file.size() >= 512 && file.size() % 512 == 0, "not whole sectors");
    Bytes head(file.substr(0, 512));
    must(head.take(8) == "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "no compound file");
    head.take(16);
    head.u16();
    must(head.u16() == 3 && head.u16() == 0xFFFE && head.u16() == 9 && head.u16() == 6,
         "no compound file of version 3");
    head.take(10);
    const auto fatCount = head.u32(), firstDirectory = head.u32();
    head.u32();
    must(head.u32() == 4096, "threshold");
    must(head.u32() == 0xFFFFFFFE && head.u32() == 0, "small sectors are not expected");
    const auto firstDifat = head.u32(), difatCount = head.u32();

    const auto sectors = file.size() / 512 - 1;
    std::set<std::uint32_t> seen;
    const auto sector = [&](std::uint32_t number) {
        must(number < sectors, "no such sector");
        must(seen.insert(number).second, "a sector that belongs to two");
        return file.substr(512 + std::size_t(number) * 512, 512);
    };

    std::vector<std::uint32_t> fatSectors, difatSectors;
    for (int i = 0; i < 109; ++i)
        if (const auto number = head.u32(); number != 0xFFFFFFFF) fatSectors.push_back(number);
    auto next = firstDifat;
    for (; next != 0xFFFFFFFE;) {
        difatSectors.push_back(next);
        Bytes links(sector(next));
        for (int i = 0; i < 127; ++i)
            if (const auto number = links.u32(); number != 0xFFFFFFFF) fatSectors.push_back(number);
        next = links.u32();
    }
    must(difatSectors.size() == difatCount && fatSectors.size() == fatCount, "counts of FAT sectors");

    std::vector<std::uint32_t> fat;
    for (const auto number : fatSectors) {
        Bytes links(sector(number));
        for (int i = 0; i < 128; ++i) fat.push_back(links.u32());
    }
    must(fat.size() >= sectors, "the FAT does not cover the file");
    for (const auto number : fatSectors) must(fat[number] == 0xFFFFFFFD, "FAT sector not marked");
    for (const auto number : difatSectors) must(fat[number] == 0xFFFFFFFC, "DIFAT sector not marked");
    for (auto i = sectors; i < fat.size(); ++i) must(fat[i] == 0xFFFFFFFF, "a sector beyond the file");
    const auto chain = [&](std::uint32_t first) {
        std::string bytes;
        for (auto number = first; number != 0xFFFFFFFE; number = fat[number]) bytes += sector(number);
        return bytes;
    };

    const auto directory = chain(firstDirectory);
    std::string stream;
    std::uint32_t child = 0;
    for (std::size_t entry = 0; entry < directory.size() / 128; ++entry) {
        Bytes bytes(std::string_view(directory).substr(entry * 128, 128));
        std::string name;
        for (int i = 0; i < 32; ++i)
            if (const auto unit = bytes.u16()) name += static_cast<char>(unit);
        must(bytes.u16() == (name.empty() ? 0 : 2 * name.size() + 2), "length of a directory name");
        const auto kind = bytes.u8();
        bytes.u8();
        bytes.take(8);
        if (entry == 0)
            child = bytes.u32();
        else
            bytes.u32();
        must(bytes.take(36) == std::string(36, '\0'), "class, state or times");
        const auto first = bytes.u32();
        const auto size = bytes.u64();
        if (entry == 0) must(kind == 5 && name == "Root Entry", "root entry");
        if (name != "Workbook") continue;
        must(kind == 2 && child == entry, "the stream does not hang under the root");
        stream = chain(first);
        must(size >= 4096 && size <= stream.size() && stream.size() - size < 512, "size of the stream");
        stream.resize(size);
    }
    must(!stream.empty(), "no workbook in the file");
    must(seen.size() == sectors, "sectors that belong to nothing");
    return stream;
}

}  // namespace xls
