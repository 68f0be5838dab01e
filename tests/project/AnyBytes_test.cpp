// Whatever bytes stand in the parameter files: a load ends, stores no infinity, and writes nothing outside its project.

#include "SmallRoad.h"
#include "base/CodePage.h"
#include "project/Backups.h"
#include "project/LoadProject.h"
#include "support/FiniteTables.h"

#include <filesystem>
#include <map>
#include <random>

namespace {

class Bytes {
public:
    explicit Bytes(unsigned seed) : m_random(seed) {}

    /// From noise to nearly sound tables.
    std::string file()
    {
        std::string bytes;
        const auto pieces = pick(60);
        const bool noise = pick(4) == 0;
        for (std::size_t i = 0; i < pieces; ++i) bytes += noise ? std::string(1, char(pick(256))) : piece();
        if (pick(2)) bytes += ",\r\n";
        return bytes;
    }
    std::size_t pick(std::size_t count) { return m_random() % count; }

private:
    std::mt19937 m_random;

    std::string piece()
    {
        static const std::vector<std::string> pieces{",",
                                                     ",",
                                                     ",",
                                                     ",",
                                                     ",",
                                                     "\r\n",
                                                     "\r\n",
                                                     "\r\n",
                                                     "\r\n\r\n",
                                                     "\r",
                                                     "\n",
                                                     "0",
                                                     "-0",
                                                     "1",
                                                     "-100",
                                                     "90",
                                                     "12.5",
                                                     "1e308",
                                                     "-1.75e308",
                                                     "1e-308",
                                                     ".5",
                                                     "1e",
                                                     "abc",
                                                     " 7 ",
                                                     "\xBD",
                                                     "\xFF",
                                                     "\x80",
                                                     std::string(1, '\0'),
                                                     "100,120",
                                                     "500,490",
                                                     "3.1415926",
                                                     "0.00001",
                                                     "99999",
                                                     "-1e-320",
                                                     Cp936FromUtf8("交点法"),
                                                     Cp936FromUtf8("线性"),
                                                     "JD1,100,0,20,30,50",
                                                     "0,0,0",
                                                     "100,200,50,60,30.1520,0,-250"};
        return pieces[pick(pieces.size())];
    }
};

/// All but the project and its backups.
std::map<std::string, std::string> outside(const ProjectFolder& folder)
{
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.root())) {
        const auto path = entry.path().string();
        if (path.starts_with(folder.path("")) || path == gAppPath + "/备份" || path.starts_with(BackupPath(gProject)))
            continue;
        all[path] = entry.is_regular_file() ? ProjectFolder::bytesOf(path) : "/";
    }
    return all;
}

}  // namespace

TEST(AnyBytes, ALoadEndsAndWritesNothingOutsideItsProjectAndItsBackups)
{
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    folder.project("别的", {{"导线点参数.txt", "A,1,2,\r\n\r\n"}});
    folder.project("测试二");
    const auto before = outside(folder);
    Bytes random(1234567);
    int loaded = 0, hung = 0;
    for (int round = 0; round < 400; ++round) {
        for (const auto& file : kFiles) folder.writeBytes(file, random.pick(3) ? random.file() : "");
        if (random.pick(2)) folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n4\r\n");
        ++(loadOpenProject().neverEnds ? hung : loaded);
        ASSERT_EQ(firstNumberThatIsNotFinite(shared.tables), "") << "round " << round;
    }
    EXPECT_EQ(outside(folder), before);
    EXPECT_GT(loaded, 50);
    EXPECT_GT(hung, 50);
}
