// What is written for a moment into the folder for temporary files is gone again, whatever that folder's name is.

#include "Place.h"

#include <gmock/gmock.h>
#include <windows.h>

namespace {

struct TemporaryFiles : Place {
    TemporaryFiles()
    {
        for (const auto* folder : {"临时", "参数文件"}) std::filesystem::create_directory(filePath(path(folder)));
        std::filesystem::copy(filePath(std::string(VM_SAMPLES) + "/示例一"), filePath(path("参数文件/示例一")));
        // What this process starts asks for them.
        for (const auto* name : {L"TMP", L"TEMP"}) {
            m_before.emplace_back(_wgetenv(name));
            SetEnvironmentVariableW(name, filePath(path("临时")).c_str());
        }
    }
    ~TemporaryFiles() override
    {
        SetEnvironmentVariableW(L"TMP", m_before[0].c_str());
        SetEnvironmentVariableW(L"TEMP", m_before[1].c_str());
    }

    /// velumark-calc of the same build. @returns its code
    static DWORD companion(const std::wstring& words)
    {
        std::wstring name(32768, L'\0');
        name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
        const auto program = std::filesystem::path(name).parent_path() / "../../velumark-calc.exe";
        std::wstring line = L"\"" + program.lexically_normal().wstring() + L"\" " + words;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION started{};
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &started))
            return DWORD(-1);
        WaitForSingleObject(started.hProcess, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(started.hProcess, &code);
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
        return code;
    }

private:
    std::vector<std::wstring> m_before;
};

TEST_F(TemporaryFiles, AWorkbookLeavesNoneBehind)
{
    const auto place = filePath(root).wstring();
    EXPECT_EQ(companion(L"--workspace \"" + place + L"\" 示例一 mainpoints -o \"" + place + L"/主点.xlsx\""), 0U);
    EXPECT_TRUE(bytes("主点.xlsx").starts_with("PK"));
    EXPECT_THAT(namesIn("临时"), testing::IsEmpty());
}

}  // namespace
