#pragma once
// The work that faults are put under: what a person does in the windows, one piece after the other.

#include "dialogs/Dialogs.h"

#include <functional>
#include <string>
#include <vector>

namespace faults {

/// Answers every question with Yes and every dialog with the path that the work has set, and keeps what was said.
class Answers final : public Dialogs {
public:
    std::vector<Msg> said;
    std::string path;      ///< of file dialogs
    bool closing = false;  ///< work is thrown away: questions are answered with No
    std::function<void()> hung;

    bool box(const Msg& msg) override
    {
        said.push_back(msg);
        return !closing;
    }
    void turn() override {}
    void turnWithInput() override { hung(); }
    std::optional<std::string> openFile(std::string_view) override { return path; }
    std::optional<std::string> saveFile(std::string_view) override { return path; }
};

struct Operation {
    const char* name;
    std::function<void(Answers&)> run;
    /// Ends without a word where it fails: what it did not write, nobody typed.
    bool silent = false;
    std::function<void()> before = [] {};  ///< changes the workspace that the work finds
};

const std::vector<Operation>& operations();

/// The workspace that every piece of work finds, below gAppPath: two projects, one of them for the phone as well, a new
/// one that has never been opened, results from last week.
void makeWorkspace(const std::string& samples);

}  // namespace faults
