// Code page, UTF-16 files, lines, folder names, blocks of cells and printed numbers from any bytes.

#include "base/CodePage.h"
#include "base/DesignNumber.h"
#include "base/Lines.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/TabText.h"
#include "base/Utf16File.h"
#include "project/Workspace.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

void require(bool holds)
{
    if (!holds) std::abort();
}

std::string scratch()
{
    const auto memory = std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    return (memory / ("velumark-fuzz-text-" + std::to_string(getpid()))).string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);

    // What decodes without a replacement encodes back to the same bytes.
    const auto text = Utf8FromCp936(bytes);
    if (text.find("\xEF\xBF\xBD") == std::string::npos) require(Cp936FromUtf8(text) == bytes);
    // What encodes decodes to the same text.
    attempt([&] { require(Utf8FromCp936(Cp936FromUtf8(bytes)) == bytes); });

    const auto lines = SplitLines(bytes);
    if (bytes.ends_with("\r\n")) require(JoinLines({lines.begin(), lines.end() - 1}) == bytes);
    for (const auto& line : lines) require(line.find("\r\n") == std::string::npos);

    if (IsFolderName(bytes)) require(bytes.find('/') == std::string::npos && bytes != ".." && !bytes.empty());

    const auto rows = RowsOfTabText(bytes);
    require(RowsOfTabText(TabText(rows)) == rows);

    for (const auto quantity : {Quantity::Plain, Quantity::Stake, Quantity::Slope, Quantity::Angle})
        if (const auto number = PlainNumber(bytes, quantity)) {
            require(number->find_first_not_of("0123456789.-") == std::string::npos);
            require(PlainNumber(*number, quantity) == number);
        }

    static const std::string file = scratch();
    WriteBytes(file, bytes);
    const auto read = ReadUtf16File(file);
    WriteUtf16File(file, read);
    require(ReadUtf16File(file) == read);
    std::filesystem::remove(file);
    return 0;
}
