#pragma once

#include <cstddef>
#include <cstdio>
#include <exception>
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

/// How an action in a child process ended.
enum class ChildEnd { Good, Failed, NotPossible };

/// Runs `action` in a child process, so its changes do not last. The child prints its test failures, and the
/// result is then Failed. The result is NotPossible if the action returns false because the system does not
/// allow it to continue.
inline ChildEnd InChildProcess(const std::function<bool()>& action) {
    constexpr int FailedCode = 1;
    constexpr int NotPossibleCode = 77;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        bool possible = true;
        // An exception that escaped would make the child go on with the parent's tests.
        try {
            possible = action();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        std::fflush(nullptr);
        ::_exit(::testing::Test::HasFailure() ? FailedCode : (possible ? 0 : NotPossibleCode));
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return ChildEnd::Failed;
    if (WEXITSTATUS(status) == NotPossibleCode) return ChildEnd::NotPossible;
    return WEXITSTATUS(status) == 0 ? ChildEnd::Good : ChildEnd::Failed;
}

/// Limits this process, which must end soon, to `megabytes` more memory than it uses now. Sets no limit under
/// the sanitizers, which end a program that exceeds it.
inline void LimitMemory([[maybe_unused]] rlim_t megabytes) {
#ifndef __SANITIZE_ADDRESS__
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    ASSERT_GT(pages, 0U);
    rlimit limit{};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_AS, &limit));
    limit.rlim_cur = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
    ASSERT_EQ(0, ::setrlimit(RLIMIT_AS, &limit));
    // Fill memory that was freed but is still mapped; it would come on top of the limit.
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

/// Changes this process to a user whom access rights restrict. Does nothing if it already runs as one.
inline void BecomePlainUser() {
    constexpr unsigned Nobody = 65534;
    if (::geteuid() != 0) return;
    ASSERT_EQ(0, ::setgroups(0, nullptr));
    ASSERT_EQ(0, ::setresgid(Nobody, Nobody, Nobody));
    ASSERT_EQ(0, ::setresuid(Nobody, Nobody, Nobody));
}

} // namespace nesk::testing
