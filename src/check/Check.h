#pragma once
// Looks through the files of a project with a reader of its own and says what the loader takes without a word.
// It never changes a file. Findings are data: whoever shows them decides how.

#include <memory>
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

/// What was measured, with its unit: 0.125 米. "" where nothing was.
std::string AmountText(const Amount& amount);

/// All findings of the project in `folder`, file by file in the order of the load. A file that cannot be read is a
/// finding, and the others are looked at all the same.
std::vector<Finding> CheckProject(const std::string& folder);

/// The same in pieces, for whoever has other things to do between them. A piece reads the bytes of one file, or looks
/// at one line, row or curve by one rule.
class CheckRun {
public:
    explicit CheckRun(std::string folder);
    ~CheckRun();
    CheckRun(const CheckRun&) = delete;
    CheckRun& operator=(const CheckRun&) = delete;

    bool done() const;
    void step();                  ///< not once it is done
    std::vector<Finding> take();  ///< once it is done

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};
