#include "app/Start.h"

#include <cstdio>
#include <filesystem>
#include <new>

int main(int argc, char** argv)
{
    // Outside of every handler: nothing is open yet, or nothing any more.
    try {
        return runVelumark(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("velumark：内存不足\n", stderr);
    } catch (const std::filesystem::filesystem_error& error) {
        std::fprintf(stderr, "velumark：%s\n", error.what());
    }
    return 1;
}
