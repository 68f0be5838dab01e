// xls_words FILE.xls: prints the records of a workbook in words.

#include "office/XlsWords.h"

#include <fstream>
#include <iostream>
#include <iterator>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "xls_words FILE.xls\n";
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    const std::string file(std::istreambuf_iterator<char>(in), {});
    try {
        std::cout << xls::words(file);
    } catch (const std::runtime_error& error) {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return 1;
    }
}
