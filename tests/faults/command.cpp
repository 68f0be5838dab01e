// faults_command [--all | --kills N] [--part K/N] COMPANION SAMPLES: velumark-calc under faults. Each command line is
// run once to count its file calls, then once for each of them with that call failing; afterwards every file is the
// whole old or the whole new one and nothing is left beside them; it ends with 0 only where everything was read and
// written.
//   --all      every call with every error; without it each call with its usual one
//   --kills N  instead: N kills at random moments; a command that reads everything runs through afterwards

#include "faults/Errors.h"
#include "faults/Tree.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace faults;

namespace {

struct CommandLine {
    const char* name;
    std::vector<std::string> words;  ///< after --workspace FOLDER
    bool cleans = false;             ///< blank lines that stay in the project's files are nobody's loss
};

const std::vector<CommandLine>& commandLines()
{
    static const std::vector<CommandLine> all{
        {"coords", {"示例一", "coords", "--at", "12500", "--offset", "5"}},
        {"coords_of_an_uncleaned_project", {"有空行", "coords", "--at", "12500", "--offset", "5"}, true},
        {"coords_into_a_sheet", {"示例一", "coords", "--at", "12500", "-o", "new.xls"}},
        {"coords_over_a_sheet", {"示例一", "coords", "--at", "12500", "-o", "old.xls"}},
        {"stakeout", {"示例一", "stakeout", "--from", "12000", "--to", "13000", "--step", "20", "-o", "new.csv"}},
        {"inverse", {"示例一", "inverse", "--file", "points.txt"}},
        {"elevation", {"示例一", "elevation", "--at", "12500", "--offset", "5"}},
        {"mainpoints", {"示例一", "mainpoints", "-o", "old.xls"}},
        {"tables", {"示例二", "tables"}},
        {"phone", {"示例一", "phone", "--name", "road2"}},
        {"phone_again", {"示例一", "phone", "--name", "road1", "--overwrite"}},
        {"check", {"示例一", "check"}},
        {"accuracy", {"示例一", "check", "--accuracy"}},
        {"traverse", {"traverse", "--file", "traverse.csv", "--left", "-o", "new.xls", "--dxf", "new.dxf"}},
    };
    return all;
}

struct Ran {
    int status = 0;
    std::string out, err;
    long calls = 0;
    std::string hit;
    bool good() const { return WIFEXITED(status) && WEXITSTATUS(status) == 0; }
};

class Bench {
public:
    Bench(std::string companion, const fs::path& samples)
        : m_companion(std::move(companion)),
          m_scratch(fs::temp_directory_path() / ("velumark-faults-" + std::to_string(getpid())))
    {
        const auto projects = original() / "参数文件";
        fs::create_directories(projects);
        for (const char* project : {"示例一", "示例二"}) fs::copy(samples / project, projects / project);
        fs::copy(samples / "示例一", projects / "有空行");
        fs::remove(projects / "有空行" / "断链参数.txt");
        for (const char* file : {"平曲线参数.txt", "超高参数.txt"})
            std::ofstream(projects / "有空行" / file, std::ios::binary | std::ios::app) << "\r\n\r\n";
        fs::copy_file(samples / "项目名称.txt", projects / "项目名称.txt");
        fs::copy_file(samples / "附合导线.csv", original() / "traverse.csv");
        fs::create_directories(original() / "tmp");
        std::ofstream(original() / "old.xls") << std::string(3000, 'o');
        std::ofstream(original() / "points.txt") << "2856575,512894\r\n";
        fs::create_directories(work());
        restore(original(), work());
        run({"示例一", "phone", "--name", "road1"}, 0, 0);
        fs::copy(work() / "SJCS", original() / "SJCS", fs::copy_options::recursive);
        m_tree = treeOf(original());
    }
    ~Bench() { fs::remove_all(m_scratch); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    fs::path original() const { return m_scratch / "original"; }
    fs::path work() const { return m_scratch / "work"; }
    fs::path states() const { return m_scratch / "states"; }
    /// The folder as every command finds it, made anew unless it still is.
    void prepare() const
    {
        if (treeOf(work()) != m_tree) restore(original(), work());
    }

    pid_t start(const std::vector<std::string>& words, long at, int error, bool keepStates = false) const
    {
        const pid_t child = fork();
        if (child != 0) return child;
        const auto redirect = [&](const char* name, int to) {
            dup2(open((m_scratch / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), to);
        };
        redirect("out", STDOUT_FILENO);
        redirect("err", STDERR_FILENO);
        if (chdir(work().c_str()) != 0) _exit(126);
        setenv("VM_FAULTS_ROOT", work().c_str(), 1);
        setenv("VM_FAULTS_AT", std::to_string(at).c_str(), 1);
        setenv("VM_FAULTS_ERROR", std::to_string(error).c_str(), 1);
        setenv("VM_FAULTS_REPORT", (m_scratch / "report").c_str(), 1);
        setenv("TMPDIR", (work() / "tmp").c_str(), 1);
        if (keepStates) setenv("VM_FAULTS_STATES", states().c_str(), 1);
        setenv("LD_PRELOAD", VM_FAULTS_SHIM, 1);
        std::vector<std::string> all{m_companion, "--workspace", work().string()};
        all.insert(all.end(), words.begin(), words.end());
        std::vector<char*> argv;
        for (auto& word : all) argv.push_back(word.data());
        argv.push_back(nullptr);
        alarm(kPatience);
        execv(m_companion.c_str(), argv.data());
        _exit(127);
    }
    Ran finish(pid_t child) const
    {
        Ran ran;
        waitpid(child, &ran.status, 0);
        ran.out = bytesOf(m_scratch / "out");
        ran.err = bytesOf(m_scratch / "err");
        const auto report = bytesOf(m_scratch / "report");
        ran.calls = std::atol(report.c_str());
        if (const auto blank = report.find(' '); blank != std::string::npos)
            ran.hit = report.substr(blank + 1, report.find('\n') - blank - 1);
        return ran;
    }
    Ran run(const std::vector<std::string>& words, long at, int error, bool keepStates = false) const
    {
        return finish(start(words, at, error, keepStates));
    }

private:
    static constexpr unsigned kPatience = 20;  // s
    std::string m_companion;
    fs::path m_scratch;
    Tree m_tree;
};

struct Good {
    Ran run;
    Tree tree;
    WholeStates whole;
};

Good withoutFaults(const Bench& bench, const CommandLine& line)
{
    Good good;
    bench.prepare();
    good.whole.add(treeOf(bench.work()));
    fs::remove_all(bench.states());
    fs::create_directories(bench.states());
    const auto first = bench.run(line.words, 0, 0, true);
    for (int k = 1; fs::exists(bench.states() / std::to_string(k)); ++k)
        good.whole.add(treeOf(bench.states() / std::to_string(k)));
    bench.prepare();
    good.run = bench.run(line.words, 0, 0);
    good.tree = treeOf(bench.work());
    good.whole.add(good.tree);
    const bool found = std::string_view(line.name) == "check" && !good.run.good();  // findings end with 1
    if (first.calls != good.run.calls || good.run.calls == 0 || !(good.run.good() || found)) {
        std::fprintf(stderr, "%s: %ld calls, then %ld, status %d\n%s", line.name, first.calls, good.run.calls,
                     good.run.status, good.run.err.c_str());
        std::exit(1);
    }
    return good;
}

std::vector<std::string> judge(const CommandLine& line, const Good& good, const Ran& ran, const Tree& tree)
{
    auto wrong = good.whole.faultsOf(tree);
    if (ran.hit.empty()) wrong.push_back("the call was not reached");
    if (!WIFEXITED(ran.status)) {
        wrong.push_back("signal " + std::to_string(WTERMSIG(ran.status)));
    } else if (ran.status == good.run.status) {
        if (ran.out != good.run.out) wrong.push_back("another result with the same end: " + ran.out.substr(0, 200));
        if (tree != good.tree && !line.cleans) wrong.push_back("not said; differs:" + difference(tree, good.tree));
    } else if (ran.err.empty() &&
               (ran.out.empty() || ran.out == good.run.out)) {  // a check tells it among its findings
        wrong.push_back("ends with " + std::to_string(WEXITSTATUS(ran.status)) + " and no word");
    }
    return wrong;
}

int underFaults(const Bench& bench, const CommandLine& line, bool all)
{
    const auto good = withoutFaults(bench, line);
    int runs = 0, bad = 0;
    for (long n = 1; n <= good.run.calls; ++n) {
        for (const int error : errorsOf(all)) {
            ++runs;
            bench.prepare();
            const auto ran = bench.run(line.words, n, error);
            const auto wrong = judge(line, good, ran, treeOf(bench.work()));
            if (wrong.empty()) continue;
            ++bad;
            std::fprintf(stderr, "  %s, call %ld, %s, %s\n", line.name, n, nameOf(error).c_str(), ran.hit.c_str());
            for (const auto& each : wrong) std::fprintf(stderr, "    %s\n", each.c_str());
            if (!ran.err.empty()) std::fprintf(stderr, "    said: %s", ran.err.c_str());
        }
    }
    std::printf("%-32s %4ld calls, %5d runs, %d bad\n", line.name, good.run.calls, runs, bad);
    return bad;
}

int underKills(const Bench& bench, const CommandLine& line, int kills, std::mt19937& random)
{
    const auto good = withoutFaults(bench, line);
    bench.prepare();
    const auto begin = std::chrono::steady_clock::now();
    bench.run(line.words, 0, 0);
    const auto most = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
    int bad = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const bool atCall = kill % 2 == 0;
        const long at = atCall ? 1 + static_cast<long>(random() % static_cast<unsigned long>(good.run.calls)) : 0;
        bench.prepare();
        const pid_t child = bench.start(line.words, at, 0);
        if (!atCall) {
            std::this_thread::sleep_for(std::chrono::microseconds(random() % static_cast<unsigned long>(most.count())));
            ::kill(child, SIGKILL);
        }
        const auto ran = bench.finish(child);
        auto wrong = good.whole.faultsOf(treeOf(bench.work()), true);
        if (atCall && !WIFSIGNALED(ran.status)) wrong.push_back("the call was not reached");
        // check tells of what it finds by its end; what it cannot read it would tell by another.
        for (const char* project : {"示例一", "示例二", "有空行"})
            if (!bench.run({project, "tables"}, 0, 0).good()) wrong.push_back(std::string("does not open: ") + project);
        if (wrong.empty()) continue;
        ++bad;
        std::fprintf(stderr, "  %s, kill %d\n", line.name, kill);
        for (const auto& each : wrong) std::fprintf(stderr, "    %s\n", each.c_str());
    }
    std::printf("%-32s %4d kills, %d bad\n", line.name, kills, bad);
    return bad;
}

}  // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    bool all = false;
    int kills = 0, part = 1, parts = 1;
    std::vector<std::string> names;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--all")
            all = true;
        else if (word == "--kills" && i + 1 < argc)
            kills = std::atoi(argv[++i]);
        else if (word == "--part" && i + 1 < argc)
            std::sscanf(argv[++i], "%d/%d", &part, &parts);
        else
            names.push_back(word);
    }
    if (names.size() < 2) return std::fprintf(stderr, "faults_command [option...] COMPANION SAMPLES [NAME...]\n"), 2;
    const Bench bench(fs::absolute(names[0]).string(), names[1]);
    names.erase(names.begin(), names.begin() + 2);

    std::vector<CommandLine> chosen;
    for (const auto& line : commandLines())
        if (names.empty() || std::find(names.begin(), names.end(), line.name) != names.end()) chosen.push_back(line);
    int bad = 0;
    std::mt19937 random(12);
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        if (static_cast<int>(i) % parts != part - 1) continue;
        const auto sharedUpTo = [&](std::size_t k) {
            return static_cast<int>(k * static_cast<std::size_t>(kills) / chosen.size());
        };
        bad += kills ? underKills(bench, chosen[i], sharedUpTo(i + 1) - sharedUpTo(i), random)
                     : underFaults(bench, chosen[i], all);
    }
    return bad ? 1 : 0;
}
