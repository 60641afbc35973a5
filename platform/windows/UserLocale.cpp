#include "platform/UserLocale.h"

#include <windows.h>

namespace nesk::platform {

std::uint32_t UserDefaultLocale() {
    return ::GetUserDefaultLCID();
}

} // namespace nesk::platform
