#include "platform/BackgroundThread.h"

#include <system_error>
#include <thread>
#include <utility>

namespace nesk::platform {

bool RunInBackground(std::function<void()> function) {
    try {
        std::thread(std::move(function)).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

} // namespace nesk::platform
