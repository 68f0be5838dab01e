#pragma once
// The files of a project as the check reads them: raw lines with their numbers, fields as texts and numbers.

#include "cli/Check.h"

#include <optional>
#include <string>
#include <vector>

/// A row of a table file that holds text.
struct CheckedRow {
    int line = 0;                     ///< counted from 1
    std::vector<std::string> fields;  ///< UTF-8
    std::vector<double> numbers;      ///< 0 where the field is missing or no number

    double number(std::size_t field) const { return field < numbers.size() ? numbers[field] : 0; }
    std::string text(std::size_t field) const { return field < fields.size() ? fields[field] : std::string(); }
};

struct CheckedFile {
    std::string name;
    std::vector<CheckedRow> rows;
    bool missing = false;
};

/// What a file's rows look like.
struct FileShape {
    std::string name;
    int fields = 0;      ///< of a plain row
    int textField = -1;  ///< index of a field that is free text, -1 for none
    int secondTextField = -1;
    int firstFields = 0;  ///< of a start line, 0 where the file has none
    int lastFields = 0;   ///< of an end line, 0 where the file has none
};

/// Reads the file and reports what is wrong with its bytes, lines and fields.
CheckedFile ReadChecked(const std::string& folder, const FileShape& shape, std::vector<Finding>& findings);
/// The lines of 其他参数.txt, UTF-8, with the findings about them.
std::vector<std::string> ReadSettings(const std::string& folder, std::vector<Finding>& findings);
