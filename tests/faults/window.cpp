// faults_window [--all | --kills N] [--part K/N] [OPERATION...]: the windows under faults. Each piece of work is done
// once to count its file calls, then once for each of them with that call failing; afterwards every file is the whole
// old or the whole new one, nothing is left beside them and no file is open, and what was not written was said.
//   --all      every call with every error; without it each call with its usual one
//   --kills N  instead: N kills at random moments, spread over the operations; every workspace opens again
//   --once N FOLDER OPERATION  instead: the work once, killed before call N
//   --part K/N only the K-th of N shares of the operations
// Starts itself again with the library of Shim.h in LD_PRELOAD.

#include "base/Utf16File.h"
#include "faults/Errors.h"
#include "faults/Operations.h"
#include "faults/Shim.h"
#include "faults/Tree.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QApplication>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace faults;

namespace {

constexpr unsigned kPatience = 10;  // s, after which a piece of work hangs

/// The functions of the library before this program.
struct Shim {
    decltype(&vmFaultsArm) arm;
    decltype(&vmFaultsDisarm) disarm;
    decltype(&vmFaultsHit) hit;
    decltype(&vmFaultsOnChange) onChange;
} shim;

template <class Function>
bool lookUp(Function& function, const char* name)
{
    function = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
    return function != nullptr;
}
bool findShim()
{
    return lookUp(shim.arm, "vmFaultsArm") && lookUp(shim.disarm, "vmFaultsDisarm") &&
           lookUp(shim.hit, "vmFaultsHit") && lookUp(shim.onChange, "vmFaultsOnChange");
}

std::set<std::string> openFiles()
{
    std::set<std::string> all;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const auto target = fs::read_symlink(entry.path(), gone).string();
        if (!gone && target.starts_with(gAppPath)) all.insert(target);
    }
    return all;
}

struct Done {
    std::vector<Msg> said;
    long calls = 0;
    Tree tree;
    std::set<std::string> open;  ///< files of the workspace that are still open
    bool ended = false;          ///< the work has ended the process
};

const Shared* loaded = nullptr;
WholeStates* recording = nullptr;

/// The workspace as the work finds it, made anew unless the work before has left it so.
void prepare(const Operation& operation, const fs::path& original)
{
    static const Operation* last = nullptr;
    static Tree prepared;
    if (last == &operation && treeOf(gAppPath) == prepared) return;
    restore(original, gAppPath);
    operation.before();
    prepared = treeOf(gAppPath);
    last = &operation;
}

/// Does the work once in a prepared workspace; call number `at` fails. Where the work ends the process, that is where
/// the look is taken.
Done carryOut(const Operation& operation, long at, int error)
{
    shared = *loaded;
    gProject.clear();
    Answers answers;
    setDialogs(&answers);
    answers.hung = [&] {
        std::fprintf(stderr, "  %s, call %ld hangs\n", operation.name, at);
        _exit(1);
    };
    Done done;
    const auto look = [&] {
        done.calls = shim.disarm();
        done.said = answers.said;
        done.tree = treeOf(gAppPath);
    };
    platform().endProcess = [&](int) {
        if (!done.ended) look();
        done.ended = true;
    };
    platform().keyIsDown = [](int) { return false; };
    if (recording) recording->add(treeOf(gAppPath));
    alarm(kPatience);
    shim.arm(gAppPath.c_str(), at, error);
    operation.run(answers);
    if (!done.ended) look();
    alarm(0);
    done.open = openFiles();
    setDialogs(nullptr);
    return done;
}

bool said(const std::vector<Msg>& all, const Msg& msg) { return std::find(all.begin(), all.end(), msg) != all.end(); }

/// What is wrong after a run in which a call failed.
std::vector<std::string> judge(const Operation& operation, const Done& good, const WholeStates& whole, const Done& run)
{
    auto wrong = whole.faultsOf(run.tree);
    if (*shim.hit() == 0) wrong.push_back("the call was not reached");
    if (!run.ended)
        for (const auto& file : run.open) wrong.push_back("still open: " + file);
    if (operation.silent || withoutBackups(run.tree) == withoutBackups(good.tree)) return wrong;
    const bool told =
        std::any_of(run.said.begin(), run.said.end(), [&](const Msg& msg) { return !said(good.said, msg); });
    if (!told) wrong.push_back("not said; differs:" + difference(run.tree, good.tree));
    for (const auto& msg : good.said)
        if (msg.buttons == Msg::Ok && said(run.said, msg))
            wrong.push_back("said \"" + msg.text + "\"; differs:" + difference(run.tree, good.tree));
    return wrong;
}

