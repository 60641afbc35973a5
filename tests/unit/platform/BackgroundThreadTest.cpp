#include "platform/BackgroundThread.h"

#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>

namespace nesk::platform {
namespace {

// Threads that end at once, one after the other: each of them must run.
TEST(BackgroundThreadTest, EachOfManyRuns) {
    std::mutex mutex;
    std::condition_variable changed;
    int runs = 0;
    for (int i = 1; i <= 300; ++i) {
        ASSERT_TRUE(RunInBackground([&] {
            const std::lock_guard lock(mutex);
            ++runs;
            changed.notify_all();
        }));
        std::unique_lock lock(mutex);
        ASSERT_TRUE(changed.wait_for(lock, std::chrono::seconds(10), [&] { return runs == i; })) << i;
    }
}

} // namespace
} // namespace nesk::platform
