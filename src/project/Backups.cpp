#include "project/Backups.h"

#include "base/FileBytes.h"
#include "base/FilePath.h"
#include "base/Lines.h"
#include "base/ReplaceFile.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <iomanip>
#include <locale>
#include <sstream>
#include <utility>

namespace {

using Clock = std::chrono::system_clock;
using std::chrono::milliseconds;

constexpr std::ptrdiff_t kKept = 20;
constexpr std::string_view kPattern = "0000-00-00 00.00.00.000";  // of a time in a name; names sort by it

std::string root() { return gAppPath + "/备份"; }

std::string timeText(Clock::time_point time, bool withMilliseconds = true)
{
    const auto count = std::chrono::duration_cast<milliseconds>(time.time_since_epoch()).count();
    const std::time_t seconds = Clock::to_time_t(time);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::put_time(&local, "%Y-%m-%d %H.%M.%S");
    if (withMilliseconds) text << '.' << std::setfill('0') << std::setw(3) << count % 1000;
    return text.str();
}

bool isTime(std::string_view text)
{
    return text.size() == kPattern.size() &&
           std::equal(text.begin(), text.end(), kPattern.begin(),
                      [](char is, char as) { return as == '0' ? is >= '0' && is <= '9' : is == as; });
}

struct Name {
    std::string file, time, path;
};

/// The file and the time that a backup's name tells; no file where somebody else put it there.
Name nameOf(const std::filesystem::path& path)
{
    constexpr std::string_view end = ".txt";
    const auto utf8 = path.filename().u8string(), whole = path.u8string();
    const std::string name(utf8.begin(), utf8.end());
    const auto tail = kPattern.size() + end.size();
    if (name.size() < tail + 2 || !name.ends_with(end) || name[name.size() - tail - 1] != ' ') return {};
    const std::string time = name.substr(name.size() - tail, kPattern.size());
    if (!isTime(time)) return {};
    return {name.substr(0, name.size() - tail - 1).append(end), time, {whole.begin(), whole.end()}};
}

/// In the order of their times. A folder that cannot be listed has none.
std::vector<Name> namesIn(const std::string& folder)
{
    std::vector<Name> names;
    std::error_code error;
    std::filesystem::directory_iterator at(filePath(folder), error);
    for (; !error && at != std::filesystem::directory_iterator(); at.increment(error))
        if (Name name = nameOf(at->path()); !name.file.empty()) names.push_back(std::move(name));
    std::sort(names.begin(), names.end(),
              [](const Name& a, const Name& b) { return std::pair(a.time, a.file) < std::pair(b.time, b.file); });
    return names;
}

void makeFolder(const std::string& path)
{
    std::error_code error;
    std::filesystem::create_directory(filePath(path), error);
    if (error) throw FileError(path, FileError::Writing, error);
}

std::string pathAt(const std::string& folder, std::string_view file, const std::string& time)
{
    return folder + "/" + std::string(file.substr(0, file.rfind('.'))) + " " + time + ".txt";
}

/// @throws FileError
void keep(const std::string& project, std::string_view file, const std::string& bytes)
{
    const std::string folder = BackupPath(project);
    auto names = namesIn(folder);
    std::erase_if(names, [&](const Name& name) { return name.file != file; });
    bool keptAlready = false;
    if (!names.empty()) attempt([&] { keptAlready = ReadBytes(names.back().path) == bytes; });
    if (keptAlready) return;
    makeFolder(root());
    makeFolder(folder);
    // Of two in one millisecond the second one is the later one.
    auto now = Clock::now();
    while (!names.empty() && names.back().time >= timeText(now) &&
           names.back().time < timeText(now + std::chrono::seconds(1)))
        now += milliseconds(1);
    WriteBytes(pathAt(folder, file, timeText(now)), bytes);
    // The new one stays also where the clock was set back and it sorts before the others.
    for (auto i = std::ptrdiff_t{0}; i < std::ssize(names) + 1 - kKept; ++i) {
        std::error_code ignored;  // one too many does no harm
        std::filesystem::remove(filePath(names[static_cast<std::size_t>(i)].path), ignored);
    }
}

bool keepOf(const std::string& project, std::string_view file, const std::string& bytes)
{
    try {
        keep(project, file, bytes);
        openRoad.notKept.clear();
        return true;
    } catch (const FileError& error) {
        notKept(file, error);
        return false;
    }
}

}  // namespace

void notKept(std::string_view file, const FileError& why)
{
    openRoad.notKept = std::string(file).append(" 没有备份：").append(why.reason());
}

std::string BackupPath(const std::string& project)
{
    return IsFolderName(project) ? root() + "/" + project : ProjectPath("");
}

bool keepReplaced(std::string_view file, const std::string& bytes)
{
    return !gProjectFolder.empty() || keepOf(gProject, file, bytes);
}

int rowsIn(std::string_view bytes)
{
    const auto lines = SplitLines(bytes);
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const std::string& line) { return line.find(',') != std::string::npos; }));
}

std::vector<Backup> BackupsOf(const std::string& project)
{
    std::vector<Backup> all;
    auto names = namesIn(BackupPath(project));
    std::reverse(names.begin(), names.end());
    for (Name& name : names) {
        attempt([&] {
            const int rows = rowsIn(ReadBytes(name.path));
            std::string when = name.time.substr(0, kPattern.rfind('.'));
            std::replace(when.begin(), when.end(), '.', ':');
            all.push_back({std::move(name.file), std::move(name.path), std::move(when), rows});
        });
    }
    return all;
}

void RestoreBackup(const std::string& project, const Backup& backup)
{
    const std::string bytes = ReadBytes(backup.path), path = ProjectPath(project) + "/" + backup.file;
    if (FileExists(path)) {
        const std::string now = ReadBytes(path);
        if (now == bytes) return;
        if (!now.empty()) keepOf(project, backup.file, now);
    }
    WriteBytes(path, bytes);
}

void setBackupsAside(const std::string& project)
{
    const std::string folder = BackupPath(project);
    if (!IsFolderName(project) || !FolderExists(folder)) return;
    std::error_code error;
    const std::string aside = folder + " 已删除 ";
    auto now = Clock::now();
    while (FileExists(aside + timeText(now, false))) now += std::chrono::seconds(1);
    std::filesystem::rename(filePath(folder), filePath(aside + timeText(now, false)), error);
    if (error)
        openRoad.notKept =
            "“" + project + "”的备份没有移开：" + std::string(FileError(folder, FileError::Writing, error).reason());
}
