#include "bench/ui/Windows.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/toplevel.h>

namespace nesk::bench {

namespace {

// The toolkit paints 60 times a second. Painting now includes it in the measured time without waiting for the
// next tick.
void PaintNow() {
    for (wxWindow* window : wxTopLevelWindows)
        if (window->IsShownOnScreen()) window->Update();
}

} // namespace

double Seconds(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Settle() {
    wxEventLoopBase* loop = wxEventLoop::GetActive();
    for (int i = 0; i < 3; ++i) {
        while (loop->Pending())
            loop->Dispatch();
        wxTheApp->ProcessPendingEvents();
        loop->ProcessIdle();
    }
    PaintNow();
}

double MillisecondsSettled(const std::function<void()>& action) {
    return 1000 * Seconds([&] {
               action();
               Settle();
           });
}

void Fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

} // namespace nesk::bench
