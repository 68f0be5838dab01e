// What a person waits for: the start of the program until its window is painted, and a million rows of velumark-calc.
// Wants an X server (bench/bars brings one) and the programs of a build.

#include "Rows.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

extern char** environ;

namespace {

[[noreturn]] void fail(const std::string& why)
{
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(1);
}

/// @param output  of the new process
pid_t started(std::vector<std::string> words, const std::string& output)
{
    std::vector<char*> argv;
    for (auto& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&files, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], &files, nullptr, argv.data(), environ) != 0) fail("cannot start " + words[0]);
    posix_spawn_file_actions_destroy(&files);
    return pid;
}

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
Reply<T> reply(T* made)
{
    return {made, std::free};
}

/// The top of the window holds more than one colour.
bool isPainted(xcb_connection_t* x, xcb_window_t window)
{
    const auto image =
        reply(xcb_get_image_reply(x, xcb_get_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, 200, 40, ~0U), nullptr));
    if (!image) return false;
    const auto* data = xcb_get_image_data(image.get());
    for (int i = 4; i + 4 <= xcb_get_image_data_length(image.get()); i += 4)
        if (std::memcmp(data, data + i, 4) != 0) return true;
    return false;
}

/// Milliseconds that the threads of a process have had a processor.
double processorTime(pid_t pid)
{
    double all = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task")) {
        double nanoseconds = 0;
        std::ifstream(task.path() / "schedstat") >> nanoseconds;
        all += nanoseconds / 1e6;
    }
    return all;
}

void starts(const std::string& program)
{
    xcb_connection_t* x = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(x)) fail("no X server");
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(x, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(x);

    std::vector<double> mapped, painted, processor;
    for (int run = 0; run <= 20; ++run) {
        pid_t pid = 0;
        double untilMapped = 0, used = 0;
        const double untilPainted = milliseconds([&] {
            xcb_window_t window = 0;
            untilMapped = milliseconds([&] {
                pid = started({program}, "/dev/null");
                while (!window) {
                    const auto event = reply(xcb_wait_for_event(x));
                    if (!event) fail("the X server went");
                    if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY)
                        window = reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window;
                }
            });
            while (!isPainted(x, window)) usleep(500);
            used = processorTime(pid);
        });
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        if (run == 0) continue;  // reads from disk
        mapped.push_back(untilMapped);
        painted.push_back(untilPainted);
        processor.push_back(used);
    }
    char remark[80];
    std::snprintf(remark, sizeof remark, "%.0f to %.0f", *std::min_element(mapped.begin(), mapped.end()),
                  *std::max_element(mapped.begin(), mapped.end()));
    timeRow("start until the window is there, median of 20", medianOf(mapped), "150", remark);
    timeRow("start until it is painted, median of 20", medianOf(painted), "");
    timeRow("of that on a processor, median of 20", medianOf(processor), "");
    xcb_disconnect(x);
}

constexpr int kRows = 1'000'000;

std::string temporary(const char* name)
{
    return (std::filesystem::temp_directory_path() / ("velumark-" + std::to_string(getpid()) + name)).string();
}

/// A million lines of a stake and an offset.
void writeStakes(const std::string& path)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> stake(12000, 13000), offset(-20, 20);
    std::ofstream file(path);
    file.precision(12);
    for (int n = 0; n < kRows; ++n) file << stake(random) << ',' << offset(random) << '\n';
}

/// The coordinates of coordinate rows.
void writePlaces(const std::string& path, const std::string& rows)
{
    std::ifstream in(rows);
    std::ofstream file(path);
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        std::size_t x = 0;
        for (int comma = 0; comma < 6; ++comma) x = line.find(',', x) + 1;
        file << line.substr(x, line.rfind(',') - x) << '\n';
    }
}

/// @param output  of the command
void million(const char* what, const char* wanted, const std::string& calc, const std::string& folder,
             const std::vector<std::string>& options, const std::string& output)
{
    std::vector<std::string> words{calc, "--folder", folder};
    words.insert(words.end(), options.begin(), options.end());
    for (const auto* more : {"--format", "csv", "--no-limit"}) words.push_back(more);
    rusage usage{};
    int status = 0;
    const double wall = milliseconds([&] { wait4(started(words, output), &status, 0, &usage); });
    std::ifstream written(output);
    const auto lines = std::count(std::istreambuf_iterator<char>(written), {}, '\n');
    if (status != 0 || lines < kRows) fail(std::string(what) + ": no million rows");
    char remark[80];
    const auto seconds = [](timeval t) { return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6; };
    std::snprintf(remark, sizeof remark, "%.2f s on a processor, %ld MB",
                  seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss / 1024);
    timeRow(what, wall, wanted, remark);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) fail("bench_processes VELUMARK VELUMARK-CALC SAMPLES");
    const std::string calc = argv[2], road = std::string(argv[3]) + "/示例一";
    const std::string stakes = temporary("-stakes"), places = temporary("-places"), rows = temporary("-rows");
    million("1,000,000 rows: stakeout --no-limit to .csv", "3000", calc, road,
            {"stakeout", "--from", "12000", "--to", "13000", "--step", "0.001"}, rows);
    writeStakes(stakes);
    million("1,000,000 rows: elevation --file", "", calc, road, {"elevation", "--file", stakes}, rows);
    million("1,000,000 rows: coords --file", "", calc, road, {"coords", "--file", stakes}, rows);
    writePlaces(places, rows);
    million("1,000,000 rows: inverse --file", "", calc, road, {"inverse", "--file", places}, rows);
    for (const auto& file : {stakes, places, rows}) std::filesystem::remove(file);
    starts(argv[1]);
}
