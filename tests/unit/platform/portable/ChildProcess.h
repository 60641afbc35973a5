#pragma once

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace nesk::testing {

/// How an action in a process of its own ended.
enum class ChildEnd { Good, Failed, NotPossible };

/// Runs `action` in a process of its own, in which nothing that it changes lasts. Its failures are told there
/// and make the answer Failed; NotPossible when it answers false because the system does not let it go on.
inline ChildEnd InChildProcess(const std::function<bool()>& action) {
    constexpr int FailedCode = 1;
    constexpr int NotPossibleCode = 77;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const bool possible = action();
        std::fflush(nullptr);
        ::_exit(::testing::Test::HasFailure() ? FailedCode : (possible ? 0 : NotPossibleCode));
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return ChildEnd::Failed;
    if (WEXITSTATUS(status) == NotPossibleCode) return ChildEnd::NotPossible;
    return WEXITSTATUS(status) == 0 ? ChildEnd::Good : ChildEnd::Failed;
}

/// Lets this process, which ends soon, use so much more memory than it does now. The sanitizers end a program
/// that asks for more: with them there is no limit.
inline void LimitMemory([[maybe_unused]] rlim_t megabytes) {
#ifndef __SANITIZE_ADDRESS__
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    ASSERT_GT(pages, 0U);
    rlimit limit{};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_AS, &limit));
    limit.rlim_cur = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
    ASSERT_EQ(0, ::setrlimit(RLIMIT_AS, &limit));
    // What was used before and given back would come on top.
    constexpr std::size_t Piece = std::size_t{1} << 20;
    static std::vector<std::unique_ptr<char[]>> taken;
    try {
        for (;;)
            taken.push_back(std::make_unique_for_overwrite<char[]>(Piece));
    } catch (const std::bad_alloc&) {
        limit.rlim_cur += megabytes << 20U;
    }
    ASSERT_EQ(0, ::setrlimit(RLIMIT_AS, &limit));
#endif
}

/// Makes this process that of a user whom access rights bind; nothing to do where it is one already.
inline void BecomePlainUser() {
    constexpr unsigned Nobody = 65534;
    if (::geteuid() != 0) return;
    ASSERT_EQ(0, ::setgroups(0, nullptr));
    ASSERT_EQ(0, ::setresgid(Nobody, Nobody, Nobody));
    ASSERT_EQ(0, ::setresuid(Nobody, Nobody, Nobody));
}

} // namespace nesk::testing
