#include "ui/RunHandler.h"

#include "base/FileError.h"
#include "dialogs/Dialogs.h"
#include "ui/DocumentWindow.h"
#include "ui/Platform.h"

#include <filesystem>
#include <new>
#include <string>

namespace {

/// The last that the person sees: unsaved sheets go into files first, as far as that is still possible.
void endAfter(int number, const std::string& what)
{
    std::string kept;
    try {
        kept = DocumentWindow::keepUnsaved();
    } catch (const std::exception&) {
        kept = "\n\n未保存的工作表没有能存入文件";
    }
    dialogs().box({.text = "实时错误 '" + std::to_string(number) + "'：\n\n" + what + kept,
                   .title = "Velumark",
                   .icon = Icon::Critical});
    platform().endProcess(1);
}

}  // namespace

void runHandler(const std::function<void()>& body)
{
    constexpr int kOutOfMemory = 7;
    try {
        body();
    } catch (const RunTimeError& error) {
        endAfter(error.number(), error.what());
    } catch (const std::bad_alloc&) {
        endAfter(kOutOfMemory, "内存不足");
    } catch (const std::filesystem::filesystem_error& error) {
        const auto path = error.path1().u8string();
        const FileError failed({path.begin(), path.end()}, FileError::Reading, error.code());
        endAfter(failed.number(), failed.what());
    }
}
