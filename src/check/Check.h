#pragma once
// Looks through the files of a project with a reader of its own and says what the loader takes without a word.
// It never changes a file. Findings are data: whoever shows them decides how.

#include <string>
#include <string_view>
#include <vector>

enum class Severity {
    Warning,  ///< may be meant; the program computes with it as it stands
    Error,    ///< the program stops, or reads something else than what stands there
};

/// What a finding measured, as its text tells it.
struct Amount {
    double value = 0;
    std::string_view unit;  ///< 米, 毫米, 秒, %, 公里, 个, 行, 项; empty: nothing was measured
};

/// Something a person should know. `line` and `field` count from 1; 0 means the whole file or the whole line.
struct Finding {
    std::string file;
    int line = 0;
    int field = 0;
    std::string text;  ///< Chinese, UTF-8
    Amount amount = {};
    Severity severity = Severity::Warning;
};

/// One file of a project tells at most so many findings; one more then says how many are left out.
inline constexpr int kFindingsPerFile = 1000;

/// One line for a person: 文件:行:项: text.
std::string FindingText(const Finding& finding);

/// All findings of the project in `folder`, file by file in the order of the load. A file that cannot be read is a
/// finding, and the others are looked at all the same.
std::vector<Finding> CheckProject(const std::string& folder);
