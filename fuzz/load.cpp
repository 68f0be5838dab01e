// One file of a project holds the fuzzer's bytes. A load ends, stores no infinity and no NaN, gives the same tables
// again, and writes nothing but the files of its project.

#include "base/CodePage.h"
#include "dialogs/Dialogs.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"
#include "support/FiniteTables.h"
#include "tables/CalcTables.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#ifndef VM_MODEL
#define VM_MODEL "积木法"
#endif

namespace {

struct QuietDialogs : Dialogs {
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

const std::pair<const char*, const char*> kSound[] = {
    {"其他参数.txt", VM_MODEL "\r\n线性\r\n2\r\n3\r\n12\r\n"},
    {"平曲线参数.txt", "1000,1100,5000,3000,30.1520,0,0\r\n1100,1190,5086.4,3050.4,30.1520,0,-250\r\n"},
    {"竖曲线参数.txt", "1000,100.5\r\n1180,104,3000\r\n1800,108\r\n"},
    {"断链参数.txt", "1200,1230\r\n1500,1490\r\n"},
    {"导线点参数.txt", "G1,5000.5,3000.25,\r\n"},
    {"超高参数.txt", "1000,-2,-2,1100,4,-4\r\n1100,4,-4,1800,2,2\r\n"},
    {"超高宽度参数.txt", "1000,1800,2,5,6,1,1.5,7,8,.75,.5,-4\r\n"},
};

void write(const std::string& file, std::string_view bytes)
{
    std::ofstream(ParameterFile(file), std::ios::binary | std::ios::trunc) << bytes;
}

void setUp()
{
    static QuietDialogs quiet;
    setDialogs(&quiet);
    const auto memory = std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();
    gAppPath = (memory / ("velumark-fuzz-" + std::to_string(getpid()))).string();
    gProject = "fuzz";
    std::filesystem::create_directories(ProjectPath(gProject));
    for (const auto& [file, text] : kSound) write(file, Cp936FromUtf8(text));  // a load leaves sound files alone
    std::atexit([] { std::filesystem::remove_all(gAppPath); });
}

void load()
{
    const Loaded loaded = loadOpenProject();
    if (loaded.neverEnds && loaded.neverEnds->line < 1) std::abort();
}

void checkTables()
{
    if (!firstNumberThatIsNotFinite(shared.tables).empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool ready = (setUp(), true);
    static_cast<void>(ready);
    write(VM_FILE, {reinterpret_cast<const char*>(data), size});

    shared = {};
    load();
    checkTables();
    const auto count = gElemCount;
    const auto amounts = gDlCum;
    const auto names = gDxdName;
    load();  // on top of itself: a broken-off load, tables that are there already
    checkTables();
    if (gElemCount != count || gDlCum != amounts || gDxdName != names) std::abort();
    int entries = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(gAppPath)) {
        static_cast<void>(entry);
        ++entries;
    }
    if (entries != 2 + static_cast<int>(std::size(kSound))) std::abort();
    return 0;
}
