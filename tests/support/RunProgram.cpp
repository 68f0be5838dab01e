#include "support/RunProgram.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

Ran runProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input,
               unsigned user)
{
    namespace fs = std::filesystem;
    std::string pattern = (fs::temp_directory_path() / "velumark-run-XXXXXX").string();
    EXPECT_NE(mkdtemp(pattern.data()), nullptr);
    const fs::path folder = pattern;
    std::ofstream(folder / "in", std::ios::binary) << input;

    const pid_t child = fork();
    if (child == 0) {
        const auto redirect = [&](const char* name, int flags, int to) {
            dup2(open((folder / name).c_str(), flags, 0600), to);
        };
        redirect("in", O_RDONLY, 0);
        redirect("out", O_WRONLY | O_CREAT, 1);
        redirect("err", O_WRONLY | O_CREAT, 2);
        if (user != 0 && getuid() == 0 && setuid(user) != 0) _exit(126);
        std::vector<char*> words{const_cast<char*>(program.c_str())};
        for (const auto& arg : args) words.push_back(const_cast<char*>(arg.c_str()));
        words.push_back(nullptr);
        execv(program.c_str(), words.data());
        _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    const auto text = [&](const char* name) {
        std::ifstream file(folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    Ran ran{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), text("out"), text("err")};
    fs::remove_all(folder);
    return ran;
}

std::string companionPath() { return VM_COMPANION; }

Ran runCompanion(const std::vector<std::string>& args, const std::string& input, unsigned user)
{
    return runProgram(companionPath(), args, input, user);
}
