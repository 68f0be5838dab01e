#include "base/Machine.h"

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

std::vector<std::string> ArgumentsOf(int argc, char** argv)
{
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::string ProgramFolder(const char* name)
{
    std::error_code error;
    auto program = fs::read_symlink("/proc/self/exe", error);
    if (error) program = fs::absolute(name, error);
    return program.parent_path().string();
}

void PrepareStreams()
{
    for (int fd = 0; fd <= 2; ++fd)
        if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", fd == 0 ? O_WRONLY : O_RDONLY) < 0) std::_Exit(1);
}

bool IsLink(const fs::path& path)
{
    std::error_code error;
    return fs::is_symlink(path, error);
}

void Unprotect(const fs::path&) {}  // the rights of the folder decide
