#pragma once
// The files of a project as the check reads them: raw lines with their numbers, fields as texts and numbers.
// What is kept of a file is its bytes and a few numbers a row, so that a huge file costs little more than its size.

#include "check/CheckFindings.h"
#include "check/CheckSteps.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A row of a table file that holds text: a view into its file.
struct CheckedRow {
    int line = 0;            ///< counted from 1
    std::string_view bytes;  ///< code page 936

    std::string_view raw(std::size_t field) const;        ///< bytes of a field, empty past the end
    std::string text(std::size_t field) const;            ///< UTF-8, for a person: without control characters
    std::optional<double> read(std::size_t field) const;  ///< nothing where the field is missing or no number
    double number(std::size_t field) const { return read(field).value_or(0); }  ///< as the load takes it
    std::size_t fields() const;
};

/// What a file's rows look like, and what becomes of them.
struct FileShape {
    std::string name;
    int fields = 0;      ///< of a plain row
    int textField = -1;  ///< index of a field that is free text, -1 for none
    int secondTextField = -1;
    int firstFields = 0;      ///< of a start line, 0 where the file has none
    int lastFields = 0;       ///< of an end line, 0 where the file has none
    bool closingRow = false;  ///< its table has one row more than the file
    bool loaded = true;       ///< the load cleans and reads it; false: an editor alone
};

class CheckedFile {
public:
    std::string name;
    bool missing = false;
    bool empty = true;  ///< no line holds text

    std::size_t size() const { return m_rows.size(); }
    CheckedRow operator[](std::size_t row) const
    {
        const auto& r = m_rows[row];
        return {r.line, std::string_view(m_bytes).substr(r.offset, r.length)};
    }
    CheckedRow back() const { return (*this)[size() - 1]; }

private:
    friend class FileReader;
    struct Row {
        std::uint32_t offset, length;
        std::int32_t line;
    };
    std::string m_bytes;
    std::vector<Row> m_rows;
};

// What a rule below and in the other headers is given by reference must live until its steps are made.

/// Steps that read the file and report what is wrong with its bytes, lines and fields. It is there when they are made.
std::shared_ptr<const CheckedFile> ReadChecked(const std::string& folder, const FileShape& shape, CheckSteps& steps,
                                               Findings& findings);
/// Steps that put the first lines of 其他参数.txt into `settings`, in UTF-8 as they stand after a load, with the
/// findings about them. There is always a first one.
void ReadSettings(const std::string& folder, std::vector<std::string>& settings, CheckSteps& steps, Findings& findings);
