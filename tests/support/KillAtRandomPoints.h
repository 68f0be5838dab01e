#pragma once
// Kills a program that rewrites a file over and over and looks at what is left of the file.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

/// Runs `rewrite` over and over in a process of its own, which says when it has been through once.
inline pid_t startRewriter(const std::function<void()>& rewrite, int ready)
{
    const pid_t child = fork();
    if (child != 0) return child;
    rewrite();
    if (::write(ready, "x", 1) != 1) _exit(1);
    while (true) rewrite();
}

/// Kills the rewriter at 200 random points of its first rounds, however slow the machine is; the file must always be
/// one of `whole`, and each of them is met.
inline void killAtRandomPoints(const std::string& path, const std::set<std::string>& whole,
                               const std::function<void()>& rewrite)
{
    std::mt19937 random(7);
    std::set<std::string> seen;
    for (int kill = 0; kill < 200; ++kill) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const auto begin = std::chrono::steady_clock::now();
        const pid_t child = startRewriter(rewrite, ready[1]);
        ASSERT_GT(child, 0);
        ::close(ready[1]);
        char byte;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        const auto round = std::chrono::steady_clock::now() - begin;
        const auto most = std::chrono::duration_cast<std::chrono::microseconds>(round).count() * 3 / 2;
        std::this_thread::sleep_for(
            std::chrono::microseconds(random() % std::max(4000ul, static_cast<unsigned long>(most))));
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        std::ifstream in(path, std::ios::binary);
        const std::string now{std::istreambuf_iterator<char>(in), {}};
        ASSERT_TRUE(whole.count(now)) << "torn at kill " << kill << ": " << now.size() << " bytes";
        seen.insert(now);
    }
    EXPECT_EQ(seen, whole);
}
