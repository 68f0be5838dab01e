#include "office/CompoundFile.h"

#include "office/LittleEndian.h"

#include <cstdint>

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kSmallestStream = 4096;
constexpr std::size_t kLinksInHeader = 109;
constexpr std::size_t kLinksInSector = kSector / 4;

constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kFatSector = 0xFFFFFFFD;
constexpr std::uint32_t kDifatSector = 0xFFFFFFFC;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;

std::size_t divideUp(std::size_t a, std::size_t b) { return (a + b - 1) / b; }

void u8(std::string& out, std::uint8_t value) { appendLittleEndian(out, value); }
void u16(std::string& out, std::uint16_t value) { appendLittleEndian(out, value); }
void u32(std::string& out, std::size_t value) { appendLittleEndian(out, static_cast<std::uint32_t>(value)); }
void zeros(std::string& out, std::size_t count) { out.append(count, '\0'); }
void padSector(std::string& out) { zeros(out, divideUp(out.size(), kSector) * kSector - out.size()); }

/// How many sectors of each kind, in file order.
struct Plan {
    std::size_t stream, fat = 0, difat = 0;
    static constexpr std::size_t directory = 1;

    explicit Plan(std::size_t streamSectors) : stream(streamSectors)
    {
        // The FAT lists its own sectors too.
        while (fat * kLinksInSector < stream + directory + fat + difat) {
            ++fat;
            difat = fat > kLinksInHeader ? divideUp(fat - kLinksInHeader, kLinksInSector - 1) : 0;
        }
    }
    std::size_t firstFat() const { return stream + directory; }
    std::size_t firstDifat() const { return firstFat() + fat; }
};

// Header
//   0   8  signature
//   8  16  0
//  24   2  minor version 3E
//  26   2  major version 3
//  28   2  byte order FFFE
//  30   2  sector size as a power of two: 9
//  32   2  size of small sectors as a power of two: 6
//  34  10  0
//  44   4  number of FAT sectors
//  48   4  first directory sector
//  52   4  0
//  56   4  least size of a stream in sectors of full size: 4096
//  60   4  first sector of the small FAT: none
//  64   4  number of its sectors: 0
//  68   4  first DIFAT sector
//  72   4  number of DIFAT sectors
//  76 436  the first 109 FAT sectors
std::string header(const Plan& plan)
{
    std::string out("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    zeros(out, 16);
    for (const int value : {0x3E, 3, 0xFFFE, 9, 6}) u16(out, static_cast<std::uint16_t>(value));
    zeros(out, 10);
    u32(out, plan.fat);
    u32(out, plan.stream);
    u32(out, 0);
    u32(out, kSmallestStream);
    u32(out, kEndOfChain);
    u32(out, 0);
    u32(out, plan.difat ? plan.firstDifat() : kEndOfChain);
    u32(out, plan.difat);
    for (std::size_t i = 0; i < kLinksInHeader; ++i) u32(out, i < plan.fat ? plan.firstFat() + i : kFree);
    return out;
}

// Directory entry
//    0  64  name in UTF-16
//   64   2  bytes of the name with its closing zero
//   66   1  0 unused, 2 stream, 5 root
//   67   1  1: black node
//   68   4  left neighbour, right neighbour (4), child (4)
//   80  36  class, state and times: 0
//  116   4  first sector
//  120   8  size in bytes
void directoryEntry(std::string& out, std::string_view name, std::uint8_t kind, std::size_t child, std::size_t first,
                    std::size_t size)
{
    for (std::size_t i = 0; i < 32; ++i) u16(out, i < name.size() ? static_cast<std::uint16_t>(name[i]) : 0);
    u16(out, static_cast<std::uint16_t>(name.empty() ? 0 : 2 * name.size() + 2));
    u8(out, kind);
    u8(out, kind ? 1 : 0);
    u32(out, kNoEntry);
    u32(out, kNoEntry);
    u32(out, child);
    zeros(out, 36);
    u32(out, first);
    appendLittleEndian(out, static_cast<std::uint64_t>(size));
}

void directory(std::string& out, std::string_view streamName, std::size_t streamSize)
{
    directoryEntry(out, "Root Entry", 5, 1, kEndOfChain, 0);
    directoryEntry(out, streamName, 2, kNoEntry, 0, streamSize);
    directoryEntry(out, "", 0, kNoEntry, 0, 0);
    directoryEntry(out, "", 0, kNoEntry, 0, 0);
}

/// For each sector the next of its chain.
void fat(std::string& out, const Plan& plan)
{
    for (std::size_t i = 1; i < plan.stream; ++i) u32(out, i);
    u32(out, kEndOfChain);
    u32(out, kEndOfChain);
    for (std::size_t i = 0; i < plan.fat; ++i) u32(out, kFatSector);
    for (std::size_t i = 0; i < plan.difat; ++i) u32(out, kDifatSector);
    while (out.size() % kSector) u32(out, kFree);
}

/// The FAT sectors that the header has no room for, 127 a sector, each followed by the next DIFAT sector.
void difat(std::string& out, const Plan& plan)
{
    std::size_t link = kLinksInHeader;
    for (std::size_t sector = 0; sector < plan.difat; ++sector) {
        for (std::size_t i = 1; i < kLinksInSector; ++i, ++link)
            u32(out, link < plan.fat ? plan.firstFat() + link : kFree);
        u32(out, sector + 1 < plan.difat ? plan.firstDifat() + sector + 1 : kEndOfChain);
    }
}

}  // namespace

void CloseCompoundFile(std::string& file, std::string_view streamName)
{
    if (file.size() < kCompoundHeaderSize + kSmallestStream)
        zeros(file, kCompoundHeaderSize + kSmallestStream - file.size());
    const auto streamSize = file.size() - kCompoundHeaderSize;
    const Plan plan(divideUp(streamSize, kSector));
    file.reserve(kCompoundHeaderSize + kSector * (plan.firstDifat() + plan.difat));
    padSector(file);
    directory(file, streamName, streamSize);
    fat(file, plan);
    difat(file, plan);
    file.replace(0, kCompoundHeaderSize, header(plan));
}
