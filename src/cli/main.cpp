#include "base/Machine.h"
#include "cli/Companion.h"

#include <iostream>

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);  // so that an input that fails is told from one that ends
    PrepareStreams();
    return RunCompanion(ArgumentsOf(argc, argv), ProgramFolder(argv[0]), std::cin, std::cout, std::cerr);
}