int inChild(const std::function<void()>& work)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        alarm(kPatience);
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

/// What the work does when all goes well, and the states of the files on the way.
std::pair<Done, WholeStates> withoutFaults(const Operation& operation, const fs::path& original)
{
    WholeStates whole;
    prepare(operation, original);
    carryOut(operation, 0, 0);  // once for what a program loads only once
    prepare(operation, original);
    recording = &whole;
    const long calls = carryOut(operation, 0, 0).calls;
    recording = nullptr;
    prepare(operation, original);
    Done good = carryOut(operation, 0, 0);
    whole.add(good.tree);
    if (calls != good.calls || good.ended || !good.open.empty()) {
        std::fprintf(stderr, "%s: %ld calls, then %ld; %s, %zu files open\n", operation.name, calls, good.calls,
                     good.ended ? "ended" : "done", good.open.size());
        std::exit(1);
    }
    return {std::move(good), std::move(whole)};
}

/// @return the number of calls under which something went wrong
int underFaults(const Operation& operation, const fs::path& original, bool all)
{
    const auto [good, whole] = withoutFaults(operation, original);
    int runs = 0, bad = 0;
    for (long n = 1; n <= good.calls; ++n) {
        for (const int error : errorsOf(all)) {
            ++runs;
            prepare(operation, original);
            const Done run = carryOut(operation, n, error);
            const auto wrong = judge(operation, good, whole, run);
            if (wrong.empty()) continue;
            ++bad;
            std::fprintf(stderr, "  %s, call %ld, %s, %s\n", operation.name, n, nameOf(error).c_str(), shim.hit());
            for (const auto& line : wrong) std::fprintf(stderr, "    %s\n", line.c_str());
            for (const auto& msg : run.said) std::fprintf(stderr, "    box: %s\n", msg.text.c_str());
        }
    }
    std::printf("%-28s %4ld calls, %5d runs, %d bad\n", operation.name, good.calls, runs, bad);
    return bad;
}

/// Everything in the workspace is read and loaded; ends the process where that fails.
void openAgain()
{
    Answers answers;
    setDialogs(&answers);
    answers.hung = [] { _exit(1); };
    for (const auto& name : OpenCatalogue()) {
        gProject = name;
        LoadProject();
    }
    for (const auto& name : ReadPhoneCatalogue())
        for (const auto& entry : fs::directory_iterator(PhoneProjectPath(name))) ReadUtf16File(entry.path().string());
}

/// Another process of this program, which does the work once and is killed before call `at` (0: not by itself). Returns
/// when it begins.
pid_t startOnce(const Operation& operation, long at)
{
    int begins[2];
    if (pipe(begins) != 0) std::abort();
    const auto number = std::to_string(at);
    const pid_t child = fork();
    if (child == 0) {
        dup2(begins[1], STDOUT_FILENO);
        execl("/proc/self/exe", "faults_window", "--once", number.c_str(), gAppPath.c_str(), operation.name, nullptr);
        _exit(127);
    }
    ::close(begins[1]);
    char byte = 0;
    if (::read(begins[0], &byte, 1) != 1) std::fprintf(stderr, "%s does not begin\n", operation.name);
    ::close(begins[0]);
    return child;
}

