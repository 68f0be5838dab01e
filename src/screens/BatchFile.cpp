#include "screens/BatchFile.h"

#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/TextFile.h"
#include "dialogs/Dialogs.h"
#include "screens/Handler.h"

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

Outcome CalcBatchFile(std::size_t fields, RowSink& rows, const std::function<void(const BatchLine&)>& add)
{
    return Handle(Trap::Silent, [&] {
        const auto path = dialogs().openFile("(*.txt)|*.txt|");
        if (!path) return;
        for (const auto& line : ReadBatchFile(*path, fields)) {
            if (rows.abandoned()) break;
            add(line);
        }
        rows.changed();
    });
}
