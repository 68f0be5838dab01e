#pragma once
// Lets calls of Windows fail in the test's own process, as network shares, old settings and other programs make them:
// RefusedCalls.cpp stands before the system's own functions. Without a RefusedCalls alive it only passes on.
//
//     const RefusedCalls full([](const Call& call) { return call.name == "FlushFileBuffers" ? ERROR_DISK_FULL : 0; });

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <windows.h>

struct Call {
    std::string_view name;
    std::wstring path = {};  ///< "" for a call on an open file
    DWORD access = 0;        ///< of CreateFileW
};

class RefusedCalls {
public:
    /// 0 lets the call through; anything else is the number that it fails with.
    using Answer = std::function<DWORD(const Call&)>;

    explicit RefusedCalls(Answer answer) { current = std::move(answer); }
    ~RefusedCalls() { current = nullptr; }
    RefusedCalls(const RefusedCalls&) = delete;
    RefusedCalls& operator=(const RefusedCalls&) = delete;

    static bool fails(const Call& call)
    {
        const DWORD why = current ? current(call) : 0;
        if (why != 0) SetLastError(why);
        return why != 0;
    }

    /// What GetFinalPathNameByHandleW says while it is not empty.
    static inline std::wstring finalName;

private:
    static inline Answer current;
};
