#include "support/RunProgram.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include <windows.h>

namespace {

/// One argument as the program takes it apart again: backslashes count where a quotation mark follows.
std::wstring quoted(const std::wstring& text)
{
    std::wstring made = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : text) {
        if (c == L'"') made.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        made += c;
    }
    return made.append(backslashes, L'\\') + L'"';
}

HANDLE opened(const std::filesystem::path& path, DWORD access)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

Ran runProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input,
               unsigned user)
{
    EXPECT_EQ(user, 0u) << "programs run as whoever runs the test";
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("velumark-run-" + std::to_string(std::random_device{}()));
    fs::create_directory(folder);
    std::ofstream(folder / "in", std::ios::binary) << input;

    std::wstring line = quoted(fs::path(program).wstring());
    for (const auto& arg : args) line += L" " + quoted(fs::path(arg).wstring());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = opened(folder / "in", GENERIC_READ);
    start.hStdOutput = opened(folder / "out", GENERIC_WRITE);
    start.hStdError = opened(folder / "err", GENERIC_WRITE);
    PROCESS_INFORMATION process{};
    DWORD code = 127;
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                       &process)) {
        WaitForSingleObject(process.hProcess, INFINITE);
        EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code));
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(handle);
    const auto text = [&](const char* name) {
        std::ifstream file(folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    Ran ran{static_cast<int>(code), text("out"), text("err")};
    std::error_code held;  // a service that started meanwhile has inherited what it writes into
    fs::remove_all(folder, held);
    return ran;
}

std::string companionPath() { return VM_COMPANION; }

Ran runCompanion(const std::vector<std::string>& args, const std::string& input, unsigned user)
{
    return runProgram(companionPath(), args, input, user);
}
