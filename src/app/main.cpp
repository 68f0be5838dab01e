#include "app/Start.h"
#include "base/FileError.h"
#include "ui/Desktop.h"

#include <filesystem>
#include <new>

int main(int argc, char** argv)
{
    // Outside of every handler: nothing is open yet, or nothing any more.
    try {
        return runVelumark(argc, argv);
    } catch (const std::bad_alloc&) {
        TellWithoutWindow("内存不足");
    } catch (const std::filesystem::filesystem_error& error) {
        const auto path = error.path1().u8string();
        TellWithoutWindow(FileError({path.begin(), path.end()}, FileError::Reading, error.code()).what());
    }
    return 1;
}
