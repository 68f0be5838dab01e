// A writer that is ended at any moment leaves the old bytes or the new ones.

#include "Place.h"

#include "base/FileBytes.h"

#include <set>
#include <windows.h>

namespace {

TEST_F(Place, TwoHundredKillsLeaveNoHalfFile)
{
    const std::string one(300'000, '1'), two(200'000, '2');
    std::set<char> seen;
    write("表.txt", one);
    std::mt19937 chance(17);
    for (int kill = 0; kill < 200; ++kill) {
        std::wstring program(32768, L'\0');
        program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
        std::wstring line = L"\"" + program + L"\" --write-forever \"" + filePath(path("表.txt")).wstring() + L"\"";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION writer{};
        ASSERT_TRUE(
            CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &writer));
        Sleep(20 + chance() % 120);
        TerminateProcess(writer.hProcess, 9);
        WaitForSingleObject(writer.hProcess, INFINITE);
        CloseHandle(writer.hThread);
        CloseHandle(writer.hProcess);
        const auto now = ReadBytes(path("表.txt"));
        ASSERT_TRUE(now == one || now == two) << "after kill " << kill << ": " << now.size() << " bytes";
        seen.insert(now[0]);
    }
    EXPECT_EQ(seen.size(), 2U) << "the writers were ended before they had written anything";
}

}  // namespace
