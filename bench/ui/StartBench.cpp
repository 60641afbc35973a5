#include "bench/ui/StartBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace nesk::bench {

namespace {

using Clock = std::chrono::steady_clock;

// Many rounds: a window is painted at the next tick of its display's clock (60 per second), so single starts
// differ by up to one tick.
constexpr int Rounds = 41;
constexpr std::chrono::seconds Longest{20};

// A window may be destroyed before its attributes are queried.
int IgnoreError(::Display*, XErrorEvent*) {
    return 0;
}

class Screen {
public:
    Screen() : m_display(XOpenDisplay(nullptr)) {
        if (m_display == nullptr) std::exit(2);
        XSetErrorHandler(IgnoreError);
        XSelectInput(m_display, DefaultRootWindow(m_display), SubstructureNotifyMask);
    }
    ~Screen() { XCloseDisplay(m_display); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    // Waits until a window of usual size is mapped and painted.
    bool WaitForWindow() {
        const auto deadline = Clock::now() + Longest;
        std::vector<Window> mapped;
        while (Clock::now() < deadline) {
            while (XPending(m_display) > 0) {
                XEvent event;
                XNextEvent(m_display, &event);
                if (event.type == MapNotify) mapped.push_back(event.xmap.window);
            }
            // The window manager's frame gets its size after it is mapped, so the size is checked again each
            // time.
            if (std::any_of(mapped.begin(), mapped.end(),
                            [&](Window window) { return IsLarge(window) && IsPainted(window); }))
                return true;
            ::usleep(1000);
        }
        return false;
    }

private:
    bool IsLarge(Window window) {
        XWindowAttributes attributes;
        return XGetWindowAttributes(m_display, window, &attributes) != 0 && attributes.width > 300 &&
               attributes.height > 200;
    }

    // A mapped but unpainted window is black below the title that the window manager paints.
    bool IsPainted(Window window) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(m_display, window, &attributes) == 0) return false;
        const int bottom = attributes.height - 12;
        XImage* image = XGetImage(m_display, window, attributes.width / 2, 40, 1,
                                  static_cast<unsigned>(bottom - 40), AllPlanes, ZPixmap);
        if (image == nullptr) return false;
        bool black = true;
        for (int y = 0; y < image->height && black; ++y)
            black = XGetPixel(image, 0, y) == 0;
        XDestroyImage(image);
        return !black;
    }

    ::Display* m_display;
};

double SecondsToWindow(const std::string& program) {
    Screen screen;
    const auto start = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    }
    const bool shown = screen.WaitForWindow();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    if (!shown) {
        std::fprintf(stderr, "%s showed no window\n", program.c_str());
        std::exit(2);
    }
    // Gives the window manager time to remove the frame.
    ::usleep(300'000);
    return seconds;
}

} // namespace

void MeasureStart(Table& table, const std::string& folder) {
    const TempStation station;
    ::setenv("NESKMANAGER_STATION", station.Folder().c_str(), 1);
    // The first program on a display detects its drawing capabilities for all later programs.
    SecondsToWindow(folder + "/bench_frame");
    std::vector<double> ratios, own, empty;
    for (int round = 0; round < Rounds; ++round) {
        empty.push_back(SecondsToWindow(folder + "/bench_frame"));
        own.push_back(SecondsToWindow(folder + "/NeskManager"));
        ratios.push_back(own.back() / empty.back());
    }
    table.Heading("Start to the first painted window, medians of " + std::to_string(Rounds) + " rounds");
    table.Line("an empty frame", std::to_string(Median(empty)) + " s");
    table.Line("NeskManager", std::to_string(Median(own)) + " s");
    table.AtMost("start: times an empty frame", Median(ratios), 1.3);
}

} // namespace nesk::bench
