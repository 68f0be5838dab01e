// xls_workbooks FOLDER: writes the workbooks and the drawing of the tests, for other programs to read, and random
// sheets, each with a list of its values: row, column, "n" and the number or "t" and the text in hexadecimal UTF-8, one
// cell a line.

#include "office/Dxf.h"
#include "office/DxfReader.h"
#include "office/RandomSheets.h"
#include "office/Xls.h"
#include "office/XlsWords.h"
#include "office/XlsWorkbooks.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr unsigned kRandomSheets = 300;

bool write(const std::string& path, const Worksheet& sheet)
{
    std::ofstream out(path, std::ios::binary);
    SaveXls(sheet, out);
    return static_cast<bool>(out.flush());
}

bool writeList(const std::string& path, const Worksheet& sheet)
{
    std::ofstream out(path, std::ios::binary);
    for (int row = 1; row <= sheet.rows(); ++row) {
        const auto& values = sheet.rowValues(row);
        for (std::size_t col = 0; col < values.size(); ++col) {
            if (const auto number = std::get_if<double>(&values[col]))
                out << row << ' ' << col + 1 << " n " << xls::exact(*number) << '\n';
            if (const auto text = std::get_if<std::string>(&values[col]))
                out << row << ' ' << col + 1 << " t " << xls::hexBytes(*text) << '\n';
        }
    }
    return static_cast<bool>(out.flush());
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "xls_workbooks FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + '/';
    auto all = workbooks::golden();
    all.emplace_back("chinese", workbooks::chineseTexts);
    all.emplace_back("tall", workbooks::tall);
    bool good = true;
    for (const auto& [name, sheet] : all) good = write(folder + name + ".xls", sheet()) && good;

    std::ofstream plan(folder + "plan.dxf", std::ios::binary);
    plan << DxfBytes(dxf::sample());
    good = plan.flush() && good;

    std::filesystem::create_directories(folder + "random");
    for (unsigned seed = 1; seed <= kRandomSheets; ++seed) {
        const auto sheet = random_sheets::sheet(seed);
        const auto path = folder + "random/" + std::to_string(seed);
        good = write(path + ".xls", sheet) && writeList(path + ".txt", sheet) && good;
    }
    return good ? 0 : 1;
}
