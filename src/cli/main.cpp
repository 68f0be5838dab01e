#include "cli/Companion.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

std::string programFolder(const char* name)
{
    std::error_code error;
    auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) program = std::filesystem::absolute(name, error);
    return program.parent_path().string();
}

#ifndef _WIN32
/// A closed input or output gets no file of a project in its place, and stays one that nothing comes from or goes to.
void keepClosed()
{
    for (int fd = 0; fd <= 2; ++fd)
        if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", fd == 0 ? O_WRONLY : O_RDONLY) < 0) std::_Exit(1);
}
#else
void keepClosed() {}
#endif

}  // namespace

int main(int argc, char** argv)
{
    keepClosed();
    std::ios::sync_with_stdio(false);  // so that an input that fails is told from one that ends
    return RunCompanion({argv + 1, argv + argc}, programFolder(argv[0]), std::cin, std::cout, std::cerr);
}
