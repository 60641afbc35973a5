#include "bench/Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nesk::bench {

namespace {

// A value from the kernel's status file of this process, in bytes.
double Memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name + ":")) return std::stod(line.substr(name.size() + 1)) * 1024;
    return 0;
}

// Memory that is allocated, written once and released.
class UsedMemory {
public:
    UsedMemory(std::size_t size, bool largePages)
        : m_size(size)
        , m_memory(::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (m_memory == MAP_FAILED) return;
        ::madvise(m_memory, size, largePages ? MADV_HUGEPAGE : MADV_NOHUGEPAGE);
        constexpr std::size_t SmallPage = 4096;
        for (std::size_t at = 0; at < size; at += SmallPage)
            static_cast<volatile char*>(m_memory)[at] = 1;
    }
    ~UsedMemory() {
        if (m_memory != MAP_FAILED) ::munmap(m_memory, m_size);
    }
    UsedMemory(const UsedMemory&) = delete;
    UsedMemory& operator=(const UsedMemory&) = delete;

private:
    std::size_t m_size;
    void* m_memory;
};

// Touches memory before a measurement. On a virtual machine, unused memory is returned to the host after a
// while, and the next process that uses it waits for the host; a measured process must not be the first.
// Large pages are returned before small ones, and the system manages the two separately, so both are touched.
void WarmMemory(std::size_t size) {
    const UsedMemory large(size, true);
    const UsedMemory small(size, false);
}

[[noreturn]] void Run(const std::function<void()>& prepare, const std::function<void()>& action, int result) {
    Figures figures;
    try {
        prepare();
        // Resets the peak, so that it is the peak of the action alone.
        std::ofstream("/proc/self/clear_refs") << "5";
        const double before = Memory("VmRSS");
        const auto start = std::chrono::steady_clock::now();
        action();
        figures.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        figures.bytes = Memory("VmHWM") - before;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        ::_exit(1);
    }
    const bool written = ::write(result, &figures, sizeof figures) == sizeof figures;
    // Exits without destructors: releasing the loaded data is not part of the measurement.
    ::_exit(written ? 0 : 1);
}

} // namespace

Figures Measure(const std::function<void()>& prepare, const std::function<void()>& action,
                std::size_t memory) {
    int ends[2];
    std::fflush(nullptr);
    WarmMemory(memory);
    if (::pipe(ends) != 0) std::abort();
    const pid_t child = ::fork();
    if (child < 0) std::abort();
    if (child == 0) Run(prepare, action, ends[1]);
    ::close(ends[1]);
    Figures figures;
    const bool read = ::read(ends[0], &figures, sizeof figures) == sizeof figures;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!read || status != 0) {
        std::fprintf(stderr, "A measured process failed.\n");
        std::exit(2);
    }
    return figures;
}

double Median(std::vector<double> numbers) {
    std::sort(numbers.begin(), numbers.end());
    const std::size_t middle = numbers.size() / 2;
    return numbers.size() % 2 == 1 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
}

} // namespace nesk::bench
