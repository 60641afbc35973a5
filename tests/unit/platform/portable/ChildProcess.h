#pragma once

#include <cstdio>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

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

/// Makes this process that of a user whom access rights bind; nothing to do where it is one already.
inline void BecomePlainUser() {
    constexpr unsigned Nobody = 65534;
    if (::geteuid() != 0) return;
    ASSERT_EQ(0, ::setgroups(0, nullptr));
    ASSERT_EQ(0, ::setresgid(Nobody, Nobody, Nobody));
    ASSERT_EQ(0, ::setresuid(Nobody, Nobody, Nobody));
}

} // namespace nesk::testing