int underKills(const Operation& operation, const fs::path& original, int kills, std::mt19937& random)
{
    const auto [good, whole] = withoutFaults(operation, original);
    prepare(operation, original);
    const auto begin = std::chrono::steady_clock::now();
    carryOut(operation, 0, 0);
    const auto most =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin).count();

    int bad = 0;
    for (int kill = 0; kill < kills; ++kill) {
        // Every other kill comes right before a file call, the rest whenever it comes.
        const bool atCall = kill % 2 == 0 && good.calls > 0;
        const long at = atCall ? 1 + static_cast<long>(random() % static_cast<unsigned long>(good.calls)) : 0;
        prepare(operation, original);
        const pid_t child = startOnce(operation, at);
        if (!atCall) {
            std::this_thread::sleep_for(std::chrono::microseconds(random() % static_cast<unsigned long>(most)));
            ::kill(child, SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (atCall && !WIFSIGNALED(status)) std::fprintf(stderr, "%s, call %ld was not reached\n", operation.name, at);
        auto wrong = whole.faultsOf(treeOf(gAppPath), true);
        if (inChild(openAgain) != 0) wrong.push_back("does not open again");
        if (wrong.empty()) continue;
        ++bad;
        std::fprintf(stderr, "  %s, kill %d\n", operation.name, kill);
        for (const auto& line : wrong) std::fprintf(stderr, "    %s\n", line.c_str());
    }
    std::printf("%-28s %4d kills, %d bad\n", operation.name, kills, bad);
    return bad;
}

}  // namespace

int main(int argc, char** argv)
{
    if (!findShim()) {
        if (std::getenv("LD_PRELOAD")) return std::fprintf(stderr, "no %s\n", VM_FAULTS_SHIM), 2;
        setenv("LD_PRELOAD", VM_FAULTS_SHIM, 1);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        execv("/proc/self/exe", argv);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    bool all = false;
    int kills = 0, part = 1, parts = 1;
    long at = -1;
    std::string folder;
    std::vector<std::string> names;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--all")
            all = true;
        else if (word == "--kills" && i + 1 < argc)
            kills = std::atoi(argv[++i]);
        else if (word == "--once" && i + 2 < argc) {
            at = std::atol(argv[++i]);
            folder = argv[++i];
        } else if (word == "--part" && i + 1 < argc)
            std::sscanf(argv[++i], "%d/%d", &part, &parts);
        else
            names.push_back(word);
    }
    std::vector<const Operation*> chosen;
    for (const auto& operation : operations())
        if (names.empty() || std::find(names.begin(), names.end(), operation.name) != names.end())
            chosen.push_back(&operation);
    if (chosen.empty() || (!names.empty() && chosen.size() != names.size())) {
        for (const auto& operation : operations()) std::fprintf(stderr, "%s\n", operation.name);
        return 2;
    }

    for (std::size_t i = chosen.size(); i-- > 0;)
        if (static_cast<int>(i) % parts != part - 1) chosen.erase(chosen.begin() + static_cast<std::ptrdiff_t>(i));

    // What the offscreen windows cannot do is of no interest here.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    });
    QApplication app(argc, argv);
    applyTheme(app);
    Answers atStart;
    setDialogs(&atStart);
    const auto load = [](const fs::path& original) {
        gAppPath = original.string();
        gProject = "示例一";
        LoadProject();
        return shared;
    };
    if (at >= 0) {
        const Shared roads = load(fs::path(folder).parent_path() / "original");
        loaded = &roads;
        gAppPath = folder;
        if (::write(STDOUT_FILENO, "x", 1) != 1) return 1;
        carryOut(*chosen.front(), at, 0);
        return 0;
    }
    const fs::path scratch = fs::temp_directory_path() / ("velumark-faults-" + std::to_string(getpid()));
    const fs::path original = scratch / "original";
    gAppPath = original.string();
    makeWorkspace(VM_SOURCE_DIR "/samples");
    const Shared roads = load(original);
    loaded = &roads;
    gAppPath = (scratch / "work").string();
    fs::create_directories(gAppPath);
    shim.onChange([] {
        if (recording) recording->add(treeOf(gAppPath));
    });

    int bad = 0;
    std::mt19937 random(11);
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        const int share = static_cast<int>((i + 1) * static_cast<std::size_t>(kills) / chosen.size() -
                                           i * static_cast<std::size_t>(kills) / chosen.size());
        bad += kills ? underKills(*chosen[i], original, share, random) : underFaults(*chosen[i], original, all);
    }
    fs::remove_all(scratch);
    return bad ? 1 : 0;
}
