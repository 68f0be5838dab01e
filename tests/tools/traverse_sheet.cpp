// traverse_sheet FILE.xls: an adjusted traverse of seven points as the sheet window saves it, on one page for pictures.

#include "office/Xls.h"
#include "tools/ExampleTraverse.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "traverse_sheet FILE.xls\n";
        return 2;
    }
    Worksheet sheet = exampleTraverse();
    AdjustFhdx(sheet, true);
    sheet.page.landscape = sheet.page.fitToWidth = true;
    std::ofstream out(argv[1], std::ios::binary);
    SaveXls(sheet, out);
    return out.flush() ? 0 : 1;
}
