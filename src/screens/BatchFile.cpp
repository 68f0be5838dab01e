#include "screens/BatchFile.h"

#include "desk/Desk.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/TextFile.h"

BatchLine ParseBatchLine(const std::string& line, std::size_t fields)
{
    const auto texts = SplitFields(line);
    BatchLine numbers;
    for (std::size_t i = 0; i < fields; ++i) numbers.push_back(ParseNumber(at(texts, static_cast<std::ptrdiff_t>(i))));
    return numbers;
}

std::vector<BatchLine> ReadBatchFile(const std::string& path, std::size_t fields)
{
    RewriteWithoutBlankLines(path);
    const auto lines = SplitLines(ReadBytes(path));
    const auto last = LastCommaLine(lines);
    if (last < 0) throw RunTimeError(RunTimeError::Subscript);
    std::vector<BatchLine> batch;
    for (std::ptrdiff_t i = 0; i <= last; ++i) batch.push_back(ParseBatchLine(at(lines, i), fields));
    return batch;
}

std::optional<std::vector<BatchLine>> PickBatchFile(std::size_t fields)
{
    const auto path = desk().openFile("(*.txt)|*.txt|");
    if (!path) return std::nullopt;
    return ReadBatchFile(*path, fields);
}
