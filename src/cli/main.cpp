#include "cli/Companion.h"

#include <filesystem>
#include <iostream>

namespace {

std::string programFolder(const char* name)
{
    std::error_code error;
    auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) program = std::filesystem::absolute(name, error);
    return program.parent_path().string();
}

}  // namespace

int main(int argc, char** argv)
{
    return RunCompanion({argv + 1, argv + argc}, programFolder(argv[0]), std::cin, std::cout, std::cerr);
}
