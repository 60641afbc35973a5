#include "platform/BackgroundThread.h"

#include "platform/windows/Handle.h"

#include <memory>
#include <process.h>
#include <utility>

namespace nesk::platform {

namespace {

using Function = std::function<void()>;

unsigned __stdcall Run(void* parameter) {
    const std::unique_ptr<Function> function(static_cast<Function*>(parameter));
    (*function)();
    return 0;
}

} // namespace

// Not a std::thread that is detached: with the threads of MinGW, one that is started after others have ended
// sometimes never runs.
bool RunInBackground(Function function) {
    auto owned = std::make_unique<Function>(std::move(function));
    const auto thread = ::_beginthreadex(nullptr, 0, Run, owned.get(), 0, nullptr);
    if (thread == 0) return false;
    static_cast<void>(owned.release()); // the thread owns it
    const windows::Handle handle(reinterpret_cast<HANDLE>(thread));
    return true;
}

} // namespace nesk::platform
