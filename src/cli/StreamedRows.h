#pragma once
// Results that go out as they come, as many as there are: --no-limit.

#include "base/GridText.h"
#include "cli/Command.h"
#include "cli/RunNotes.h"
#include "dialogs/Outcome.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

inline constexpr Option kNoLimitOption{"--no-limit", "", "不限行数：--format csv 或 json 的结果边算边写到标准输出"};

/// Writes rows in blocks to standard output, so that the memory stays what a block needs, and warnings to standard
/// error at once. All rows together read as a table that is written whole.
class StreamedRows final : public RowSink {
public:
    /// @throws WrongUsage for another format than csv and json, and with -o
    StreamedRows(const Call& call, const std::vector<std::string_view>& headers, std::span<const TypedColumn> typed);

    std::function<void()> beforeWalk;
    void clear() override
    {
        if (beforeWalk) beforeWalk();
    }
    void row(ResultRow row) override;
    bool abandoned() override;  ///< nobody reads on
    void end();                 ///< what is still held; the headers even where there was no row

private:
    void writeBlock();

    const Call& m_call;
    const std::span<const TypedColumn> m_typed;
    GridText m_block;  ///< below the headers
    RunNotes m_notes;
    long m_rows = 0;
    bool m_begun = false;
};
