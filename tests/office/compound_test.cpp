#include "office/CompoundFile.h"

#include "office/XlsWords.h"

#include <gtest/gtest.h>

namespace {

/// A stream whose bytes tell their places.
std::string stream(std::size_t size)
{
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>((i >> 9) * 31 + i * 7 + 1);
    return bytes;
}

std::string compoundFile(const std::string& content)
{
    std::string file = std::string(kCompoundHeaderSize, 'x') + content;
    CloseCompoundFile(file, "Workbook");
    return file;
}

}  // namespace

TEST(CompoundFile, ShortStreamIsFilledWithZeros)
{
    const auto content = stream(1000);
    EXPECT_EQ(xls::workbookStream(compoundFile(content)), content + std::string(3096, '\0'));
    EXPECT_EQ(compoundFile("").size(), 512u + 4096 + 512 + 512);
}

TEST(CompoundFile, StreamKeepsItsSize)
{
    for (const std::size_t size : {4096u, 4097u, 4608u, 5000u, 65536u}) {
        const auto content = stream(size);
        EXPECT_EQ(xls::workbookStream(compoundFile(content)), content);
    }
}

TEST(CompoundFile, HeaderOfASmallFile)
{
    const auto file = compoundFile(stream(4096));
    // eight sectors of the stream, the directory in sector 8, the FAT in sector 9
    EXPECT_EQ(xls::hexBytes(file.substr(0, 84)),
              "D0 CF 11 E0 A1 B1 1A E1 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 3E 00 03 00 FE FF 09 00 06 00 "
              "00 00 00 00 00 00 00 00 00 00 01 00 00 00 08 00 00 00 00 00 00 00 00 10 00 00 FE FF FF FF 00 00 00 00 "
              "FE FF FF FF 00 00 00 00 09 00 00 00 FF FF FF FF");
    EXPECT_EQ(xls::hexBytes(file.substr(512 * 10, 44)),
              "01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 00 00 FE FF FF FF "
              "FE FF FF FF FD FF FF FF FF FF FF FF");
}

// 109 FAT sectors stand in the header and cover 109 * 128 = 13,952 sectors: the stream, the directory and the FAT
// itself.
TEST(CompoundFile, FatBeyondTheHeader)
{
    const std::size_t most = 109 * 128 - 1 - 109;
    const auto full = compoundFile(stream(most * 512));
    EXPECT_EQ(xls::hexBytes(full.substr(68, 8)), "FE FF FF FF 00 00 00 00");
    EXPECT_EQ(xls::workbookStream(full), stream(most * 512));
    const auto over = compoundFile(stream((most + 1) * 512));
    EXPECT_EQ(xls::hexBytes(over.substr(72, 4)), "01 00 00 00");
    EXPECT_EQ(xls::workbookStream(over), stream((most + 1) * 512));
}

TEST(CompoundFile, SecondDifatSector)
{
    const std::size_t size = (109 + 127) * 128 * 512;
    const auto file = compoundFile(stream(size));
    EXPECT_EQ(xls::hexBytes(file.substr(72, 4)), "02 00 00 00");
    EXPECT_EQ(xls::workbookStream(file), stream(size));
}

// The most that fits without one more FAT sector, and one sector more, over many sizes.
TEST(CompoundFile, EverySizeAroundAFatSector)
{
    for (std::size_t sectors = 120; sectors < 135; ++sectors)
        EXPECT_EQ(xls::workbookStream(compoundFile(stream(sectors * 512))), stream(sectors * 512));
}
