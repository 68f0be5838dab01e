#pragma once
// Looks through the files of a project with a reader of its own and says what the loader takes without a word.
// It never changes a file.

#include <string>
#include <vector>

/// Something a person should know. `line` and `field` count from 1; 0 means the whole file or the whole line.
struct Finding {
    std::string file;
    int line = 0;
    int field = 0;
    std::string text;  ///< Chinese, UTF-8
};

/// One line for a person: 文件:行:项: text.
std::string FindingText(const Finding& finding);

/// All findings of the project in `folder`, in the order of the files.
std::vector<Finding> CheckProject(const std::string& folder);
